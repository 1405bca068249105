#pragma once

#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// Where a net attaches to a pin.
class VEKA_API CVEKA_PinConnShape {
    VEKA_RECORD(CVEKA_PinConnShape)
    VEKA_TEXT_AS(ShapeType, GetSetShapeType, SetShapeType, "word for the kind of connection point")
    VEKA_NUMBER(double, Size, 0, "size of the connection point")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place where the net attaches")
};

/// The connection points of a pin shape.
VEKA_ARRAY(CVEKA_PinConnShapeArray, CVEKA_PinConnShape)

/// The graphic of a symbol's pin. Library partitions refer to it by its name.
class VEKA_API CVEKA_NSHAPE {
    VEKA_RECORD(CVEKA_NSHAPE)
    VEKA_TEXT(ShapeName, "name of the pin shape")
    VEKA_OWNED(CVEKA_3DObjectArray, PinBodyShape, "objects that draw the body of the pin")
    VEKA_OWNED(CVEKA_PinConnShapeArray, PinConnShape, "points where a net attaches")
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, "property labels of the pin")
};

/// The pin shapes of a library.
VEKA_ARRAY(CVEKA_NSHAPEArray, CVEKA_NSHAPE)
