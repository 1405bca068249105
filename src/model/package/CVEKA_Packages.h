#pragma once

#include "model/package/CVEKA_FootprintSpec.h"
#include "model/package/CVEKA_PKG_Color.h"
#include "model/package/CVEKA_Package.h"
#include "model/package/CVEKA_Thermal.h"

/// Every package of a part, and what they share.
class VEKA_API CVEKA_Packages {
    VEKA_RECORD(CVEKA_Packages)
    VEKA_TEXT(DefaultPackageName, "name of the package to use by default")
    VEKA_TEXT(BodyMaterialName, "name of the body's material")
    VEKA_NUMBER(double, Weight, 0, "weight of the part; the format fixes no unit")
    VEKA_NUMBER(double, DefaultPartHeight, 0, "height of the part by default")
    VEKA_NUMBER(double, DefaultMountHeight, 0, "mounting height by default")
    VEKA_OWNED(CVEKA_Thermal, Thermal, "thermal data")
    VEKA_OWNED(CVEKA_PKG_Color, Color, "display colours")
    VEKA_OWNED(CVEKA_FootprintSpec, FootprintSpec, "tolerances for footprints")
    VEKA_OWNED(CVEKA_PackageArray, PackageArr, "packages of the part")
};
