#pragma once

#include "model/objects/ObjectRows.h"

#ifdef VOID
// A macro of the Windows headers, under which a polygon would have no list of its holes; as a type it does
// the same in declarations.
#undef VOID
using VOID = void;
#endif

// The drawing of a part in the plane. These have no colour and no base point of their own: where one has a
// point, it is a field of its own.

/// A line. Its points are told by their places among the children.
class VEKA_API CVEKA_3DOJ_LINE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_LINE, CVEKA_3DObject, 37)
    VEKA_PLACED_POINT(StartPoint, 0)
    VEKA_PLACED_POINT(EndPoint, 1)
    VEKA_REAL(LW)
};

/// An arc. Its points are told by their places among the children.
class VEKA_API CVEKA_3DOJ_ARC : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_ARC, CVEKA_3DObject, 38)
    VEKA_PLACED_POINT(StartPoint, 0)
    VEKA_PLACED_POINT(EndPoint, 1)
    VEKA_PLACED_POINT(CenterPoint, 2)
    VEKA_REAL(R)
    VEKA_REAL(LW)
    VEKA_STRING(DIR)  ///< "CCW", or anything else for clockwise
};

/// A circle.
class VEKA_API CVEKA_3DOJ_CIRCLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CIRCLE, CVEKA_3DObject, 39)
    VEKA_REAL(D)
    VEKA_REAL(LW)
    VEKA_POINT(PT)
};

/// A filled circle.
class VEKA_API CVEKA_3DOJ_FILLCIRCLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_FILLCIRCLE, CVEKA_3DObject, 40)
    VEKA_REAL(D)
    VEKA_POINT(PT)
    VEKA_POINT(OFFSET)
};

/// A rectangle.
class VEKA_API CVEKA_3DOJ_RECTANGLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_RECTANGLE, CVEKA_3DObject, 41)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_REAL(LW)
    VEKA_POINT(PT)
    VEKA_REAL(ROTATION)
};

/// A filled rectangle with cut corners.
class VEKA_API CVEKA_3DOJ_CHAMPEREDRECT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CHAMPEREDRECT, CVEKA_3DObject, 42)
    VEKA_POINT(PT)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_REAL(CHAMPEREDVALUE)
    VEKA_REAL(ROTATION)
    VEKA_POINT(OFFSET)
};

/// A filled rectangle.
class VEKA_API CVEKA_3DOJ_FILLRECT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_FILLRECT, CVEKA_3DObject, 43)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_POINT(PT)
    VEKA_REAL(ROTATION)
    VEKA_POINT(OFFSET)
};

/// A filled rectangle with round corners.
class VEKA_API CVEKA_3DOJ_ROUNDEDRECTANGLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDEDRECTANGLE, CVEKA_3DObject, 44)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_REAL(ROTATION)
    VEKA_OBJECT_FIELD(double, R, KeywordOr{"CHAMPEREDVALUE"}, = 0)
    VEKA_POINT(PT)
    VEKA_POINT(OFFSET)
};

/// A named group of objects.
class VEKA_API CVEKA_3DOJ_COMPOSITE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_COMPOSITE, CVEKA_3DObject, 45)
    VEKA_STRING(NAME)
    VEKA_POINT(PT)
    VEKA_REAL(ROTATION)
    VEKA_OBJECT_LIST(Elements, OtherChildren{})  ///< may hold null
};

/// A contour. Every child holds objects that replace those of the child before it.
class VEKA_API CVEKA_3DOJ_CONTOUR : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CONTOUR, CVEKA_3DObject, 46)
    VEKA_OBJECT_LIST(Elements, EveryChildAsList{})
};

/// An oblong.
class VEKA_API CVEKA_3DOJ_OBLONG : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_OBLONG, CVEKA_3DObject, 47)
    VEKA_REAL(W)
    VEKA_REAL(H)
    VEKA_REAL(ROTATION)
    VEKA_POINT(PT)
};

/// A filled polygon with voids.
class VEKA_API CVEKA_3DOJ_POLYGON : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_POLYGON, CVEKA_3DObject, 48)
    VEKA_OBJECT_LIST(BOUNDARY, Elements{})  ///< may hold null
    VEKA_OBJECT_LIST(VOID, Elements{})      ///< may hold null
};

/// A run of lines and arcs.
class VEKA_API CVEKA_3DOJ_POLYLINE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_POLYLINE, CVEKA_3DObject, 49)
    VEKA_OBJECT_LIST(Elements, OtherChildren{})  ///< may hold null
};

/// A closed run of lines and arcs that is cut out.
class VEKA_API CVEKA_3DOJ_VOID : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_VOID, CVEKA_3DObject, 50)
    VEKA_OBJECT_LIST(Elements, OtherChildren{})  ///< may hold null
};

/// A line whose width changes. Its points are told by their places among the children.
class VEKA_API CVEKA_3DOJ_TAPERED : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_TAPERED, CVEKA_3DObject, 51)
    VEKA_REAL(SWIDTH)
    VEKA_PLACED_POINT(StartPoint, 1)
    VEKA_REAL(EWIDTH)
    VEKA_PLACED_POINT(EndPoint, 3)
    VEKA_STRING(DIRECTION)
};

/// A thermal relief.
class VEKA_API CVEKA_3DOJ_THERMAL : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_THERMAL, CVEKA_3DObject, 52)
    VEKA_STRING(TYPE)
    VEKA_REAL(OUTER)
    VEKA_REAL(INNER)
    VEKA_REAL(SPOKEWIDTH)
    VEKA_REAL(ROTATION)
    VEKA_REAL(NOOFSPOKES)  ///< a count that the format stores as a real
};

/// A text.
class VEKA_API CVEKA_3DOJ_TEXT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_TEXT, CVEKA_3DObject, 53)
    VEKA_INTEGER(FID)  ///< number of a font
    VEKA_INTEGER(JUSTIFY)
    VEKA_REAL(ROTATION)
    VEKA_STRING(MIRROR)
    VEKA_POINT(PT)
    VEKA_STRING(VALUE)
};

/// The text of a named property.
class VEKA_API CVEKA_3DOJ_PROPTEXT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_PROPTEXT, CVEKA_3DObject, 60)
    VEKA_INTEGER(FID)  ///< number of a font
    VEKA_INTEGER(JUSTIFY)
    VEKA_REAL(ROTATION)
    VEKA_STRING(MIRROR)
    VEKA_POINT(PT)
    VEKA_STRING(VALUE)
    VEKA_STRING(NAME)
    VEKA_OBJECT_FIELD(int, Visible, ClearedBy{"VISIBLE"},
                      = 1)  ///< the one number here that is not 0 by default

    int GetVisible() const noexcept { return Visible; }
    void SetVisible(int visible) noexcept { Visible = visible; }
};

/// A pin mark.
class VEKA_API CVEKA_3DOJ_PINPOINT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_PINPOINT, CVEKA_3DObject, 61)
    VEKA_INTEGER(TYPE)
    VEKA_REAL(D)
    VEKA_POINT(PT)
};
