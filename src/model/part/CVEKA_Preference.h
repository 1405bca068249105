#pragma once

#include "model/Record.h"

/// The company's preference for a part.
class VEKA_API CVEKA_Preference {
    VEKA_RECORD(CVEKA_Preference)
    VEKA_TEXT(TempCPN, "temporary company part number")
    VEKA_TEXT(Status, "word for the status")
};
