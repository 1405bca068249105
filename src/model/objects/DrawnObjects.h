#pragma once

#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// Plane shapes that stand in space. None is exported: hosts meet them through the parser.

/// A line in space.
class CVEKA_3DOJ_3DLINE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DLINE, CVEKA_3DOJ_RotMirror, 8)
    VEKA_PLACED_POINT(StartPoint, 0)
    VEKA_PLACED_POINT(EndPoint, 1)
    VEKA_REAL(LW)
};

/// An arc in space.
class CVEKA_3DOJ_3DARC : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DARC, CVEKA_3DOJ_RotMirror, 9)
    VEKA_PLACED_POINT(StartPoint, 0)
    VEKA_PLACED_POINT(EndPoint, 1)
    VEKA_PLACED_POINT(CenterPoint, 2)
    VEKA_REAL(R)
    VEKA_REAL(LW)
    VEKA_STRING(DIR)
};

/// A circle in space.
class CVEKA_3DOJ_3DCIRCLE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DCIRCLE, CVEKA_3DOJ_RotMirror, 10)
    VEKA_REAL(D)
    VEKA_REAL(LW)
    VEKA_POINT(PT)
};

/// A filled circle in space.
class CVEKA_3DOJ_3DFILLCIRCLE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DFILLCIRCLE, CVEKA_3DOJ_RotMirror, 11)
    VEKA_REAL(D)
    VEKA_POINT(PT)
};

/// A filled rectangle in space. Its rotation is one number; the three of the base stay 0.
class CVEKA_3DOJ_3DFILLRECT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DFILLRECT, CVEKA_3DOJ_RotMirror, 12)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_POINT(PT)
    VEKA_REAL(ROTATION)
    VEKA_POINT(OFFSET)
};

/// An oblong in space. Its rotation is one number; the three of the base stay 0.
class CVEKA_3DOJ_3DOBLONG : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DOBLONG, CVEKA_3DOJ_RotMirror, 13)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_REAL(ROTATION)
    VEKA_POINT(PT)
};

/// A polygon in space, without voids and colour.
class CVEKA_3DOJ_3DPOLYGON : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_3DPOLYGON, CVEKA_3DObject, 14)
    VEKA_OBJECT_LIST(BOUNDARY, Elements{})  ///< may hold null
};
