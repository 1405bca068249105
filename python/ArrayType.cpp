#include "python/ArrayType.h"

#include <algorithm>
#include <string>

#include "python/Classes.h"
#include "python/Handle.h"
#include "python/RecordType.h"
#include "python/Sequences.h"
#include "python/State.h"
#include "python/Values.h"

namespace veka::python {

namespace {

Handle& AsSelf(PyObject* self) {
    return *reinterpret_cast<Handle*>(self);
}

/// The element at a place that is inside of the array.
py::object ElementAt(Handle& array, Py_ssize_t index) {
    return HandleOf(array, array.type->description->at(array.record, index));
}

/// All elements, as a list of Python.
py::list AsList(Handle& array) {
    py::list list;
    for (Py_ssize_t i = 0; i < array.Size(); ++i) list.append(ElementAt(array, i));
    return list;
}

/// Gives the array the elements of a list.
void Replace(Handle& array, const py::list& list) {
    Splice(array, 0, array.Size(), ToElements(list));
}

int Init(PyObject* self, PyObject* arguments, PyObject* keywords) {
    return Guarded(-1, [&] {
        Handle& array = AsSelf(self);
        if (PyTuple_GET_SIZE(arguments) > 1 || (keywords && PyDict_GET_SIZE(keywords) > 0))
            throw py::type_error(array.type->name + " takes at most its elements");
        if (PyTuple_GET_SIZE(arguments) == 0) return 0;
        const std::vector<py::object> elements = ToElements(PyTuple_GET_ITEM(arguments, 0));
        Splice(array, 0, array.Size(), elements);
        return 0;
    });
}

PyObject* Repr(PyObject* self) {
    return Guarded([&] {
        const Handle& array = AsSelf(self);
        const Py_ssize_t size = array.Size();
        return py::str("<" + array.type->name + " of " + std::to_string(size) +
                       (size == 1 ? " element>" : " elements>"));
    });
}

/// An array also equals a list of equal records.
PyObject* CompareArrays(PyObject* self, PyObject* other, int operation) {
    if (!PyList_Check(other)) return Compare(self, other, operation);
    return Guarded(
        [&] { return Checked(PyObject_RichCompare(AsList(AsSelf(self)).ptr(), other, operation)); });
}

Py_ssize_t Length(PyObject* self) {
    return Guarded<Py_ssize_t>(-1, [&] { return AsSelf(self).Size(); });
}

PyObject* Item(PyObject* self, Py_ssize_t index) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        if (index < 0 || index >= array.Size()) throw py::index_error("the array has no such element");
        return ElementAt(array, index);
    });
}

PyObject* Subscript(PyObject* self, PyObject* key) {
    return Guarded([&]() -> py::object {
        Handle& array = AsSelf(self);
        if (!PySlice_Check(key)) return ElementAt(array, ToPlace(key, [&] { return array.Size(); }));
        Range range = ToRange(key, [&] { return array.Size(); });
        const py::object list = Checked(PyList_New(range.count));
        for (Py_ssize_t i = 0; i < range.count; ++i, range.first += range.step)
            PyList_SET_ITEM(list.ptr(), i, ElementAt(array, range.first).release().ptr());
        return list;
    });
}

int SetSubscript(PyObject* self, PyObject* key, PyObject* value) {
    return Guarded(-1, [&] {
        Handle& array = AsSelf(self);
        const auto size = [&] { return array.Size(); };
        if (!PySlice_Check(key)) {
            const Py_ssize_t index = ToPlace(key, size);
            Splice(
                array, index, 1,
                value ? std::vector{py::reinterpret_borrow<py::object>(value)} : std::vector<py::object>());
            return 0;
        }
        const std::vector<py::object> values = value ? ToElements(value) : std::vector<py::object>();
        const Range range = ToRange(key, size);
        if (range.step == 1) {
            Splice(array, range.first, range.count, values);
            return 0;
        }
        // Python's list knows what such a slice means.
        const py::list list = AsList(array);
        py::list fresh;
        for (const py::object& element : values) fresh.append(element);
        Checked(value ? PyObject_SetItem(list.ptr(), key, fresh.ptr()) : PyObject_DelItem(list.ptr(), key));
        Replace(array, list);
        return 0;
    });
}

PyObject* Append(PyObject* self, PyObject* value) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        Splice(array, array.Size(), 0, {py::reinterpret_borrow<py::object>(value)});
        return py::none();
    });
}

PyObject* Extend(PyObject* self, PyObject* values) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        const std::vector<py::object> elements = ToElements(values);
        Splice(array, array.Size(), 0, elements);
        return py::none();
    });
}

