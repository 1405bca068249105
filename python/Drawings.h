#pragma once

#include "python/Errors.h"

/// Pictures of records as the bytes of SVG files. An object of a wrong class raises `TypeError`, and a
/// picture that would be too large `ValueError`.
namespace veka::python {

/// `side` is "both", "top" or "bottom", `theme` is "dark" or "light".
py::bytes DrawFootprint(const py::object& part, const py::object& footprint, const std::string& side,
                        const std::string& theme);
py::bytes DrawSymbol(const py::object& part, const py::object& symbol, const std::string& theme);
/// `looking` is "above", "front" or "side".
py::bytes DrawPackage(const py::object& part, const py::object& package, const std::string& looking,
                      const std::string& theme);

}  // namespace veka::python
