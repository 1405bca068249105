#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <random>
#include <thread>
#include <utility>

#include "host/SafeFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

using std::chrono::milliseconds;

/// How long to sleep after a lock has been waited for so long.
milliseconds Pause(milliseconds waited) {
    return std::min(milliseconds(50), milliseconds(1) + waited / 8);
}

constexpr int kDeepest = 64;  // levels of directories that are removed

std::string Quoted(const fs::path& path) {
    return '"' + path.string() + '"';
}

template <class Error = StoreError>
[[noreturn]] void Fail(const char* what, const fs::path& path, int error = errno) {
    throw Error(what + (' ' + Quoted(path)) + ": " + std::strerror(error));
}

[[noreturn]] void FailToWrite(const fs::path& path, int error = errno) {
    if (error == ENOSPC || error == EDQUOT) Fail<DiskFull>("cannot write", path, error);
    Fail("cannot write", path, error);
}

/// Owns an open file.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0) close(m_fd);
    }
    Descriptor(Descriptor&& other) noexcept : m_fd(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_fd, other.m_fd);
        return *this;
    }

    int Get() const { return m_fd; }
    explicit operator bool() const { return m_fd >= 0; }
    int Release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

int OpenDirectoryAt(int directory, const char* name, int flags) {
    return openat(directory, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags);
}

