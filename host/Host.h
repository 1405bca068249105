#pragma once

#include <string>
#include <vector>

#include "host/ExitCode.h"
#include "host/Streams.h"

namespace host {

class Desktop;

/// The whole program, on any streams: imports parts, shows them and stores them. `arguments` are those that
/// follow the program's name. Every failure becomes an exit code and a sentence on the error stream.
/// `desktop` shows the windows; null in a program without windows.
int RunHost(const std::vector<std::string>& arguments, const Streams& streams, Desktop* desktop = nullptr);

}  // namespace host
