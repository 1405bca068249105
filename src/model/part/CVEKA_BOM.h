#pragma once

#include "model/Record.h"

/// A part in the bill of materials.
class VEKA_API CVEKA_BOM {
    VEKA_RECORD(CVEKA_BOM)
    VEKA_TEXT(Unit, "currency of the cost")
    VEKA_NUMBER(double, Cost, 0, "price of one piece")
};
