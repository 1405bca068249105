#pragma once

#include "model/objects/ObjectRows.h"

/// Base of leads and drawn 3D objects: a rotation and a mirror word, neither of which is interpreted.
class VEKA_API CVEKA_3DOJ_RotMirror : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_RotMirror, CVEKA_3DObject)
    VEKA_OWNED(CVEKA_Coordinate, Rotation, "rotation about X, Y and Z in degrees")
    VEKA_TEXT(Mirror, "mirror word as the file writes it")
};
