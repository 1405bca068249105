#pragma once

#include <ostream>

/// Writes a JSON schema of an imported part, as `veka::Json` writes it.
void WritePartSchema(std::ostream& out);