PyObject* Insert(PyObject* self, PyObject* arguments) {
    return Guarded([&] {
        Py_ssize_t index = 0;
        PyObject* value = nullptr;
        if (!PyArg_ParseTuple(arguments, "nO:insert", &index, &value)) throw py::error_already_set();
        Handle& array = AsSelf(self);
        const Py_ssize_t size = array.Size();
        if (index < 0) index = std::max<Py_ssize_t>(index + size, 0);
        Splice(array, std::min(index, size), 0, {py::reinterpret_borrow<py::object>(value)});
        return py::none();
    });
}

PyObject* Pop(PyObject* self, PyObject* arguments) {
    return Guarded([&] {
        Py_ssize_t index = -1;
        if (!PyArg_ParseTuple(arguments, "|n:pop", &index)) throw py::error_already_set();
        Handle& array = AsSelf(self);
        if (index < 0) index += array.Size();
        if (index < 0 || index >= array.Size()) throw py::index_error("the array has no such element");
        py::object element = ElementAt(array, index);
        Splice(array, index, 1, {});
        return element;
    });
}

PyObject* Remove(PyObject* self, PyObject* value) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        const py::object index = AsList(array).attr("index")(py::handle(value));
        Splice(array, index.cast<Py_ssize_t>(), 1, {});
        return py::none();
    });
}

PyObject* Clear(PyObject* self, PyObject*) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        Splice(array, 0, array.Size(), {});
        return py::none();
    });
}

PyObject* Reverse(PyObject* self, PyObject*) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        const py::list list = AsList(array);
        list.attr("reverse")();
        Replace(array, list);
        return py::none();
    });
}

PyObject* Sort(PyObject* self, PyObject* arguments, PyObject* keywords) {
    return Guarded([&] {
        Handle& array = AsSelf(self);
        const py::list list = AsList(array);
        const py::object sort = list.attr("sort");
        Checked(PyObject_Call(sort.ptr(), arguments, keywords));
        Replace(array, list);
        return py::none();
    });
}

/// Asks the list of all elements.
template <const char* const& method>
PyObject* AskList(PyObject* self, PyObject* arguments) {
    return Guarded(
        [&] { return Checked(PyObject_Call(AsList(AsSelf(self)).attr(method).ptr(), arguments, nullptr)); });
}
constexpr const char* kIndex = "index";
constexpr const char* kCount = "count";

PyObject* ToList(PyObject* self, PyObject*) {
    return Guarded([&] { return AsDict(AsSelf(self)); });
}

PyMethodDef kMethods[] = {
    {"append", Append, METH_O, "Appends a record: one that belongs to nothing moves, any other is copied."},
    {"extend", Extend, METH_O, "Appends each record of an iterable."},
    {"insert", Insert, METH_VARARGS, "Puts a record before an index."},
    {"pop", Pop, METH_VARARGS, "Takes an element out and gives it, the last one by default."},
    {"remove", Remove, METH_O, "Takes the first element out that equals a record."},
    {"clear", Clear, METH_NOARGS, "Takes all elements out."},
    {"reverse", Reverse, METH_NOARGS, "Turns the order of the elements around."},
    {"sort", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(&Sort)), METH_VARARGS | METH_KEYWORDS,
     "Sorts the elements, as list.sort does."},
    {"index", AskList<kIndex>, METH_VARARGS, "The index of the first element that equals a record."},
    {"count", AskList<kCount>, METH_VARARGS, "Number of elements that equal a record."},
    {"to_list", ToList, METH_NOARGS,
     "to_list() -> list\n\nThe elements as veka-host --print json prints them, by the names of the library."},
    {"__copy__", Copy, METH_NOARGS, "A copy, by the copying rules of the array."},
    {"__deepcopy__", Copy, METH_O, "As __copy__: a copy shares nothing with its source."},
    {"__reduce__", Reduce, METH_NOARGS, nullptr},
    {"__setstate__", SetState, METH_O, nullptr},
    {"__class_getitem__", Py_GenericAlias, METH_O | METH_CLASS, nullptr},
    {}};

}  // namespace

std::vector<PyType_Slot> ArraySlots() {
    return {{Py_tp_new, reinterpret_cast<void*>(&New)},
            {Py_tp_init, reinterpret_cast<void*>(&Init)},
            {Py_tp_repr, reinterpret_cast<void*>(&Repr)},
            {Py_tp_richcompare, reinterpret_cast<void*>(&CompareArrays)},
            {Py_tp_iter, reinterpret_cast<void*>(&PySeqIter_New)},
            {Py_sq_length, reinterpret_cast<void*>(&Length)},
            {Py_sq_item, reinterpret_cast<void*>(&Item)},
            {Py_sq_inplace_concat, reinterpret_cast<void*>(&AddInPlace<&Extend>)},
            {Py_mp_length, reinterpret_cast<void*>(&Length)},
            {Py_mp_subscript, reinterpret_cast<void*>(&Subscript)},
            {Py_mp_ass_subscript, reinterpret_cast<void*>(&SetSubscript)},
            {Py_tp_methods, kMethods},
            {Py_tp_members, HandleMembers()}};
}

}  // namespace veka::python
