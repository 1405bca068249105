#include "host/Host.h"

#include <ostream>

#include "host/CommandLine.h"
#include "host/Desktop.h"
#include "host/Failure.h"
#include "host/ImportedPart.h"
#include "host/Installed.h"
#include "host/Solids.h"
#include "host/UnattendedUserInterface.h"
#include "inspect/Json.h"
#include "inspect/Outline.h"
#include "window/SBUtility.h"

namespace host {

namespace {

void Show(const CommandLine& line, const CVEKA_Manager& part, std::ostream& out, std::ostream& err) {
    switch (line.print) {
        case Print::Summary:
            out << "Part " << veka::Printable(part.GetVEK()->GetPartGeneral()->GetMPN().View()) << '\n';
            veka::Outline(out).Write(part);
            break;
        case Print::Outline:
            veka::Outline(out, true).Write(part);
            break;
        case Print::Json:
            veka::Json(out).Write(part);
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

/// Imports one part through the dialog, which the installed user interface shows.
int ImportOne(const CommandLine& line, std::ostream& out, std::ostream& err) {
    const std::optional<ImportedPart> part = RunImportDialog(CString(line.file), CString(line.library));
    if (!part) return kRefused;
    RequirePartNumber(*part);
    Show(line, part->Model(), out, err);
    const CString name = Store(*part);
    if (line.print == Print::Summary)
        out << "Stored as " << name.View() << " in " << part->library.View() << '\n';
    return kImported;
}

int ImportUnattended(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err) {
    UnattendedUserInterface unattended(in, out, err, line.overwrite);
    const Installed installed(unattended);
    if (line.library.empty()) return ShowOnly(line, out, err);
    const int code = ImportOne(line, out, err);
    if (unattended.SaidNo()) err << "veka-host: the part is in the library already and was left alone\n";
    return code;
}

int ImportInWindows(const CommandLine& line, std::ostream& out, std::ostream& err, Desktop& desktop) {
    const std::unique_ptr<veka::UserInterface> windows = desktop.MakeUserInterface();
    const Installed installed(*windows);
    return line.Shown() ? ImportOne(line, out, err) : desktop.RunApplication(line);
}

int Import(const CommandLine& line, std::istream& in, std::ostream& out, std::ostream& err,
           Desktop* desktop) {
    if (!line.Attended()) return ImportUnattended(line, in, out, err);
    const bool wanted = line.windows == Windows::Qt || line.windows == Windows::Win32;
    if (wanted && !(desktop && desktop->Kind() == line.windows))
        throw NoWindows(line.windows == Windows::Qt ? "this program was built without Qt"
                                                    : "this program was not built for Windows");
    if (line.windows != Windows::Console && desktop && desktop->HasDisplay())
        return ImportInWindows(line, out, err, *desktop);
    if (wanted) throw NoWindows("there is no display to show windows on");
    veka::ConsoleUserInterface console(in, out);
    const Installed installed(console);
    return ImportOne(line, out, err);
}

}  // namespace

int RunHost(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
            Desktop* desktop) {
    CommandLine line;
    try {
        line = ParseCommandLine(arguments);
        if (line.help) {
            out << kUsage;
            return kImported;
        }
        return Import(line, in, out, err, desktop);
    } catch (...) {
        const Failure failure = CurrentFailure(line.file);
        err << "veka-host: " << failure.sentence << '\n';
        return failure.code;
    }
}

}  // namespace host
