#pragma once

#include "model/CVEKA_Comment.h"
#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a library partition.
class VEKA_API CVEKA_PartitionDBPin {
    VEKA_RECORD(CVEKA_PartitionDBPin)
    VEKA_TEXT(LibPinShapeName, GetLibPinShapeName, SetLibPinShapeName)  /// a pin shape, by its name
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_NUMBER(int, PartitionPinNo, 0, GetPartitionPinNo,
                SetPartitionPinNo)  /// counted from 0; the file counts from 1
    VEKA_TEXT(GatePinName, GetGatePinName, SetGatePinName)
    VEKA_OWNED(CVEKA_3DObjectArray, CAMLayerDrawObjs, GetCAMLayerDrawObjs, SetCAMLayerDrawObjs)
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, GetPropertyLabels, SetPropertyLabels)
    VEKA_OWNED(CVEKA_CommentArray, Comment, GetComment, SetComment)
    VEKA_NUMBER(double, PinRotation, 0, GetPinRotation, SetPinRotation)
};

/// The pins of a library partition.
VEKA_ARRAY(CVEKA_PartitionDBPinArray, CVEKA_PartitionDBPin)

/// A piece of a symbol that symbols share.
class VEKA_API CVEKA_PartitionDB {
    VEKA_RECORD(CVEKA_PartitionDB)
    VEKA_TEXT(PatitionName, GetPatitionName, SetPatitionName)
    VEKA_OWNED(CVEKA_PartitionDBPinArray, Pins, GetPins, SetPins)
    VEKA_OWNED(CVEKA_3DObjectArray, BodyShape, GetBodyShape, SetBodyShape)
    VEKA_OWNED(CVEKA_CommentArray, Comment, GetComment, SetComment)
};

/// The partitions of a library.
VEKA_ARRAY(CVEKA_PartitionDBArray, CVEKA_PartitionDB)
