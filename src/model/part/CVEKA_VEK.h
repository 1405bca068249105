#pragma once

#include "model/electrical/CVEKA_Electrical.h"
#include "model/logic/CVEKA_LogicSymbols.h"
#include "model/package/CVEKA_Packages.h"
#include "model/part/CVEKA_Layers.h"
#include "model/part/CVEKA_Manufacturing.h"
#include "model/part/CVEKA_PartGeneral.h"

/// The one part that a file describes, by its sections.
class VEKA_API CVEKA_VEK {
    VEKA_RECORD(CVEKA_VEK)
    VEKA_OWNED(CVEKA_PartGeneral, PartGeneral, GetPartGeneral, SetPartGeneral)
    VEKA_OWNED(CVEKA_Layers, Layers, GetLayers, SetLayers)
    VEKA_OWNED(CVEKA_Electrical, Electrical, GetElectrical, SetElectrical)
    VEKA_OWNED(CVEKA_Packages, Packages, GetPackages, SetPackages)
    VEKA_OWNED(CVEKA_Manufacturing, Manufacturing, GetManufacturing, SetManufacturing)
    VEKA_OWNED(CVEKA_LogicSymbols, LogicSymbols, GetLogicSymbols, SetLogicSymbols)
};
