#pragma once

#include <iosfwd>

#include "console/ConsoleUserInterface.h"
#include "host/CommandLine.h"

namespace host {

/// Runs the import dialog with nobody at it: presses OK once on what the dialog was opened with, answers the
/// question by the command line, and writes messages to standard error.
class UnattendedUserInterface : public veka::ConsoleUserInterface {
public:
    UnattendedUserInterface(std::istream& in, std::ostream& out, std::ostream& err, Overwrite overwrite)
        : ConsoleUserInterface(in, out), m_err(err), m_overwrite(overwrite) {}

    void ShowMessage(const CString& text) override;
    bool AskYesNo(const CString& text) override;
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate& dialog,
                                                         veka::DialogEvents& events, void* parent) override;

    /// True if the user or the command line said No to a question.
    bool SaidNo() const { return m_saidNo; }

private:
    std::ostream& m_err;
    Overwrite m_overwrite;
    bool m_saidNo = false;
};

}  // namespace host
