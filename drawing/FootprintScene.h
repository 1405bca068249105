#pragma once

#include "drawing/Part.h"

namespace drawing {

/// A footprint as it lies on the board, seen from the top: the pads of its pins on each layer, the drills,
/// the names of the pins, and what is drawn on its layers. A padstack or a pad that has no record is a small
/// cross with its name. The offset of the footprint moves nothing: it is that of the package on it.
///
/// The source of a pad is its `CVEKA_FootprintPin`, its definition the object of its `CVEKA_Pad`. Raises
/// `TooLarge`.
Scene FootprintScene(const Part& part, const CVEKA_FootprintDB& footprint);

/// The pads of a padstack, one layer below another, and the drill, with their names. The source of a pad is
/// the `CVEKA_PadStack`. Raises `TooLarge`.
Scene PadStackScene(const Part& part, const CVEKA_PadStack& padStack);

/// A pad that a padstack names for a pin that is connected, or the shape of its drill.
struct StackedPad {
    CString name;
    const CVEKA_Pad* pad = nullptr;  ///< null where the name leads nowhere
    Role role = Role::Copper;        ///< copper, solder mask, paste or drill
    Side side = Side::Both;          ///< that of its layers; a drill goes through all
    bool plane = false;              ///< true for the inner layers that are planes
};
/// The pads of a padstack that are on a board at one time, from the top to the bottom, and then the drill.
std::vector<StackedPad> StackedPads(const Part& part, const CVEKA_PadStack& padStack);

/// The objects of a pad about the point of its pin. Raises `TooLarge`.
Scene PadScene(const Part& part, const CVEKA_Pad& pad);

/// The padstacks that the pins of a footprint use, each once, in the order of the pins.
std::vector<const CVEKA_PadStack*> PadStacksOf(const Part& part, const CVEKA_FootprintDB& footprint);

}  // namespace drawing
