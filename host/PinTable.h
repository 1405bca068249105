#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <vector>

#include "model/CVEKA_Manager.h"

namespace host {

/// One row of the pin table: texts as they are in the file.
using PinRow = std::array<std::string, 6>;

/// The columns of the pin table.
inline constexpr std::array<const char*, 6> kPinColumns{"Number", "Name", "Type", "Padstack", "X", "Y"};

/// The pins of a part, as its default package and its default footprint give them: one row for each pin of
/// the footprint, in their order, and then one for each pin that the footprint lacks. A part without defaults
/// is shown by its first package and its first footprint.
std::vector<PinRow> PinTable(const CVEKA_Manager& part);

/// Writes the pin table for a terminal.
void WritePins(std::ostream& out, const CVEKA_Manager& part);
/// Writes the pin table as comma-separated values, with a line of column names; texts as they are in the
/// file.
void WritePinsCsv(std::ostream& out, const CVEKA_Manager& part);

}  // namespace host
