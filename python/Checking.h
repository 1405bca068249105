#pragma once

#include "python/Errors.h"

namespace veka::python {

/// What the import of some bytes left out or changed: a list of tuples, which `veka.check` names. The folder
/// is where files must be that the part names; an empty one looks for none. Other threads of Python run
/// meanwhile.
py::list Check(const py::bytes& data, const py::bytes& folder);

}  // namespace veka::python
