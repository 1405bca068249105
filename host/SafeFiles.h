#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A library that cannot be written, or a file that cannot be read.
struct StoreError : std::runtime_error {
    using runtime_error::runtime_error;
};

// The operations on files that a library is made of, each as a system offers it. Those that fail raise
// `StoreError`.

/// Keeps other threads and programs away from what they lock by the same file, while it lives.
class FileLock {
public:
    /// Waits until the file, which is made where there is none, is free.
    explicit FileLock(const std::filesystem::path& file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    std::intptr_t m_handle;  // the system's own
};

/// True if a directory can have an entry of this name, and of no other by it.
bool IsFileName(const std::string& name);
/// Makes a directory whose name begins with `front`, and which is open to the users of the one around it.
std::filesystem::path MakeUniqueDirectory(const std::filesystem::path& directory, std::string_view front);
/// Copies a file to a new one, which stands on the disk when this returns.
void CopyFileDurably(const std::filesystem::path& from, const std::filesystem::path& to);
/// Waits until the entries of a directory stand on the disk.
void SyncDirectory(const std::filesystem::path& directory);
/// Gives a file or directory another name; false if there is something of that name.
bool MoveToFree(const std::filesystem::path& from, const std::filesystem::path& to);
/// Exchanges two names at one instant; false where that cannot be done.
bool Exchange(const std::filesystem::path& one, const std::filesystem::path& other);
/// What a directory holds; empty if it cannot be read.
std::vector<std::filesystem::path> Entries(const std::filesystem::path& directory);
/// Removes something with all that it holds, as far as it can be removed. Links are not followed.
void RemoveAll(const std::filesystem::path& path) noexcept;

}  // namespace host
