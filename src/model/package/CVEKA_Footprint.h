#pragma once

#include "model/Record.h"

/// A footprint that fits a package, by its name in the footprint database.
class VEKA_API CVEKA_Footprint {
    VEKA_RECORD(CVEKA_Footprint)
    VEKA_TEXT(LibraryFootprintName, "name of the footprint in the library")
};

/// The footprints that fit a package.
VEKA_ARRAY(CVEKA_FootprintArray, CVEKA_Footprint)
