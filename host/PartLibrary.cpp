#include "host/PartLibrary.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace host {

namespace fs = std::filesystem;

namespace {

// Names of parts never begin with a point, so these cannot be parts.
constexpr std::string_view kLock = ".veka-lock";
constexpr std::string_view kNew = ".veka-new-";  // a part that is being written
constexpr std::string_view kOld = ".veka-old-";  // a part that is being replaced, followed by its name

[[noreturn]] void Fail(const std::string& what, const fs::path& path) {
    const int error = errno;
    throw StoreError(what + " \"" + path.string() + "\": " + std::strerror(error));
}

/// An open file or directory.
class Descriptor {
public:
    Descriptor(const fs::path& path, int flags)
        : m_path(path), m_fd(open(path.c_str(), flags | O_CLOEXEC, 0666)) {
        if (m_fd < 0) Fail((flags & (O_WRONLY | O_RDWR)) ? "cannot write" : "cannot read", path);
    }
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

void SyncDirectory(const fs::path& directory) {
    Descriptor(directory, O_RDONLY | O_DIRECTORY).Sync();
}

void CopyFile(const fs::path& from, const fs::path& to) {
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

/// Removes what an interrupted store left, and puts a part back that it had taken away.
void CleanUp(const fs::path& library) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(library, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    for (const fs::path& entry : entries) {
        const std::string name = entry.filename().string();
        if (name.starts_with(kOld)) {
            const fs::path part = library / name.substr(kOld.size());
            if (!fs::exists(fs::symlink_status(part, error))) fs::rename(entry, part, error);
        }
        if (name.starts_with(kOld) || name.starts_with(kNew)) fs::remove_all(entry, error);
    }
}

/// Puts a written directory in the place of a part. What was there is deleted.
void Replace(const fs::path& library, const fs::path& fresh, const std::string& name) {
    const fs::path part = library / name;
    if (renameat2(AT_FDCWD, fresh.c_str(), AT_FDCWD, part.c_str(), RENAME_NOREPLACE) == 0) return;
    if (errno == EEXIST && renameat2(AT_FDCWD, fresh.c_str(), AT_FDCWD, part.c_str(), RENAME_EXCHANGE) == 0) {
        std::error_code error;
        fs::remove_all(fresh, error);  // holds the old part now; the next store tries again
        return;
    }
    if (errno != EINVAL && errno != ENOSYS) Fail("cannot write", part);
    // A file system that cannot exchange two names. A crash between the two steps is undone by `CleanUp`.
    const fs::path old = library / (std::string(kOld) + name);
    if (rename(part.c_str(), old.c_str()) != 0 && errno != ENOENT) Fail("cannot replace", part);
    if (rename(fresh.c_str(), part.c_str()) != 0) {
        const int error = errno;
        if (rename(old.c_str(), part.c_str()) != 0) errno = error;
        Fail("cannot write", part);
    }
    std::error_code error;
    fs::remove_all(old, error);
}

}  // namespace

void PartLibrary::Store(const std::string& name, const fs::path& source) {
    if (name.empty() || name[0] == '.' || name.find('/') != std::string::npos)
        throw StoreError("\"" + name + "\" is no name for a part");

    const Descriptor lock(m_directory / kLock, O_RDWR | O_CREAT);
    while (flock(lock.Get(), LOCK_EX) != 0)
        if (errno != EINTR) Fail("cannot lock", m_directory);
    CleanUp(m_directory);

    std::string fresh = (m_directory / (std::string(kNew) + "XXXXXX")).string();
    if (!mkdtemp(fresh.data())) Fail("cannot write", m_directory);
    try {
        fs::permissions(fresh,
                        fs::status(m_directory).permissions());  // mkdtemp's own are for one user alone
        CopyFile(source, fs::path(fresh) / source.filename());
        SyncDirectory(fresh);
        Replace(m_directory, fresh, name);
        SyncDirectory(m_directory);
    } catch (...) {
        std::error_code error;
        fs::remove_all(fresh, error);
        throw;
    }
}

}  // namespace host
