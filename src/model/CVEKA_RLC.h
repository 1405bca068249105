#pragma once

#include "model/Record.h"

/// Resistance, inductance and capacitance, in the units of the file.
class VEKA_API CVEKA_RLC {
    VEKA_RECORD(CVEKA_RLC)
    VEKA_NUMBER(double, ResisterValue, 0, "resistance")
    VEKA_NUMBER(double, InductanceValue, 0, "inductance")
    VEKA_NUMBER(double, CapacitorValue, 0, "capacitance")
};
