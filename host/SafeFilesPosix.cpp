#ifndef _WIN32

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "host/SafeFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::string& what, const fs::path& path) {
    const int error = errno;
    throw StoreError(what + " \"" + path.string() + "\": " + std::strerror(error));
}

int Open(const fs::path& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (file < 0) Fail((flags & (O_WRONLY | O_RDWR)) ? "cannot write" : "cannot read", path);
    return file;
}

/// An open file or directory.
class Descriptor {
public:
    Descriptor(const fs::path& path, int flags) : m_path(path), m_fd(Open(path, flags)) {}
    ~Descriptor() { close(m_fd); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Get() const { return m_fd; }
    /// Waits until what was written stands on the disk.
    void Sync() const {
        if (fsync(m_fd) != 0) Fail("cannot write", m_path);
    }

private:
    fs::path m_path;
    int m_fd;
};

}  // namespace

FileLock::FileLock(const fs::path& file) : m_handle(Open(file, O_RDWR | O_CREAT)) {
    while (flock(static_cast<int>(m_handle), LOCK_EX) != 0) {
        if (errno == EINTR) continue;
        const int error = errno;
        close(static_cast<int>(m_handle));
        errno = error;
        Fail("cannot lock", file);
    }
}

FileLock::~FileLock() {
    close(static_cast<int>(m_handle));
}

bool IsFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

fs::path MakeUniqueDirectory(const fs::path& directory, std::string_view front) {
    std::string made = (directory / (std::string(front) + "XXXXXX")).string();
    if (!mkdtemp(made.data())) Fail("cannot write", directory);
    // mkdtemp's own permissions are for one user alone.
    std::error_code error;
    const fs::perms permissions = fs::status(directory, error).permissions();
    if (!error) fs::permissions(made, permissions, error);
    if (!error) return made;
    errno = error.value();
    Fail("cannot write", directory);
}

void CopyFileDurably(const fs::path& from, const fs::path& to) {
    const Descriptor in(from, O_RDONLY);
    const Descriptor out(to, O_WRONLY | O_CREAT | O_EXCL);
    std::vector<char> block(1 << 20);
    for (;;) {
        const ssize_t count = read(in.Get(), block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Fail("cannot read", from);
        if (count == 0) break;
        for (ssize_t written = 0; written < count;) {
            const ssize_t more =
                write(out.Get(), block.data() + written, static_cast<size_t>(count - written));
            if (more < 0 && errno != EINTR) Fail("cannot write", to);
            if (more > 0) written += more;
        }
    }
    out.Sync();
}

void SyncDirectory(const fs::path& directory) {
    Descriptor(directory, O_RDONLY | O_DIRECTORY).Sync();
}

bool MoveToFree(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    // A file system that cannot tell looks first; the lock keeps others from coming in between.
    if (errno == EINVAL || errno == ENOSYS) {
        std::error_code error;
        if (fs::exists(fs::symlink_status(to, error))) return false;
        if (rename(from.c_str(), to.c_str()) == 0) return true;
    }
    if (errno == EEXIST) return false;
    Fail("cannot write", to);
}

bool Exchange(const fs::path& one, const fs::path& other) {
    if (renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) Fail("cannot write", other);
    return false;
}

std::vector<fs::path> Entries(const fs::path& directory) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

void RemoveAll(const fs::path& path) noexcept {
    std::error_code error;
    fs::remove_all(path, error);
}

}  // namespace host

#endif
