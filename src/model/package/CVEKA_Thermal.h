#pragma once

#include "model/package/CVEKA_ThermalModel.h"

/// A pair of temperatures. The names tell which value of the file each field takes, and the field of the
/// second value comes first: that crossing is required. The fields are used directly.
class VEKA_API CVEKA_OperatingTemperature {
    VEKA_RECORD(CVEKA_OperatingTemperature)
    VEKA_PUBLIC(double, SecondValue, 0, "second value of the level; the format fixes no unit")
    VEKA_PUBLIC(double, FirstValue, 0, "first value of the level; the format fixes no unit")
};

/// Thermal data of a part.
class VEKA_API CVEKA_Thermal {
    VEKA_RECORD(CVEKA_Thermal)
    VEKA_NUMBER(double, MaxPower, 0, "maximum power")
    VEKA_OWNED(CVEKA_OperatingTemperature, OperatingTemperature, "operating temperatures")
    VEKA_NUMBER(double, RadiationEmissivity, 0, "emissivity of the surface for heat radiation")
    VEKA_OWNED(CVEKA_ThermalModel, Model, "thermal models")
};
