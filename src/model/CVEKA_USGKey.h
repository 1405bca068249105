#pragma once

#include "model/Record.h"

/// A search key: a type and its values.
class VEKA_API CVEKA_USGKey {
    VEKA_RECORD(CVEKA_USGKey)
    VEKA_TEXT(Type, "kind of the key")
    VEKA_LIST(Value, "values of the key")
};

/// The search keys of one record.
VEKA_ARRAY(CVEKA_USGKeyArray, CVEKA_USGKey)
