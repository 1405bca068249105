#pragma once

#include "model/part/CVEKA_VEK.h"

/// Root of the model of one file.
class VEKA_API CVEKA_Manager {
    VEKA_RECORD(CVEKA_Manager)
    VEKA_OWNED(CVEKA_VEK, VEK, GetVEK, SetVEK)  ///< the part
};
