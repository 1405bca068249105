#pragma once

#include <memory>

#include "dialog/ImportDialogTemplate.h"
#include "parser/CVEK_AsciiParser.h"
#include "window/CDialog.h"

/// The modal dialog that imports one part data file: the user names the file and the part library directory;
/// OK checks both, reads the file and asks before a part that is there is overwritten. It writes nothing.
class VEKA_API CVEK_AsciiFile_Import_Dlg : public CDialog {
public:
    explicit CVEK_AsciiFile_Import_Dlg(CWnd* parent = nullptr);
    /// Deletes the parser and its model, unless the host took the parser out.
    ~CVEK_AsciiFile_Import_Dlg() override;

    CString GetVEKAsciiFilePath() const { return m_strVEKAsciiFilePath; }
    void SetVEKAsciiFilePath(CString path) { m_strVEKAsciiFilePath = std::move(path); }
    CString GetDefaultPartLibDir() const { return m_strDefaultPartLibDir; }
    void SetDefaultPartLibDir(CString directory) { m_strDefaultPartLibDir = std::move(directory); }
    /// The parser with the model; it stays the dialog's. Each OK makes a new one.
    CVEK_AsciiParser* GetParser() const noexcept { return m_pParser; }
    /// Takes a parser over. The former one is not deleted: it becomes the caller's.
    void SetParser(CVEK_AsciiParser* parser) noexcept { m_pParser = parser; }

protected:
    int OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnClicked(int control) override;
    void OnEditChange(int control) override;

    int m_nFileKind = 0;  ///< 0 for an ASCII file, 1 for an XML file; a derived dialog may set it

private:
    void OnBnClickedBtnVEKAsciiFilePath();
    void OnBnClickedBtnVEKAsciiDirPath();
    void OnBnClickedOk();
    void OnEditChangePath();
    void OnEditChangeDir();

    CString m_strVEKAsciiFilePath;
    CString m_strDefaultPartLibDir;
    CVEK_AsciiParser* m_pParser;  // owned
};
