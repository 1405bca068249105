#pragma once

#include <pybind11/pybind11.h>

namespace py = pybind11;

namespace veka::python {

/// Turns the exception that is being handled into the error of Python that it stands for.
void SetError() noexcept;

/// Runs the body of a function that Python calls. No exception leaves it: an exception becomes an error of
/// Python, and the function gives `failure`.
template <class Result, class Body>
Result Guarded(Result failure, Body body) noexcept {
    try {
        return body();
    } catch (...) {
        SetError();
        return failure;
    }
}

/// A function that gives a new reference.
template <class Body>
PyObject* Guarded(Body body) noexcept {
    return Guarded<PyObject*>(nullptr, [&] { return py::object(body()).release().ptr(); });
}

/// A new reference from Python, or the error that Python has set instead.
inline py::object Checked(PyObject* object) {
    if (!object) throw py::error_already_set();
    return py::reinterpret_steal<py::object>(object);
}
/// The result of a function of Python that is negative for an error.
inline int Checked(int result) {
    if (result < 0) throw py::error_already_set();
    return result;
}

}  // namespace veka::python
