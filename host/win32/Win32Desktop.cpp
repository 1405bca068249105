#include "host/win32/Win32Desktop.h"

#include "host/ExitCode.h"
#include "host/Failure.h"
#include "host/ImportDialog.h"
#include "win32/Win32UserInterface.h"
#include "window/AfxMessageBox.h"

namespace host {

namespace {

Waiting GiveUpAfter(std::chrono::seconds time) {
    return [time](std::chrono::milliseconds waited, const std::string&) { return waited < time; };
}

}  // namespace

bool Win32Desktop::HasDisplay() {
    return veka::HasDesktop();
}

std::unique_ptr<veka::UserInterface> Win32Desktop::MakeUserInterface() {
    return std::make_unique<veka::Win32UserInterface>();
}

int Win32Desktop::RunApplication(const CommandLine& line) {
    const std::string file = line.files.empty() ? "" : line.files[0];
    try {
        const std::optional<DialogChoice> choice =
            RunImportDialog(CString(file), CString(line.library), {line.limits});
        if (!choice) return kRefused;
        const CString name(choice->part.Name());
        Outcome outcome = Store(choice->part, choice->library, choice->existing, GiveUpAfter(line.wait));
        if (outcome == Outcome::Kept &&
            AfxMessageBox("\"" + name + "\" is in the library already. Replace it?", MB_YESNO) == IDYES)
            outcome = Store(choice->part, choice->library, Existing::Replace, GiveUpAfter(line.wait));
        if (outcome == Outcome::Kept) return kRefused;
        AfxMessageBox("Stored as " + name + " in " + choice->library);
        return kImported;
    } catch (...) {
        const Failure failure = CurrentFailure(file);
        AfxMessageBox(CString(failure.sentence));
        return failure.code;
    }
}

}  // namespace host
