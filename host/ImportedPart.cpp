#include "host/ImportedPart.h"

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "files/Paths.h"
#include "host/PartLibrary.h"
#include "window/SBUtility.h"

namespace host {

std::optional<ImportedPart> RunImportDialog(const CString& file, const CString& library, CWnd* parent) {
    CVEK_AsciiFile_Import_Dlg dialog(parent);
    dialog.SetVEKAsciiFilePath(file);
    dialog.SetDefaultPartLibDir(library);
    if (dialog.DoModal() != IDOK) return std::nullopt;
    ImportedPart part{std::unique_ptr<CVEK_AsciiParser>(dialog.GetParser()), dialog.GetVEKAsciiFilePath(),
                      dialog.GetDefaultPartLibDir()};
    dialog.SetParser(nullptr);
    // A field that the user emptied is empty by now; the parser knows the file that was read.
    part.file = part.parser->GetVEKAsciiFilePath();
    return part;
}

void RequirePartNumber(const ImportedPart& part) {
    if (part.Mpn().IsEmpty())
        throw NoPartNumber("\"" + std::string(part.file.View()) +
                           "\" holds no part with a part number, nothing was stored");
}

CString Store(const ImportedPart& part) {
    RequirePartNumber(part);
    CString name = SBUtility::GetInstance().EncodeEntityCode(part.Mpn());
    const std::filesystem::path file = veka::ToPath(part.file);
    PartLibrary(veka::ToPath(part.library))
        .Store(std::string(name.View()), std::string(veka::FromPath(file.filename()).View()),
               ReadRegularFile(file, 1 << 28), Existing::Replace);
    return name;
}

}  // namespace host
