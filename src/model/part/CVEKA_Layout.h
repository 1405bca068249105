#pragma once

#include "model/Record.h"

/// What a layout needs of a part.
class VEKA_API CVEKA_Layout {
    VEKA_RECORD(CVEKA_Layout)
    VEKA_TEXT(Prefix, "prefix of the reference designator")
};
