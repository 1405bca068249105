#pragma once

#include <filesystem>
#include <string>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "model/CVEKA_Manager.h"
#include "support/Files.h"

namespace test {

/// What tests of the import dialog need: a file, an empty library and the dialog.
class ImportSetup {
protected:
    /// Writes a file of this name with one part.
    ImportSetup(std::string_view name, std::string_view mpn)
        : file(directory.Write(name, "(VEK (PARTGENERAL (MPN " + std::string(mpn) + ")))")),
          library(directory / "lib") {
        std::filesystem::create_directory(Library());
    }

    std::filesystem::path Library() const { return directory.Path() / "lib"; }
    /// Fills a dialog in with the file and the library.
    void Fill(CVEK_AsciiFile_Import_Dlg& one) const {
        one.SetVEKAsciiFilePath(file);
        one.SetDefaultPartLibDir(library);
    }
    /// Puts a part with this name into the library.
    void MakeTarget(const char* name = "A") { std::filesystem::create_directory(Library() / name); }
    static CString MPN(const CVEK_AsciiFile_Import_Dlg& one) {
        return one.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN();
    }

    TemporaryDirectory directory;
    CString file, library;
    CVEK_AsciiFile_Import_Dlg dialog;
};

/// The import dialog for another kind of file: 0 for ASCII, 1 for XML.
class KindDialog : public CVEK_AsciiFile_Import_Dlg {
public:
    explicit KindDialog(int kind) { m_nFileKind = kind; }
};

}  // namespace test
