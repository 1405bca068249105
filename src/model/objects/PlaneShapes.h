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

/// A line. The place of a point among the children says which point it is.
class VEKA_API CVEKA_3DOJ_LINE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_LINE, CVEKA_3DObject)
    VEKA_PLACED_POINT(StartPoint, 0, "start of the line")
    VEKA_PLACED_POINT(EndPoint, 1, "end of the line")
    VEKA_REAL(LW, "width of the line")
};

/// An arc. The place of a point among the children says which point it is.
class VEKA_API CVEKA_3DOJ_ARC : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_ARC, CVEKA_3DObject)
    VEKA_PLACED_POINT(StartPoint, 0, "start of the arc")
    VEKA_PLACED_POINT(EndPoint, 1, "end of the arc")
    VEKA_PLACED_POINT(CenterPoint, 2, "centre of the arc")
    VEKA_REAL(R, "radius of the arc")
    VEKA_REAL(LW, "width of the line")
    VEKA_STRING(DIR, "direction of the arc: CCW, or clockwise for any other word")
};

/// A circle.
class VEKA_API CVEKA_3DOJ_CIRCLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CIRCLE, CVEKA_3DObject)
    VEKA_REAL(D, "diameter")
    VEKA_REAL(LW, "width of the line")
    VEKA_POINT(PT, "centre of the circle")
};

/// A filled circle.
class VEKA_API CVEKA_3DOJ_FILLCIRCLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_FILLCIRCLE, CVEKA_3DObject)
    VEKA_REAL(D, "diameter")
    VEKA_POINT(PT, "centre of the circle")
    VEKA_POINT(OFFSET, "offset from the centre")
};

/// A rectangle.
class VEKA_API CVEKA_3DOJ_RECTANGLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_RECTANGLE, CVEKA_3DObject)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_REAL(LW, "width of the line")
    VEKA_POINT(PT, "place of the rectangle")
    VEKA_REAL(ROTATION, "rotation in degrees")
};

/// A filled rectangle with cut corners.
class VEKA_API CVEKA_3DOJ_CHAMPEREDRECT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CHAMPEREDRECT, CVEKA_3DObject)
    VEKA_POINT(PT, "place of the rectangle")
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_REAL(CHAMPEREDVALUE, "length that is cut off at each corner")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(OFFSET, "offset from the place")
};

/// A filled rectangle.
class VEKA_API CVEKA_3DOJ_FILLRECT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_FILLRECT, CVEKA_3DObject)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_POINT(PT, "place of the rectangle")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(OFFSET, "offset from the place")
};

/// A filled rectangle with round corners.
class VEKA_API CVEKA_3DOJ_ROUNDEDRECTANGLE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_ROUNDEDRECTANGLE, CVEKA_3DObject)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_OBJECT_FIELD(double, R, 0, KeywordOr{"CHAMPEREDVALUE"}, "radius of the corners")
    VEKA_POINT(PT, "place of the rectangle")
    VEKA_POINT(OFFSET, "offset from the place")
};

/// A named group of objects.
class VEKA_API CVEKA_3DOJ_COMPOSITE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_COMPOSITE, CVEKA_3DObject)
    VEKA_STRING(NAME, "name of the group")
    VEKA_POINT(PT, "place of the group")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_OBJECT_LIST(Elements, OtherChildren{}, "objects of the group; null for an unknown one")
};

/// A contour. Every child holds objects that replace those of the child before it.
class VEKA_API CVEKA_3DOJ_CONTOUR : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_CONTOUR, CVEKA_3DObject)
    VEKA_OBJECT_LIST(Elements, EveryChildAsList{}, "objects of the contour")
};

/// An oblong.
class VEKA_API CVEKA_3DOJ_OBLONG : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_OBLONG, CVEKA_3DObject)
    VEKA_REAL(W, "width")
    VEKA_REAL(H, "height")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_POINT(PT, "place of the oblong")
};

/// A filled polygon with voids.
class VEKA_API CVEKA_3DOJ_POLYGON : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_POLYGON, CVEKA_3DObject)
    VEKA_OBJECT_LIST(BOUNDARY, Elements{}, "lines and arcs of the outline; null for an unknown object")
    VEKA_OBJECT_LIST(VOID, Elements{}, "objects cut out of the polygon; null for an unknown one")
};

/// A run of lines and arcs.
class VEKA_API CVEKA_3DOJ_POLYLINE : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_POLYLINE, CVEKA_3DObject)
    VEKA_OBJECT_LIST(Elements, OtherChildren{}, "lines and arcs in their order; null for an unknown object")
};

/// A closed run of lines and arcs that is cut out.
class VEKA_API CVEKA_3DOJ_VOID : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_VOID, CVEKA_3DObject)
    VEKA_OBJECT_LIST(Elements, OtherChildren{}, "lines and arcs of the outline; null for an unknown object")
};

/// A line whose width changes. The place of a point among the children says which point it is.
class VEKA_API CVEKA_3DOJ_TAPERED : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_TAPERED, CVEKA_3DObject)
    VEKA_REAL(SWIDTH, "width at the start")
    VEKA_PLACED_POINT(StartPoint, 1, "start of the line")
    VEKA_REAL(EWIDTH, "width at the end")
    VEKA_PLACED_POINT(EndPoint, 3, "end of the line")
    VEKA_STRING(DIRECTION, "direction word as the file writes it")
};

/// A thermal relief.
class VEKA_API CVEKA_3DOJ_THERMAL : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_THERMAL, CVEKA_3DObject)
    VEKA_STRING(TYPE, "word for the kind of thermal relief")
    VEKA_REAL(OUTER, "outer size")
    VEKA_REAL(INNER, "inner size")
    VEKA_REAL(SPOKEWIDTH, "width of a spoke")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_REAL(NOOFSPOKES, "number of spokes, which the file gives as a real")
};

/// A text.
class VEKA_API CVEKA_3DOJ_TEXT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_TEXT, CVEKA_3DObject)
    VEKA_INTEGER(FID, "number of the font")
    VEKA_INTEGER(JUSTIFY, "code of the justification")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_STRING(MIRROR, "mirror word as the file writes it")
    VEKA_POINT(PT, "place of the text")
    VEKA_STRING(VALUE, "the text")
};

/// The text of a named property.
class VEKA_API CVEKA_3DOJ_PROPTEXT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_PROPTEXT, CVEKA_3DObject)
    VEKA_INTEGER(FID, "number of the font")
    VEKA_INTEGER(JUSTIFY, "code of the justification")
    VEKA_REAL(ROTATION, "rotation in degrees")
    VEKA_STRING(MIRROR, "mirror word as the file writes it")
    VEKA_POINT(PT, "place of the text")
    VEKA_STRING(VALUE, "the text")
    VEKA_STRING(NAME, "name of the property")
    VEKA_OBJECT_FIELD(int, Visible, 1, ClearedBy{"VISIBLE"}, "0 if the text is hidden; 1 by default")

    int GetVisible() const noexcept { return Visible; }
    void SetVisible(int visible) noexcept { Visible = visible; }
};

/// A pin mark.
class VEKA_API CVEKA_3DOJ_PINPOINT : public CVEKA_3DObject {
    VEKA_OBJECT(CVEKA_3DOJ_PINPOINT, CVEKA_3DObject)
    VEKA_INTEGER(TYPE, "number for the kind of mark")
    VEKA_REAL(D, "diameter")
    VEKA_POINT(PT, "place of the mark")
};
