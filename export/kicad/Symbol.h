#pragma once

#include "drawing/Part.h"
#include "export/kicad/Exported.h"

namespace kicad {

/// The symbol of a part as an entry of a symbol library of KiCad 6. The entry has the name of the part
/// number.
///
/// Each gate of the default symbol is a unit. A second symbol with the same gates is the other body style
/// that KiCad has. Electrical pins that no gate has are a unit by themselves. `library` is the name of the
/// footprint library that the symbol's footprint is in. Raises `drawing::TooLarge`.
Exported ExportSymbol(const drawing::Part& part, const std::string& library);

}  // namespace kicad
