#include "host/ImportDialog.h"

#include <system_error>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "files/Paths.h"
#include "window/SBUtility.h"

namespace host {

namespace {

bool Exists(const CString& path) {
    return SBUtility::GetInstance().DoesFileOrDirExist(path, __FILE__, __LINE__);
}

/// The import dialog with the host's own steps before its OK.
class Dialog : public CVEK_AsciiFile_Import_Dlg {
public:
    Dialog(const Reading& reading, CWnd* parent) : CVEK_AsciiFile_Import_Dlg(parent), m_reading(reading) {}

    std::optional<DialogChoice> ReleaseChoice() { return std::move(m_choice); }

protected:
    void OnClicked(int control) override {
        if (control == IDOK && !MayGoOn()) return;
        CVEK_AsciiFile_Import_Dlg::OnClicked(control);
    }

private:
    /// False where the dialog is to stay open.
    bool MayGoOn() {
        m_choice.reset();
        const CString file = GetVEKAsciiFilePath(), library = GetDefaultPartLibDir();
        if (!Exists(file)) return true;  // the dialog says so
        try {
            ImportedPart part = ReadPart(file, m_reading);
            RequirePartNumber(part);
            if (!HasDirectory(library)) return false;
            const bool there = HasPart(library, part.Name());
            if (there && !part.faults.empty() && !AskAboutFaults(part)) return false;
            m_choice = {std::move(part), library, there ? Existing::Replace : Existing::Keep};
            return true;
        } catch (const SourceError& error) {
            AfxMessageBox(error.what());
        } catch (const NoPart& error) {
            AfxMessageBox(error.what());
        } catch (const ImportEnded& error) {
            AfxMessageBox(error.what());
        }
        return false;
    }
    /// Offers to make a directory that is missing.
    static bool HasDirectory(const CString& directory) {
        if (directory.IsEmpty() || Exists(directory)) return true;
        if (AfxMessageBox("There is no directory \"" + directory + "\". Make it?", MB_YESNO) != IDYES)
            return false;
        std::error_code error;
        std::filesystem::create_directories(veka::ToPath(directory), error);
        if (!error) return true;
        AfxMessageBox("\"" + directory + "\" cannot be made: " + CString(error.message()));
        return false;
    }
    static bool AskAboutFaults(const ImportedPart& part) {
        return AfxMessageBox("The library has this part already, and the file is faulty: " +
                                 CString(FaultSentence(part.faults)) + ". Go on?",
                             MB_YESNO) == IDYES;
    }

    const Reading& m_reading;
    std::optional<DialogChoice> m_choice;
};

}  // namespace

std::optional<DialogChoice> RunImportDialog(const CString& file, const CString& library,
                                            const Reading& reading, CWnd* parent) {
    Dialog dialog(reading, parent);
    dialog.SetVEKAsciiFilePath(file);
    dialog.SetDefaultPartLibDir(library);
    if (dialog.DoModal() != IDOK) return std::nullopt;
    std::optional<DialogChoice> choice = dialog.ReleaseChoice();
    // The dialog has read the file a second time, and has asked about the part that it found then.
    const CString asked = dialog.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN();
    if (!choice || choice->part.Mpn() != asked)
        throw SourceError("\"" + std::string(dialog.GetParser()->GetVEKAsciiFilePath().View()) +
                          "\" changed while it was imported");
    return choice;
}

}  // namespace host
