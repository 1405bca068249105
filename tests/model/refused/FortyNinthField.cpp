// Refused: A record has at most 48 fields, and Field49 is one more

#include "model/Record.h"

#define TEN_FIELDS(Name)             \
    VEKA_FLAG(Name##0, "one of ten") \
    VEKA_FLAG(Name##1, "one of ten") \
    VEKA_FLAG(Name##2, "one of ten") \
    VEKA_FLAG(Name##3, "one of ten") \
    VEKA_FLAG(Name##4, "one of ten") \
    VEKA_FLAG(Name##5, "one of ten") \
    VEKA_FLAG(Name##6, "one of ten") \
    VEKA_FLAG(Name##7, "one of ten") \
    VEKA_FLAG(Name##8, "one of ten") \
    VEKA_FLAG(Name##9, "one of ten")

class TooLarge {
    VEKA_RECORD(TooLarge)
    TEN_FIELDS(A)
    TEN_FIELDS(B)
    TEN_FIELDS(C)
    TEN_FIELDS(D)
    VEKA_FLAG(Field41, "the 41st field")
    VEKA_FLAG(Field42, "the 42nd field")
    VEKA_FLAG(Field43, "the 43rd field")
    VEKA_FLAG(Field44, "the 44th field")
    VEKA_FLAG(Field45, "the 45th field")
    VEKA_FLAG(Field46, "the 46th field")
    VEKA_FLAG(Field47, "the 47th field")
    VEKA_FLAG(Field48, "the 48th field")
    VEKA_FLAG(Field49, "one field too many")
};

static_assert(veka::FieldAccess::kCount<TooLarge> == 48);
