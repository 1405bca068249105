#pragma once

#include "python/Errors.h"

namespace veka::python {

/// Reads a part from a file. The path is `str`, `bytes` or a path object. Raises `OSError` for a file that
/// cannot be read, and `InvalidAccessError`. Other threads of Python run meanwhile.
py::object Read(const py::object& path);
/// Reads a part from bytes.
py::object ReadBytes(const py::object& bytes);

/// Makes the exception `InvalidAccessError` and adds it to a module.
void AddInvalidAccessError(py::module_& module);

}  // namespace veka::python
