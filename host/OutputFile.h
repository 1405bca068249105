#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/SafeFiles.h"

namespace host {

/// An output that cannot be written, or not where it was asked for.
struct OutputError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// An output that would damage what the program reads or stores.
struct RefusedOutput : OutputError {
    using OutputError::OutputError;
};

/// A file that takes its place once it is whole; until then whatever is there stays. It is made in a
/// directory of its own that no other user can enter, and copied from there. So another user who may write in
/// the place cannot lead the program to another file.
class OutputFile {
public:
    /// An empty path makes no file. Raises `OutputError` where something is there that is no regular file,
    /// and where there is no directory for it.
    explicit OutputFile(const std::string& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Where to write; empty if there is no file to write.
    const std::string& TemporaryPath() const { return m_temporaryPath; }
    /// Gives the file its place. Raises `OutputError`.
    void Commit();

private:
    std::optional<Directory> m_place, m_scratch, m_own;  // m_own is in m_scratch
    std::string m_name, m_temporaryPath;
};

/// Writes a file, which takes its place once it is whole. Raises `OutputError`.
void WriteOutput(const std::string& path, std::string_view bytes);

/// Raises `RefusedOutput` where an output is the input file, or lies in the place of a part of the library.
/// An empty library is none.
void RequireOutsideOf(const std::string& output, const std::string& input, const std::string& library,
                      const std::string& partName);

}  // namespace host
