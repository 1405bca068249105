#include <pybind11/pybind11.h>

#include "model/CVEKA_Manager.h"
#include "platform/Version.h"
#include "python/Checking.h"
#include "python/Classes.h"
#include "python/Drawings.h"
#include "python/Reading.h"
#include "python/RecordOf.h"
#include "python/TextListType.h"
#include "python/Values.h"

namespace {

/// A function that the module shows, with the exceptions of the library as those of Python.
template <py::object (*function)(const py::object&)>
py::object Call(const py::object& argument) {
    try {
        return function(argument);
    } catch (...) {
        veka::python::SetError();
        throw py::error_already_set();
    }
}

}  // namespace

PYBIND11_MODULE(_veka, module) {
    namespace python = veka::python;
    module.attr("__version__") = python::FromText(veka::Version());
    python::AddInvalidAccessError(module);
    python::AddTextListType(module);
    python::AddClasses(module);
    py::options options;
    options.disable_function_signatures();
    module.def(
        "read", Call<python::Read>, py::arg("path"), py::pos_only(),
        "read(path) -> Manager\n\nReads a part from a file. Other threads run meanwhile.\n\n"
        "Raises OSError for a file that cannot be read, and InvalidAccessError for a file that is outside of "
        "the format. Other mistakes in a file are no errors: what cannot be read keeps its default.");
    module.def("reads", Call<python::ReadBytes>, py::arg("data"), py::pos_only(),
               "reads(data) -> Manager\n\nReads a part from bytes, as read does from a file.");
    // veka/__init__.py and veka/drawing.py give these their names.
    module.def("_check", python::Check);
    // The address of a part, for the module _host.
    module.def("_address",
               [](const py::object& part) { return py::capsule(&python::RecordOf<CVEKA_Manager>(part)); });
    module.def("_draw_footprint", python::DrawFootprint);
    module.def("_draw_symbol", python::DrawSymbol);
    module.def("_draw_package", python::DrawPackage);
}
