#include "host/Host.h"

#include <algorithm>
#include <istream>
#include <map>
#include <ostream>

#include "console/ConsoleUserInterface.h"
#include "files/Paths.h"
#include "host/BatchCommand.h"
#include "host/CheckFiles.h"
#include "host/CommandLine.h"
#include "host/Desktop.h"
#include "host/Failure.h"
#include "host/ImportDialog.h"
#include "host/Interrupt.h"
#include "host/KiCadLibrary.h"
#include "host/LibraryCommand.h"
#include "host/Messages.h"
#include "host/OutputFile.h"
#include "host/PartFiles.h"
#include "host/Picture.h"
#include "host/PinTable.h"
#include "host/Solids.h"
#include "host/Summary.h"
#include "inspect/Json.h"
#include "inspect/Outline.h"
#include "platform/Printable.h"
#include "platform/Version.h"
#include "window/AfxMessageBox.h"
#include "window/SBUtility.h"
#include "window/ScopedUserInterface.h"

namespace host {

namespace {

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// One run of the program.
class Program {
public:
    Program(const CommandLine& line, const Streams& streams, Desktop* desktop)
        : m_line(line), m_streams(streams), m_desktop(desktop), m_messages(streams.err) {
        if (!line.kicad.empty()) m_kicad.emplace(line.kicad, line.models, WaitingFor(line.kicad));
    }

    /// Imports the files without a dialog.
    int ImportFiles() {
        if (IsBatch(m_line)) return ImportFilesAsBatch(m_line, m_streams, WaitingFor(m_line.library));
        int worst = kImported;
        Interrupt::Forget();
        const std::vector<std::string> files =
            m_line.library.empty() ? m_line.files : ExpandDirectories(m_line.files);
        int left = static_cast<int>(files.size());
        for (const std::string& file : files) {
            worst = std::max<int>(worst, ImportFile(file));
            --left;
            if (Interrupt::Happened()) break;
        }
        worst = std::max(worst, FinishKiCad());
        if (left > 0) m_total["not imported"] = left;
        if (m_line.files.size() > 1 && m_line.print == Print::Summary) WriteTotal();
        return worst;
    }
    /// Exports all parts of the library.
    int ExportLibrary() {
        int worst = kImported;
        Interrupt::Forget();
        for (const std::string& file : PartFilesOf(m_line.library)) {
            worst = std::max<int>(
                worst, Reported(file, [&] {
                    return ExportToKiCad(ReadPart(CString(file), {m_line.limits, nullptr, true}));
                }));
            if (Interrupt::Happened()) break;
        }
        return std::max(worst, FinishKiCad());
    }
    /// Imports one part through the dialog that the installed user interface shows.
    int ImportByDialog() {
        const std::optional<DialogChoice> choice = RunImportDialog(
            CString(m_line.files.empty() ? "" : m_line.files[0]), CString(m_line.library), {m_line.limits});
        if (!choice) return kRefused;
        const ImportedPart& part = choice->part;
        m_library = choice->library;
        const int code =
            Deliver(part, choice->existing, [&] { return AfxMessageBox(Question(part), MB_YESNO) == IDYES; });
        return std::max(code, FinishKiCad());
    }
    /// Puts replaced parts back.
    int Undo() {
        PartLibrary library(veka::ToPath(CString(m_line.library)), WaitingFor(m_line.library));
        std::vector<std::string> numbers = m_line.files;
        if (numbers.empty()) numbers.emplace_back();
        int worst = kImported;
        for (const std::string& number : numbers) try {
                const CString name = SBUtility::GetInstance().EncodeEntityCode(CString(number));
                const std::string restored = library.Undo(std::string(name.View()));
                if (m_line.print == Print::Summary)
                    m_streams.out << veka::Printable("Restored " + restored + " in " + m_line.library)
                                  << '\n';
            } catch (const NothingToUndo& error) {
                m_messages.Say(error.what());
                worst = std::max<int>(worst, kRefused);
            } catch (const StoreError& error) {
                m_messages.Say("no part was restored: " + std::string(error.what()));
                worst = kFailed;
            }
        return worst;
    }

private:
    /// Runs an action, prints its failure and returns the exit code.
    template <class Deed>
    int Reported(const std::string& file, Deed deed) {
        try {
            return deed();
        } catch (...) {
            const Failure failure = CurrentFailure(file);
            m_messages.Say(failure.sentence);
            return failure.code;
        }
    }

