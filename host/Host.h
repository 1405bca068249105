#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace host {

enum ExitCode : int { kImported = 0, kRefused = 1, kWrongUsage = 2, kFailed = 3 };

/// The whole program, on any streams: imports a part through the dialog, shows it and stores it.
/// `arguments` are those behind the program's name. Every failure becomes an exit code and a sentence on
/// `err`.
int RunHost(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
            std::ostream& err);

}  // namespace host
