#pragma once

#include <unordered_map>
#include <vector>

#include "inspect/Description.h"
#include "python/Errors.h"

namespace veka::python {

struct Class;

/// An object of Python that stands for a record or an array.
///
/// A record that belongs to nothing is owned by its handle. Any other record is inside a parent, and its
/// handle keeps the handle of the parent alive, and so all that the record is part of. A handle knows the
/// handles of what is directly inside of its record, as long as these handles live: there is never a second
/// handle for a record.
///
/// What is taken out of an array, or replaced in it, while it has a handle is not deleted: it belongs to its
/// handle from then on. So a handle always leads to a record that lives.
struct Handle {
    using Children = std::unordered_map<const void*, Handle*>;

    PyObject ob_base;
    PyObject* weakReferences;
    const Class* type;
    void* record;
    Handle* parent;      // a strong reference, or null
    Children* children;  // by the addresses of their records; null while there was none

    PyObject* Self() noexcept { return &ob_base; }
    RecordView View() const noexcept;
    /// Number of elements of an array.
    Py_ssize_t Size() const;
    /// The handle of the record that everything around this record is part of.
    const Handle& Root() const noexcept;
    /// The handle of what is directly inside of the record at an address, or null.
    Handle* Child(const void* record) const noexcept;
};

/// The objects of a drawing can be inside of one another, at most this deep. A file cannot hold deeper ones,
/// and whatever walks over records walks by recursion.
inline constexpr int kDeepest = 50;

/// An object as a handle; null for an object that is none.
Handle* AsHandle(py::handle object) noexcept;

/// A handle for a record that belongs to nothing, as an object of the class or of one derived from it in
/// Python. The record belongs to the handle, also where this fails.
py::object NewHandle(PyTypeObject* python, const Class& type, void* record);
py::object NewHandle(const Class& type, void* record);
/// The handle of something directly inside of the record of another handle; `None` for a null element.
py::object HandleOf(Handle& parent, const RecordView& record);
/// Frees a handle, and its record if the record belongs to it.
void FreeHandle(PyObject* self);

/// Copies a record or an array over another one of the same class that is inside of `parent`, by the setter
/// of the field if it has one.
void Assign(Handle& parent, const FieldDescription& field, const Handle& source);

/// Takes `count` elements of an array from `first` on out, and puts others in their place. A record that
/// belongs to nothing moves into the array; any other record is copied. An element that is taken out and put
/// in again is the same element. `None` is allowed only where null elements stay null.
void Splice(Handle& array, Py_ssize_t first, Py_ssize_t count, const std::vector<py::object>& values);

}  // namespace veka::python
