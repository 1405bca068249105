#pragma once

#include "model/Record.h"

/// Version of the part data.
class VEKA_API CVEKA_Version {
    VEKA_RECORD(CVEKA_Version)
    VEKA_NUMBER(int, MajorVersion, 0, "number before the dot")
    VEKA_NUMBER(int, MinorVersion, 0,
                "number in the last characters, which are as many as those before the dot")
};

/// A date as the file writes it; no format is tested.
class VEKA_API CVEKA_Date_DDMMYYYY {
    VEKA_RECORD(CVEKA_Date_DDMMYYYY)
    VEKA_TEXT(Date, "the date as the file writes it")
};

/// Dates in file order.
VEKA_ARRAY(CVEKA_Date_DDMMYYYYArray, CVEKA_Date_DDMMYYYY)

/// The dates of the part data. Only here the cloning operation has a name in lower case.
class VEKA_API CVEKA_Date {
    VEKA_RECORD_CLONED_BY(CVEKA_Date, clone)
    VEKA_OWNED(CVEKA_Date_DDMMYYYY, CreatedDate, "date of creation")
    VEKA_OWNED(CVEKA_Date_DDMMYYYYArray, ModifiedDate, "dates of modification")
    VEKA_OWNED(CVEKA_Date_DDMMYYYY, ApprovedDate, "date of approval")
};

/// Version and dates of the part data.
class VEKA_API CVEKA_History {
    VEKA_RECORD(CVEKA_History)
    VEKA_OWNED(CVEKA_Version, Version, "version of the part data")
    VEKA_OWNED(CVEKA_Date, Date, "dates of the part data")
};
