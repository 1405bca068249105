#pragma once

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_USGKey.h"
#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a footprint.
class VEKA_API CVEKA_FootprintPin {
    VEKA_RECORD(CVEKA_FootprintPin)
    VEKA_NUMBER(int, PinNo, 0, GetPinNo, SetPinNo)  /// counted from 0; the file counts from 1
    VEKA_TEXT(PinName, GetPinName, SetPinName)
    VEKA_TEXT(LibPadstackName, GetLibPadstackName, SetLibPadstackName)  /// a padstack, by its name
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_NUMBER(double, Rotation, 0, GetRotation, SetRotation)
};

/// The pins of a footprint.
VEKA_ARRAY(CVEKA_FootprintPinArray, CVEKA_FootprintPin)

/// One drawing layer of a footprint.
class VEKA_API CVEKA_CAMLayer {
    VEKA_RECORD(CVEKA_CAMLayer)
    VEKA_NUMBER(int, ArtworkLayerNo, 0, GetArtworkLayerNo, SetArtworkLayerNo)
    VEKA_TEXT(LayerName, GetLayerName, SetLayerName)
    VEKA_OWNED(CVEKA_3DObjectArray, CamLayerDrawObjs, GetCamLayerDrawObjs, SetCamLayerDrawObjs)
};

/// The drawing layers of a footprint.
VEKA_ARRAY(CVEKA_CAMLayerArray, CVEKA_CAMLayer)

/// A footprint of a library.
class VEKA_API CVEKA_FootprintDB {
    VEKA_RECORD(CVEKA_FootprintDB)
    VEKA_TEXT(FootprintName, GetFootprintName, SetFootprintName)
    VEKA_NUMBER(double, MountHeight, 0, GetMountHeight, SetMountHeight)
    VEKA_OWNED(CVEKA_Coordinate, Offset, GetOffset, SetOffset)
    VEKA_NUMBER(double, RotationOffset, 0, GetRotationOffset, SetRotationOffset)
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, GetUSGKeys, SetUSGKeys)
    VEKA_OWNED(CVEKA_FootprintPinArray, FPins, GetFPins, SetFPins)
    VEKA_OWNED(CVEKA_CAMLayerArray, CAMLayers, GetCAMLayers, SetCAMLayers)
    VEKA_OWNED(CVEKA_CommentArray, Comment, GetComment, SetComment)  /// filled by no keyword
};

/// The footprints of a library.
VEKA_ARRAY(CVEKA_FootprintDBArray, CVEKA_FootprintDB)
