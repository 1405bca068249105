#pragma once

#include <string>
#include <string_view>

#include "host/CommandLine.h"
#include "host/Streams.h"
#include "report/ImportReport.h"

namespace host {

/// Checks the files of a command line, and all part data files in its directories: prints what an import of
/// each leaves out, changes and finds inconsistent. Returns the exit code: 0 if there is nothing above a
/// note, 1 with warnings, 3 with errors or with a file that cannot be read.
int CheckFiles(const CommandLine& line, const Streams& streams);

/// Reports on the bytes of a file, and keeps so many findings of each code. The files that the part names are
/// looked for beside the file; `-` is beside nothing.
veka::ImportReport ReportOn(const std::string& file, std::string_view bytes,
                            std::size_t most = veka::ReportOptions().most);

/// How many errors and warnings a report has, as "1 error and 3 warnings"; empty where there is none.
std::string CountOfFindings(const veka::ImportReport& report);

}  // namespace host
