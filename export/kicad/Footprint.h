#pragma once

#include "drawing/Part.h"
#include "export/kicad/Exported.h"

namespace kicad {

/// A footprint as a file of a footprint library of KiCad 6, under the name of the footprint with
/// ".kicad_mod". `model` is the path of its solid model, as KiCad finds it; without one the footprint has no
/// model. The part says the layers and the description. Raises `drawing::TooLarge`.
Exported ExportFootprint(const drawing::Part& part, const CVEKA_FootprintDB& footprint,
                         const std::string& model = "");

/// The layer of a board of KiCad that is meant by a layer of a footprint: the layer of that name, or else the
/// one of that role and side. Empty for a layer that KiCad has none for.
std::string BoardLayer(std::string_view name, drawing::Role role, drawing::Side side);

}  // namespace kicad
