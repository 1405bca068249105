#pragma once

#include "model/CVEKA_Color.h"

/// A colour by its number.
class VEKA_API CVEKA_ColorTable {
    VEKA_RECORD(CVEKA_ColorTable)
    VEKA_NUMBER(int, Index, 0, "number of the colour")
    VEKA_OWNED(CVEKA_Color, Color, "the colour")
};

/// The colours of a library in file order, whatever their numbers.
VEKA_ARRAY(CVEKA_ColorTableArray, CVEKA_ColorTable)
