#include "window/AfxMessageBox.h"

#include <cstdio>

#include "window/UserInterface.h"

int AfxMessageBox(const CString& text, unsigned type) {
    veka::UserInterface* userInterface = veka::InstalledUserInterface();
    if (!userInterface) {
        std::fprintf(stderr, "%s\n", text.GetString());
        return type == MB_YESNO ? IDNO : IDOK;
    }
    if (type == MB_YESNO) return userInterface->AskYesNo(text) ? IDYES : IDNO;
    userInterface->ShowMessage(text);
    return IDOK;
}
