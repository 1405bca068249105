#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a package with its lead.
class VEKA_API CVEKA_PackagePin {
    VEKA_RECORD(CVEKA_PackagePin)
    VEKA_TEXT(PKGPinName, GetPKGPinName, SetPKGPinName)
    VEKA_OWNED(CVEKA_Coordinate, Point, GetPoint, SetPoint)
    VEKA_NUMBER(double, Rotation, 0, GetRotation, SetRotation)
    VEKA_TEXT(StepFileName, GetStepFileName, SetStepFileName)
    VEKA_OWNED(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects)
};

/// The pins of a package.
VEKA_ARRAY(CVEKA_PackagePinArray, CVEKA_PackagePin)
