#pragma once

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "drawing/Palette.h"
#include "host/Reading.h"

namespace host {

/// What to do with a part that the library already has.
enum class Overwrite { Yes, No, Ask };

/// What to print of an imported part.
enum class Print { Summary, Outline, Json, Pins, PinsCsv, Nothing };

/// Whether files are only checked, and how the findings are printed.
enum class Check { No, Lines, Sarif };

/// What of a part a picture shows.
enum class PictureOf { Footprint, Symbol, Package, Padstack, All };

/// What is asked of a library.
enum class LibrarySearch { No, List, Verify };

/// How the program asks its user.
enum class Windows {
    Automatic,  ///< in windows where there is a display, but not at all if a file is given
    Qt,         ///< in windows by Qt
    Win32,      ///< in windows of Windows itself
    Console     ///< on the terminal
};

/// The file name that means standard input.
inline constexpr const char* kStandardInput = "-";

/// What the program was asked to do.
struct CommandLine {
    bool help = false;
    bool version = false;
    LibrarySearch search = LibrarySearch::No;
    std::string find;                ///< what the parts that are listed have to have; empty: all parts
    std::vector<std::string> where;  ///< conditions on the parts that are listed
    bool listJson = false;           ///< list parts as JSON, not as a table
    bool undo = false;               ///< restore replaced parts, whose part numbers are in `files`
    bool open = false;               ///< show the files in the window
    std::vector<std::string> files;  ///< empty: the user names a file in the dialog
    unsigned jobs = 0;               ///< how many files are read side by side; 0: one for each processor
    bool jsonSummary = false;        ///< print what became of each file as JSON
    bool findingsSummary = false;    ///< print what the reports of all files say in sum
    std::string library;             ///< directory that parts are stored in; empty: nothing is stored
    Overwrite overwrite = Overwrite::Ask;
    Print print = Print::Summary;
    Check check = Check::No;  ///< report what an import leaves out, and store nothing
    std::string step;         ///< file to write the solids to; empty: none
    std::string gltf;
    std::vector<std::string> stepFolders;  ///< where STEP files that a part names are looked for, too
    std::string picture;                   ///< file to draw the part into; empty: none
    PictureOf of = PictureOf::All;
    drawing::Side side = drawing::Side::Top;  ///< from which side the picture shows the footprint
    std::string kicad;   ///< DIR/NAME of the libraries of KiCad to export to; empty: none
    bool models = true;  ///< whether solid models are exported, too
    Windows windows = Windows::Automatic;
    Limits limits;
    std::chrono::seconds wait{60};  ///< how long to wait for a library that another program writes

    /// True if all parts of the library are exported.
    bool WholeLibrary() const {
        return files.empty() && !library.empty() && !kicad.empty() && !open && windows == Windows::Automatic;
    }
    /// True if the user is asked in the dialog.
    bool Attended() const {
        return !undo && !WholeLibrary() && search == LibrarySearch::No &&
               (files.empty() || open || windows != Windows::Automatic);
    }
    /// True if a summary of an import is asked for.
    bool Summarised() const { return jsonSummary || findingsSummary; }
    /// True if something is to be printed or written besides the library.
    bool Shown() const {
        return (print != Print::Summary && print != Print::Nothing) || !step.empty() || !gltf.empty() ||
               !picture.empty() || !kicad.empty();
    }
};

/// A command line that cannot be understood.
struct UsageError : std::runtime_error {
    using runtime_error::runtime_error;
};

extern const char* const kUsage;

/// Reads the arguments that follow the program's name; raises `UsageError`.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace host
