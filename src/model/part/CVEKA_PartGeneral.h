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
    VEKA_TEXT(Unit, "unit of the lengths in the file")
    VEKA_TEXT(Manufacturer, "manufacturer of the part")
    VEKA_TEXT(MPN, "manufacturer's part number, which names the part in a library")
    VEKA_LIST_AS(CPN, GetCPNArr, SetCPNArr, "company part numbers")
    VEKA_LIST_APPEND(CPN, SetCPN)
    VEKA_OWNED(CVEKA_Preference, Preference, "the company's preference")
    VEKA_LIST_AS(ProductFamily, GetProductFamilyArr, SetProductFamilyArr, "product families")
    VEKA_LIST_APPEND(ProductFamily, SetProductFamily)
    VEKA_TEXT(FunctionalType, "word for the function of the part")
    VEKA_TEXT(PackageType, "word for the type of package")
    VEKA_TEXT(PartDescription, "description of the part")
    VEKA_OWNED(CVEKA_Layout, Layout, "what a layout needs")
    VEKA_NUMBER(int, NumberOfPins, 0, "number of pins")
    VEKA_OWNED(CVEKA_BOM, BOM, "entry in the bill of materials")
    VEKA_OWNED(CVEKA_History, History, "version and dates of the part data")
    VEKA_OWNED(CVEKA_CommentArray, CommentArr, "comments on the part")
    VEKA_OWNED(CVEKA_Reference_URLArray, ReferenceURLArr, "references to documents")
};
