#pragma once

#include <memory>

#include "window/CDialog.h"
#include "window/UserInterface.h"

class QWidget;

namespace veka {

/// A widget of a host's own Qt application, for use as the parent of a dialog.
class QtWnd : public CWnd {
public:
    /// The widget stays the host's.
    explicit QtWnd(QWidget* widget) noexcept : m_widget(widget) {}
    void* GetSafeHwnd() const noexcept override { return m_widget; }

private:
    QWidget* m_widget;
};

/// Windows, messages and pickers by Qt. Parents and owners are `QWidget*`.
///
/// All is called on the thread of the `QApplication`. Where the process has none, the user interface makes
/// one, which lives as long as it does and leaves the C locale as it was. Qt ends the process where it finds
/// no display; ask `HasDisplay` first.
class QtUserInterface : public UserInterface {
public:
    /// Raises `std::logic_error` where the process has a Qt application without windows.
    QtUserInterface();
    ~QtUserInterface() override;

    void ShowMessage(const CString& text) override;
    bool AskYesNo(const CString& text) override;
    CString PickFile(const CString& description, const CString& extension, const CString& current,
                     void* parent) override;
    CString PickDirectory(const CString& title, const CString& current, void* owner) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   void* parent) override;

private:
    class OwnApplication;
    std::unique_ptr<OwnApplication> m_application;
};

/// True if a `QApplication` can be made, or is there. Tries it in a process of its own; call it before the
/// program has threads.
bool HasDisplay();

}  // namespace veka
