#pragma once

#include "model/objects/CVEKA_3DOJ_AxisPivot.h"
#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// The bodies of a package. All sizes are in the units of the file; nothing checks one against another.

/// A box.
class VEKA_API CVEKA_3DOJ_CUBOID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_CUBOID, CVEKA_3DOJ_AxisPivot, 0)
    VEKA_REAL(WIDTH)
    VEKA_REAL(HEIGHT)
    VEKA_REAL(THICKNESS)
};

/// A box with a rectangular hole.
class VEKA_API CVEKA_3DOJ_HOLECUBOID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_HOLECUBOID, CVEKA_3DOJ_AxisPivot, 1)
    VEKA_REAL(WIDTH)
    VEKA_REAL(HEIGHT)
    VEKA_REAL(THICKNESS)
    VEKA_REAL(HOLEWIDTH)
    VEKA_REAL(HOLEHEIGHT)
};

/// A cylinder. Not exported: hosts meet it through the parser.
class CVEKA_3DOJ_CYLINDER : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_CYLINDER, CVEKA_3DOJ_AxisPivot, 2)
    VEKA_REAL(RADIUS)
    VEKA_REAL(THICKNESS)
};

/// A ring. Not exported: hosts meet it through the parser.
class CVEKA_3DOJ_DONUT : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_DONUT, CVEKA_3DOJ_AxisPivot, 3)
    VEKA_REAL(OUTERDIAM)
    VEKA_REAL(INNERDIAM)
    VEKA_REAL(THICKNESS)
};

/// A frustum with rectangular ends.
class VEKA_API CVEKA_3DOJ_PYRAMID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_PYRAMID, CVEKA_3DOJ_AxisPivot, 4)
    VEKA_REAL(TOPWIDTH)
    VEKA_REAL(TOPHEIGHT)
    VEKA_REAL(BOTWIDTH)
    VEKA_REAL(BOTHEIGHT)
    VEKA_REAL(THICKNESS)
};

/// A sphere.
class VEKA_API CVEKA_3DOJ_SPHERE : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_SPHERE, CVEKA_3DOJ_AxisPivot, 5)
    VEKA_REAL(RADIUS)
};

/// An elliptic body.
class VEKA_API CVEKA_3DOJ_ELLIPSE : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_ELLIPSE, CVEKA_3DOJ_AxisPivot, 6)
    VEKA_REAL(WIDTH)
    VEKA_REAL(HEIGHT)
    VEKA_REAL(THICKNESS)
};

/// A prism over an outline, with voids.
class VEKA_API CVEKA_3DOJ_PILLAR : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_PILLAR, CVEKA_3DOJ_AxisPivot, 36)
    VEKA_REAL(THICKNESS)
    VEKA_OBJECTS(BOUNDARY)  ///< lines and arcs
    VEKA_OBJECTS(VOIDS)     ///< void objects
};

/// A body from a STEP file. `Init` keeps the path.
class VEKA_API CVEKA_3DOJ_STEP : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT_OPERATIONS(CVEKA_3DOJ_STEP, CVEKA_3DOJ_AxisPivot, 54)
    VEKA_STRING(PATH)

protected:
    /// Sets everything but the path to the default.
    void Init() {
        CVEKA_3DOJ_STEP fresh;
        fresh.PATH = PATH;
        *this = std::move(fresh);
    }
};

/// A parametric shape, stored and never turned into a solid. It bears the cuboid's number.
class VEKA_API CVEKA_3DOJ_3DSHAPE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DSHAPE, CVEKA_3DOJ_RotMirror, 0)
    VEKA_POINT(OFFSET)
    VEKA_REAL(W)
    VEKA_REAL(W1)
    VEKA_REAL(W2)
    VEKA_REAL(L)
    VEKA_REAL(L1)
    VEKA_REAL(L2)
    VEKA_REAL(T)
    VEKA_REAL(T1)
    VEKA_REAL(T2)
    VEKA_REAL(R)
    VEKA_REAL(R1)
    VEKA_REAL(R2)
    VEKA_REAL(CW)
    VEKA_REAL(CL)
};
