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
    VEKA_OWNED(CVEKA_DeviceModelArray, DeviceModels, GetDeviceModels, SetDeviceModels)
    VEKA_OWNED(CVEKA_PowerRailArray, PowerRails, GetPowerRails, SetPowerRails)
    VEKA_OWNED(CVEKA_PassiveValue, PassiveValue, GetPassiveValue, SetPassiveValue)
    VEKA_OWNED(CVEKA_PinMappingMode, PinMappingMode, GetPinMappingMode, SetPinMappingMode)
    VEKA_OWNED(CVEKA_ElectricalPinArray, ElectricalPins, GetElectricalPins, SetElectricalPins)
    VEKA_OWNED(CVEKA_PinGroupArray, PinGroups, GetPinGroups, SetPinGroups)
};
