#ifdef _WIN32

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "files/Paths.h"
#include "host/SafeFiles.h"
#include "platform/Utf16.h"

// The system has no operations on the entries of an open directory. A directory that is open here is open
// without the right for others to move or delete it, so that its path names it as long as it is open.

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr int kDeepest = 64;  // levels of directories that are removed

/// The system's sentence for an error, without its full stop.
std::string Sentence(DWORD error) {
    wchar_t text[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string sentence(veka::FromUtf16(std::u16string(text, text + length)).View());
    while (!sentence.empty() && std::string_view(". \r\n").find(sentence.back()) != std::string_view::npos)
        sentence.pop_back();
    return sentence.empty() ? "error " + std::to_string(error) : sentence;
}

std::string Quoted(const fs::path& path) {
    return '"' + std::string(veka::FromPath(path).View()) + '"';
}

template <class Error = StoreError>
[[noreturn]] void Fail(const char* what, const fs::path& path, DWORD error = GetLastError()) {
    throw Error(what + (' ' + Quoted(path)) + ": " + Sentence(error));
}

[[noreturn]] void FailToWrite(const fs::path& path, DWORD error = GetLastError()) {
    constexpr DWORD kQuotaExceeded = 1295;  // has no name in the headers of mingw-w64
    if (error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL || error == kQuotaExceeded)
        Fail<DiskFull>("cannot write", path, error);
    Fail("cannot write", path, error);
}

/// Owns an open file.
class File {
public:
    explicit File(HANDLE handle) : m_handle(handle) {}
    ~File() {
        if (*this) CloseHandle(m_handle);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    HANDLE Get() const { return m_handle; }
    explicit operator bool() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }

private:
    HANDLE m_handle;
};

HANDLE Open(const fs::path& path, DWORD access, DWORD sharing, DWORD disposition, DWORD flags = 0) {
    return CreateFileW(path.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL | flags,
                       nullptr);
}

/// The path of an entry, which may be too long for some functions where the directory's is not.
fs::path Below(const fs::path& directory, const fs::path& name) {
    return veka::ToPath(veka::FromPath(directory / name));
}

fs::path Below(const fs::path& directory, const std::string& name) {
    return Below(directory, veka::ToPath(CString(name)));
}

/// Opens a directory so that it keeps its name; -1 where that fails.
std::intptr_t Hold(const fs::path& path, DWORD flags) {
    return reinterpret_cast<std::intptr_t>(Open(path, FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | flags));
}

std::vector<fs::path> Entries(const fs::path& directory) {
    std::vector<fs::path> entries;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(Below(directory, fs::path(L"*")).c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::wstring name = data.cFileName;
        if (name != L"." && name != L"..") entries.push_back(Below(directory, fs::path(name)));
    } while (FindNextFileW(search, &data));
    FindClose(search);
    return entries;
}

void Remove(const fs::path& path, int depth) noexcept {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || depth > kDeepest) return;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        DeleteFileW(path.c_str());
        return;
    }
    try {
        const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        for (const fs::path& entry : link ? std::vector<fs::path>() : Entries(path)) Remove(entry, depth + 1);
    } catch (const std::bad_alloc&) {
        // What is left keeps its directory.
    }
    RemoveDirectoryW(path.c_str());
}

bool SameInformation(const BY_HANDLE_FILE_INFORMATION& one, const BY_HANDLE_FILE_INFORMATION& other) {
    return one.nFileSizeLow == other.nFileSizeLow && one.nFileSizeHigh == other.nFileSizeHigh &&
           CompareFileTime(&one.ftLastWriteTime, &other.ftLastWriteTime) == 0;
}

}  // namespace

