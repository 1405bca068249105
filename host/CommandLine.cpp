#include "host/CommandLine.h"

namespace host {

const char* const kUsage =
    "usage: veka-host [FILE] [--library DIR] [--overwrite yes|no|ask] [--print [json]]\n"
    "                 [--step FILE] [--gltf FILE] [--ui qt|win32|console]\n"
    "\n"
    "Imports a part data file and stores the part in a library.\n"
    "With FILE the import runs unattended; without, a dialog asks for file and directory: in a window where\n"
    "there is a display, on the terminal where there is none. Qt's window imports one part after another.\n"
    "\n"
    "  --library DIR       directory that parts are stored in\n"
    "  --overwrite HOW     what to do about a part that is there already (ask)\n"
    "  --print             print every record as an outline; the library is then not needed\n"
    "  --print json        print every record as JSON\n"
    "  --step FILE         write the solids of the packages as a STEP file; no library needed either\n"
    "  --gltf FILE         write them as a binary glTF file\n"
    "  --ui HOW            ask in windows (qt or win32) or on the terminal (console), with FILE too\n"
    "  --help              show this text\n"
    "\n"
    "exit code: 0 imported, 1 refused by the user or a check, 2 wrong usage, 3 failed\n";

namespace {

/// The value that a word stands for.
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

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool optionsOver = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        std::string argument = arguments[i];
        const bool option = !optionsOver && argument.size() > 1 && argument[0] == '-';
        const auto value = [&] {
            if (i + 1 == arguments.size()) throw UsageError(argument + " needs a value");
            return arguments[++i];
        };
        if (!option) {
            if (argument.empty()) throw UsageError("the file name is empty");
            if (!line.file.empty()) throw UsageError("only one file can be imported");
            line.file = argument;
        } else if (argument == "--") {
            optionsOver = true;
        } else if (argument == "--help" || argument == "-h") {
            line.help = true;
        } else if (argument == "--library") {
            line.library = value();
        } else if (argument == "--step") {
            line.step = value();
        } else if (argument == "--gltf") {
            line.gltf = value();
        } else if (argument == "--print") {
            line.print = Print::Outline;
            if (i + 1 < arguments.size() && arguments[i + 1] == "json") {
                line.print = Print::Json;
                ++i;
            }
        } else if (argument == "--overwrite") {
            line.overwrite = OneOf<Overwrite>(
                argument, value(), {{"yes", Overwrite::Yes}, {"no", Overwrite::No}, {"ask", Overwrite::Ask}});
        } else if (argument == "--ui") {
            line.windows = OneOf<Windows>(
                argument, value(),
                {{"qt", Windows::Qt}, {"win32", Windows::Win32}, {"console", Windows::Console}});
        } else {
            throw UsageError("unknown option " + argument);
        }
    }
    if (!line.help && !line.Attended() && line.library.empty() && !line.Shown())
        throw UsageError("--library DIR is needed with a file");
    return line;
}

}  // namespace host
