#pragma once

#include <vector>

#include "python/Errors.h"

namespace veka::python {

/// The slots of the base class of all records.
std::vector<PyType_Slot> RecordSlots();

/// The getter and the setter of every attribute; `closure` is the `Attribute`.
PyObject* GetAttribute(PyObject* self, void* closure);
int SetAttribute(PyObject* self, PyObject* value, void* closure);

// What records and arrays have alike.

/// A new object with the defaults of its class.
PyObject* New(PyTypeObject* type, PyObject* arguments, PyObject* keywords);
/// A copy that belongs to nothing, by the copying rules of the class.
PyObject* Copy(PyObject* self, PyObject* ignored);
/// What pickling stores.
PyObject* Reduce(PyObject* self, PyObject* ignored);
/// Fills a new object with what pickling stored.
PyObject* SetState(PyObject* self, PyObject* state);
/// Equality of content.
PyObject* Compare(PyObject* self, PyObject* other, int operation);
/// The place of the list of weak references.
struct PyMemberDef* HandleMembers();

}  // namespace veka::python
