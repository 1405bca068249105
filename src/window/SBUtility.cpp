#include "window/SBUtility.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include "files/Paths.h"
#include "window/CDialog.h"
#include "window/UserInterface.h"

namespace {

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

constexpr size_t kMaximumName = 200;

bool IsSeparator(char c) {
#ifdef _WIN32
    if (c == '\\') return true;
#endif
    return c == '/';
}

bool IsSafe(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_' || c == '+';
}

/// True for the names of devices. On Windows they mean the device, also with any extension.
bool IsReserved(std::string_view text) {
    CString stem(text.substr(0, text.find('.')));
    stem.MakeUpper();
    for (const char* name : {"CON", "PRN", "AUX", "NUL"})
        if (stem == name) return true;
    const bool numbered = stem.GetLength() == 4 && stem[3] >= '0' && stem[3] <= '9';
    return numbered && (stem.Left(3) == "COM" || stem.Left(3) == "LPT");
}

/// FNV-1a with 64 bits.
std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 14695981039346656037u;
    for (char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return hash;
}

}  // namespace

SBUtility& SBUtility::GetInstance() {
    static SBUtility instance;
    return instance;
}

bool SBUtility::DoesFileOrDirExist(const CString& path, const char*, int) const {
    if (path.IsEmpty() || path.View().find('\0') != std::string_view::npos) return false;
    return veka::Exists(veka::ToPath(path));
}

CString SBUtility::GetFilePathFromUser(int, const CString& description, const CString& extension,
                                       const CString&, const CString& current, CWnd* parent) const {
    veka::UserInterface* userInterface = veka::InstalledUserInterface();
    if (!userInterface) return {};
    return userInterface->PickFile(description, extension, current, parent ? parent->GetSafeHwnd() : nullptr);
}

CString SBUtility::GetDirectoryFromUser(const CString& title, const CString& current, void* owner) const {
    veka::UserInterface* userInterface = veka::InstalledUserInterface();
    return userInterface ? userInterface->PickDirectory(title, current, owner) : CString();
}

CString SBUtility::EncodeEntityCode(const CString& text) const {
    const std::string_view bytes = text.View();
    const bool reserved = IsReserved(bytes);
    // The mark of a cut name. No other name contains "&h", because every other "&" is followed by "#".
    std::array<char, 24> mark{};
    const int markLength =
        std::snprintf(mark.data(), mark.size(), "&h%016llx;", static_cast<unsigned long long>(Hash(bytes)));
    const size_t room = kMaximumName - static_cast<size_t>(markLength);

    std::string name;
    size_t cut = 0;  // length of the longest beginning that leaves room for the mark
    for (size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        const bool innerPoint = c == '.' && i > 0 && i + 1 < bytes.size();
        if ((IsSafe(c) && !(reserved && i == 0)) || innerPoint)
            name += c;
        else
            name += "&#" + std::to_string(static_cast<unsigned char>(c)) + ";";
        if (name.size() <= room) cut = name.size();
        if (name.size() > kMaximumName)
            return CString(name.substr(0, cut).append(mark.data(), static_cast<size_t>(markLength)));
    }
    return CString(name);
}

CString SBUtility::SBPathCombine(const CString& directory, const CString& name, const char*, int) const {
    std::string_view front = directory.View();
    while (!front.empty() && IsSeparator(front.back())) front.remove_suffix(1);
    std::string_view back = name.View();
    while (!back.empty() && IsSeparator(back.front())) back.remove_prefix(1);
    CString path(front);
    path += kSeparator;
    path += back;
    return path;
}
