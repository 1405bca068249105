#pragma once

#include <span>

#include "platform/Export.h"
#include "report/Findings.h"

namespace veka {

/// A field whose values name records, files aside.
struct NamedRecord {
    const char* record;  ///< the class
    const char* field;   ///< its name or its number
    const char* what;    ///< "footprint"
    bool unique;         ///< true if two records of one list must not have the same
};

/// A field that refers to a record by its name or its number.
struct Reference {
    const char* record;
    const char* field;
    const NamedRecord* target;
    Code code;  ///< of a reference that leads nowhere
};

/// A field that names a file.
struct FileReference {
    const char* record;
    const char* field;
};

/// All references that the records have, once. An empty text refers to nothing, and so does a number that the
/// file does not give.
VEKA_API std::span<const NamedRecord> AllNamedRecords();
VEKA_API std::span<const Reference> AllReferences();
VEKA_API std::span<const FileReference> AllFileReferences();

}  // namespace veka
