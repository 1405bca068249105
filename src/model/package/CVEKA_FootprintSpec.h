#pragma once

#include "model/CVEKA_MinMax.h"

/// Tolerances from which footprints are derived.
class VEKA_API CVEKA_FootprintSpec {
    VEKA_RECORD(CVEKA_FootprintSpec)
    VEKA_OWNED(CVEKA_MinMax, Toe, GetToe, SetToe)
    VEKA_OWNED(CVEKA_MinMax, Heel, GetHeel, SetHeel)
    VEKA_OWNED(CVEKA_MinMax, Side, GetSide, SetSide)
    VEKA_OWNED(CVEKA_MinMax, MountHeight, GetMountHeight, SetMountHeight)
};
