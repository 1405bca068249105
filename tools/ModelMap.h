#pragma once

#include <ostream>

/// Writes which record holds which, from the root of the model on, as a graph in the language of dot.
void WriteModelMap(std::ostream& out);
