#pragma once

#include "model/CVEKA_Comment.h"
#include "model/logic/CVEKA_PropertyLabel.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a library partition.
class VEKA_API CVEKA_PartitionDBPin {
    VEKA_RECORD(CVEKA_PartitionDBPin)
    VEKA_TEXT(LibPinShapeName, "name of the pin's shape in the library")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the pin")
    VEKA_NUMBER(int, PartitionPinNo, 0, "number of the pin, counted from 0; the file counts from 1")
    VEKA_TEXT(GatePinName, "name of the gate pin")
    VEKA_OWNED(CVEKA_3DObjectArray, CAMLayerDrawObjs, "objects drawn at the pin")
    VEKA_OWNED(CVEKA_PropertyLabelArray, PropertyLabels, "property labels of the pin")
    VEKA_OWNED(CVEKA_CommentArray, Comment, "comments on the pin")
    VEKA_NUMBER(double, PinRotation, 0, "rotation of the pin in degrees")
};

/// The pins of a library partition.
VEKA_ARRAY(CVEKA_PartitionDBPinArray, CVEKA_PartitionDBPin)

/// A piece of a symbol that symbols share.
class VEKA_API CVEKA_PartitionDB {
    VEKA_RECORD(CVEKA_PartitionDB)
    VEKA_TEXT(PatitionName, "name of the library partition")
    VEKA_OWNED(CVEKA_PartitionDBPinArray, Pins, "pins of the partition")
    VEKA_OWNED(CVEKA_3DObjectArray, BodyShape, "objects that draw the body")
    VEKA_OWNED(CVEKA_CommentArray, Comment, "comments on the partition")
};

/// The partitions of a library.
VEKA_ARRAY(CVEKA_PartitionDBArray, CVEKA_PartitionDB)
