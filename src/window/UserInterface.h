#pragma once

#include <memory>
#include <vector>

#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// What a control of a dialog is.
enum class ControlKind { DefaultButton, Button, GroupBox, Label, Edit };

/// One control of a dialog template; place and size in dialog units.
struct ControlTemplate {
    int id;
    ControlKind kind;
    const char* caption;
    int x, y, width, height;
};

/// A dialog as a table; size in dialog units, controls in tab order.
struct DialogTemplate {
    unsigned id;
    const char* caption;
    int width, height;
    const char* fontName;
    int fontSize;  ///< in points
    std::vector<ControlTemplate> controls;
};

/// Receives what the user does in a dialog's window. No operation throws.
class VEKA_API DialogEvents {
public:
    virtual ~DialogEvents();
    /// The window and its controls exist. The window is about to be shown.
    virtual void WindowReady() noexcept = 0;
    /// A button was pressed; also OK by Enter and Cancel by Escape or the close box.
    virtual void ButtonClicked(int control) noexcept = 0;
    /// The text of an edit field changed, by the user or by the program.
    virtual void EditChanged(int control) noexcept = 0;
};

/// The window of one modal dialog. A control that the template does not have is ignored and has no text.
class VEKA_API DialogWindow {
public:
    virtual ~DialogWindow();
    /// Shows the window, reports its events until `End` is called, and returns the number given to it.
    virtual int Run() = 0;
    /// Ends `Run` as soon as the running event has been handled.
    virtual void End(int result) = 0;
    virtual CString GetText(int control) const = 0;
    virtual void SetText(int control, const CString& text) = 0;
    virtual void SetCaption(const CString& caption) = 0;
    /// The window for use as a parent, in the window system's own terms; null if there is none.
    virtual void* Handle() const noexcept;
};

/// The few operations of a window system that the library needs.
class VEKA_API UserInterface {
public:
    virtual ~UserInterface();
    /// Shows a text with an OK button and waits for it.
    virtual void ShowMessage(const CString& text) = 0;
    /// Shows a question with the buttons Yes and No; true for Yes.
    virtual bool AskYesNo(const CString& text) = 0;
    /// Lets the user choose a file of a type; empty if the user cancels.
    virtual CString PickFile(const CString& description, const CString& extension, const CString& current,
                             void* parent) = 0;
    /// Lets the user choose a directory; empty if the user cancels.
    virtual CString PickDirectory(const CString& title, const CString& current, void* owner) = 0;
    /// Makes the window of a dialog. `events` outlives it.
    virtual std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                           void* parent) = 0;
};

/// Makes a user interface the one that all windows and messages use, and returns the former one. It
/// stays the caller's and must live as long as it is installed. Null takes the installed one away.
VEKA_API UserInterface* InstallUserInterface(UserInterface* userInterface) noexcept;
/// The installed user interface, or null.
VEKA_API UserInterface* InstalledUserInterface() noexcept;

}  // namespace veka
