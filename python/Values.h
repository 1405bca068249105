#pragma once

#include <string_view>
#include <vector>

#include "platform/CString.h"
#include "platform/CStringArray.h"
#include "python/Errors.h"

/// Numbers and texts between the records and Python. A value of a wrong type raises `TypeError`.
namespace veka::python {

/// Bytes as `str`; a byte that is not part of a UTF-8 character becomes a lone surrogate.
py::object FromText(std::string_view bytes);
py::object FromTexts(const CStringArray& texts);

/// The bytes of a `str`. Raises `UnicodeEncodeError` for a surrogate that stands for no byte.
CString ToText(py::handle value);
/// The texts of an iterable; a `str` is none.
CStringArray ToTexts(py::handle value);
/// The elements of any iterable.
std::vector<py::object> ToElements(py::handle value);
/// A whole number that fits into `size` bytes, else `OverflowError`.
long long ToWhole(py::handle value, std::size_t size);
bool ToFlag(py::handle value);
double ToReal(py::handle value);

/// The name of an object's class, for messages.
const char* TypeNameOf(py::handle value);

}  // namespace veka::python
