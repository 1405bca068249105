#pragma once

#include "host/CommandLine.h"
#include "host/Streams.h"

namespace host {

/// Checks the files of a command line, and all part data files in its directories: prints what an import of
/// each leaves out, changes and finds inconsistent. Returns the exit code: 0 if there is nothing above a
/// note, 1 with warnings, 3 with errors or with a file that cannot be read.
int CheckFiles(const CommandLine& line, const Streams& streams);

}  // namespace host
