#pragma once

#include "model/CVEKA_Comment.h"
#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a symbol's partition. Its used pin is a text; that of a logic pin is a flag.
class VEKA_API CVEKA_PartitionPin {
    VEKA_RECORD(CVEKA_PartitionPin)
    VEKA_NUMBER(int, PartionPinNo, 0, GetPartionPinNo, SetPartionPinNo)  /// filled by no keyword
    VEKA_NUMBER(int, LogicPinNo, 0, GetLogicPinNo, SetLogicPinNo)        /// filled by no keyword
    VEKA_TEXT(UsedPin, GetUsedPin, SetUsedPin)
    VEKA_TEXT(PinName, GetPinName, SetPinName)
    VEKA_TEXT(GatePinName, GetGatePinName, SetGatePinName)
    VEKA_NUMBER(double, NameSize, 1.0, GetNameSize, SetNameSize)
    VEKA_NUMBER(int, Justification, 6, GetJustification, SetJustification)
    VEKA_NUMBER(double, PinRotation, 0, GetPinRotation, SetPinRotation)
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_OWNED(CVEKA_3DObjectArray, DrawObjs, GetDrawObjs, SetDrawObjs)
};

/// The pins of a symbol's partition.
VEKA_ARRAY(CVEKA_PartitionPinArray, CVEKA_PartitionPin)

/// One part of a symbol, after a partition of the library.
class VEKA_API CVEKA_Partition {
    VEKA_RECORD(CVEKA_Partition)
    VEKA_TEXT(PatitionName, GetPatitionName, SetPatitionName)
    VEKA_TEXT(LibPartitionName, GetLibPartitionName, SetLibPartitionName)
    VEKA_NUMBER(double, LibPartitionScale, 0, GetLibPartitionScale, SetLibPartitionScale)
    VEKA_OWNED(CVEKA_PartitionPinArray, Pins, GetPins, SetPins)
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, GetPropertyLabels, SetPropertyLabels)
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, GetCommentArr, SetCommentArr)
    VEKA_OWNED(CVEKA_3DObjectArray, BodyShape, GetBodyShape, SetBodyShape)
};

/// The partitions of a symbol.
VEKA_ARRAY(CVEKA_PartitionArray, CVEKA_Partition)
