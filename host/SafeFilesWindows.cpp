#ifdef _WIN32

#include <windows.h>

#include <iterator>
#include <new>

#include "files/Paths.h"
#include "host/SafeFiles.h"
#include "platform/Utf16.h"

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

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

[[noreturn]] void Fail(const std::string& what, const fs::path& path) {
    const DWORD error = GetLastError();
    throw StoreError(what + " \"" + std::string(veka::FromPath(path).View()) + "\": " + Sentence(error));
}

HANDLE Open(const fs::path& path, DWORD access, DWORD sharing, DWORD disposition) {
    const HANDLE file =
        CreateFileW(path.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) Fail((access & GENERIC_WRITE) ? "cannot write" : "cannot read", path);
    return file;
}

/// An open file.
class File {
public:
    File(const fs::path& path, DWORD access, DWORD disposition)
        : m_handle(Open(path, access, FILE_SHARE_READ, disposition)) {}
    ~File() { CloseHandle(m_handle); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle;
};

fs::path Below(const fs::path& directory, const std::wstring& name) {
    return veka::ToPath(veka::FromPath(directory / name));
}

}  // namespace

FileLock::FileLock(const fs::path& file)
    : m_handle(
          reinterpret_cast<std::intptr_t>(Open(file, GENERIC_READ | GENERIC_WRITE, kShared, OPEN_ALWAYS))) {
    const auto handle = reinterpret_cast<HANDLE>(m_handle);
    OVERLAPPED place{};
    if (LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place)) return;
    const DWORD error = GetLastError();
    CloseHandle(handle);
    SetLastError(error);
    Fail("cannot lock", file);
}

FileLock::~FileLock() {
    CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

bool IsFileName(const std::string& name) {
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    for (char c : name)
        if (static_cast<unsigned char>(c) < ' ' ||
            std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos)
            return false;
    return true;
}

fs::path MakeUniqueDirectory(const fs::path& directory, std::string_view front) {
    static LONG count = 0;
    for (;;) {
        const std::string name =
            std::to_string(GetCurrentProcessId()) + "-" + std::to_string(InterlockedIncrement(&count));
        const fs::path made = Below(directory, veka::ToPath(CString(std::string(front) + name)).native());
        if (CreateDirectoryW(made.c_str(), nullptr)) return made;
        if (GetLastError() != ERROR_ALREADY_EXISTS) Fail("cannot write", directory);
    }
}

void CopyFileDurably(const fs::path& from, const fs::path& to) {
    const File in(from, GENERIC_READ, OPEN_EXISTING);
    const File out(to, GENERIC_WRITE, CREATE_NEW);
    std::vector<char> block(1 << 20);
    for (;;) {
        DWORD count = 0, written = 0;
        if (!ReadFile(in.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr))
            Fail("cannot read", from);
        if (count == 0) break;
        if (!WriteFile(out.Get(), block.data(), count, &written, nullptr) || written != count)
            Fail("cannot write", to);
    }
    if (!FlushFileBuffers(out.Get())) Fail("cannot write", to);
}

// The file system keeps a journal of its entries, and offers no other way.
void SyncDirectory(const fs::path&) {}

bool MoveToFree(const fs::path& from, const fs::path& to) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH)) return true;
    const DWORD error = GetLastError();
    // A directory in the way is "access denied" on some file systems.
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS || veka::Exists(to)) return false;
    SetLastError(error);
    Fail("cannot write", to);
}

// No function of the system exchanges directories.
bool Exchange(const fs::path&, const fs::path&) {
    return false;
}

std::vector<fs::path> Entries(const fs::path& directory) {
    std::vector<fs::path> entries;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(Below(directory, L"*").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::wstring name = data.cFileName;
        if (name != L"." && name != L"..") entries.push_back(Below(directory, name));
    } while (FindNextFileW(search, &data));
    FindClose(search);
    return entries;
}

void RemoveAll(const fs::path& path) noexcept {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        DeleteFileW(path.c_str());
        return;
    }
    try {
        const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        for (const fs::path& entry : link ? std::vector<fs::path>() : Entries(path)) RemoveAll(entry);
    } catch (const std::bad_alloc&) {
        // What is left keeps its directory.
    }
    RemoveDirectoryW(path.c_str());
}

}  // namespace host

#endif
