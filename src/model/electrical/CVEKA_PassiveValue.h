#pragma once

#include "model/CVEKA_RLC.h"
#include "model/CVEKA_Type.h"

/// The simulation models of a passive part. Nothing chooses among them.
class VEKA_API CVEKA_PassiveValueModels {
    VEKA_RECORD(CVEKA_PassiveValueModels)
    VEKA_TEXT(CurrentModelType, "kind of the model in use; it selects none of the others")
    VEKA_OWNED(CVEKA_RLC, RLC, "lumped resistance, inductance and capacitance")
    VEKA_TEXT(SpiceFileName, "file of the SPICE model")
    VEKA_TEXT(SParameterFileName, "file of the S-parameters")
};

/// Two pins between which a value holds.
class VEKA_API CVEKA_PinPair {
    VEKA_RECORD(CVEKA_PinPair)
    VEKA_TEXT(PinPairFirst, "name of the first pin")
    VEKA_TEXT(PinPairSecond, "name of the second pin")
};

/// The pin pairs of a passive part.
VEKA_ARRAY(CVEKA_PinPairArray, CVEKA_PinPair)

/// The value of a passive part.
class VEKA_API CVEKA_PassiveValue {
    VEKA_RECORD(CVEKA_PassiveValue)
    VEKA_TEXT(NominalValue, "nominal value as the file writes it")
    VEKA_OWNED(CVEKA_Type, Type, "value by its kind")
    VEKA_TEXT(SpiceModel, "SPICE model")
    VEKA_NUMBER(double, CurrentValue, 0, "current rating")
    VEKA_NUMBER(double, VoltageValue, 0, "voltage rating")
    VEKA_NUMBER(double, PowerValue, 0, "power rating")
    VEKA_OWNED(CVEKA_PassiveValueModels, Models, "simulation models of the value")
    VEKA_OWNED(CVEKA_PinPairArray, PinPairArr, "pairs of pins between which the value is")
};
