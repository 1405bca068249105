#pragma once

#include <memory>

#include "window/CDialog.h"
#include "window/UserInterface.h"

namespace veka {

/// A window of a host's own, for use as the parent of a dialog.
class Win32Wnd : public CWnd {
public:
    /// The window, an `HWND`, stays the host's.
    explicit Win32Wnd(void* window) noexcept : m_window(window) {}
    void* GetSafeHwnd() const noexcept override { return m_window; }

private:
    void* m_window;
};

/// Windows, messages and pickers of Windows itself. Parents and owners are window handles. Paths and texts
/// are UTF-8; a byte that is not UTF-8 is kept.
class Win32UserInterface : public UserInterface {
public:
    void ShowMessage(const CString& text) override;
    bool AskYesNo(const CString& text) override;
    CString PickFile(const CString& description, const CString& extension, const CString& current,
                     void* parent) override;
    CString PickDirectory(const CString& title, const CString& current, void* owner) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   void* parent) override;
};

/// True if this process can show windows to a user; a service cannot.
bool HasDesktop() noexcept;

}  // namespace veka
