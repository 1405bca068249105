#pragma once

#include <string>

namespace bench {

/// Measures what twice the input costs for the shapes whose kind or name contains a text, and prints a line
/// for each. The quick measurement takes smaller files. Returns the number of lines that exceed a limit.
int MeasureHostile(bool quick, const std::string& filter);

/// Prints the shapes that take the most memory for each byte of the file: the first ten of each kind.
void MeasureMemory(const std::string& filter);

}  // namespace bench
