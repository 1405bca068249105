#pragma once

#include "model/CVEKA_Coordinate.h"

/// Where and how a property is written.
class VEKA_API CVEKA_PropertyLabel {
    VEKA_RECORD(CVEKA_PropertyLabel)
    VEKA_TEXT(Property, "name of the property")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the text")
    VEKA_FLAG(Visible, "1 if the text is visible")
    VEKA_NUMBER(double, Rotation, 0, "rotation of the text in degrees")
    VEKA_NUMBER(int, FID, 0, "number of the font")
    VEKA_NUMBER(int, Justify, 0, "code of the justification")
    VEKA_TEXT(Mirror, "mirror word as the file writes it")
};

/// Labels in file order.
VEKA_ARRAY(CVEKA_PropertyLabelArray, CVEKA_PropertyLabel)
