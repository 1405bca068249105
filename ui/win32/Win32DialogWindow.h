#pragma once

#include <optional>
#include <vector>

#include "window/UserInterface.h"

namespace veka {

/// A dialog as a window of the system, from the resource of the module that registered its template or, where
/// the module has none, from the template itself.
///
/// The window exists while `Run` runs. A text ends at its first zero byte, as the texts of the system do.
class Win32DialogWindow : public DialogWindow {
public:
    /// `events` outlives the window; the parent is a window handle or null.
    Win32DialogWindow(const DialogTemplate& dialog, DialogEvents& events, void* parent);

    /// -1 where the system cannot make the window; Cancel if the window dies without an end.
    int Run() override;
    void End(int result) override;
    CString GetText(int control) const override;
    void SetText(int control, const CString& text) override;
    void SetCaption(const CString& caption) override;
    /// The window's handle.
    void* Handle() const noexcept override { return m_window; }

    /// Called by the window procedure when the window exists.
    void WindowCreated(void* window) noexcept;
    /// Called by the window procedure when a control reports an event, by the code of the system.
    void ControlNotified(int control, int code) noexcept;
    /// Called by the window procedure when the window was destroyed.
    void WindowDestroyed() noexcept { m_window = nullptr; }

private:
    const DialogTemplate& m_dialog;
    DialogEvents& m_events;
    void* m_parent;
    void* m_window = nullptr;
    bool m_wasMade = false;  // stays true when the window is gone
    std::optional<int> m_result;
};

}  // namespace veka
