#pragma once

#include "model/CVEKA_Comment.h"
#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a symbol's partition. Its used pin is a text; that of a logic pin is a flag.
class VEKA_API CVEKA_PartitionPin {
    VEKA_RECORD(CVEKA_PartitionPin)
    VEKA_NUMBER(int, PartionPinNo, 0, "number of the pin in the partition; no keyword fills it")
    VEKA_NUMBER(int, LogicPinNo, 0, "number of the logic pin; no keyword fills it")
    VEKA_TEXT(UsedPin, "whether the pin is used, as the word that the file writes")
    VEKA_TEXT(PinName, "name of the pin")
    VEKA_TEXT(GatePinName, "name of the gate pin")
    VEKA_NUMBER(double, NameSize, 1.0, "text size of the pin's name")
    VEKA_NUMBER(int, Justification, 6, "code of the justification of the pin's name")
    VEKA_NUMBER(double, PinRotation, 0, "rotation of the pin in degrees")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the pin")
    VEKA_OWNED(CVEKA_3DObjectArray, DrawObjs, "objects drawn at the pin")
};

/// The pins of a symbol's partition.
VEKA_ARRAY(CVEKA_PartitionPinArray, CVEKA_PartitionPin)

/// One part of a symbol, after a partition of the library.
class VEKA_API CVEKA_Partition {
    VEKA_RECORD(CVEKA_Partition)
    VEKA_TEXT(PatitionName, "name of the partition")
    VEKA_TEXT(LibPartitionName, "name of the library partition that it places")
    VEKA_NUMBER(double, LibPartitionScale, 0, "scale of the library partition")
    VEKA_OWNED(CVEKA_PartitionPinArray, Pins, "pins of the partition")
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, "property labels of the partition")
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, "comments on the partition")
    VEKA_OWNED(CVEKA_3DObjectArray, BodyShape, "objects that draw the body")
};

/// The partitions of a symbol.
VEKA_ARRAY(CVEKA_PartitionArray, CVEKA_Partition)
