#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// A named copper shape. Padstacks refer to it by its name.
class VEKA_API CVEKA_Pad {
    VEKA_RECORD(CVEKA_Pad)
    VEKA_TEXT(PadName, "name of the pad")
    VEKA_OWNED(CVEKA_3DObjectArray, CamLayerDrawObjs, "objects that draw the pad")
    VEKA_NUMBER(double, OffsetX, 0, "offset along X")
    VEKA_NUMBER(double, OffsetY, 0, "offset along Y")
};

/// The pads of a library.
VEKA_ARRAY(CVEKA_PadArray, CVEKA_Pad)
