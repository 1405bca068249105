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
    VEKA_OWNED(CVEKA_VEK, VEK, "the part that the file describes")
    VEKA_OWNED(CVEKA_ColorTableArray, ColorTable, "colours by number")
    VEKA_OWNED(CVEKA_PadArray, PadArr, "pads, which padstacks name")
    VEKA_OWNED(CVEKA_PadStackArray, PadStackArr, "padstacks, which footprint pins name")
    VEKA_OWNED(CVEKA_FootprintDBArray, FootprintDBArr, "footprints, which packages name")
    VEKA_OWNED(CVEKA_NSHAPEArray, NShapeArr, "pin shapes, which library partitions name")
    VEKA_OWNED(CVEKA_PartitionDBArray, PartitionDBArr,
               "library partitions, which the partitions of symbols name")
    VEKA_OWNED(CVEKA_FontArray, LibFonts, "fonts, which texts refer to by number")
};
