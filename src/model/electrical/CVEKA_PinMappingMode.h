#pragma once

#include "model/Record.h"

/// Whether pins are mapped.
class VEKA_API CVEKA_PinMappingMode {
    VEKA_RECORD(CVEKA_PinMappingMode)
    VEKA_FLAG(Mode, "1 if pins are mapped")
};
