#pragma once

#include "model/Record.h"

/// A point, in the units of the file.
class VEKA_API CVEKA_Coordinate {
    VEKA_RECORD(CVEKA_Coordinate)
    VEKA_NUMBER(double, X, 0, GetX, SetX)
    VEKA_NUMBER(double, Y, 0, GetY, SetY)
    VEKA_NUMBER(double, Z, 0, GetZ, SetZ)
};
