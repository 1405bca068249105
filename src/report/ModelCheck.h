#pragma once

#include <string>

#include "report/Arrivals.h"
#include "report/ReportWriter.h"

namespace veka {

/// Finds the names of a model that lead nowhere, and the numbers that disagree. Files that the part names are
/// looked for beside `folder`; an empty folder looks for none.
void CheckModel(const PositionedText& text, const Arrivals& arrivals, const std::string& folder,
                ReportWriter& report);

}  // namespace veka