    int ImportFile(const std::string& file) {
        m_library = CString(m_line.library);
        const int code = Reported(file, [&] {
            const Reading reading{m_line.limits, nullptr, true};
            const ImportedPart part =
                file == kStandardInput ? ReadPart(m_streams.in, reading) : ReadPart(CString(file), reading);
            return Deliver(part, m_line.overwrite == Overwrite::Yes ? Existing::Replace : Existing::Keep,
                           [&] { return MayReplace(part); });
        });
        if (code == kRefused) ++m_total["refused"];
        if (code == kFailed) ++m_total["failed"];
        return code;
    }

    /// Prints a part, stores it and writes its solids. Each is done even if another fails. `ask` says
    /// whether a part that is there may be replaced.
    template <class Ask>
    int Deliver(const ImportedPart& part, Existing existing, Ask ask) {
        const std::string file(part.file.View());
        const std::string symbols = m_kicad ? m_kicad->SymbolFile() : "";
        for (const std::string* output : {&m_line.step, &m_line.gltf, &m_line.picture, &symbols})
            RequireOutsideOf(*output, file, std::string(m_library.View()), part.Name());
        RequireSections(part);
        for (const std::string& fault : part.faults) m_messages.Say(Quoted(file) + ": " + fault);
        if (!part.HasPart() && m_library.IsEmpty()) m_messages.Say(Quoted(file) + " holds no part");
        Print(part);
        int code = kImported;
        if (!m_library.IsEmpty() && part.HasPart()) SayFindings(file, part.content.bytes);
        if (!m_library.IsEmpty())
            code = Reported(file, [&] {
                Outcome outcome = Store(part, m_library, existing, WaitingFor(std::string(m_library.View())));
                if (outcome == Outcome::Kept && ask())
                    outcome =
                        Store(part, m_library, Existing::Replace, WaitingFor(std::string(m_library.View())));
                return ReportOutcome(part, outcome);
            });
        if (!m_line.step.empty() || !m_line.gltf.empty())
            code = std::max(code, Reported(file, [&] { return WriteSolidFiles(part); }));
        if (!m_line.picture.empty())
            code = std::max(code, Reported(file, [&] { return WritePicture(part); }));
        if (m_kicad) code = std::max(code, Reported(file, [&] { return ExportToKiCad(part); }));
        return code;
    }

    /// Says once, before a part is stored, how much a check of its file finds.
    void SayFindings(const std::string& file, std::string_view bytes) {
        constexpr std::size_t kLargest = std::size_t{16} << 20;  // real parts have less than 1 MB
        if (bytes.size() > kLargest)
            return m_messages.Say(Quoted(file) +
                                  " is too large to be checked before it is stored; --check checks it");
        if (const std::string count = CountOfFindings(ReportOn(file, bytes)); !count.empty())
            m_messages.Say("a check of " + Quoted(file) + " finds " + count + "; --check lists them");
    }

    void Print(const ImportedPart& part) {
        std::ostream& out = m_streams.out;
        const bool several = m_line.files.size() > 1;
        if (several && (m_line.print == Print::Outline || m_line.print == Print::Pins))
            out << "File " << veka::Printable(part.file.View()) << '\n';
        switch (m_line.print) {
            case Print::Nothing:
                break;
            case Print::Summary:
                if (!part.HasPart()) break;
                if (!several)
                    WriteSummary(out, part.Model());
                else if (m_library.IsEmpty())
                    out << veka::Printable(part.file.View()) << ": part "
                        << veka::Printable(part.Mpn().View()) << '\n';
                break;
            case Print::Outline:
                veka::Outline(out, true).Write(part.Model());
                break;
            case Print::Json:
                veka::Json(out).Write(part.Model());
                break;
            case Print::Pins:
                WritePins(out, part.Model());
                break;
            case Print::PinsCsv:
                WritePinsCsv(out, part.Model());
                break;
        }
    }

