#include "host/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace host {

const char* const kUsage =
    "usage: veka-host [FILE...] [--library DIR] [--overwrite yes|no|ask] [--print [json]] [--pins [csv]]\n"
    "                 [--jobs NUMBER] [--summary json|findings]\n"
    "                 [--step FILE] [--gltf FILE] [--step-folder DIR...]\n"
    "                 [--picture FILE [--of WHAT] [--side top|bottom]] [--kicad DIR/NAME [--models yes|no]]\n"
    "                 [--quiet] [--ui qt|win32|console]\n"
    "       veka-host --open [FILE...]\n"
    "       veka-host FILE... --check [json] [--quiet]\n"
    "       veka-host --library DIR --kicad DIR/NAME [--models yes|no] [--quiet]\n"
    "       veka-host --undo [PART...] --library DIR\n"
    "       veka-host --library DIR [--find TEXT] [--where FIELD=VALUE...] [--list [json]]\n"
    "       veka-host --library DIR --verify\n"
    "\n"
    "Shows part data files and stores their parts in a library. FILE - is standard input.\n"
    "Without FILE a dialog asks for the file and the library: in a window if there is a display, and\n"
    "otherwise on the terminal.\n"
    "\n"
    "  --library DIR       store each part in this directory. FILE can then be a directory\n"
    "  --overwrite HOW     what to do with a part that the library already has (ask)\n"
    "  --jobs NUMBER       how many files are read side by side (one for each processor)\n"
    "  --summary json      print what became of each file as JSON\n"
    "  --summary findings  print how often the reports of all files have each finding. It can be given "
    "with json\n"
    "  --print             print every record as an outline\n"
    "  --print json        print every record as JSON, one line for each file\n"
    "  --pins              print the pins as a table\n"
    "  --pins csv          print the pins as comma-separated values\n"
    "  --step FILE         write the solids of the packages to a STEP file\n"
    "  --gltf FILE         write the solids of the packages to a binary glTF file\n"
    "  --step-folder DIR   look in this directory, too, for STEP files that the part names\n"
    "  --check             tell what an import leaves out, changes and finds inconsistent; store nothing.\n"
    "                      FILE can be a directory. It ends with 1 for warnings and 3 for errors\n"
    "  --check json        the same as SARIF 2.1.0\n"
    "  --picture FILE      draw the part into an SVG file, or into a PNG file if the name ends in .png\n"
    "  --of WHAT           draw only its footprint, symbol, package or padstack, not all of them (all)\n"
    "  --side top|bottom   from which side of the board the footprint is seen (top)\n"
    "  --kicad DIR/NAME    add the part to the libraries NAME of KiCad in the directory: symbols, "
    "footprints\n"
    "                      and solid models. Without FILE: all parts of the library\n"
    "  --models yes|no     whether --kicad writes solid models, too (yes)\n"
    "  --quiet, -q         print no summary\n"
    "  --undo              exchange a part with the one that was replaced last\n"
    "  --find TEXT         list the parts of the library that have these words, beginnings of words or "
    "parts\n"
    "                      of a part number\n"
    "  --where FIELD=VALUE list the parts whose field is this, such as pins=8, pins>=8 or manufacturer=M*\n"
    "  --list              list the parts of the library as a table\n"
    "  --list json         list the parts of the library as JSON\n"
    "  --verify            read every part of the library, and tell what does not hold\n"
    "  --max-size MB       largest file that is read (256); 0 here and below: no limit\n"
    "  --max-memory MB     most memory that an import takes besides the file (2048)\n"
    "  --max-time SECONDS  longest time that an import takes (60)\n"
    "  --wait SECONDS      how long to wait for a library that another program writes (60)\n"
    "  --open              show the files in the window and store nothing\n"
    "  --ui HOW            ask in windows (qt or win32) or on the terminal (console)\n"
    "  --help, -h          show this text\n"
    "  --version           show the version\n"
    "\n"
    "An option and its value can be one argument: --library=DIR.\n"
    "exit code: 0 imported, 1 refused by the user or a check, 2 wrong usage, 3 failed\n";

