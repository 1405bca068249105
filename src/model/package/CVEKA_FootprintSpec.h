#pragma once

#include "model/CVEKA_MinMax.h"

/// Tolerances from which footprints are derived.
class VEKA_API CVEKA_FootprintSpec {
    VEKA_RECORD(CVEKA_FootprintSpec)
    VEKA_OWNED(CVEKA_MinMax, Toe, "tolerance at the toe of a lead")
    VEKA_OWNED(CVEKA_MinMax, Heel, "tolerance at the heel of a lead")
    VEKA_OWNED(CVEKA_MinMax, Side, "tolerance at the sides of a lead")
    VEKA_OWNED(CVEKA_MinMax, MountHeight, "range of the mounting height")
};
