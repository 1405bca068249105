#pragma once

#include <iosfwd>

#include "model/CVEKA_Manager.h"

namespace host {

/// Writes what a part is in some lines: its identity, and how much of everything it has.
void WriteSummary(std::ostream& out, const CVEKA_Manager& part);

}  // namespace host
