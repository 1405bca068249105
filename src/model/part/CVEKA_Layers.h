#pragma once

#include "model/CVEKA_Color.h"
#include "model/CVEKA_Comment.h"

/// One drawing layer of a part.
class VEKA_API CVEKA_Layer {
    VEKA_RECORD(CVEKA_Layer)
    VEKA_NUMBER(int, ARNNumber, 0, "artwork number of the layer")
    VEKA_TEXT(Name, "name of the layer")
    VEKA_TEXT(ECadLayerName, "name of the layer in the ECAD system")
    VEKA_TEXT(VisibleType, "word for the visibility")
    VEKA_OWNED(CVEKA_Color, Color, "display colour")
    VEKA_NUMBER(int, Depth, 0, "depth number; the format fixes no meaning")
    VEKA_NUMBER(int, FilmType, 0, "code of the film")
    VEKA_OWNED(CVEKA_Comment, Comment, "remark; a file fills only its text")
};

/// The layers in file order.
VEKA_ARRAY(CVEKA_LayerArray, CVEKA_Layer)

/// The drawing layers of a part.
class VEKA_API CVEKA_Layers {
    VEKA_RECORD(CVEKA_Layers)
    VEKA_TEXT(DefaultPath, "text of the DEFAULT level")
    VEKA_OWNED(CVEKA_LayerArray, LayerArr, "layers of the part")
};
