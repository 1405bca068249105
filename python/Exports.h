#pragma once

#include "python/Errors.h"

/// Outputs of the host program for parts of Python. A part is a capsule with its address; the caller keeps
/// the part alive. Each function returns the sentences that say what an output lacks.
namespace veka::python {

/// Writes the solids of a part as "step" or "gltf". `folders` are directories of STEP files that it names.
py::list WriteSolids(const py::capsule& part, const py::bytes& path, const std::string& format,
                     const py::list& folders);
/// Adds parts to the libraries of KiCad at a place DIR/NAME.
py::list WriteToKiCad(const py::list& parts, const py::bytes& place, bool models, const py::list& folders);

}  // namespace veka::python
