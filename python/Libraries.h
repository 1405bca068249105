#pragma once

#include "python/Errors.h"

namespace veka::python {

/// The parts of a library that a query wants, by the index of the library, each as a tuple of what
/// `veka.LibraryPart` has. `where` is a list of conditions; `sortBy` is a word, empty for the order of the
/// index. What happened to the file of the index becomes a warning of Python.
py::list FindParts(const py::bytes& library, const py::object& text, const py::list& where,
                   const py::object& sortBy, bool descending);

}  // namespace veka::python
