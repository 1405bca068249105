#pragma once

#include <ostream>

/// Writes the documentation of all fields and accessors of the records, as comments for Doxygen. Doxygen
/// finds the members themselves in the headers.
void WriteReference(std::ostream& out);
