#pragma once

#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// Where a net attaches to a pin.
class VEKA_API CVEKA_PinConnShape {
    VEKA_RECORD(CVEKA_PinConnShape)
    VEKA_TEXT(ShapeType, GetSetShapeType, SetShapeType)  /// the getter's name is so in full
    VEKA_NUMBER(double, Size, 0, GetSize, SetSize)
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
};

/// The connection points of a pin shape.
VEKA_ARRAY(CVEKA_PinConnShapeArray, CVEKA_PinConnShape)

/// The graphic of a symbol's pin. Library partitions refer to it by its name.
class VEKA_API CVEKA_NSHAPE {
    VEKA_RECORD(CVEKA_NSHAPE)
    VEKA_TEXT(ShapeName, GetShapeName, SetShapeName)
    VEKA_OWNED(CVEKA_3DObjectArray, PinBodyShape, GetPinBodyShape, SetPinBodyShape)
    VEKA_OWNED(CVEKA_PinConnShapeArray, PinConnShape, GetPinConnShape, SetPinConnShape)
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, GetPropertyLabels, SetPropertyLabels)
};

/// The pin shapes of a library.
VEKA_ARRAY(CVEKA_NSHAPEArray, CVEKA_NSHAPE)
