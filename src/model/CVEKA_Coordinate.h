#pragma once

#include "model/Record.h"

/// A point, in the units of the file.
class VEKA_API CVEKA_Coordinate {
    VEKA_RECORD(CVEKA_Coordinate)
    VEKA_NUMBER(double, X, 0, "position along X")
    VEKA_NUMBER(double, Y, 0, "position along Y")
    VEKA_NUMBER(double, Z, 0, "position along Z")
};
