#pragma once

#include "python/Errors.h"

/// Indices and slices of sequences, as Python's list takes them.
namespace veka::python {

/// A slice of a sequence.
struct Range {
    Py_ssize_t first;
    Py_ssize_t count;
    Py_ssize_t step;
};

/// An index as a place inside of a sequence. Raises `IndexError` outside of it, and `TypeError` for what is
/// no index. The size is asked last, because reading the index can run anything.
template <class Size>
Py_ssize_t ToPlace(PyObject* key, Size size) {
    if (!PyIndex_Check(key)) throw py::type_error("an index must be a whole number or a slice");
    const Py_ssize_t index = PyNumber_AsSsize_t(key, PyExc_IndexError);
    if (index == -1 && PyErr_Occurred()) throw py::error_already_set();
    const Py_ssize_t place = index < 0 ? index + size() : index;
    if (place < 0 || place >= size()) throw py::index_error("the array has no such element");
    return place;
}

/// A slice as the places that it has in a sequence.
template <class Size>
Range ToRange(PyObject* slice, Size size) {
    Range range{};
    Py_ssize_t stop = 0;
    Checked(PySlice_Unpack(slice, &range.first, &stop, &range.step));
    range.count = PySlice_AdjustIndices(size(), &range.first, &stop, range.step);
    return range;
}

/// `+=` of a sequence: extends it, and gives the sequence itself.
template <PyObject* (*extend)(PyObject* self, PyObject* values)>
PyObject* AddInPlace(PyObject* self, PyObject* values) {
    PyObject* none = extend(self, values);
    if (!none) return nullptr;
    Py_DECREF(none);
    Py_INCREF(self);
    return self;
}

}  // namespace veka::python
