#pragma once

#include "model/Record.h"

/// A colour, as the file gives it: the numbers have no range.
class VEKA_API CVEKA_Color {
    VEKA_RECORD(CVEKA_Color)
    VEKA_NUMBER(int, Red, 0, GetRed, SetRed)
    VEKA_NUMBER(int, Green, 0, GetGreen, SetGreen)
    VEKA_NUMBER(int, Blue, 0, GetBlue, SetBlue)
};
