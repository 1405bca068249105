#pragma once

#include "model/package/CVEKA_ThermalModel.h"

/// A pair of temperatures. Q11: each field is named after the value of the file that it takes, and the field
/// of the second value comes first. Hosts use the fields by their names and by their order.
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
