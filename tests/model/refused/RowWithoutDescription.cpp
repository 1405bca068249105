// Refused: The row Field needs a description of the field

#include "model/Record.h"

class Undescribed {
    VEKA_RECORD(Undescribed)
    VEKA_FLAG(Field, "")
};
