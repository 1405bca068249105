#pragma once

#include "python/Handle.h"

namespace veka::python {

/// The list of texts of a field: it reads and changes the record itself, and keeps the record alive.
py::object NewTextList(Handle& record, const FieldDescription& field);

/// Makes the class and adds it to a module.
void AddTextListType(py::module_& module);

}  // namespace veka::python
