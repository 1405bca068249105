#pragma once

#include "report/ReportWriter.h"

namespace veka {

/// Reports what is wrong with the parentheses, the strings and the tokens of a text.
void FindStructure(const PositionedText& text, ReportWriter& report);

}  // namespace veka
