#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/PartFacts.h"
#include "host/PartLibrary.h"
#include "host/ReadAhead.h"

namespace host {

/// A part of a library, and by what a change of the part is noticed.
struct StoredPart {
    PartFacts facts;
    PartStamp stamp;
    std::string origin = "";  ///< the path of the file that was imported; empty where that is not known
};

/// The names of the parts of a library, sorted. Names that begin with a point are none.
std::vector<std::string> StoredNames(const Directory& library);

/// By what a change of a part is noticed, without reading the part's file; `fileName` is that of the part's
/// file, as it was the last time.
PartStamp CurrentStamp(const Directory& library, const std::string& name, const std::string& fileName);

/// A stored part that was read: its facts, or why there are none.
struct StoredFile {
    CheckedFile file;
    PartStamp stamp;
};

/// Reads and imports the file of a stored part. Follows no link.
StoredFile ReadStored(const Directory& library, const std::string& name);

}  // namespace host
