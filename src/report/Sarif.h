#pragma once

#include <iosfwd>
#include <span>
#include <string>

#include "report/ImportReport.h"

namespace veka {

/// A file and its report.
struct ReportedFile {
    std::string path;
    ImportReport report;
};

/// Writes reports as one run in the SARIF format, version 2.1.0. The columns count bytes.
VEKA_API void WriteSarif(std::ostream& out, std::span<const ReportedFile> files);

}  // namespace veka
