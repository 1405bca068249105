#pragma once

#include "model/library/CVEKA_ColorTable.h"
#include "model/library/CVEKA_Font.h"
#include "model/library/CVEKA_FootprintDB.h"
#include "model/library/CVEKA_NSHAPE.h"
#include "model/library/CVEKA_Pad.h"
#include "model/library/CVEKA_PadStack.h"
#include "model/library/CVEKA_PartitionDB.h"
#include "model/part/CVEKA_VEK.h"

/// Root of the model of one file: the part, and the library that it refers to.
class VEKA_API CVEKA_Manager {
    VEKA_RECORD(CVEKA_Manager)
    VEKA_OWNED(CVEKA_VEK, VEK, GetVEK, SetVEK)
    VEKA_OWNED(CVEKA_ColorTableArray, ColorTable, GetColorTable, SetColorTable)
    VEKA_OWNED(CVEKA_PadArray, PadArr, GetPadArr, SetPadArr)
    VEKA_OWNED(CVEKA_PadStackArray, PadStackArr, GetPadStackArr, SetPadStackArr)
    VEKA_OWNED(CVEKA_FootprintDBArray, FootprintDBArr, GetFootprintDBArr, SetFootprintDBArr)
    VEKA_OWNED(CVEKA_NSHAPEArray, NShapeArr, GetNShapeArr, SetNShapeArr)
    VEKA_OWNED(CVEKA_PartitionDBArray, PartitionDBArr, GetPartitionDBArr, SetPartitionDBArr)
    VEKA_OWNED(CVEKA_FontArray, LibFonts, GetLibFonts, SetLibFonts)
};
