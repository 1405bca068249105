#pragma once

#include "model/package/CVEKA_ThermalModel.h"

/// A pair of temperatures. The names tell which value of the file each field takes, and the field of the
/// second value comes first: that crossing is required. The fields are used directly.
class VEKA_API CVEKA_OperatingTemperature {
    VEKA_RECORD(CVEKA_OperatingTemperature)
    VEKA_PUBLIC_NUMBER(double, SecondValue, 0)
    VEKA_PUBLIC_NUMBER(double, FirstValue, 0)
};

/// Thermal data of a part.
class VEKA_API CVEKA_Thermal {
    VEKA_RECORD(CVEKA_Thermal)
    VEKA_NUMBER(double, MaxPower, 0, GetMaxPower, SetMaxPower)
    VEKA_OWNED(CVEKA_OperatingTemperature, OperatingTemperature, GetOperatingTemperature,
               SetOperatingTemperature)
    VEKA_NUMBER(double, RadiationEmissivity, 0, GetRadiationEmissivity, SetRadiationEmissivity)
    VEKA_OWNED(CVEKA_ThermalModel, Model, GetModel, SetModel)
};
