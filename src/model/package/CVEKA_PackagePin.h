#pragma once

#include "model/objects/CVEKA_3DObjectArray.h"

/// One pin of a package with its lead.
class VEKA_API CVEKA_PackagePin {
    VEKA_RECORD(CVEKA_PackagePin)
    VEKA_TEXT(PKGPinName, "name of the pin")
    VEKA_OWNED(CVEKA_Coordinate, Point, "place of the pin")
    VEKA_NUMBER(double, Rotation, 0, "rotation of the pin in degrees")
    VEKA_TEXT(StepFileName, "file of the pin's solid model")
    VEKA_OWNED_AS(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects, "objects that make up the lead")
};

/// The pins of a package.
VEKA_ARRAY(CVEKA_PackagePinArray, CVEKA_PackagePin)
