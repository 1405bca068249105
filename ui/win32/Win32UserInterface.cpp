#include "win32/Win32UserInterface.h"

#include <windows.h>

#include "win32/PathDialog.h"
#include "win32/WideText.h"
#include "win32/Win32DialogWindow.h"

namespace veka {

namespace {

/// The name of the running program, without its folder and extension.
std::wstring ProgramName() {
    wchar_t path[MAX_PATH];
    std::wstring_view name(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    name.remove_prefix(name.find_last_of(L"\\/") + 1);
    return std::wstring(name.substr(0, name.rfind(L'.')));
}

/// The window that was given, or else the one that the user is in.
void* ParentOr(void* parent) {
    return parent ? parent : GetActiveWindow();
}

int ShowMessageBox(const CString& text, UINT type) {
    return MessageBoxW(GetActiveWindow(), ToWide(text).c_str(), ProgramName().c_str(), type);
}

}  // namespace

void Win32UserInterface::ShowMessage(const CString& text) {
    ShowMessageBox(text, MB_OK | MB_ICONEXCLAMATION);
}

bool Win32UserInterface::AskYesNo(const CString& text) {
    return ShowMessageBox(text, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

CString Win32UserInterface::PickFile(const CString& description, const CString& extension,
                                     const CString& current, void* parent) {
    const std::wstring pattern = L"*." + ToWide(extension);
    return FromWide(PickPath({L"", ToWide(description) + L" (" + pattern + L")", pattern, ToWide(extension)},
                             ToWide(current), ParentOr(parent)));
}

CString Win32UserInterface::PickDirectory(const CString& title, const CString& current, void* owner) {
    return FromWide(PickPath({ToWide(title), L"", L"", L""}, ToWide(current), ParentOr(owner)));
}

std::unique_ptr<DialogWindow> Win32UserInterface::MakeDialogWindow(const DialogTemplate& dialog,
                                                                   DialogEvents& events, void* parent) {
    return std::make_unique<Win32DialogWindow>(dialog, events, parent);
}

bool HasDesktop() noexcept {
    USEROBJECTFLAGS flags{};
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace veka
