#include "python/Errors.h"

#include <new>
#include <stdexcept>

#include "platform/Exceptions.h"

namespace veka::python {

void SetError() noexcept {
    try {
        throw;
    } catch (py::error_already_set& error) {
        error.restore();
    } catch (const py::builtin_exception& error) {
        error.set_error();
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::length_error& error) {
        PyErr_SetString(PyExc_OverflowError, error.what());
    } catch (const CInvalidArgException& error) {
        PyErr_SetString(PyExc_ValueError, error.what());
    } catch (const std::exception& error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    } catch (...) {
        PyErr_SetString(PyExc_RuntimeError, "an unknown error");
    }
}

}  // namespace veka::python