namespace {

/// The value that a word means.
template <class Value>
Value OneOf(const std::string& option, const std::string& word,
            const std::vector<std::pair<const char*, Value>>& values) {
    std::string words;
    for (const auto& [name, value] : values) {
        if (word == name) return value;
        const bool last = name == values.back().first;
        words += (words.empty() ? "" : last ? " or " : ", ") + std::string(name);
    }
    throw UsageError(option + " takes " + words + ", not \"" + word + "\"");
}

/// The arguments, one option after another.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    /// Takes the next argument; false at the end. An option is taken without the value after its "=".
    bool Next() {
        if (m_value) throw UsageError(m_option + " takes no value");
        if (m_next == m_arguments.size()) return false;
        m_option = m_arguments[m_next++];
        m_isOption = !m_optionsOver && m_option.size() > 1 && m_option[0] == '-';
        const size_t equals = m_option.find('=');
        if (m_isOption && m_option.starts_with("--") && equals != std::string::npos) {
            m_value = m_option.substr(equals + 1);
            m_option.resize(equals);
        }
        return true;
    }
    bool IsOption() const { return m_isOption; }
    const std::string& Option() const { return m_option; }
    void EndOptions() { m_optionsOver = true; }

    /// The value of the option.
    std::string Value() {
        if (m_value) return *std::exchange(m_value, std::nullopt);
        if (m_next == m_arguments.size()) throw UsageError(m_option + " needs a value");
        return m_arguments[m_next++];
    }
    /// The value of the option that is a path.
    std::string Path() {
        std::string path = Value();
        if (path.empty()) throw UsageError(m_option + " needs a value");
        return path;
    }
    /// True if the option has the one value that it may have.
    bool HasWord(const std::string& word) {
        if (m_value) {
            OneOf<int>(m_option, *m_value, {{word.c_str(), 0}});
            m_value.reset();
            return true;
        }
        if (m_next == m_arguments.size() || m_arguments[m_next] != word) return false;
        ++m_next;
        return true;
    }

private:
    const std::vector<std::string>& m_arguments;
    size_t m_next = 0;
    std::string m_option;
    std::optional<std::string> m_value;  // the part of the argument after its "="
    bool m_isOption = false;
    bool m_optionsOver = false;
};

unsigned Number(const std::string& option, const std::string& text, const char* unit) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number > 1'000'000)
        throw UsageError(option + " takes a number of " + unit + ", not \"" + text + "\"");
    return number;
}
std::chrono::seconds Seconds(const std::string& option, const std::string& text) {
    return std::chrono::seconds(Number(option, text, "seconds"));
}

