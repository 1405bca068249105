#pragma once

#include "drawing/Scene.h"
#include "model/objects/CVEKA_3DObject.h"

namespace drawing {

/// A lead with its letters as dimensions: from the front, with the body to the left and the board as a line,
/// and from above below that. One unit of the lead counts as a millimetre. A lead that cannot be has a remark
/// in place of shapes.
Scene LeadScene(const CVEKA_3DObject& lead);

}  // namespace drawing