    /// Says what became of a part; returns the exit code.
    int ReportOutcome(const ImportedPart& part, Outcome outcome) {
        const std::string name = part.Name(), library(m_library.View());
        if (outcome == Outcome::Kept) {
            m_messages.Say(Quoted(name) + " is in the library already and was left alone" +
                           (m_line.overwrite == Overwrite::Ask && !m_streams.terminal && !m_line.Attended()
                                ? "; --overwrite yes replaces it"
                                : ""));
            return kRefused;
        }
        ++m_total[outcome == Outcome::New ? "stored" : "replaced"];
        if (outcome == Outcome::Replaced && !part.faults.empty())
            m_messages.Say(Quoted(name) + " was replaced although the file is faulty");
        if (m_line.print != Print::Summary) return kImported;
        if (m_line.files.size() > 1) m_streams.out << veka::Printable(part.file.View()) << ": ";
        m_streams.out << veka::Printable("Stored as " + name + " in " + library) << '\n';
        if (outcome == Outcome::Replaced && m_line.files.size() <= 1)
            m_streams.out << "The part that was there is kept; --undo restores it.\n";
        return kImported;
    }
    void WriteTotal() {
        std::string total;
        for (const auto& [what, count] : m_total)
            total += (total.empty() ? "" : ", ") + std::to_string(count) + ' ' + what;
        if (!total.empty()) m_streams.out << m_line.files.size() << " files: " << total << '\n';
    }

    CString Question(const ImportedPart& part) const {
        return "\"" + CString(part.Name()) + "\" is in the library \"" + m_library +
               "\" already. Replace it?";
    }
    /// Asks at a terminal whether a part may be replaced.
    bool MayReplace(const ImportedPart& part) {
        if (m_line.overwrite != Overwrite::Ask || !m_streams.terminal || part.file == kStandardInput)
            return false;
        return veka::ConsoleUserInterface(m_streams.in, m_streams.err).AskYesNo(Question(part));
    }

    int WriteSolidFiles(const ImportedPart& part) {
        OutputFile step(m_line.step), gltf(m_line.gltf);
        std::vector<SolidFile> files;
        if (!m_line.step.empty()) files.push_back({SolidFile::Format::Step, step.TemporaryPath(), false, {}});
        if (!m_line.gltf.empty()) files.push_back({SolidFile::Format::Gltf, gltf.TemporaryPath(), false, {}});
        for (const std::string& remark :
             WriteSolids(part.Model(), std::string(part.file.View()), m_line.stepFolders, files))
            m_messages.Say(remark);
        int code = kImported;
        for (const SolidFile& file : files) {
            const bool isStep = file.format == SolidFile::Format::Step;
            for (const std::string& failure : file.failures)
                m_messages.Say(Quoted(isStep ? m_line.step : m_line.gltf) +
                               (file.written ? " is not whole: " : " was not written: ") + failure);
            if (!file.failures.empty()) code = kFailed;
            if (file.written) (isStep ? step : gltf).Commit();
        }
        return code;
    }

    int WritePicture(const ImportedPart& part) {
        const drawing::Sheet sheet = MakePicture(part.Model(), m_line.of, m_line.side);
        OutputFile file(m_line.picture);
        if (!IsPngName(m_line.picture))
            WriteSvgFile(sheet, part, file.TemporaryPath());
        else if (m_desktop)
            m_desktop->WritePng(sheet, file.TemporaryPath());
        else
            throw NoWindows(kNoPng);
        file.Commit();
        for (const drawing::View& view : sheet.Views())
            for (const std::string& remark : view.scene.Remarks())
                m_messages.Say(view.scene.Title() + ": " + remark);
        return kImported;
    }

