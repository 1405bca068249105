#pragma once

#include "host/CommandLine.h"
#include "host/Streams.h"

namespace host {

/// Finds, lists or verifies the parts of a library, as the command line says. Returns the exit code: 1 where
/// no part was found, 3 where something does not hold.
int SearchLibrary(const CommandLine& line, const Streams& streams);

}  // namespace host
