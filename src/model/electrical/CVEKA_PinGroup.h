#pragma once

#include "model/Record.h"

/// A named group of pins.
class VEKA_API CVEKA_PinGroup {
    VEKA_RECORD(CVEKA_PinGroup)
    VEKA_TEXT(GroupName, GetGroupName, SetGroupName)
    VEKA_LIST(Name, GetName, SetName)  /// names of the pins
};

/// The pin groups of a part.
VEKA_ARRAY(CVEKA_PinGroupArray, CVEKA_PinGroup)
