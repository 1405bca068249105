#pragma once

#include <string>

#include "support/LevelData.h"

namespace test {

/// Reads a text by the rules of the format, byte by byte and without regard to speed. The library's reader
/// must give the same result for each text.
ReadResult ReadByReference(const std::string& text, bool stopAtDepthZero = false, int reserved = 0);

/// True if a string ends at a quote that may be escaped: the rule as it is stated, with Find, Delete and
/// Replace.
bool EndsByReference(const std::string& line, const std::string& chunk);

}  // namespace test
