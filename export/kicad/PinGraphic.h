#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/Scene.h"

namespace kicad {

/// The shape of a pin as KiCad draws pins: a line from the point of the net, and a mark at its end.
struct PinGraphic {
    double length = 0;           ///< in millimetres, with the mark
    bool backwards = false;      ///< the line runs against the direction of the pin
    double bubble = 0;           ///< radius of the circle at its end; 0 for none
    std::string style = "line";  ///< KiCad's word for the mark
    /// The shapes of the scene that the line and the mark do not show.
    std::vector<std::size_t> rest;
};

/// Reads the shape of a pin, whose net attaches at the origin.
PinGraphic ReadPinGraphic(const drawing::Scene& shape);

/// KiCad's electrical type for the word of a file, in any case: "INPUT", "IN" and "I" are `input`. Empty for
/// a word that stands for none.
std::string_view ElectricalType(std::string_view word);

}  // namespace kicad
