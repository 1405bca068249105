#pragma once

#include "model/part/CVEKA_PartGeneral.h"

/// The one part that a file describes, by its sections.
class VEKA_API CVEKA_VEK {
    VEKA_RECORD(CVEKA_VEK)
    VEKA_OWNED(CVEKA_PartGeneral, PartGeneral, GetPartGeneral, SetPartGeneral)
};
