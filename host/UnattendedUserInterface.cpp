#include "host/UnattendedUserInterface.h"

#include <ostream>

#include "host/PressedWindow.h"

namespace host {

void UnattendedUserInterface::ShowMessage(const CString& text) {
    m_err << "veka-host: " << text.View() << '\n';
}

bool UnattendedUserInterface::AskYesNo(const CString& text) {
    const bool yes =
        m_overwrite == Overwrite::Ask ? ConsoleUserInterface::AskYesNo(text) : m_overwrite == Overwrite::Yes;
    m_saidNo = m_saidNo || !yes;
    return yes;
}

std::unique_ptr<veka::DialogWindow> UnattendedUserInterface::MakeDialogWindow(const veka::DialogTemplate&,
                                                                              veka::DialogEvents& events,
                                                                              void*) {
    return MakePressedWindow(events);
}

}  // namespace host
