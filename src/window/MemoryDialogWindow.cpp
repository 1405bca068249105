#include "window/MemoryDialogWindow.h"

#include "window/AfxMessageBox.h"

namespace veka {

MemoryDialogWindow::MemoryDialogWindow(const DialogTemplate& dialog, DialogEvents& events)
    : m_events(events), m_caption(dialog.caption) {
    for (const ControlTemplate& control : dialog.controls)
        m_controls[control.id] = {control.caption, control.kind == ControlKind::Edit};
}

MemoryDialogWindow::~MemoryDialogWindow() = default;

int MemoryDialogWindow::Run() {
    m_open = true;
    m_events.WindowReady();
    if (m_open) Operate();
    Press(IDCANCEL);
    return m_result;
}

void MemoryDialogWindow::End(int result) {
    m_open = false;
    m_result = result;
}

CString MemoryDialogWindow::GetText(int control) const {
    const auto found = m_controls.find(control);
    return found == m_controls.end() ? CString() : found->second.text;
}

void MemoryDialogWindow::SetText(int control, const CString& text) {
    const auto found = m_controls.find(control);
    if (found == m_controls.end() || found->second.text == text) return;
    found->second.text = text;
    if (found->second.isEdit) m_events.EditChanged(control);
}

void MemoryDialogWindow::Press(int control) {
    if (m_open) m_events.ButtonClicked(control);
}

}  // namespace veka
