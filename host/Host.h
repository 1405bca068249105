#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/ExitCode.h"

namespace host {

class Desktop;

/// The whole program, on any streams: imports a part through the dialog, shows it and stores it.
/// `arguments` are those behind the program's name. Every failure becomes an exit code and a sentence on
/// `err`. `desktop` is what windows are shown with, null in a program without windows.
int RunHost(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err,
            Desktop* desktop = nullptr);

}  // namespace host
