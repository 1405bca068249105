#pragma once

#include <iosfwd>

#include "window/UserInterface.h"

namespace veka {

/// Windows, questions and pickers on a terminal. At the end of the input a question is answered No, a picker
/// and a dialog are cancelled.
class ConsoleUserInterface : public UserInterface {
public:
    /// Both streams must outlive the user interface.
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
