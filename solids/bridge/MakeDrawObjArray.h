#pragma once

#include "geometry/PlaneShapesLib.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// The lines and arcs of an array as an outline; everything else is left out. The caller deletes the result.
CPCDrawObjArray* MakeDrawObjArray(const CVEKA_3DObjectArray& objects);
