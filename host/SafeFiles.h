#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// The operations on files that a library of parts is made of, each as a system offers it.

/// A library that cannot be written.
struct StoreError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// A library whose disk is full.
struct DiskFull : StoreError {
    using StoreError::StoreError;
};

/// A part data file that cannot be read.
struct SourceError : std::runtime_error {
    using runtime_error::runtime_error;
};

/// There is no file of that name.
struct NoSuchFile : SourceError {
    using SourceError::SourceError;
};

/// The content of a file, read once.
struct FileContent {
    std::string bytes;
    unsigned permissions = 0666;  ///< who may read and write the file, as POSIX writes it
};

/// Reads a regular file. Anything else (a directory, a pipe, a device) is refused, and never waited for. So
/// is a file that is larger than `limit`, and one that changes while it is read. Raises `SourceError`.
FileContent ReadRegularFile(const std::filesystem::path& path, std::uintmax_t limit);

/// True if a path is a link that another user made, who is not the superuser. Such a link can be a trap: in a
/// directory where others may write, it leads a program to a file that only its user may write.
bool IsLinkOfAnotherUser(const std::filesystem::path& path);

/// When a file that is written has to be on the disk.
enum class Durable {
    AtOnce,      ///< when the function returns
    WithSyncAll  ///< when `Directory::SyncAll` returns
};

/// What an entry of a directory is. A link is never followed.
struct EntryStatus {
    enum class Kind { None, File, Directory, Other };
    Kind kind = Kind::None;
    std::uint64_t size = 0;
    std::int64_t modified = 0;  ///< a time; it only says whether the entry changed
    std::uint64_t inode = 0;    ///< 0 where the system does not say
};

/// True if a directory can have an entry of this name.
bool IsFileName(const std::string& name);

/// An open directory. Its operations work in the directory that was opened, even if its path names another
/// one by now. No operation follows a link that is an entry. What fails raises `StoreError`.
class Directory {
public:
    /// Opens a directory; links in the path are followed.
    explicit Directory(const std::filesystem::path& path);
    ~Directory();
    Directory(Directory&& other) noexcept;
    Directory& operator=(Directory&&) = delete;

    /// The name that the directory had when it was opened.
    const std::string& Name() const { return m_name; }
    const std::filesystem::path& Path() const { return m_path; }

    /// Opens an entry that is a directory.
    Directory Open(const std::string& name) const;
    /// Opens an entry that is a directory, which is made where there is none.
    Directory OpenOrMake(const std::string& name) const;
    /// Makes a directory for the users of the directory `around`, and returns what it is. An entry of that
    /// name is an error.
    EntryStatus Make(const std::string& name, const Directory& around) const;
    /// Makes a directory that only this user can enter; its name begins with `front`.
    Directory MakeUnique(std::string_view front) const;
    /// Opens the directory to the users of the one around it.
    void ShareLike(const Directory& around) const;

    bool Has(const std::string& name) const;
    EntryStatus Status(const std::string& name) const;
    /// Names of all entries.
    std::vector<std::string> Names() const;
    /// The content of a small file; empty where there is none.
    std::string Read(const std::string& name) const;
    /// The content of an entry that is a regular file and not larger than `limit`. Raises `SourceError`.
    FileContent ReadFile(const std::string& name, std::uintmax_t limit) const;
    /// Writes a new file, and returns what the file then is. Raises `DiskFull` where there is no room for the
    /// file.
    EntryStatus Write(const std::string& name, const FileContent& content,
                      Durable durable = Durable::AtOnce) const;
    /// Writes a file in the place of a regular file, whose rights the new one gets, or of none. Whoever opens
    /// it sees the old content or the new one. Anything else in the place is an error.
    void Replace(const std::string& name, std::string_view bytes) const;
    /// Waits until the entries are on the disk.
    void Sync() const;
    /// Waits until all that was written into the file system of this directory is on the disk.
    void SyncAll() const;
    /// Moves an entry to a free name, perhaps in another directory; false if the name is not free.
    bool MoveToFree(const std::string& name, const Directory& to, const std::string& newName) const;
    /// Exchanges two entries at one instant; false where the system cannot.
    bool Exchange(const std::string& name, const Directory& with, const std::string& otherName) const;
    /// Raises `StoreError` where this user may not move an entry to another directory.
    void RequireMovable(const std::string& name) const;
    /// Removes an entry with all that it holds, as far as that is possible.
    void RemoveAll(const std::string& name) const noexcept;

private:
    friend class FileLock;
    Directory(std::filesystem::path path, std::string name, std::intptr_t handle);

    std::filesystem::path m_path;  // for messages, and on Windows for the operations
    std::string m_name;
    std::intptr_t m_handle;  // the system's own
};

/// Asked again and again while a lock is waited for: how long that has taken, and who has the lock ("process
/// 12"; empty where that is not known). False gives up.
using Waiting = std::function<bool(std::chrono::milliseconds waited, const std::string& holder)>;

/// Holds a lock until it is destroyed. Other threads and programs that lock the same file wait meanwhile.
class FileLock {
public:
    /// Waits until the file, which is made where there is none, is free. Raises `StoreError` where `waiting`
    /// gives up.
    FileLock(const Directory& directory, const std::string& name, const Waiting& waiting);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    std::intptr_t m_handle;  // the system's own
};

}  // namespace host
