#include "drawing/SceneBuilder.h"
#include "host/ImportedPart.h"
#include "host/LibraryIndex.h"
#include "host/OutputFile.h"
#include "host/Solids.h"
#include "python/Exports.h"
#include "python/Libraries.h"
#include "python/Values.h"

// What needs OpenCASCADE and SQLite is a module of its own, which is loaded when it is first used.

namespace {

void Set(PyObject* type, const std::exception& error) {
    PyErr_SetObject(type, veka::python::FromText(error.what()).ptr());
}

/// The errors of Python for the exceptions of the host program.
void Translate(std::exception_ptr exception) {
    try {
        if (exception) std::rethrow_exception(exception);
    } catch (const host::OutputError& error) {
        Set(PyExc_OSError, error);
    } catch (const host::StoreError& error) {
        Set(PyExc_OSError, error);
    } catch (const host::SourceError& error) {
        Set(PyExc_OSError, error);
    } catch (const host::QueryError& error) {
        Set(PyExc_ValueError, error);
    } catch (const host::NoPart& error) {
        Set(PyExc_ValueError, error);
    } catch (const host::IndexError& error) {
        Set(PyExc_NotImplementedError, error);
    } catch (const host::SolidsError& error) {
        Set(PyExc_NotImplementedError, error);
    }
}

}  // namespace

PYBIND11_MODULE(_host, module) {
    namespace python = veka::python;
    py::register_local_exception_translator(Translate);
    module.def("write_solids", python::WriteSolids);
    module.def("write_to_kicad", python::WriteToKiCad);
    module.def("find_parts", python::FindParts);
    module.def("has_solids", host::CanWriteSolids);
    module.def("has_index", host::HasIndex);
}
