#pragma once

#include <filesystem>
#include <string>

#include "host/SafeFiles.h"

namespace host {

/// A directory with one directory a part, which holds the part's source file.
///
/// A crash at any instant leaves either the old part or the new one, whole; where names cannot be exchanged
/// the old one may stand aside until the next store puts it back. Several programs may store into one library
/// at the same time.
class PartLibrary {
public:
    explicit PartLibrary(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    /// Stores a copy of `source` as the part `name`, which must be a single file name that begins neither
    /// with a point nor is empty, and replaces what is there under that name. Raises `StoreError`.
    void Store(const std::string& name, const std::filesystem::path& source);

private:
    std::filesystem::path m_directory;
};

}  // namespace host
