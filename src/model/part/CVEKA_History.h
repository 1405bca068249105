#pragma once

#include "model/Record.h"

/// Version of the part data.
class VEKA_API CVEKA_Version {
    VEKA_RECORD(CVEKA_Version)
    VEKA_NUMBER(int, MajorVersion, 0, GetMajorVersion, SetMajorVersion)
    VEKA_NUMBER(int, MinorVersion, 0, GetMinorVersion, SetMinorVersion)
};

/// A date as the file writes it; no format is tested.
class VEKA_API CVEKA_Date_DDMMYYYY {
    VEKA_RECORD(CVEKA_Date_DDMMYYYY)
    VEKA_TEXT(Date, GetDate, SetDate)
};

/// Dates in file order.
VEKA_ARRAY(CVEKA_Date_DDMMYYYYArray, CVEKA_Date_DDMMYYYY)

/// The dates of the part data. Its cloning operation alone has a name in lower case.
class VEKA_API CVEKA_Date {
    VEKA_RECORD_CLONED_BY(CVEKA_Date, clone)
    VEKA_OWNED(CVEKA_Date_DDMMYYYY, CreatedDate, GetCreatedDate, SetCreatedDate)
    VEKA_OWNED(CVEKA_Date_DDMMYYYYArray, ModifiedDate, GetModifiedDate, SetModifiedDate)
    VEKA_OWNED(CVEKA_Date_DDMMYYYY, ApprovedDate, GetApprovedDate, SetApprovedDate)
};

/// Version and dates of the part data.
class VEKA_API CVEKA_History {
    VEKA_RECORD(CVEKA_History)
    VEKA_OWNED(CVEKA_Version, Version, GetVersion, SetVersion)
    VEKA_OWNED(CVEKA_Date, Date, GetDate, SetDate)
};
