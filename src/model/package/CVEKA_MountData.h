#pragma once

#include "model/CVEKA_Coordinate.h"
#include "model/package/CVEKA_Packing.h"

/// What a mount check tests.
class VEKA_API CVEKA_MountCheckType {
    VEKA_RECORD(CVEKA_MountCheckType)
    VEKA_NUMBER(int, Type, 0, GetType, SetType)
    VEKA_FLAG(AllowReverse, GetAllowReverse, SetAllowReverse)
};

/// One mounted pin. A copy takes nothing over: assigning, copying and cloning give a blank pin. That is
/// required; it makes every pin of a finished model blank.
class VEKA_API CVEKA_MountPin {
    VEKA_RECORD_OPERATIONS(CVEKA_MountPin)
public:
    CVEKA_MountPin(const CVEKA_MountPin&) {}
    virtual CVEKA_MountPin& operator=(const CVEKA_MountPin& other);
    virtual CVEKA_MountPin* Clone() const { return new CVEKA_MountPin(*this); }

    VEKA_FIELDS_OF(CVEKA_MountPin, void)
    VEKA_NUMBER(int, No, 0, GetNo, SetNo)
    VEKA_TEXT(PinName, GetPinName, SetPinName)
    VEKA_NUMBER(int, Direction, 0, GetDirection, SetDirection)
    VEKA_FLAG(Skip, GetSkip, SetSkip)
    VEKA_TEXT(LeadType, GetLeadType, SetLeadType)

public:
    /// What a copy loses.
    void VekaLose() { Init(); }
};

/// The mounted pins of a package. Copies keep their number and nothing else.
VEKA_ARRAY(CVEKA_MountPinArray, CVEKA_MountPin)

/// Size of a body.
class VEKA_API CVEKA_BodySize {
    VEKA_RECORD(CVEKA_BodySize)
    VEKA_OWNED(CVEKA_Coordinate, Mold, GetMold, SetMold)
    VEKA_OWNED(CVEKA_Coordinate, OverAll, GetOverAll, SetOverAll)
    VEKA_FLAG(Checking, GetChecking, SetChecking)
};

/// Height of a body.
class VEKA_API CVEKA_BodyHeight {
    VEKA_RECORD(CVEKA_BodyHeight)
    VEKA_NUMBER(double, Height, 0, GetHeight, SetHeight)
    VEKA_FLAG(Checking, GetChecking, SetChecking)
};

/// How a package goes onto a board.
class VEKA_API CVEKA_MountData {
    VEKA_RECORD(CVEKA_MountData)
    VEKA_TEXT(MountFileName, GetMountFileName, SetMountFileName)
    VEKA_OWNED(CVEKA_Packing, Packing, GetPacking, SetPacking)
    VEKA_OWNED(CVEKA_MountCheckType, MountCheckType, GetMountCheckType, SetMountCheckType)
    VEKA_OWNED(CVEKA_MountPinArray, MountPins, GetMountPins, SetMountPins)
    VEKA_OWNED(CVEKA_BodySize, BodySize, GetBodySize, SetBodySize)
    VEKA_OWNED(CVEKA_BodyHeight, BodyHeight, GetBodyHeight, SetBodyHeight)
};
