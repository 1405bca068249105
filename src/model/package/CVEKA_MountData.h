#pragma once

#include "model/CVEKA_Coordinate.h"
#include "model/package/CVEKA_Packing.h"

/// What a mount check tests.
class VEKA_API CVEKA_MountCheckType {
    VEKA_RECORD(CVEKA_MountCheckType)
    VEKA_NUMBER(int, Type, 0, "code of the check")
    VEKA_FLAG(AllowReverse, "1 if the part may be mounted reversed")
};

/// One mounted pin. Q17: a copy is blank, whatever the source holds. So every pin of an imported model is
/// blank, since the parser's result is copied into the model, and hosts rely on that.
class VEKA_API CVEKA_MountPin {
    VEKA_RECORD_OPERATIONS(CVEKA_MountPin)
public:
    CVEKA_MountPin(const CVEKA_MountPin&) {}
    virtual CVEKA_MountPin& operator=(const CVEKA_MountPin& other);
    virtual CVEKA_MountPin* Clone() const { return new CVEKA_MountPin(*this); }

    VEKA_FIELDS_OF(CVEKA_MountPin, void)
    VEKA_NUMBER(int, No, 0, "number of the pin")
    VEKA_TEXT(PinName, "name of the pin")
    VEKA_NUMBER(int, Direction, 0, "code of the direction")
    VEKA_FLAG(Skip, "1 if the check skips the pin")
    VEKA_TEXT(LeadType, "word for the form of the lead")

public:
    /// Gives the pin its defaults, as each copy has them.
    void BecomeACopy() { Init(); }
};

/// The mounted pins of a package. Copies keep their number and nothing else.
VEKA_ARRAY(CVEKA_MountPinArray, CVEKA_MountPin)

/// Size of a body.
class VEKA_API CVEKA_BodySize {
    VEKA_RECORD(CVEKA_BodySize)
    VEKA_OWNED(CVEKA_Coordinate, Mold, "size of the moulded body; Z is never read")
    VEKA_OWNED(CVEKA_Coordinate, OverAll, "size over all; Z is never read")
    VEKA_FLAG(Checking, "1 if the size is checked")
};

/// Height of a body.
class VEKA_API CVEKA_BodyHeight {
    VEKA_RECORD(CVEKA_BodyHeight)
    VEKA_NUMBER(double, Height, 0, "height of the body")
    VEKA_FLAG(Checking, "1 if the height is checked")
};

/// How a package goes onto a board.
class VEKA_API CVEKA_MountData {
    VEKA_RECORD(CVEKA_MountData)
    VEKA_TEXT(MountFileName, "file of the mount data")
    VEKA_OWNED(CVEKA_Packing, Packing, "how the parts are delivered")
    VEKA_OWNED(CVEKA_MountCheckType, MountCheckType, "what the mount check tests")
    VEKA_OWNED(CVEKA_MountPinArray, MountPins, "mounted pins")
    VEKA_OWNED(CVEKA_BodySize, BodySize, "size of the body")
    VEKA_OWNED(CVEKA_BodyHeight, BodyHeight, "height of the body")
};
