#include "win32/Win32DialogWindow.h"

#include <windows.h>

#include <algorithm>
#include <limits>

#include "win32/DialogResource.h"
#include "win32/WideText.h"
#include "window/AfxMessageBox.h"
#include "window/ExtensionModule.h"

namespace veka {

namespace {

HWND ToWindow(void* window) {
    return static_cast<HWND>(window);
}

/// Puts a window into the middle of its owner, or else of the screen that it is on, and wholly onto the
/// screen.
void Center(HWND window, HWND owner) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    RECT own, around;
    if (!GetMonitorInfoW(MonitorFromWindow(owner ? owner : window, MONITOR_DEFAULTTONEAREST), &screen) ||
        !GetWindowRect(window, &own))
        return;
    const RECT& work = screen.rcWork;
    if (!owner || IsIconic(owner) || !GetWindowRect(owner, &around)) around = work;
    const LONG width = own.right - own.left, height = own.bottom - own.top;
    const LONG x = std::min((around.left + around.right - width) / 2, work.right - width);
    const LONG y = std::min((around.top + around.bottom - height) / 2, work.bottom - height);
    SetWindowPos(window, nullptr, std::max(x, work.left), std::max(y, work.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The system's code, which no exception may cross: the events throw none, and nothing else here can.
INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, number);
    auto* const self = reinterpret_cast<Win32DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    switch (message) {
        case WM_INITDIALOG:
            self->WindowCreated(window);
            return TRUE;  // the focus is the first control's
        case WM_COMMAND:
            self->ControlNotified(LOWORD(word), HIWORD(word));
            return TRUE;
        case WM_NCDESTROY:
            self->WindowDestroyed();
            SetWindowLongPtrW(window, DWLP_USER, 0);
            return FALSE;
        default:
            return FALSE;
    }
}

}  // namespace

Win32DialogWindow::Win32DialogWindow(const DialogTemplate& dialog, DialogEvents& events, void* parent)
    : m_dialog(dialog), m_events(events), m_parent(parent) {}

int Win32DialogWindow::Run() {
    const auto module = static_cast<HINSTANCE>(AfxFindResourceHandle(m_dialog.id));
    const LPCWSTR name = MAKEINTRESOURCEW(m_dialog.id);
    const auto self = reinterpret_cast<LPARAM>(this);
    if (module && FindResourceW(module, name, RT_DIALOG)) {
        DialogBoxParamW(module, name, ToWindow(m_parent), Procedure, self);
    } else {
        const std::vector<std::uint32_t> resource = MakeDialogResource(m_dialog);
        DialogBoxIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(resource.data()),
                                ToWindow(m_parent), Procedure, self);
    }
    return m_result.value_or(m_wasMade ? int{IDCANCEL} : -1);
}

void Win32DialogWindow::WindowCreated(void* window) noexcept {
    m_window = window;
    m_wasMade = true;
    for (const ControlTemplate& control : m_dialog.controls)
        if (control.kind == ControlKind::Edit)
            SendDlgItemMessageW(ToWindow(window), control.id, EM_SETLIMITTEXT,
                                std::numeric_limits<int>::max() - 1, 0);
    Center(ToWindow(window), ToWindow(m_parent));
    m_events.WindowReady();
}

void Win32DialogWindow::ControlNotified(int control, int code) noexcept {
    if (code == BN_CLICKED)
        m_events.ButtonClicked(control);
    else if (code == EN_CHANGE)
        m_events.EditChanged(control);
}

void Win32DialogWindow::End(int result) {
    m_result = result;
    if (m_window) EndDialog(ToWindow(m_window), result);
}

CString Win32DialogWindow::GetText(int control) const {
    const HWND window = GetDlgItem(ToWindow(m_window), control);
    if (!window) return {};
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

void Win32DialogWindow::SetText(int control, const CString& text) {
    if (m_window) SetDlgItemTextW(ToWindow(m_window), control, ToWide(text).c_str());
}

void Win32DialogWindow::SetCaption(const CString& caption) {
    if (m_window) SetWindowTextW(ToWindow(m_window), ToWide(caption).c_str());
}

}  // namespace veka
