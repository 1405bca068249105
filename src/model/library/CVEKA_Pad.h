#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// A named copper shape. Padstacks refer to it by its name.
class VEKA_API CVEKA_Pad {
    VEKA_RECORD(CVEKA_Pad)
    VEKA_TEXT(PadName, GetPadName, SetPadName)
    VEKA_OWNED(CVEKA_3DObjectArray, CamLayerDrawObjs, GetCamLayerDrawObjs, SetCamLayerDrawObjs)
    VEKA_NUMBER(double, OffsetX, 0, GetOffsetX, SetOffsetX)
    VEKA_NUMBER(double, OffsetY, 0, GetOffsetY, SetOffsetY)
};

/// The pads of a library.
VEKA_ARRAY(CVEKA_PadArray, CVEKA_Pad)
