#pragma once

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_USGKey.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a footprint.
class VEKA_API CVEKA_FootprintPin {
    VEKA_RECORD(CVEKA_FootprintPin)
    VEKA_NUMBER(int, PinNo, 0, "number of the pin, counted from 0; the file counts from 1")
    VEKA_TEXT(PinName, "name of the pin")
    VEKA_TEXT(LibPadstackName, "name of the pin's padstack")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the pin")
    VEKA_NUMBER(double, Rotation, 0, "rotation of the pin in degrees")
};

/// The pins of a footprint.
VEKA_ARRAY(CVEKA_FootprintPinArray, CVEKA_FootprintPin)

/// One drawing layer of a footprint.
class VEKA_API CVEKA_CAMLayer {
    VEKA_RECORD(CVEKA_CAMLayer)
    VEKA_NUMBER(int, ArtworkLayerNo, 0, "artwork number of the layer")
    VEKA_TEXT(LayerName, "name of the layer")
    VEKA_OWNED(CVEKA_3DObjectArray, CamLayerDrawObjs, "objects drawn on the layer")
};

/// The drawing layers of a footprint.
VEKA_ARRAY(CVEKA_CAMLayerArray, CVEKA_CAMLayer)

/// A footprint of a library.
class VEKA_API CVEKA_FootprintDB {
    VEKA_RECORD(CVEKA_FootprintDB)
    VEKA_TEXT(FootprintName, "name of the footprint")
    VEKA_NUMBER(double, MountHeight, 0, "mounting height above the board")
    VEKA_OWNED(CVEKA_Coordinate, Offset, "offset of the footprint")
    VEKA_NUMBER(double, RotationOffset, 0, "offset of the rotation in degrees")
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, "search keys of the footprint")
    VEKA_OWNED(CVEKA_FootprintPinArray, FPins, "pins of the footprint")
    VEKA_OWNED(CVEKA_CAMLayerArray, CAMLayers, "drawing layers of the footprint")
    VEKA_OWNED(CVEKA_CommentArray, Comment, "comments; no keyword fills them")
};

/// The footprints of a library.
VEKA_ARRAY(CVEKA_FootprintDBArray, CVEKA_FootprintDB)