FileContent ReadRegularFile(const fs::path& path, std::uintmax_t limit) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw SourceError(Quoted(path) + " is a directory, and no regular file");
    const File file(Open(path, GENERIC_READ, kShared, OPEN_EXISTING));
    const DWORD error = GetLastError();
    if (!file &&
        (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME))
        throw NoSuchFile("there is no file " + Quoted(path));
    if (!file) Fail<SourceError>("cannot read", path, error);
    if (GetFileType(file.Get()) != FILE_TYPE_DISK)
        throw SourceError(Quoted(path) + " is a device, and no regular file");
    BY_HANDLE_FILE_INFORMATION before{}, after{};
    if (!GetFileInformationByHandle(file.Get(), &before)) Fail<SourceError>("cannot read", path);
    FileContent content;
    constexpr DWORD kBlock = 1 << 18;
    for (DWORD count = kBlock; count > 0 && content.bytes.size() <= limit;) {
        const size_t size = content.bytes.size();
        content.bytes.resize(size + kBlock);
        if (!ReadFile(file.Get(), content.bytes.data() + size, kBlock, &count, nullptr))
            Fail<SourceError>("cannot read", path);
        content.bytes.resize(size + count);
    }
    if (content.bytes.size() > limit)
        throw SourceError(Quoted(path) + " is larger than " + std::to_string(limit >> 20) +
                          " MB; --max-size raises the limit");
    if (!GetFileInformationByHandle(file.Get(), &after)) Fail<SourceError>("cannot read", path);
    if (!SameInformation(before, after)) throw SourceError(Quoted(path) + " changed while it was read");
    return content;
}

// Only an administrator can make links.
bool IsLinkOfAnotherUser(const fs::path&) {
    return false;
}

bool IsFileName(const std::string& name) {
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    for (char c : name)
        if (static_cast<unsigned char>(c) < ' ' ||
            std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos)
            return false;
    return true;
}

Directory::Directory(const fs::path& path)
    : m_path(path), m_name(veka::FromPath(path.filename()).View()), m_handle(Hold(path, 0)) {
    if (m_handle != -1 && !veka::IsDirectory(path)) {
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
        m_handle = -1;
        SetLastError(ERROR_DIRECTORY);
    }
    if (m_handle == -1) Fail("cannot open the directory", path);
}

Directory::Directory(fs::path path, std::string name, std::intptr_t handle)
    : m_path(std::move(path)), m_name(std::move(name)), m_handle(handle) {}

Directory::Directory(Directory&& other) noexcept
    : m_path(std::move(other.m_path)),
      m_name(std::move(other.m_name)),
      m_handle(std::exchange(other.m_handle, -1)) {}

