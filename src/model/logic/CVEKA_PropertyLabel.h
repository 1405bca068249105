#pragma once

#include "model/CVEKA_Coordinate.h"

/// Where and how a property is written.
class VEKA_API CVEKA_PropertyLabel {
    VEKA_RECORD(CVEKA_PropertyLabel)
    VEKA_TEXT(Property, GetProperty, SetProperty)
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_FLAG(Visible, GetVisible, SetVisible)
    VEKA_NUMBER(double, Rotation, 0, GetRotation, SetRotation)
    VEKA_NUMBER(int, FID, 0, GetFID, SetFID)  /// number of a font
    VEKA_NUMBER(int, Justify, 0, GetJustify, SetJustify)
    VEKA_TEXT(Mirror, GetMirror, SetMirror)
};

/// Labels in file order.
VEKA_ARRAY(CVEKA_PropertyLabelArray, CVEKA_PropertyLabel)
