#pragma once

#include "model/Record.h"

/// A range of a quantity, in the units of the file.
class VEKA_API CVEKA_MinMax {
    VEKA_RECORD(CVEKA_MinMax)
    VEKA_NUMBER(double, Min, 0, "smallest value")
    VEKA_NUMBER(double, Max, 0, "largest value")
};
