#pragma once

#include <filesystem>
#include <string>

#include "host/SafeFiles.h"

namespace host {

/// What a store does where the library has the part already.
enum class Existing { Keep, Replace };

/// What became of a part that was to be stored.
enum class Outcome { New, Replaced, Kept };

/// There is no replaced part that could be put back.
struct NothingToUndo : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A directory with one directory for each part, which holds the part's source file.
///
/// A crash at any instant leaves either the old part or the new one, whole. Where a system cannot exchange
/// two names, a crash may leave the old part under another name; the next store puts it back. Several
/// programs may store into one library at the same time. A part that is replaced is moved, with all files in
/// its directory, to the directory `.veka-trash`, which keeps one replaced part of each name.
class PartLibrary {
public:
    /// `waiting` is asked while another program writes the library; without it there is no end to that.
    explicit PartLibrary(std::filesystem::path directory, Waiting waiting = nullptr);

    /// Stores a file as the part `name`. `name` and `fileName` are names of entries, and `name` does not
    /// begin with a point. Whether the library has the part is looked at under the lock. Raises `StoreError`.
    Outcome Store(const std::string& name, const std::string& fileName, const FileContent& content,
                  Existing existing);
    /// Exchanges a part with the one of that name that was replaced last; without a name, the part that was
    /// replaced last of all. Returns the name. Raises `NothingToUndo` and `StoreError`.
    std::string Undo(std::string name = "");

private:
    std::filesystem::path m_directory;
    Waiting m_waiting;
};

}  // namespace host
