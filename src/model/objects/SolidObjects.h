#pragma once

#include "model/objects/CVEKA_3DOJ_AxisPivot.h"
#include "model/objects/CVEKA_3DOJ_RotMirror.h"

// The bodies of a package. All sizes are in the units of the file; nothing checks one against another.

/// A box.
class VEKA_API CVEKA_3DOJ_CUBOID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_CUBOID, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(WIDTH, "size along X")
    VEKA_REAL(HEIGHT, "size along Y")
    VEKA_REAL(THICKNESS, "size along Z")
};

/// A box with a rectangular hole.
class VEKA_API CVEKA_3DOJ_HOLECUBOID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_HOLECUBOID, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(WIDTH, "size along X")
    VEKA_REAL(HEIGHT, "size along Y")
    VEKA_REAL(THICKNESS, "size along Z")
    VEKA_REAL(HOLEWIDTH, "size of the hole along X")
    VEKA_REAL(HOLEHEIGHT, "size of the hole along Y")
};

/// A cylinder. Not exported: hosts meet it through the parser.
class CVEKA_3DOJ_CYLINDER : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_CYLINDER, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(RADIUS, "radius")
    VEKA_REAL(THICKNESS, "size along Z")
};

/// A ring. Not exported: hosts meet it through the parser.
class CVEKA_3DOJ_DONUT : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_DONUT, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(OUTERDIAM, "outer diameter")
    VEKA_REAL(INNERDIAM, "inner diameter")
    VEKA_REAL(THICKNESS, "size along Z")
};

/// A frustum with rectangular ends.
class VEKA_API CVEKA_3DOJ_PYRAMID : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_PYRAMID, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(TOPWIDTH, "size of the top along X")
    VEKA_REAL(TOPHEIGHT, "size of the top along Y")
    VEKA_REAL(BOTWIDTH, "size of the bottom along X")
    VEKA_REAL(BOTHEIGHT, "size of the bottom along Y")
    VEKA_REAL(THICKNESS, "size along Z")
};

/// A sphere.
class VEKA_API CVEKA_3DOJ_SPHERE : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_SPHERE, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(RADIUS, "radius")
};

/// An elliptic body.
class VEKA_API CVEKA_3DOJ_ELLIPSE : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_ELLIPSE, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(WIDTH, "diameter along X")
    VEKA_REAL(HEIGHT, "diameter along Y")
    VEKA_REAL(THICKNESS, "size along Z")
};

/// A prism over an outline, with voids.
class VEKA_API CVEKA_3DOJ_PILLAR : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT(CVEKA_3DOJ_PILLAR, CVEKA_3DOJ_AxisPivot)
    VEKA_REAL(THICKNESS, "size along Z")
    VEKA_OBJECT_LIST(BOUNDARY, Keyword{}, "lines and arcs of the outline")
    VEKA_OBJECT_LIST(VOIDS, Keyword{}, "void objects, each the outline of a hole")
};

/// A body from a STEP file. `Init` keeps the path.
class VEKA_API CVEKA_3DOJ_STEP : public CVEKA_3DOJ_AxisPivot {
    VEKA_OBJECT_OPERATIONS(CVEKA_3DOJ_STEP, CVEKA_3DOJ_AxisPivot)
    VEKA_STRING(PATH, "path of the STEP file as the file writes it")

protected:
    /// Sets the number through `SetType`, and every field but the path to its default.
    void Init() {
        CVEKA_3DOJ_AxisPivot::Init();
        SetType(veka::kKindNumber<CVEKA_3DOJ_STEP>);
    }
};

/// A parametric shape, stored and never turned into a solid. It bears the cuboid's number.
class VEKA_API CVEKA_3DOJ_3DSHAPE : public CVEKA_3DOJ_RotMirror {
    VEKA_OBJECT(CVEKA_3DOJ_3DSHAPE, CVEKA_3DOJ_RotMirror)
    VEKA_POINT(OFFSET, "offset of the shape")
    VEKA_REAL(W, "dimension W of the shape")
    VEKA_REAL(W1, "dimension W1 of the shape")
    VEKA_REAL(W2, "dimension W2 of the shape")
    VEKA_REAL(L, "dimension L of the shape")
    VEKA_REAL(L1, "dimension L1 of the shape")
    VEKA_REAL(L2, "dimension L2 of the shape")
    VEKA_REAL(T, "dimension T of the shape")
    VEKA_REAL(T1, "dimension T1 of the shape")
    VEKA_REAL(T2, "dimension T2 of the shape")
    VEKA_REAL(R, "dimension R of the shape")
    VEKA_REAL(R1, "dimension R1 of the shape")
    VEKA_REAL(R2, "dimension R2 of the shape")
    VEKA_REAL(CW, "dimension CW of the shape")
    VEKA_REAL(CL, "dimension CL of the shape")
};
