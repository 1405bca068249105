#pragma once

#include "model/objects/ObjectRows.h"

/// Base of the solids: a body with directions, turned about a pivot.
class VEKA_API CVEKA_3DOJ_AxisPivot : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_AxisPivot, CVEKA_3DObject)
    VEKA_OWNED(CVEKA_Coordinate, Front, "direction of the body's front; 0, 0, 0 if not given")
    VEKA_OWNED(CVEKA_Coordinate, Up, "direction of the body's top; 0, 0, 0 if not given")
    VEKA_OWNED(CVEKA_Coordinate, Pivot, "point that the body is turned about")
    VEKA_DESCRIBE(Rotate, static_cast<const CVEKA_Coordinate* (VekaSelf::*)() const>(&VekaSelf::GetRotate),
                  nullptr, "rotation about X, Y and Z in degrees")
    Owned<CVEKA_Coordinate> Rotate;

public:
    /// Rotation about X, Y and Z in degrees.
    CVEKA_Coordinate* GetRotate() noexcept { return Rotate; }
    const CVEKA_Coordinate* GetRotate() const noexcept { return Rotate; }
    /// Stores a rotation in degrees, and with `directions` overwrites `Front` and `Up` by what it makes of
    /// them. Null raises `CInvalidArgException`.
    void SetRotation(const CVEKA_Coordinate* degrees, bool directions);
};
