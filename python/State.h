#pragma once

#include "python/Classes.h"
#include "python/Handle.h"

/// Whole records as objects of Python.
namespace veka::python {

/// The value of a field that is a number, a text or a list of texts.
py::object GetValue(const Attribute& attribute, const void* record);

/// A record or an array as `veka::Json` prints it.
py::object AsDict(const Handle& handle);

/// A record or an array with all that it holds, as pickling stores it.
py::object StateOf(const Handle& handle);
/// Fills a record or an array that has just been made with such a state. A field that the state lacks keeps
/// its default, and a field that the class lacks is left out.
void Restore(const Class& type, void* record, py::handle state);

}  // namespace veka::python
