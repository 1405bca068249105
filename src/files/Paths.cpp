#include "files/Paths.h"

#include <system_error>

#ifdef _WIN32
#include <windows.h>

#include "platform/Utf16.h"
#endif

namespace fs = std::filesystem;

namespace veka {

#ifdef _WIN32

namespace {

/// The attributes of what a path leads to, which the standard library asks for by a function that takes no
/// prefixed path; `INVALID_FILE_ATTRIBUTES` if there is nothing.
DWORD Attributes(const fs::path& path) {
    const HANDLE file = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return INVALID_FILE_ATTRIBUTES;
    BY_HANDLE_FILE_INFORMATION information;
    const bool known = GetFileInformationByHandle(file, &information);
    CloseHandle(file);
    return known ? information.dwFileAttributes : INVALID_FILE_ATTRIBUTES;
}

/// The whole path, from the root of its volume or share; empty if the system does not know it.
std::wstring Absolute(const std::wstring& path) {
    std::wstring absolute(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
    absolute.resize(length < absolute.size() ? length : 0);
    return absolute;
}

/// The unchanged path, if all functions accept it; otherwise the absolute path with a prefix.
std::wstring Prefixed(std::wstring path) {
    constexpr size_t kTakenByAll = MAX_PATH - 12;  // as long as a directory's path may be
    constexpr std::wstring_view kShare = LR"(\\)", kPrefix = LR"(\\?\)", kSharePrefix = LR"(\\?\UNC\)",
                                kDevice = LR"(\\.\)";
    if (path.find(L'\0') != std::wstring::npos) return path;
    const std::wstring absolute = Absolute(path);
    if (absolute.size() < kTakenByAll || absolute.starts_with(kPrefix) || absolute.starts_with(kDevice))
        return path;
    if (absolute.starts_with(kShare)) return std::wstring(kSharePrefix).append(absolute, kShare.size());
    return std::wstring(kPrefix) + absolute;
}

}  // namespace

fs::path ToPath(const CString& path) {
    const std::u16string text = ToUtf16(path.View());
    return Prefixed({text.begin(), text.end()});
}

CString FromPath(const fs::path& path) {
    const std::wstring& text = path.native();
    return FromUtf16(std::u16string(text.begin(), text.end()));
}

bool Exists(const fs::path& path) {
    return Attributes(path) != INVALID_FILE_ATTRIBUTES;
}

bool IsDirectory(const fs::path& path) {
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

#else

fs::path ToPath(const CString& path) {
    return path.View();
}

CString FromPath(const fs::path& path) {
    return CString(path.native());
}

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error);
}

bool IsDirectory(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

#endif

}  // namespace veka
