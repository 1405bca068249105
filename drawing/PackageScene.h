#pragma once

#include "drawing/Part.h"

namespace drawing {

/// From where a package is seen: from above (X to the right, Y up), from the front (X to the right, Z up) or
/// from its right side (Y to the right, Z up).
enum class Looking { FromAbove, FromFront, FromSide };

/// A package by its solid records: the outlines of the bodies and the leads, and from above the marking. No
/// solid is made. A body that is seen along or across its axis has its exact outline; one that is turned
/// another way has the convex outline around it. A body in a STEP file is not drawn, and the scene remarks
/// it. The source of a lead is its pin, the source of a body its object. Raises `TooLarge`.
Scene PackageScene(const Part& part, const CVEKA_Package& package, Looking looking);

}  // namespace drawing
