#include "host/win32/Win32Desktop.h"

#include "host/ExitCode.h"
#include "host/Failure.h"
#include "host/ImportedPart.h"
#include "win32/Win32UserInterface.h"
#include "window/AfxMessageBox.h"

namespace host {

bool Win32Desktop::HasDisplay() {
    return veka::HasDesktop();
}

std::unique_ptr<veka::UserInterface> Win32Desktop::MakeUserInterface() {
    return std::make_unique<veka::Win32UserInterface>();
}

int Win32Desktop::RunApplication(const CommandLine& line) {
    try {
        const std::optional<ImportedPart> part = RunImportDialog(CString(line.file), CString(line.library));
        if (!part) return kRefused;
        const CString name = Store(*part);
        AfxMessageBox("Stored as " + name + " in " + part->library);
        return kImported;
    } catch (...) {
        const Failure failure = CurrentFailure(line.file);
        AfxMessageBox(CString(failure.sentence));
        return failure.code;
    }
}

}  // namespace host
