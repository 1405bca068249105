#pragma once

#include "model/Record.h"

/// A named group of pins.
class VEKA_API CVEKA_PinGroup {
    VEKA_RECORD(CVEKA_PinGroup)
    VEKA_TEXT(GroupName, "name of the group")
    VEKA_LIST(Name, "names of the pins in the group")
};

/// The pin groups of a part.
VEKA_ARRAY(CVEKA_PinGroupArray, CVEKA_PinGroup)