Directory::~Directory() {
    if (m_handle != -1) CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

Directory Directory::Open(const std::string& name) const {
    fs::path path = Below(m_path, name);
    const std::intptr_t handle = Hold(path, FILE_FLAG_OPEN_REPARSE_POINT);
    if (handle == -1) Fail("cannot open the directory", path);
    Directory directory(path, name, handle);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY) || (attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        Fail("cannot open the directory", path, ERROR_DIRECTORY);
    return directory;
}

Directory Directory::OpenOrMake(const std::string& name) const {
    const fs::path path = Below(m_path, name);
    if (!CreateDirectoryW(path.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        Fail("cannot write", path);
    return Open(name);
}

EntryStatus Directory::Make(const std::string& name, const Directory&) const {
    const fs::path path = Below(m_path, name);
    if (!CreateDirectoryW(path.c_str(), nullptr)) Fail("cannot write", path);
    return Status(name);
}

Directory Directory::MakeUnique(std::string_view front) const {
    static LONG count = 0;
    for (;;) {
        const std::string name = std::string(front) + std::to_string(GetCurrentProcessId()) + "-" +
                                 std::to_string(InterlockedIncrement(&count));
        if (CreateDirectoryW(Below(m_path, name).c_str(), nullptr)) return Open(name);
        if (GetLastError() != ERROR_ALREADY_EXISTS) Fail("cannot write", m_path);
    }
}

// A new directory has the rights of the one around it.
void Directory::ShareLike(const Directory&) const {}

bool Directory::Has(const std::string& name) const {
    return GetFileAttributesW(Below(m_path, name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

EntryStatus Directory::Status(const std::string& name) const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(Below(m_path, name).c_str(), GetFileExInfoStandard, &data)) return {};
    const DWORD attributes = data.dwFileAttributes;
    const auto whole = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    return {attributes & FILE_ATTRIBUTE_REPARSE_POINT ? EntryStatus::Kind::Other
            : attributes & FILE_ATTRIBUTE_DIRECTORY   ? EntryStatus::Kind::Directory
                                                      : EntryStatus::Kind::File,
            whole(data.nFileSizeHigh, data.nFileSizeLow),
            static_cast<std::int64_t>(
                whole(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)),
            0};
}

std::vector<std::string> Directory::Names() const {
    std::vector<std::string> names;
    for (const fs::path& entry : Entries(m_path)) names.emplace_back(veka::FromPath(entry.filename()).View());
    return names;
}

std::string Directory::Read(const std::string& name) const {
    std::string bytes(4096, '\0');
    DWORD count = 0;
    const File file(host::Open(Below(m_path, name), GENERIC_READ, kShared, OPEN_EXISTING));
    if (!file || !::ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
        count = 0;
    bytes.resize(count);
    return bytes;
}

FileContent Directory::ReadFile(const std::string& name, std::uintmax_t limit) const {
    const fs::path path = Below(m_path, name);
    if (Status(name).kind == EntryStatus::Kind::Other)
        throw SourceError(Quoted(path) + " is a link, and no regular file");
    return ReadRegularFile(path, limit);
}

// There is no way to sync many files at once, so that each is synced by itself.
EntryStatus Directory::Write(const std::string& name, const FileContent& content, Durable) const {
    const fs::path path = Below(m_path, name);
    const File file(host::Open(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW));
    if (!file) FailToWrite(path);
    for (std::string_view rest = content.bytes; !rest.empty();) {
        constexpr size_t kBlock = 1 << 26;
        DWORD written = 0;
        if (!WriteFile(file.Get(), rest.data(), static_cast<DWORD>(std::min(rest.size(), kBlock)), &written,
                       nullptr))
            FailToWrite(path);
        rest.remove_prefix(written);
    }
    if (!FlushFileBuffers(file.Get())) FailToWrite(path);
    return Status(name);
}

void Directory::Replace(const std::string& name, std::string_view bytes) const {
    const fs::path path = Below(m_path, name);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)))
        throw StoreError(Quoted(path) + " is no regular file and cannot be replaced");
    static LONG count = 0;
    const std::string fresh = ".veka-" + std::to_string(GetCurrentProcessId()) + '-' +
                              std::to_string(InterlockedIncrement(&count)) + "-out";
    try {
        Write(fresh, {std::string(bytes)});
        if (!MoveFileExW(Below(m_path, fresh).c_str(), path.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            Fail("cannot write", path);
    } catch (const StoreError&) {
        RemoveAll(fresh);
        throw;
    }
}

// The file system keeps a journal of its entries, and offers no other way.
void Directory::Sync() const {}

void Directory::SyncAll() const {}

bool Directory::MoveToFree(const std::string& name, const Directory& to, const std::string& newName) const {
    const fs::path target = Below(to.m_path, newName);
    if (MoveFileExW(Below(m_path, name).c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH)) return true;
    const DWORD error = GetLastError();
    // A directory in the way is "access denied" on some file systems.
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS || veka::Exists(target)) return false;
    Fail("cannot write", target, error);
}

// No function of the system exchanges directories.
bool Directory::Exchange(const std::string&, const Directory&, const std::string&) const {
    return false;
}

void Directory::RequireMovable(const std::string&) const {}

void Directory::RemoveAll(const std::string& name) const noexcept {
    try {
        Remove(Below(m_path, name), 0);
    } catch (const std::bad_alloc&) {
        // The next store removes it.
    }
}

FileLock::FileLock(const Directory& directory, const std::string& name, const Waiting& waiting)
    : m_handle(-1) {
    const fs::path path = Below(directory.m_path, name);
    File file(
        host::Open(path, GENERIC_READ | GENERIC_WRITE, kShared, OPEN_ALWAYS, FILE_FLAG_OPEN_REPARSE_POINT));
    if (!file) Fail("cannot write", path);
    const ULONGLONG begin = GetTickCount64();
    OVERLAPPED place{};
    while (!LockFileEx(file.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place)) {
        if (GetLastError() != ERROR_LOCK_VIOLATION && GetLastError() != ERROR_IO_PENDING)
            Fail("cannot lock", path);
        const ULONGLONG waited = GetTickCount64() - begin;  // ms
        if (waiting && !waiting(std::chrono::milliseconds(waited), ""))
            throw StoreError("the library " + Quoted(directory.m_path) + " is in use by another program");
        Sleep(static_cast<DWORD>(std::min<ULONGLONG>(50, 1 + waited / 8)));
    }
    m_handle = reinterpret_cast<std::intptr_t>(file.Release());
}

FileLock::~FileLock() {
    CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

}  // namespace host

#endif
