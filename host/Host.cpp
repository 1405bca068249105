#include "host/Host.h"

#include <ostream>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "host/CommandLine.h"
#include "host/Outline.h"
#include "host/PartLibrary.h"
#include "host/UnattendedUserInterface.h"
#include "platform/Paths.h"
#include "platform/SBUtility.h"

namespace host {

namespace {

/// Installs a user interface for as long as it lives.
class Installed {
public:
    explicit Installed(veka::UserInterface& userInterface)
        : m_former(veka::InstallUserInterface(&userInterface)) {}
    ~Installed() { veka::InstallUserInterface(m_former); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

private:
    veka::UserInterface* m_former;
};

void Show(std::ostream& out, const CVEKA_Manager& part) {
    out << "Part " << Printable(part.GetVEK()->GetPartGeneral()->GetMPN().View()) << '\n';
    Outline(out).Write(part);
}

int Import(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err) {
    veka::ConsoleUserInterface console(in, out);
    UnattendedUserInterface unattended(in, out, err, line.overwrite);
    const Installed installed(line.file.empty() ? console : unattended);

    CVEK_AsciiFile_Import_Dlg dialog;
    dialog.SetVEKAsciiFilePath(CString(line.file));
    dialog.SetDefaultPartLibDir(CString(line.library));
    if (dialog.DoModal() != IDOK) {
        if (unattended.SaidNo()) err << "veka-host: the part is in the library already and was left alone\n";
        return kRefused;
    }

    const CVEKA_Manager& part = *dialog.GetParser()->GetCVEKA_Manager();
    const CString mpn = part.GetVEK()->GetPartGeneral()->GetMPN();
    const CString file = dialog.GetVEKAsciiFilePath();
    if (mpn.IsEmpty()) {
        // Its place in the library would be the library itself.
        err << "veka-host: \"" << file.View() << "\" holds no part with a part number, nothing was stored\n";
        return kRefused;
    }
    Show(out, part);
    const CString name = SBUtility::GetInstance().EncodeEntityCode(mpn);
    PartLibrary(veka::ToPath(dialog.GetDefaultPartLibDir()))
        .Store(std::string(name.View()), veka::ToPath(file));
    out << "Stored as " << name.View() << " in " << dialog.GetDefaultPartLibDir().View() << '\n';
    return kImported;
}

}  // namespace

int RunHost(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
            std::ostream& err) {
    CommandLine line;
    try {
        line = ParseCommandLine(arguments);
        if (line.help) {
            out << kUsage;
            return kImported;
        }
        return Import(line, in, out, err);
    } catch (const UsageError& error) {
        err << "veka-host: " << error.what() << " (--help tells more)\n";
        return kWrongUsage;
    } catch (const StoreError& error) {
        err << "veka-host: the part could not be stored: " << error.what() << '\n';
        return kFailed;
    } catch (const std::exception& error) {
        err << "veka-host: " << (line.file.empty() ? "the file" : '"' + line.file + '"')
            << " could not be imported: " << error.what() << '\n';
        return kFailed;
    }
}

}  // namespace host
