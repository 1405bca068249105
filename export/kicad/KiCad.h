#pragma once

/// All of the export to KiCad: footprints, symbols, symbol libraries and names.

#include "export/kicad/Footprint.h"
#include "export/kicad/Names.h"
#include "export/kicad/Symbol.h"
#include "export/kicad/SymbolLibrary.h"
