#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace host {

/// What to do about a part that is in the library already.
enum class Overwrite { Yes, No, Ask };

/// What to show of an imported part.
enum class Print { Summary, Outline, Json };

/// How the program asks its user.
enum class Windows {
    Automatic,  ///< in windows where there is a display; with a file not at all
    Qt,         ///< in windows by Qt
    Win32,      ///< in windows of Windows itself
    Console     ///< on the terminal
};

/// What the program was asked to do.
struct CommandLine {
    bool help = false;
    std::string file;     ///< empty: the user names it in the dialog
    std::string library;  ///< directory that parts are stored in
    Overwrite overwrite = Overwrite::Ask;
    Print print = Print::Summary;
    std::string step;  ///< file to write the solids to; empty: none
    std::string gltf;
    Windows windows = Windows::Automatic;

    /// True if the dialog is to be shown, and not answered by the program itself.
    bool Attended() const { return file.empty() || windows != Windows::Automatic; }
    /// True if the part is to be shown or written, besides being stored.
    bool Shown() const { return print != Print::Summary || !step.empty() || !gltf.empty(); }
};

/// A command line that cannot be understood.
struct UsageError : std::runtime_error {
    using runtime_error::runtime_error;
};

extern const char* const kUsage;

/// Reads the arguments behind the program's name; raises `UsageError`.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace host
