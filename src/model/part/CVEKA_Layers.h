#pragma once

#include "model/CVEKA_Color.h"
#include "model/CVEKA_Comment.h"

/// One drawing layer of a part.
class VEKA_API CVEKA_Layer {
    VEKA_RECORD(CVEKA_Layer)
    VEKA_NUMBER(int, ARNNumber, 0, GetARNNumber, SetARNNumber)  /// artwork layer number
    VEKA_TEXT(Name, GetName, SetName)
    VEKA_TEXT(ECadLayerName, GetECadLayerName, SetECadLayerName)
    VEKA_TEXT(VisibleType, GetVisibleType, SetVisibleType)
    VEKA_OWNED(CVEKA_Color, Color, GetColor, SetColor)
    VEKA_NUMBER(int, Depth, 0, GetDepth, SetDepth)
    VEKA_NUMBER(int, FilmType, 0, GetFilmType, SetFilmType)
    VEKA_OWNED(CVEKA_Comment, Comment, GetComment, SetComment)  /// a file fills its text alone
};

/// The layers in file order.
VEKA_ARRAY(CVEKA_LayerArray, CVEKA_Layer)

/// The drawing layers of a part.
class VEKA_API CVEKA_Layers {
    VEKA_RECORD(CVEKA_Layers)
    VEKA_TEXT(DefaultPath, GetDefaultPath, SetDefaultPath)
    VEKA_OWNED(CVEKA_LayerArray, LayerArr, GetLayerArr, SetLayerArr)
};
