#pragma once

#include "host/CommandLine.h"
#include "host/SafeFiles.h"
#include "host/Streams.h"

namespace host {

/// True if a command line asks for an import of many files that prints nothing but what became of them.
bool IsBatch(const CommandLine& line);

/// Imports files and the part data files below directories into a library, side by side. Tells what became of
/// each file, one line each; on a terminal a line shows how far the import has come. Returns the exit code.
int ImportFilesAsBatch(const CommandLine& line, const Streams& streams, const Waiting& waiting);

}  // namespace host
