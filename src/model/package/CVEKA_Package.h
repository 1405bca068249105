#pragma once

#include "model/CVEKA_USGKey.h"
#include "model/package/CVEKA_Footprint.h"
#include "model/package/CVEKA_MechanicalPin.h"
#include "model/package/CVEKA_MountData.h"
#include "model/package/CVEKA_PackagePin.h"

/// The body of a package.
class VEKA_API CVEKA_BodyGeometry {
    VEKA_RECORD(CVEKA_BodyGeometry)
    VEKA_TEXT(StepFileName, "file of the body's solid model")
    VEKA_OWNED_AS(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects, "objects that make up the body")
};

/// The marking on a package.
class VEKA_API CVEKA_MarkingGeometries {
    VEKA_RECORD(CVEKA_MarkingGeometries)
    VEKA_FLAG(Visible, "1 if the marking is visible")
    VEKA_OWNED_AS(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects, "objects that draw the marking")
};

/// One physical package of a part.
class VEKA_API CVEKA_Package {
    VEKA_RECORD(CVEKA_Package)
    VEKA_TEXT(Name, "name of the package")
    VEKA_TEXT(DefaultFootprintName, "name of the footprint to use by default")
    VEKA_TEXT(StepFileName, "file of the whole package's solid model")
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, "search keys of the package")
    VEKA_OWNED(CVEKA_MountData, MountData, "how the package is mounted")
    VEKA_OWNED(CVEKA_BodyGeometry, BodyGeometry, "body of the package")
    VEKA_OWNED(CVEKA_MarkingGeometries, MarkingGeometries, "marking on the package")
    VEKA_OWNED(CVEKA_PackagePinArray, PKGPins, "pins of the package")
    VEKA_OWNED(CVEKA_MechanicalPinArray, MechanicalPins, "mechanical pins of the package")
    VEKA_OWNED(CVEKA_FootprintArray, Footprints, "footprints that fit the package")
};

/// The packages of a part, in file order.
VEKA_ARRAY(CVEKA_PackageArray, CVEKA_Package)
