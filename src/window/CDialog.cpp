#include "window/CDialog.h"

#include <utility>

#include "window/ExtensionModule.h"

CWnd::~CWnd() = default;

void* CWnd::GetSafeHwnd() const noexcept {
    return nullptr;
}

CDialog::CDialog(unsigned templateId, CWnd* parent) noexcept : m_templateId(templateId), m_parent(parent) {}

CDialog::~CDialog() = default;

INT_PTR CDialog::DoModal() {
    veka::UserInterface* userInterface = veka::InstalledUserInterface();
    const veka::DialogTemplate* dialog = veka::FindDialogTemplate(m_templateId);
    if (!userInterface || !dialog) return -1;
    m_exception = nullptr;
    m_window = userInterface->MakeDialogWindow(*dialog, *this, m_parent ? m_parent->GetSafeHwnd() : nullptr);
    const int result = m_window->Run();
    m_window.reset();
    if (m_exception) std::rethrow_exception(std::exchange(m_exception, nullptr));
    return result;
}

void CDialog::EndDialog(int result) {
    if (m_window) m_window->End(result);
}

bool CDialog::UpdateData(bool saveAndValidate) {
    if (!m_window) return false;
    struct Exchanging {
        bool& flag;
        bool former = std::exchange(flag, true);
        ~Exchanging() { flag = former; }
    } exchanging{m_exchanging};
    CDataExchange exchange{this, saveAndValidate};
    DoDataExchange(&exchange);
    return true;
}

void CDialog::SetWindowText(const CString& caption) {
    if (m_window) m_window->SetCaption(caption);
}

void CDialog::SetDlgItemText(int control, const CString& text) {
    if (m_window) m_window->SetText(control, text);
}

CString CDialog::GetDlgItemText(int control) const {
    return m_window ? m_window->GetText(control) : CString();
}

void* CDialog::GetSafeHwnd() const noexcept {
    return m_window ? m_window->Handle() : nullptr;
}

int CDialog::OnInitDialog() {
    UpdateData(false);
    return 1;
}

void CDialog::DoDataExchange(CDataExchange*) {}

void CDialog::OnClicked(int control) {
    if (control == IDOK) OnOK();
}

void CDialog::OnEditChange(int) {}

void CDialog::OnOK() {
    if (UpdateData(true)) EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

// The window's event loop is foreign code that no exception may cross.
template <class Handler>
void CDialog::Guarded(Handler handler) noexcept {
    if (m_exception) return;
    try {
        handler();
    } catch (...) {
        m_exception = std::current_exception();
        EndDialog(IDCANCEL);
    }
}

void CDialog::WindowReady() noexcept {
    Guarded([&] { OnInitDialog(); });
}

void CDialog::ButtonClicked(int control) noexcept {
    Guarded([&] { control == IDCANCEL ? OnCancel() : OnClicked(control); });
}

void CDialog::EditChanged(int control) noexcept {
    if (!m_exchanging) Guarded([&] { OnEditChange(control); });
}

void DDX_Text(CDataExchange* exchange, int control, CString& field) {
    if (exchange->m_bSaveAndValidate)
        field = exchange->m_pDlgWnd->GetDlgItemText(control);
    else
        exchange->m_pDlgWnd->SetDlgItemText(control, field);
}
