#pragma once

#include "model/electrical/CVEKA_DeviceModel.h"
#include "model/electrical/CVEKA_ElectricalPin.h"
#include "model/electrical/CVEKA_PassiveValue.h"
#include "model/electrical/CVEKA_PinGroup.h"
#include "model/electrical/CVEKA_PinMappingMode.h"
#include "model/electrical/CVEKA_PowerRail.h"

/// A part as a circuit element.
class VEKA_API CVEKA_Electrical {
    VEKA_RECORD(CVEKA_Electrical)
    VEKA_OWNED_VARIABLE(CVEKA_DeviceModelArray, DeviceModels, "simulation models of the part")
    VEKA_OWNED_VARIABLE(CVEKA_PowerRailArray, PowerRails, "supply nets of the part")
    VEKA_OWNED_VARIABLE(CVEKA_PassiveValue, PassiveValue, "value of a passive part")
    VEKA_OWNED_VARIABLE(CVEKA_PinMappingMode, PinMappingMode, "whether pins are mapped")
    VEKA_OWNED_VARIABLE(CVEKA_ElectricalPinArray, ElectricalPins, "pins as the circuit sees them")
    VEKA_OWNED_VARIABLE(CVEKA_PinGroupArray, PinGroups, "named groups of pins")
};
