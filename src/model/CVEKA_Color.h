#pragma once

#include "model/Record.h"

/// A colour, as the file gives it: the numbers have no range.
class VEKA_API CVEKA_Color {
    VEKA_RECORD(CVEKA_Color)
    VEKA_NUMBER(int, Red, 0, "red part, 0 to 255 as a rule")
    VEKA_NUMBER(int, Green, 0, "green part, 0 to 255 as a rule")
    VEKA_NUMBER(int, Blue, 0, "blue part, 0 to 255 as a rule")
};
