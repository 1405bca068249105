#pragma once

#include "model/Record.h"

/// How a part is mounted, and its compliance.
class VEKA_API CVEKA_Manufacturing {
    VEKA_RECORD(CVEKA_Manufacturing)
    VEKA_TEXT(MountType, "word for the way of mounting")
    VEKA_TEXT(ROHS_CompLianceType, "word for the RoHS compliance")
};
