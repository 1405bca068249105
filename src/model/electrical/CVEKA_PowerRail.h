#pragma once

#include "model/CVEKA_RLC.h"

/// The signal of a rail.
class VEKA_API CVEKA_SignalName {
    VEKA_RECORD(CVEKA_SignalName)
    VEKA_TEXT(StrSignalName, "name of the signal")
    VEKA_NUMBER(int, TargetType, 0, "target of the rail: 1 for RLC, 2 for RL, 0 for neither")
};

/// The power delivery model of a rail.
class VEKA_API CVEKA_PDSModel {
    VEKA_RECORD(CVEKA_PDSModel)
    VEKA_TEXT(ModelType, "kind of the model")
    VEKA_TEXT(ModelName, "name of the model")
};

/// A frequency band with its impedance target.
class VEKA_API CVEKA_Frequency {
    VEKA_RECORD(CVEKA_Frequency)
    VEKA_NUMBER(double, MinTarget, 0, "lower end of the band")
    VEKA_NUMBER(double, MaxTarget, 0, "upper end of the band")
    VEKA_NUMBER(double, Impedance, 0, "target impedance in the band")
};

/// The bands of a rail.
VEKA_ARRAY(CVEKA_FrequencyArray, CVEKA_Frequency)

/// One supply net of a part.
class VEKA_API CVEKA_PowerRail {
    VEKA_RECORD(CVEKA_PowerRail)
    VEKA_OWNED(CVEKA_SignalName, SignalName, "signal of the rail")
    VEKA_OWNED(CVEKA_PDSModel, PDSModel, "model of the power delivery")
    VEKA_OWNED(CVEKA_FrequencyArray, FrequencyArr, "frequency bands with their target impedances")
    VEKA_OWNED(CVEKA_RLC, RLC, "target of resistance, inductance and capacitance")
    VEKA_OWNED(CVEKA_RLC, RL, "target of resistance and inductance; its capacitance stays 0")
};

/// The supply nets of a part.
VEKA_ARRAY(CVEKA_PowerRailArray, CVEKA_PowerRail)
