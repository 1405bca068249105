#pragma once

#include "model/CVEKA_RLC.h"

/// The signal of a rail.
class VEKA_API CVEKA_SignalName {
    VEKA_RECORD(CVEKA_SignalName)
    VEKA_TEXT(StrSignalName, GetStrSignalName, SetStrSignalName)
    VEKA_NUMBER(int, TargetType, 0, GetTargetType,
                SetTargetType)  /// 1: the target is `RLC`, 2: it is `RL`, 0: neither
};

/// The power delivery model of a rail.
class VEKA_API CVEKA_PDSModel {
    VEKA_RECORD(CVEKA_PDSModel)
    VEKA_TEXT(ModelType, GetModelType, SetModelType)
    VEKA_TEXT(ModelName, GetModelName, SetModelName)
};

/// A frequency band with its impedance target.
class VEKA_API CVEKA_Frequency {
    VEKA_RECORD(CVEKA_Frequency)
    VEKA_NUMBER(double, MinTarget, 0, GetMinTarget, SetMinTarget)
    VEKA_NUMBER(double, MaxTarget, 0, GetMaxTarget, SetMaxTarget)
    VEKA_NUMBER(double, Impedance, 0, GetImpedance, SetImpedance)
};

/// The bands of a rail.
VEKA_ARRAY(CVEKA_FrequencyArray, CVEKA_Frequency)

/// One supply net of a part.
class VEKA_API CVEKA_PowerRail {
    VEKA_RECORD(CVEKA_PowerRail)
    VEKA_OWNED(CVEKA_SignalName, SignalName, GetSignalName, SetSignalName)
    VEKA_OWNED(CVEKA_PDSModel, PDSModel, GetPDSModel, SetPDSModel)
    VEKA_OWNED(CVEKA_FrequencyArray, FrequencyArr, GetFrequencyArr, SetFrequencyArr)
    VEKA_OWNED(CVEKA_RLC, RLC, GetRLC, SetRLC)
    VEKA_OWNED(CVEKA_RLC, RL, GetRL, SetRL)  /// its capacitance stays 0
};

/// The supply nets of a part.
VEKA_ARRAY(CVEKA_PowerRailArray, CVEKA_PowerRail)
