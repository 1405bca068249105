#pragma once

#include "model/package/CVEKA_FootprintSpec.h"
#include "model/package/CVEKA_PKG_Color.h"
#include "model/package/CVEKA_Package.h"
#include "model/package/CVEKA_Thermal.h"

/// Every package of a part, and what they share.
class VEKA_API CVEKA_Packages {
    VEKA_RECORD(CVEKA_Packages)
    VEKA_TEXT(DefaultPackageName, GetDefaultPackageName, SetDefaultPackageName)
    VEKA_TEXT(BodyMaterialName, GetBodyMaterialName, SetBodyMaterialName)
    VEKA_NUMBER(double, Weight, 0, GetWeight, SetWeight)
    VEKA_NUMBER(double, DefaultPartHeight, 0, GetDefaultPartHeight, SetDefaultPartHeight)
    VEKA_NUMBER(double, DefaultMountHeight, 0, GetDefaultMountHeight, SetDefaultMountHeight)
    VEKA_OWNED(CVEKA_Thermal, Thermal, GetThermal, SetThermal)
    VEKA_OWNED(CVEKA_PKG_Color, Color, GetColor, SetColor)
    VEKA_OWNED(CVEKA_FootprintSpec, FootprintSpec, GetFootprintSpec, SetFootprintSpec)
    VEKA_OWNED(CVEKA_PackageArray, PackageArr, GetPackageArr, SetPackageArr)
};
