#pragma once

#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// Plane shapes at a place in space. None is exported: hosts get them from the parser.

/// A line in space.
class CVEKA_3DOJ_3DLINE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DLINE, CVEKA_3DOJ_RotMirror)
    VEKA_PLACED_POINT(StartPoint, 0, "start of the line")
    VEKA_PLACED_POINT(EndPoint, 1, "end of the line")
    VEKA_REAL(LW, "width of the line")
};

/// An arc in space.
class CVEKA_3DOJ_3DARC : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DARC, CVEKA_3DOJ_RotMirror)
    VEKA_PLACED_POINT(StartPoint, 0, "start of the arc")
    VEKA_PLACED_POINT(EndPoint, 1, "end of the arc")
    VEKA_PLACED_POINT(CenterPoint, 2, "centre of the arc")
    VEKA_REAL(R, "radius of the arc")
    VEKA_REAL(LW, "width of the line")
    VEKA_STRING(DIR, "direction of the arc: CCW, or clockwise for any other word")
};

/// A circle in space.
class CVEKA_3DOJ_3DCIRCLE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DCIRCLE, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(D, "diameter")
    VEKA_REAL(LW, "width of the line")
    VEKA_POINT(PT, "centre of the circle")
};

/// A filled circle in space.
class CVEKA_3DOJ_3DFILLCIRCLE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DFILLCIRCLE, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(D, "diameter")
    VEKA_POINT(PT, "centre of the circle")
};

/// A filled rectangle in space. Its rotation is one number; the three of the base stay 0.
class CVEKA_3DOJ_3DFILLRECT : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DFILLRECT, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_POINT(PT, "place of the rectangle")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(OFFSET, "offset from the place")
};

/// An oblong in space. Its rotation is one number; the three of the base stay 0.
class CVEKA_3DOJ_3DOBLONG : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DOBLONG, CVEKA_3DOJ_RotMirror)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(PT, "place of the oblong")
};

/// A polygon in space, without voids and colour.
class CVEKA_3DOJ_3DPOLYGON : public CVEKA_3DObject {
    VEKA_OBJECT_WITH_PRIVATE_INIT(CVEKA_3DOJ_3DPOLYGON, CVEKA_3DObject)
    VEKA_OBJECT_LIST(BOUNDARY, Elements{}, "lines and arcs of the outline; null for an unknown object")
};
