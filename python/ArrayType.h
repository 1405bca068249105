#pragma once

#include <vector>

#include "python/Errors.h"

namespace veka::python {

/// The slots of the base class of all arrays.
std::vector<PyType_Slot> ArraySlots();

}  // namespace veka::python
