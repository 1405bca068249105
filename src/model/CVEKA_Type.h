#pragma once

#include "model/Record.h"

/// A named kind with two numbers. It has no accessors: its fields are used directly.
class VEKA_API CVEKA_Type {
    VEKA_RECORD(CVEKA_Type)
    VEKA_PUBLIC(CString, Name, {}, "word for the kind of value")
    VEKA_PUBLIC(double, Value1, 0, "value of that kind")
    VEKA_PUBLIC(double, Value2, 0, "the same value once more")
};