    int ExportToKiCad(const ImportedPart& part) {
        for (const std::string& remark : m_kicad->Add(part, m_line.stepFolders)) m_messages.Say(remark);
        return kImported;
    }
    /// Writes the symbols of all parts that were exported.
    int FinishKiCad() {
        if (!m_kicad) return kImported;
        return Reported(m_kicad->SymbolFile(), [&] {
            m_kicad->Finish();
            if (m_line.print == Print::Summary)
                m_streams.out << "Exported " << m_kicad->Parts()
                              << (m_kicad->Parts() == 1 ? " part" : " parts")
                              << veka::Printable(" to " + m_kicad->SymbolFile()) << '\n';
            return kImported;
        });
    }

    /// Says after a second whom the program waits for, and gives up after the time that the user set.
    Waiting WaitingFor(const std::string& library) {
        return [this, library, told = false](std::chrono::milliseconds waited,
                                             const std::string& holder) mutable {
            if (waited >= m_line.wait) return false;
            if (!told && waited >= std::chrono::seconds(1)) {
                m_messages.Say("waiting for the library " + Quoted(library) + ", which " +
                               (holder.empty() ? "another program" : holder) + " writes");
                told = true;
            }
            return true;
        };
    }

    const CommandLine& m_line;
    const Streams& m_streams;
    Desktop* m_desktop;
    Messages m_messages;
    CString m_library;
    std::map<std::string, int> m_total;
    std::optional<KiCadLibrary> m_kicad;
};

int ImportInWindows(const CommandLine& line, const Streams& streams, Desktop& desktop) {
    const std::unique_ptr<veka::UserInterface> windows = desktop.MakeUserInterface();
    const veka::ScopedUserInterface installed(*windows);
    return line.Shown() ? Program(line, streams, &desktop).ImportByDialog() : desktop.RunApplication(line);
}

int Run(const CommandLine& line, const Streams& streams, Desktop* desktop) {
    if (line.help) {
        streams.out << kUsage;
        return kImported;
    }
    if (line.version) {
        streams.out << "veka-host " << veka::Version() << '\n';
        return kImported;
    }
    if (line.check != Check::No) return CheckFiles(line, streams);
    if (line.search != LibrarySearch::No) return SearchLibrary(line, streams);
    if (line.undo) return Program(line, streams, desktop).Undo();
    if (line.WholeLibrary()) return Program(line, streams, desktop).ExportLibrary();
    if (!line.Attended()) return Program(line, streams, desktop).ImportFiles();
    const bool wanted = line.open || line.windows == Windows::Qt || line.windows == Windows::Win32;
    const Windows kind = line.open ? Windows::Qt : line.windows;
    if (wanted && !(desktop && desktop->Kind() == kind))
        throw NoWindows(kind == Windows::Qt ? "this program was built without Qt"
                                            : "this program was not built for Windows");
    if (line.windows != Windows::Console && desktop && desktop->HasDisplay())
        return ImportInWindows(line, streams, *desktop);
    if (wanted) throw NoWindows("there is no display to show windows on");
    veka::ConsoleUserInterface console(streams.in, streams.err);
    const veka::ScopedUserInterface installed(console);
    return Program(line, streams, desktop).ImportByDialog();
}

}  // namespace

int RunHost(const std::vector<std::string>& arguments, const Streams& streams, Desktop* desktop) {
    CommandLine line;
    Messages messages(streams.err);
    int code = kImported;
    try {
        line = ParseCommandLine(arguments);
        code = Run(line, streams, desktop);
    } catch (...) {
        const Failure failure = CurrentFailure(line.files.size() == 1 ? line.files[0] : "");
        messages.Say(failure.sentence);
        code = failure.code;
    }
    if (!streams.out.flush()) {
        messages.Say("standard output cannot be written");
        code = kFailed;
    }
    return streams.err.flush() ? code : kFailed;
}

}  // namespace host