/// Names of the entries of an open directory.
std::vector<std::string> NamesIn(int directory) {
    std::vector<std::string> names;
    Descriptor own(OpenDirectoryAt(directory, ".", 0));
    if (!own) return names;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(fdopendir(own.Get()), closedir);
    if (!stream) return names;
    own.Release();
    while (const dirent* entry = readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

void RemoveAt(int directory, const char* name, int depth) noexcept {
    if (unlinkat(directory, name, 0) == 0 || depth > kDeepest) return;
    try {
        const Descriptor inner(OpenDirectoryAt(directory, name, O_NOFOLLOW));
        if (!inner) return;
        for (const std::string& entry : NamesIn(inner.Get())) RemoveAt(inner.Get(), entry.c_str(), depth + 1);
    } catch (const std::bad_alloc&) {
        return;  // what is left keeps its directory
    }
    unlinkat(directory, name, AT_REMOVEDIR);
}

/// Writes all bytes; false where that fails.
bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

/// Appends at most so many bytes to a text: `write` writes them and returns how many there are. It raises
/// nothing.
template <class Write>
void AppendAtMost(std::string& text, size_t most, Write write) {
    const size_t size = text.size();
#ifdef __cpp_lib_string_resize_and_overwrite
    // Without zeros in place of bytes that are written next.
    text.resize_and_overwrite(size + most,
                              [&](char* bytes, size_t) { return size + write(bytes + size, most); });
#else
    text.resize(size + most);
    text.resize(size + write(text.data() + size, most));
#endif
}

/// Reads to the end, or until there are more bytes than `limit`; false where that fails.
bool ReadAll(int file, std::uintmax_t limit, std::string& bytes) {
    constexpr size_t kBlock = 1 << 18;
    constexpr size_t kSpare = 16;  // what every string has
    for (;;) {
        const size_t size = bytes.size();
        if (size > limit) return true;
        ssize_t count = 0;
        AppendAtMost(bytes, bytes.capacity() > size + kSpare ? bytes.capacity() - size : kBlock,
                     [&](char* place, size_t most) {
                         count = read(file, place, most);
                         return static_cast<size_t>(std::max<ssize_t>(count, 0));
                     });
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
    }
}

bool SameTime(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

/// What something is that is no regular file.
const char* Kind(mode_t mode) {
    if (S_ISDIR(mode)) return "a directory";
    if (S_ISFIFO(mode)) return "a pipe";
    if (S_ISSOCK(mode)) return "a socket";
    return "a device";
}

// Without O_NONBLOCK the program would wait for a pipe that has no writer.
constexpr int kReading = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Reads a file that was opened with `kReading`.
FileContent ReadOpened(const Descriptor& file, const fs::path& path, std::uintmax_t limit) {
    if (!file && (errno == ENOENT || errno == ENOTDIR)) throw NoSuchFile("there is no file " + Quoted(path));
    if (!file) Fail<SourceError>("cannot read", path);
    struct stat before {};
    if (fstat(file.Get(), &before) != 0) Fail<SourceError>("cannot read", path);
    if (!S_ISREG(before.st_mode))
        throw SourceError(Quoted(path) + " is " + Kind(before.st_mode) + ", and no regular file");
    FileContent content{"", before.st_mode & 0777};
    if (before.st_size > 0 && static_cast<std::uintmax_t>(before.st_size) <= limit)
        content.bytes.reserve(static_cast<size_t>(before.st_size) + 1);
    if (!ReadAll(file.Get(), limit, content.bytes)) Fail<SourceError>("cannot read", path);
    if (content.bytes.size() > limit)
        throw SourceError(Quoted(path) + " is larger than " + std::to_string(limit >> 20) +
                          " MB; --max-size raises the limit");
    struct stat after {};
    if (fstat(file.Get(), &after) != 0) Fail<SourceError>("cannot read", path);
    // The files of some file systems that the kernel makes up have no size.
    const bool whole =
        before.st_size == 0 || content.bytes.size() == static_cast<std::uintmax_t>(before.st_size);
    if (!whole || before.st_size != after.st_size || !SameTime(before.st_mtim, after.st_mtim))
        throw SourceError(Quoted(path) + " changed while it was read");
    return content;
}

}  // namespace

FileContent ReadRegularFile(const fs::path& path, std::uintmax_t limit) {
    return ReadOpened(Descriptor(open(path.c_str(), kReading)), path, limit);
}

bool IsLinkOfAnotherUser(const fs::path& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && status.st_uid != geteuid() &&
           status.st_uid != 0;
}

bool IsFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

Directory::Directory(const fs::path& path)
    : m_path(path), m_name(path.filename().string()), m_handle(OpenDirectoryAt(AT_FDCWD, path.c_str(), 0)) {
    if (m_handle < 0) Fail("cannot open the directory", path);
}

Directory::Directory(fs::path path, std::string name, std::intptr_t handle)
    : m_path(std::move(path)), m_name(std::move(name)), m_handle(handle) {}

Directory::Directory(Directory&& other) noexcept
    : m_path(std::move(other.m_path)),
      m_name(std::move(other.m_name)),
      m_handle(std::exchange(other.m_handle, -1)) {}

Directory::~Directory() {
    if (m_handle >= 0) close(static_cast<int>(m_handle));
}

namespace {

int At(std::intptr_t handle) {
    return static_cast<int>(handle);
}

}  // namespace

Directory Directory::Open(const std::string& name) const {
    fs::path path = m_path / name;
    Descriptor made(OpenDirectoryAt(At(m_handle), name.c_str(), O_NOFOLLOW));
    if (!made) Fail("cannot open the directory", path);
    return {std::move(path), name, made.Release()};
}

Directory Directory::OpenOrMake(const std::string& name) const {
    const bool made = mkdirat(At(m_handle), name.c_str(), 0700) == 0;
    if (!made && errno != EEXIST) FailToWrite(m_path / name);
    Directory directory = Open(name);
    if (made) directory.ShareLike(*this);
    return directory;
}

Directory Directory::MakeUnique(std::string_view front) const {
    std::random_device random;
    for (;;) {
        const std::string name = std::string(front) + std::to_string(random());
        if (mkdirat(At(m_handle), name.c_str(), 0700) != 0) {
            if (errno == EEXIST) continue;
            FailToWrite(m_path);
        }
        Directory made = Open(name);
        // Another user who may write here may have put a directory of their own in its place.
        struct stat status {};
        if (fstat(At(made.m_handle), &status) != 0) Fail("cannot write", made.m_path);
        if (status.st_uid != geteuid() || !made.Names().empty())
            throw StoreError(Quoted(made.m_path) + " was replaced while it was made");
        return made;
    }
}

bool Directory::Has(const std::string& name) const {
    struct stat status {};
    return fstatat(At(m_handle), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

namespace {

EntryStatus ToEntryStatus(const struct stat& status) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {S_ISREG(status.st_mode)   ? EntryStatus::Kind::File
            : S_ISDIR(status.st_mode) ? EntryStatus::Kind::Directory
                                      : EntryStatus::Kind::Other,
            static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec, status.st_ino};
}

struct stat StatusOf(int file, const fs::path& path) {
    struct stat status {};
    if (fstat(file, &status) != 0) Fail("cannot write", path);
    return status;
}

/// The rights of a directory for the users of the directory around it.
mode_t SharedMode(const struct stat& around, const struct stat& own) {
    const mode_t mode = (around.st_mode & 0777) | (own.st_mode & S_ISGID);
    // Where only the owner may replace an entry, nobody else may change it.
    return around.st_mode & S_ISVTX ? mode & ~mode_t{022} : mode;
}

}  // namespace

EntryStatus Directory::Make(const std::string& name, const Directory& around) const {
    const fs::path path = m_path / name;
    const struct stat outer = StatusOf(At(around.m_handle), around.m_path);
    struct stat own {};
    if (mkdirat(At(m_handle), name.c_str(), SharedMode(outer, own)) != 0 ||
        fstatat(At(m_handle), name.c_str(), &own, AT_SYMLINK_NOFOLLOW) != 0)
        FailToWrite(path);
    if (!S_ISDIR(own.st_mode)) throw StoreError(Quoted(path) + " was replaced while it was made");
    // The user's mask may have taken rights away.
    if (const mode_t mode = SharedMode(outer, own); (own.st_mode & 0777) != (mode & 0777)) {
        const Descriptor made(OpenDirectoryAt(At(m_handle), name.c_str(), O_NOFOLLOW));
        if (!made || fchmod(made.Get(), mode) != 0) FailToWrite(path);
    }
    return ToEntryStatus(own);
}

void Directory::ShareLike(const Directory& around) const {
    const struct stat outer = StatusOf(At(around.m_handle), around.m_path);
    const struct stat own = StatusOf(At(m_handle), m_path);
    if (fchmod(At(m_handle), SharedMode(outer, own)) != 0) Fail("cannot write", m_path);
}

EntryStatus Directory::Status(const std::string& name) const {
    struct stat status {};
    if (fstatat(At(m_handle), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return {};
    return ToEntryStatus(status);
}

std::vector<std::string> Directory::Names() const {
    return NamesIn(At(m_handle));
}

std::string Directory::Read(const std::string& name) const {
    const Descriptor file(openat(At(m_handle), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::string bytes(4096, '\0');
    const ssize_t count = file ? read(file.Get(), bytes.data(), bytes.size()) : 0;
    bytes.resize(static_cast<size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
}

FileContent Directory::ReadFile(const std::string& name, std::uintmax_t limit) const {
    const fs::path path = m_path / name;
    const Descriptor file(openat(At(m_handle), name.c_str(), kReading | O_NOFOLLOW));
    if (!file && errno == ELOOP) throw SourceError(Quoted(path) + " is a link, and no regular file");
    return ReadOpened(file, path, limit);
}

EntryStatus Directory::Write(const std::string& name, const FileContent& content, Durable durable) const {
    const fs::path path = m_path / name;
    const Descriptor file(openat(At(m_handle), name.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 content.permissions & 0666));
    if (!file || !WriteAll(file.Get(), content.bytes)) FailToWrite(path);
    if (durable == Durable::AtOnce && fsync(file.Get()) != 0) FailToWrite(path);
    struct stat status {};
    if (fstat(file.Get(), &status) != 0) FailToWrite(path);
    return ToEntryStatus(status);
}

void Directory::Replace(const std::string& name, std::string_view bytes) const {
    struct stat former {};
    const bool replaces = fstatat(At(m_handle), name.c_str(), &former, AT_SYMLINK_NOFOLLOW) == 0;
    if (replaces && !S_ISREG(former.st_mode))
        throw StoreError(Quoted(m_path / name) + " is no regular file and cannot be replaced");
    std::random_device random;
    const std::string fresh = ".veka-" + std::to_string(random()) + '-' + std::to_string(random());
    Descriptor file(openat(At(m_handle), fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                           replaces ? 0600 : 0666));
    const auto written = [&] {
        return file && WriteAll(file.Get(), bytes) &&
               (!replaces || fchmod(file.Get(), former.st_mode & 0777) == 0) && fsync(file.Get()) == 0 &&
               renameat(At(m_handle), fresh.c_str(), At(m_handle), name.c_str()) == 0;
    };
    if (written()) return;
    const int error = errno;
    if (file) unlinkat(At(m_handle), fresh.c_str(), 0);
    Fail("cannot write", m_path / name, error);
}

void Directory::Sync() const {
    if (fsync(At(m_handle)) != 0) Fail("cannot write", m_path);
}

void Directory::SyncAll() const {
#ifdef __linux__
    if (syncfs(At(m_handle)) != 0) FailToWrite(m_path);
#else
    sync();
#endif
}

bool Directory::MoveToFree(const std::string& name, const Directory& to, const std::string& newName) const {
    if (renameat2(At(m_handle), name.c_str(), At(to.m_handle), newName.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Some file systems cannot refuse to replace. There the program looks first, and the lock keeps other
    // hosts out.
    if (errno == EINVAL || errno == ENOSYS) {
        if (to.Has(newName)) return false;
        if (renameat(At(m_handle), name.c_str(), At(to.m_handle), newName.c_str()) == 0) return true;
    }
    if (errno == EEXIST) return false;
    Fail("cannot write", to.m_path / newName);
}

bool Directory::Exchange(const std::string& name, const Directory& with, const std::string& otherName) const {
    if (renameat2(At(m_handle), name.c_str(), At(with.m_handle), otherName.c_str(), RENAME_EXCHANGE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) Fail("cannot write", with.m_path / otherName);
    return false;
}

void Directory::RequireMovable(const std::string& name) const {
    struct stat status {};
    if (fstatat(At(m_handle), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISDIR(status.st_mode))
        return;
    // To move a directory changes its entry "..", which takes the right to write it.
    if (faccessat(At(m_handle), name.c_str(), W_OK, AT_EACCESS) != 0) Fail("cannot replace", m_path / name);
}

void Directory::RemoveAll(const std::string& name) const noexcept {
    RemoveAt(At(m_handle), name.c_str(), 0);
}

namespace {

/// Opens a file that all who may write the directory can lock.
int OpenLock(int directory, const char* name, const fs::path& path) {
    for (;;) {
        constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        Descriptor file(openat(directory, name, O_RDWR | kFlags));
        // To lock a file on a local disk takes no right to write it.
        if (!file && errno == EACCES) file = Descriptor(openat(directory, name, O_RDONLY | kFlags));
        if (!file && errno == ENOENT) {
            file = Descriptor(openat(directory, name, O_RDWR | O_CREAT | O_EXCL | kFlags, 0600));
            if (!file && errno == EEXIST) continue;
            struct stat around {};
            if (file && fstat(directory, &around) == 0) fchmod(file.Get(), around.st_mode & 0666);
        }
        if (!file) Fail("cannot write", path);
        struct stat status {};
        if (fstat(file.Get(), &status) != 0) Fail("cannot lock", path);
        if (!S_ISREG(status.st_mode)) throw StoreError(Quoted(path) + " is no regular file");
        return file.Release();
    }
}

/// Who holds a lock, by the content of its file.
std::string Holder(int file) {
    char text[24];
    const ssize_t count = pread(file, text, sizeof text, 0);
    const std::string_view digits(text, static_cast<size_t>(std::max<ssize_t>(count, 0)));
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos) return "";
    return "process " + std::string(digits);
}

}  // namespace

FileLock::FileLock(const Directory& directory, const std::string& name, const Waiting& waiting)
    : m_handle(-1) {
    const fs::path path = directory.m_path / name;
    Descriptor file(OpenLock(At(directory.m_handle), name.c_str(), path));
    const auto begin = std::chrono::steady_clock::now();
    while (flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        if (errno != EWOULDBLOCK) Fail("cannot lock", path);
        const auto waited =
            std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin);
        const std::string holder = Holder(file.Get());
        if (waiting && !waiting(waited, holder))
            throw StoreError("the library " + Quoted(directory.m_path) + " is in use by " +
                             (holder.empty() ? "another program" : holder));
        std::this_thread::sleep_for(Pause(waited));
    }
    // For the message of those who wait. A lock without it is one all the same.
    const std::string self = std::to_string(getpid());
    if (ftruncate(file.Get(), 0) == 0 && pwrite(file.Get(), self.data(), self.size(), 0) < 0) errno = 0;
    m_handle = file.Release();
}

FileLock::~FileLock() {
    close(static_cast<int>(m_handle));
}

}  // namespace host

#endif
