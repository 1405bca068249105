#pragma once

#include "model/Record.h"

/// A search key: a type and its values.
class VEKA_API CVEKA_USGKey {
    VEKA_RECORD(CVEKA_USGKey)
    VEKA_TEXT(Type, GetType, SetType)
    VEKA_LIST(Value, GetValue, SetValue)
};

/// The search keys of one record.
VEKA_ARRAY(CVEKA_USGKeyArray, CVEKA_USGKey)
