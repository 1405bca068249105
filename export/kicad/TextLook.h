#pragma once

#include "drawing/Part.h"

namespace kicad {

/// What a drawn text says and looks like, besides its place and height.
struct TextLook {
    std::string bytes;
    CString property;  ///< the name of the property that the text shows; empty for plain text
    double width = 0;  ///< of a letter, in millimetres
    double pen = 0;    ///< in millimetres
};

/// The text of a shape, from the record that is its source. A text inside of another record looks like its
/// height.
TextLook LookOfText(const drawing::Part& part, const drawing::Scene& scene, const drawing::Shape& shape);

}  // namespace kicad
