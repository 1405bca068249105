#pragma once

#include "model/CVEKA_Comment.h"
#include "model/part/CVEKA_BOM.h"
#include "model/part/CVEKA_History.h"
#include "model/part/CVEKA_Layout.h"
#include "model/part/CVEKA_Preference.h"
#include "model/part/CVEKA_Reference_URL.h"

/// Identity and general data of a part.
class VEKA_API CVEKA_PartGeneral {
    VEKA_RECORD(CVEKA_PartGeneral)
    VEKA_TEXT(Unit, GetUnit, SetUnit)
    VEKA_TEXT(Manufacturer, GetManufacturer, SetManufacturer)
    VEKA_TEXT(MPN, GetMPN, SetMPN)        ///< manufacturer's part number; names the part in a library
    VEKA_LIST(CPN, GetCPNArr, SetCPNArr)  ///< company part numbers
    VEKA_LIST_APPEND(CPN, SetCPN)
    VEKA_OWNED(CVEKA_Preference, Preference, GetPreference, SetPreference)
    VEKA_LIST(ProductFamily, GetProductFamilyArr, SetProductFamilyArr)
    VEKA_LIST_APPEND(ProductFamily, SetProductFamily)
    VEKA_TEXT(FunctionalType, GetFunctionalType, SetFunctionalType)
    VEKA_TEXT(PackageType, GetPackageType, SetPackageType)
    VEKA_TEXT(PartDescription, GetPartDescription, SetPartDescription)
    VEKA_OWNED(CVEKA_Layout, Layout, GetLayout, SetLayout)
    VEKA_NUMBER(int, NumberOfPins, 0, GetNumberOfPins, SetNumberOfPins)
    VEKA_OWNED(CVEKA_BOM, BOM, GetBOM, SetBOM)
    VEKA_OWNED(CVEKA_History, History, GetHistory, SetHistory)
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, GetCommentArr, SetCommentArr)
    VEKA_OWNED(CVEKA_Reference_URLArray, ReferenceURLArr, GetReferenceURLArr, SetReferenceURLArr)
};
