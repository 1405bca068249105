#pragma once

#include <iosfwd>

#include "window/UserInterface.h"

namespace veka {

/// Dialogs, messages, questions and pickers as texts on a terminal. At the end of the input a question is
/// answered No, and a picker and a dialog are cancelled. Texts are written as `Printable` makes them.
class ConsoleUserInterface : public UserInterface {
public:
    /// Both streams must outlive the user interface. `out` is the terminal; a program whose output is data
    /// passes its error stream.
    ConsoleUserInterface(std::istream& in, std::ostream& out) : m_in(in), m_out(out) {}

    void ShowMessage(const CString& text) override;
    bool AskYesNo(const CString& text) override;
    CString PickFile(const CString& description, const CString& extension, const CString& current,
                     void* parent) override;
    CString PickDirectory(const CString& title, const CString& current, void* owner) override;
    std::unique_ptr<DialogWindow> MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                   void* parent) override;

private:
    std::istream& m_in;
    std::ostream& m_out;
};

}  // namespace veka
