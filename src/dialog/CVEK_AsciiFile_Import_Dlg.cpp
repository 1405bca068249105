#include "dialog/CVEK_AsciiFile_Import_Dlg.h"

#include "dialog/Messages.h"
#include "model/CVEKA_Manager.h"
#include "window/ExtensionModule.h"
#include "window/SBUtility.h"

namespace messages = veka::messages;

namespace {

/// Registers the library with the process while it is loaded, so that its dialog template is found.
class Module {
public:
    Module() {
        m_module.hModule = veka::ModuleOf(this);
        AfxInitExtensionModule(m_module, {veka::ImportDialogTemplate()});
        new CDynLinkLibrary(m_module);
    }
    ~Module() { AfxTermExtensionModule(m_module); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

private:
    AFX_EXTENSION_MODULE m_module;
};

// In the dialog's own file, so that whoever links the dialog has its template.
const Module g_module;

}  // namespace

CVEK_AsciiFile_Import_Dlg::CVEK_AsciiFile_Import_Dlg(CWnd* parent)
    : CDialog(IDD_VEK_ASCII_IMPORT, parent), m_pParser(new CVEK_AsciiParser) {}

CVEK_AsciiFile_Import_Dlg::~CVEK_AsciiFile_Import_Dlg() {
    delete m_pParser;
}

int CVEK_AsciiFile_Import_Dlg::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_nFileKind == 1) {
        SetWindowText(messages::kXmlCaption);
        SetDlgItemText(IDC_STATIC_FILE_LABEL, messages::kXmlFileLabel);
    }
    return 1;
}

void CVEK_AsciiFile_Import_Dlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_EDIT_VEK_ASCII_PATH, m_strVEKAsciiFilePath);
    DDX_Text(exchange, IDC_EDIT_VEK_DIR_PATH, m_strDefaultPartLibDir);
}

void CVEK_AsciiFile_Import_Dlg::OnClicked(int control) {
    switch (control) {
        case IDC_BTN_VEK_ASCII_PATH:
            return OnBnClickedBtnVEKAsciiFilePath();
        case IDC_BTN_VEK_DIR_PATH:
            return OnBnClickedBtnVEKAsciiDirPath();
        case IDOK:
            return OnBnClickedOk();
        default:
            return CDialog::OnClicked(control);
    }
}

void CVEK_AsciiFile_Import_Dlg::OnEditChange(int control) {
    if (control == IDC_EDIT_VEK_ASCII_PATH) OnEditChangePath();
    if (control == IDC_EDIT_VEK_DIR_PATH) OnEditChangeDir();
}

void CVEK_AsciiFile_Import_Dlg::OnBnClickedBtnVEKAsciiFilePath() {
    UpdateData(true);
    const bool xml = m_nFileKind == 1;
    const CString path = SBUtility::GetInstance().GetFilePathFromUser(
        1, xml ? messages::kXmlFileType : messages::kAsciiFileType,
        xml ? messages::kXmlExtension : messages::kAsciiExtension, "", m_strVEKAsciiFilePath, nullptr);
    if (path.IsEmpty()) return;
    m_strVEKAsciiFilePath = path;
    UpdateData(false);
}

void CVEK_AsciiFile_Import_Dlg::OnBnClickedBtnVEKAsciiDirPath() {
    UpdateData(true);
    const CString directory = SBUtility::GetInstance().GetDirectoryFromUser(
        messages::kDirectoryTitle, m_strDefaultPartLibDir, GetSafeHwnd());
    if (directory.IsEmpty()) return;
    m_strDefaultPartLibDir = directory;
    UpdateData(false);
}

// A field that the user empties keeps its last text, and that is what OK uses.
void CVEK_AsciiFile_Import_Dlg::OnEditChangePath() {
    const CString text = GetDlgItemText(IDC_EDIT_VEK_ASCII_PATH);
    if (!text.IsEmpty()) m_strVEKAsciiFilePath = text;
}

void CVEK_AsciiFile_Import_Dlg::OnEditChangeDir() {
    const CString text = GetDlgItemText(IDC_EDIT_VEK_DIR_PATH);
    if (!text.IsEmpty()) m_strDefaultPartLibDir = text;
}

/// Uses the values of the fields, and does not read the controls.
void CVEK_AsciiFile_Import_Dlg::OnBnClickedOk() {
    const SBUtility& utility = SBUtility::GetInstance();
    if (!utility.DoesFileOrDirExist(m_strVEKAsciiFilePath, __FILE__, __LINE__)) {
        AfxMessageBox(m_nFileKind != 0 ? messages::kXmlPathFail : messages::kAsciiPathFail);
        return EndDialog(IDCANCEL);
    }
    if (!utility.DoesFileOrDirExist(m_strDefaultPartLibDir, __FILE__, __LINE__)) {
        AfxMessageBox(messages::kLibraryDirectoryMissing);
        return EndDialog(IDCANCEL);
    }
    if (m_nFileKind != 0) return OnOK();  // the host reads XML files itself

    auto fresh = std::make_unique<CVEK_AsciiParser>();
    delete m_pParser;
    m_pParser = fresh.release();
    m_pParser->SetVEKAsciiFilePath(m_strVEKAsciiFilePath);
    if (m_pParser->Parser() == 0) {
        AfxMessageBox(messages::kAsciiReadFail);
        return EndDialog(IDCANCEL);
    }

    const CString mpn = m_pParser->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN();
    const CString target =
        utility.SBPathCombine(m_strDefaultPartLibDir, utility.EncodeEntityCode(mpn), __FILE__, __LINE__);
    if (utility.DoesFileOrDirExist(target, __FILE__, __LINE__) &&
        AfxMessageBox("\"" + target + "\"" + messages::kAlreadyExists, MB_YESNO) != IDYES)
        return;  // the dialog stays open
    OnOK();
}
