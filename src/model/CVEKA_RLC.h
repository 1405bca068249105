#pragma once

#include "model/Record.h"

/// Resistance, inductance and capacitance, in the units of the file.
class VEKA_API CVEKA_RLC {
    VEKA_RECORD(CVEKA_RLC)
    VEKA_NUMBER(double, ResisterValue, 0, GetResisterValue, SetResisterValue)
    VEKA_NUMBER(double, InductanceValue, 0, GetInductanceValue, SetInductanceValue)
    VEKA_NUMBER(double, CapacitorValue, 0, GetCapacitorValue, SetCapacitorValue)
};
