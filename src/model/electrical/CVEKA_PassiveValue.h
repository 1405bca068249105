#pragma once

#include "model/CVEKA_RLC.h"
#include "model/CVEKA_Type.h"

/// The models that stand for a passive part; nothing chooses among them.
class VEKA_API CVEKA_PassiveValueModels {
    VEKA_RECORD(CVEKA_PassiveValueModels)
    VEKA_TEXT(CurrentModelType, GetCurrentModelType, SetCurrentModelType)
    VEKA_OWNED(CVEKA_RLC, RLC, GetRLC, SetRLC)
    VEKA_TEXT(SpiceFileName, GetSpiceFileName, SetSpiceFileName)
    VEKA_TEXT(SParameterFileName, GetSParameterFileName, SetSParameterFileName)
};

/// Two pins between which a value holds.
class VEKA_API CVEKA_PinPair {
    VEKA_RECORD(CVEKA_PinPair)
    VEKA_TEXT(PinPairFirst, GetPinPairFirst, SetPinPairFirst)
    VEKA_TEXT(PinPairSecond, GetPinPairSecond, SetPinPairSecond)
};

/// The pin pairs of a passive part.
VEKA_ARRAY(CVEKA_PinPairArray, CVEKA_PinPair)

/// The value of a passive part.
class VEKA_API CVEKA_PassiveValue {
    VEKA_RECORD(CVEKA_PassiveValue)
    VEKA_TEXT(NominalValue, GetNominalValue, SetNominalValue)  /// as written
    VEKA_OWNED(CVEKA_Type, Type, GetType, SetType)
    VEKA_TEXT(SpiceModel, GetSpiceModel, SetSpiceModel)
    VEKA_NUMBER(double, CurrentValue, 0, GetCurrentValue, SetCurrentValue)
    VEKA_NUMBER(double, VoltageValue, 0, GetVoltageValue, SetVoltageValue)
    VEKA_NUMBER(double, PowerValue, 0, GetPowerValue, SetPowerValue)
    VEKA_OWNED(CVEKA_PassiveValueModels, Models, GetModels, SetModels)
    VEKA_OWNED(CVEKA_PinPairArray, PinPairArr, GetPinPairArr, SetPinPairArr)
};
