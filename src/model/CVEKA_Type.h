#pragma once

#include "model/Record.h"

/// A named kind with two numbers. It has no accessors: its fields are used directly.
class VEKA_API CVEKA_Type {
    VEKA_RECORD(CVEKA_Type)
    VEKA_PUBLIC_TEXT(Name)
    VEKA_PUBLIC_NUMBER(double, Value1, 0)
    VEKA_PUBLIC_NUMBER(double, Value2, 0)
};
