#pragma once

#include "model/CVEKA_USGKey.h"
#include "model/package/CVEKA_Footprint.h"
#include "model/package/CVEKA_MechanicalPin.h"
#include "model/package/CVEKA_MountData.h"
#include "model/package/CVEKA_PackagePin.h"

/// The body of a package.
class VEKA_API CVEKA_BodyGeometry {
    VEKA_RECORD(CVEKA_BodyGeometry)
    VEKA_TEXT(StepFileName, GetStepFileName, SetStepFileName)
    VEKA_OWNED(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects)
};

/// The marking on a package.
class VEKA_API CVEKA_MarkingGeometries {
    VEKA_RECORD(CVEKA_MarkingGeometries)
    VEKA_FLAG(Visible, GetVisible, SetVisible)
    VEKA_OWNED(CVEKA_3DObjectArray, Objects3D, Get3DObjects, Set3DObjects)
};

/// One physical package of a part.
class VEKA_API CVEKA_Package {
    VEKA_RECORD(CVEKA_Package)
    VEKA_TEXT(Name, GetName, SetName)
    VEKA_TEXT(DefaultFootprintName, GetDefaultFootprintName, SetDefaultFootprintName)
    VEKA_TEXT(StepFileName, GetStepFileName, SetStepFileName)  /// solid model of the whole package
    VEKA_OWNED(CVEKA_USGKeyArray, USGKeys, GetUSGKeys, SetUSGKeys)
    VEKA_OWNED(CVEKA_MountData, MountData, GetMountData, SetMountData)
    VEKA_OWNED(CVEKA_BodyGeometry, BodyGeometry, GetBodyGeometry, SetBodyGeometry)
    VEKA_OWNED(CVEKA_MarkingGeometries, MarkingGeometries, GetMarkingGeometries, SetMarkingGeometries)
    VEKA_OWNED(CVEKA_PackagePinArray, PKGPins, GetPKGPins, SetPKGPins)
    VEKA_OWNED(CVEKA_MechanicalPinArray, MechanicalPins, GetMechanicalPins, SetMechanicalPins)
    VEKA_OWNED(CVEKA_FootprintArray, Footprints, GetFootprints, SetFootprints)
};

/// The packages of a part, in file order.
VEKA_ARRAY(CVEKA_PackageArray, CVEKA_Package)
