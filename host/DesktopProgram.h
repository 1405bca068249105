#pragma once

#include <string>
#include <vector>

#include "host/CommandLine.h"

namespace host {

/// True if a command may show windows, make solids or write a PNG picture.
bool NeedsDesktop(const CommandLine& line);

#ifndef _WIN32

/// Where a program is that belongs to this one: beside it, or in `../libexec/vekasciidll` from there. Empty
/// where it is in neither.
std::string FindProgram(const std::string& name);

/// Runs the program `name`, which has windows and solids, in the place of this one, if the arguments after
/// `argv[0]` need them. Else returns an empty text. Where there is no such program, or it cannot be started,
/// returns a sentence that says so.
std::string RunDesktopProgram(const std::string& name, const std::vector<std::string>& arguments,
                              char* const* argv);

#endif

}  // namespace host
