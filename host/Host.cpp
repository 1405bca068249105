#include "host/Host.h"

#include <ostream>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "host/CommandLine.h"
#include "host/Json.h"
#include "host/Outline.h"
#include "host/PartLibrary.h"
#include "host/Solids.h"
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

void Show(const CommandLine& line, const CVEKA_Manager& part, std::ostream& out, std::ostream& err) {
    switch (line.print) {
        case Print::Summary:
            out << "Part " << Printable(part.GetVEK()->GetPartGeneral()->GetMPN().View()) << '\n';
            Outline(out).Write(part);
            break;
        case Print::Outline:
            Outline(out, true).Write(part);
            break;
        case Print::Json:
            Json(out).Write(part);
            break;
    }
    if (!line.step.empty() || !line.gltf.empty()) WriteSolids(part, line.step, line.gltf, err);
}

/// Reads and shows a part without a library, and so without the dialog.
int ShowOnly(const CommandLine& line, std::ostream& out, std::ostream& err) {
    const CString file(line.file);
    if (!SBUtility::GetInstance().DoesFileOrDirExist(file, __FILE__, __LINE__)) {
        err << "veka-host: there is no file \"" << line.file << "\"\n";
        return kRefused;
    }
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(file);
    parser.Parser();
    Show(line, *parser.GetCVEKA_Manager(), out, err);
    return kImported;
}

int Import(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err) {
    veka::ConsoleUserInterface console(in, out);
    UnattendedUserInterface unattended(in, out, err, line.overwrite);
    const Installed installed(line.file.empty() ? console : unattended);
    if (!line.file.empty() && line.library.empty()) return ShowOnly(line, out, err);

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
    Show(line, part, out, err);
    const CString name = SBUtility::GetInstance().EncodeEntityCode(mpn);
    PartLibrary(veka::ToPath(dialog.GetDefaultPartLibDir()))
        .Store(std::string(name.View()), veka::ToPath(file));
    if (line.print == Print::Summary)
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
    } catch (const SolidsError& error) {
        err << "veka-host: no solids were written: " << error.what() << '\n';
        return kFailed;
    } catch (const std::exception& error) {
        err << "veka-host: " << (line.file.empty() ? "the file" : '"' + line.file + '"')
            << " could not be imported: " << error.what() << '\n';
        return kFailed;
    }
}

}  // namespace host