void Require(const CommandLine& line) {
    if (line.help || line.version) return;
    if (line.check != Check::No) {
        if (line.files.empty()) throw UsageError("--check needs a file or a directory");
        if (!line.library.empty() || line.Shown() || line.undo || line.Attended())
            throw UsageError("--check only checks: it takes no other option but --quiet");
        return;
    }
    if (line.search != LibrarySearch::No) {
        if (line.library.empty()) throw UsageError("--find, --where, --list and --verify need --library DIR");
        if (!line.files.empty() || line.Shown() || line.undo || line.open || line.Summarised())
            throw UsageError(
                "--find, --where, --list and --verify take no file and no option that prints or imports");
        return;
    }
    const bool standardInput =
        std::find(line.files.begin(), line.files.end(), kStandardInput) != line.files.end();
    if (line.WholeLibrary() && (!line.step.empty() || !line.gltf.empty() || !line.picture.empty()))
        throw UsageError("a whole library can only be exported to KiCad");
    if (line.undo) {
        if (line.library.empty()) throw UsageError("--undo needs --library DIR");
        return;
    }
    if (line.Attended() && standardInput) throw UsageError("a window cannot read standard input");
    if (line.Attended() && line.files.size() > 1 && (line.Shown() || line.windows == Windows::Console))
        throw UsageError("only one file can be imported here");
    if (line.Summarised() && (line.library.empty() || line.files.empty() || line.Attended() || line.Shown()))
        throw UsageError("--summary needs a file and --library DIR, and prints nothing else");
    if (line.Summarised() && standardInput) throw UsageError("--summary needs a file or a directory");
    if (line.open && line.Shown()) throw UsageError("--open only shows files in the window");
    if (line.files.size() > 1 && standardInput)
        throw UsageError("standard input can only be imported by itself");
    const std::string* const outputs[] = {&line.step, &line.gltf, &line.picture};
    for (const std::string* output : outputs) {
        if (line.files.size() > 1 && !output->empty())
            throw UsageError("--step, --gltf and --picture take one file");
        for (const std::string* other : outputs)
            if (other != output && !output->empty() && *output == *other)
                throw UsageError("two of --step, --gltf and --picture name the same file");
    }
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool quiet = false, pictured = false, modelled = false;
    const auto print = [&](Print what) {
        if (line.print != Print::Summary) throw UsageError("--print and --pins can be given once");
        line.print = what;
    };
    const auto search = [&](LibrarySearch what) {
        if (line.search != LibrarySearch::No && line.search != what)
            throw UsageError("--verify takes no --find, --where and --list");
        line.search = what;
    };
    for (Arguments next(arguments); next.Next();) {
        const std::string& option = next.Option();
        if (!next.IsOption()) {
            if (option.empty()) throw UsageError("the file name is empty");
            line.files.push_back(option);
        } else if (option == "--") {
            next.EndOptions();
        } else if (option == "--help" || option == "-h") {
            line.help = true;
        } else if (option == "--version") {
            line.version = true;
        } else if (option == "--quiet" || option == "-q") {
            quiet = true;
        } else if (option == "--undo") {
            line.undo = true;
        } else if (option == "--open") {
            line.open = true;
        } else if (option == "--library") {
            line.library = next.Path();
        } else if (option == "--step") {
            line.step = next.Path();
        } else if (option == "--gltf") {
            line.gltf = next.Path();
        } else if (option == "--step-folder") {
            line.stepFolders.push_back(next.Path());
        } else if (option == "--max-size") {
            line.limits.size = Number(option, next.Value(), "MB");
        } else if (option == "--max-memory") {
            line.limits.memory = Number(option, next.Value(), "MB");
        } else if (option == "--max-time") {
            line.limits.time = Seconds(option, next.Value());
        } else if (option == "--picture") {
            line.picture = next.Path();
        } else if (option == "--of") {
            pictured = true;
            line.of = OneOf<PictureOf>(option, next.Value(),
                                       {{"footprint", PictureOf::Footprint},
                                        {"symbol", PictureOf::Symbol},
                                        {"package", PictureOf::Package},
                                        {"padstack", PictureOf::Padstack},
                                        {"all", PictureOf::All}});
        } else if (option == "--side") {
            pictured = true;
            line.side = OneOf<drawing::Side>(
                option, next.Value(), {{"top", drawing::Side::Top}, {"bottom", drawing::Side::Bottom}});
        } else if (option == "--find") {
            search(LibrarySearch::List);
            line.find = next.Value();
        } else if (option == "--where") {
            search(LibrarySearch::List);
            line.where.push_back(next.Path());
        } else if (option == "--list") {
            search(LibrarySearch::List);
            if (next.HasWord("json")) line.listJson = true;
        } else if (option == "--verify") {
            search(LibrarySearch::Verify);
        } else if (option == "--jobs") {
            line.jobs = Number(option, next.Value(), "threads");
        } else if (option == "--summary") {
            line.*OneOf<bool CommandLine::*>(option, next.Value(),
                                             {{"json", &CommandLine::jsonSummary},
                                              {"findings", &CommandLine::findingsSummary}}) = true;
        } else if (option == "--kicad") {
            line.kicad = next.Path();
        } else if (option == "--models") {
            modelled = true;
            line.models = OneOf<bool>(option, next.Value(), {{"yes", true}, {"no", false}});
        } else if (option == "--wait") {
            line.wait = Seconds(option, next.Value());
        } else if (option == "--print") {
            print(next.HasWord("json") ? Print::Json : Print::Outline);
        } else if (option == "--check") {
            line.check = next.HasWord("json") ? Check::Sarif : Check::Lines;
        } else if (option == "--pins") {
            print(next.HasWord("csv") ? Print::PinsCsv : Print::Pins);
        } else if (option == "--overwrite") {
            line.overwrite =
                OneOf<Overwrite>(option, next.Value(),
                                 {{"yes", Overwrite::Yes}, {"no", Overwrite::No}, {"ask", Overwrite::Ask}});
        } else if (option == "--ui") {
            line.windows = OneOf<Windows>(
                option, next.Value(),
                {{"qt", Windows::Qt}, {"win32", Windows::Win32}, {"console", Windows::Console}});
        } else {
            throw UsageError("unknown option " + option);
        }
    }
    if (quiet && line.print == Print::Summary) line.print = Print::Nothing;
    if (pictured && line.picture.empty()) throw UsageError("--of and --side need --picture FILE");
    if (modelled && line.kicad.empty()) throw UsageError("--models needs --kicad DIR/NAME");
    Require(line);
    return line;
}

}  // namespace host
