#pragma once

#include "model/Record.h"

/// A named reference.
class VEKA_API CVEKA_Reference_URL {
    VEKA_RECORD(CVEKA_Reference_URL)
    VEKA_TEXT(Title, "title of the reference")
    VEKA_TEXT(FileName, "file or address of the reference")
};

/// The references of a part.
VEKA_ARRAY(CVEKA_Reference_URLArray, CVEKA_Reference_URL)
