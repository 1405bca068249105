#pragma once

#include "report/Arrivals.h"
#include "report/ReportWriter.h"

namespace veka {

/// Finds the levels and values that did not arrive in the model, and those of which only a part did.
void FindUnread(const PositionedText& text, const Arrivals& arrivals, ReportWriter& report);

}  // namespace veka
