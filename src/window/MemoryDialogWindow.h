#pragma once

#include <map>

#include "window/UserInterface.h"

namespace veka {

/// The window of a dialog without a screen. The window keeps the caption and the texts in memory, and a
/// derived class does what the user would do.
class VEKA_API MemoryDialogWindow : public DialogWindow {
public:
    /// `events` must outlive the window.
    MemoryDialogWindow(const DialogTemplate& dialog, DialogEvents& events);
    ~MemoryDialogWindow() override;

    /// Runs `Operate`, and presses Cancel if the window is still open afterwards.
    int Run() override;
    void End(int result) override;
    CString GetText(int control) const override;
    /// An edit field tells its events if the text is a new one.
    void SetText(int control, const CString& text) override;
    void SetCaption(const CString& caption) override { m_caption = caption; }

    const CString& Caption() const noexcept { return m_caption; }
    /// True until `End` is called.
    bool IsOpen() const noexcept { return m_open; }
    /// Presses a button. Does nothing when the window has been closed.
    void Press(int control);

protected:
    /// Does what the user does in the open window.
    virtual void Operate() = 0;

private:
    struct Control {
        CString text;
        bool isEdit;
    };

    DialogEvents& m_events;
    CString m_caption;
    std::map<int, Control> m_controls;
    bool m_open = true;
    int m_result = 0;
};

}  // namespace veka
