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
    VEKA_OWNED(CVEKA_PartGeneral, PartGeneral, "identity and general data")
    VEKA_OWNED(CVEKA_Layers, Layers, "drawing layers")
    VEKA_OWNED(CVEKA_Electrical, Electrical, "the part as a circuit element")
    VEKA_OWNED(CVEKA_Packages, Packages, "packages")
    VEKA_OWNED(CVEKA_Manufacturing, Manufacturing, "mounting and compliance")
    VEKA_OWNED(CVEKA_LogicSymbols, LogicSymbols, "schematic symbols")
};
