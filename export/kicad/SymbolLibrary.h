#pragma once

#include <stdexcept>

#include "export/kicad/Exported.h"

namespace kicad {

/// A file that is no symbol library of KiCad; `what()` is one sentence.
struct NoSymbolLibrary : std::runtime_error {
    using runtime_error::runtime_error;
};

/// The text of a symbol library with some symbols added. An empty text makes a new library. A symbol of the
/// same name is replaced where it stands; everything else stays byte for byte. Raises `NoSymbolLibrary`.
std::string WithSymbols(std::string_view library, const std::vector<Exported>& symbols);

}  // namespace kicad
