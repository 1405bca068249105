#include "python/TextListType.h"

#include <cstddef>

#include "python/Classes.h"
#include "python/Sequences.h"
#include "python/Values.h"

namespace veka::python {

namespace {

struct TextList {
    PyObject ob_base;
    Handle* record;  // a strong reference
    const FieldDescription* field;

    const CStringArray& Texts() const { return field->Texts(record->record); }
    Py_ssize_t Size() const { return Texts().GetSize(); }
    py::object List() const { return FromTexts(Texts()); }
    void Store(const CStringArray& texts) const { field->StoreTexts(record->record, texts); }
};

PyTypeObject* g_type = nullptr;

TextList& AsSelf(PyObject* self) {
    return *reinterpret_cast<TextList*>(self);
}

/// A list of texts as a list of Python, any other object as it is.
py::object ToPlainList(PyObject* object) {
    if (Py_TYPE(object) == g_type) return AsSelf(object).List();
    return py::reinterpret_borrow<py::object>(object);
}

void Free(PyObject* self) {
    PyTypeObject* type = Py_TYPE(self);
    Py_DECREF(AsSelf(self).record->Self());
    type->tp_free(self);
    Py_DECREF(type);
}

PyObject* Repr(PyObject* self) {
    return Guarded([&] { return py::repr(AsSelf(self).List()); });
}

PyObject* Compare(PyObject* self, PyObject* other, int operation) {
    return Guarded([&]() -> py::object {
        const py::object right = ToPlainList(other);
        if (!PyList_Check(right.ptr())) return py::reinterpret_borrow<py::object>(Py_NotImplemented);
        return Checked(PyObject_RichCompare(AsSelf(self).List().ptr(), right.ptr(), operation));
    });
}

Py_ssize_t Length(PyObject* self) {
    return Guarded<Py_ssize_t>(-1, [&] { return AsSelf(self).Size(); });
}

PyObject* Item(PyObject* self, Py_ssize_t index) {
    return Guarded([&] {
        const TextList& list = AsSelf(self);
        if (index < 0 || index >= list.Size()) throw py::index_error("the list has no such text");
        return FromText(list.Texts()[index].View());
    });
}

int Contains(PyObject* self, PyObject* value) {
    return Guarded(-1, [&] { return Checked(PySequence_Contains(AsSelf(self).List().ptr(), value)); });
}

PyObject* Concatenate(PyObject* self, PyObject* other) {
    return Guarded(
        [&] { return Checked(PySequence_Concat(ToPlainList(self).ptr(), ToPlainList(other).ptr())); });
}

PyObject* Subscript(PyObject* self, PyObject* key) {
    const TextList& list = AsSelf(self);
    return Guarded([&] {
        if (PySlice_Check(key)) return Checked(PyObject_GetItem(list.List().ptr(), key));
        return FromText(list.Texts()[ToPlace(key, [&] { return list.Size(); })].View());
    });
}

/// Lets Python's list do what is asked, and stores the list. What the list refuses changes nothing.
template <class Change>
py::object Edit(const TextList& self, Change change) {
    const py::object list = self.List();
    py::object result = change(list);
    self.Store(ToTexts(list));
    return result;
}

int SetSubscript(PyObject* self, PyObject* key, PyObject* value) {
    return Guarded(-1, [&] {
        Edit(AsSelf(self), [&](const py::object& list) {
            Checked(value ? PyObject_SetItem(list.ptr(), key, ToPlainList(value).ptr())
                          : PyObject_DelItem(list.ptr(), key));
            return py::none();
        });
        return 0;
    });
}

PyObject* Append(PyObject* self, PyObject* value) {
    return Guarded([&] {
        const TextList& list = AsSelf(self);
        list.field->AppendText(list.record->record, ToText(value));
        return py::none();
    });
}

PyObject* Extend(PyObject* self, PyObject* values) {
    return Guarded([&] {
        const TextList& list = AsSelf(self);
        for (const CString& text : ToTexts(ToPlainList(values)))
            list.field->AppendText(list.record->record, text);
        return py::none();
    });
}

/// A method of Python's list that changes the list.
template <const char* const& method>
PyObject* Change(PyObject* self, PyObject* arguments, PyObject* keywords) {
    return Guarded([&] {
        return Edit(AsSelf(self), [&](const py::object& list) {
            return Checked(PyObject_Call(list.attr(method).ptr(), arguments, keywords));
        });
    });
}
/// A method of Python's list that only reads.
template <const char* const& method>
PyObject* Ask(PyObject* self, PyObject* arguments, PyObject* keywords) {
    return Guarded(
        [&] { return Checked(PyObject_Call(AsSelf(self).List().attr(method).ptr(), arguments, keywords)); });
}
constexpr const char* kInsert = "insert";
constexpr const char* kPop = "pop";
constexpr const char* kRemove = "remove";
constexpr const char* kClear = "clear";
constexpr const char* kReverse = "reverse";
constexpr const char* kSort = "sort";
constexpr const char* kIndex = "index";
constexpr const char* kCount = "count";
constexpr const char* kCopy = "copy";

PyCFunction AsMethod(PyCFunctionWithKeywords function) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

/// Pickled and copied it is a list of Python.
PyObject* Reduce(PyObject* self, PyObject*) {
    return Guarded([&] {
        return py::make_tuple(py::handle(reinterpret_cast<PyObject*>(&PyList_Type)),
                              py::make_tuple(AsSelf(self).List()));
    });
}

constexpr int kAny = METH_VARARGS | METH_KEYWORDS;
PyMethodDef g_methods[] = {
    {"append", Append, METH_O, "Appends a text."},
    {"extend", Extend, METH_O, "Appends each text of an iterable."},
    {"insert", AsMethod(Change<kInsert>), kAny, "Puts a text before an index."},
    {"pop", AsMethod(Change<kPop>), kAny, "Takes a text out and gives it, the last one by default."},
    {"remove", AsMethod(Change<kRemove>), kAny, "Takes the first occurrence of a text out."},
    {"clear", AsMethod(Change<kClear>), kAny, "Takes all texts out."},
    {"reverse", AsMethod(Change<kReverse>), kAny, "Turns the order around."},
    {"sort", AsMethod(Change<kSort>), kAny, "Sorts the texts, as list.sort does."},
    {"index", AsMethod(Ask<kIndex>), kAny, "The index of the first occurrence of a text."},
    {"count", AsMethod(Ask<kCount>), kAny, "Number of occurrences of a text."},
    {"copy", AsMethod(Ask<kCopy>), kAny, "The texts as a list of Python."},
    {"__reduce__", Reduce, METH_NOARGS, nullptr},
    {}};

}  // namespace

py::object NewTextList(Handle& record, const FieldDescription& field) {
    PyObject* self = g_type->tp_alloc(g_type, 0);
    if (!self) throw py::error_already_set();
    Py_INCREF(record.Self());
    AsSelf(self).record = &record;
    AsSelf(self).field = &field;
    return py::reinterpret_steal<py::object>(self);
}

void AddTextListType(py::module_& module) {
    PyType_Slot slots[] = {
        {Py_tp_doc,
         const_cast<char*>("The list of texts of a field. What is changed in it is changed in the record.")},
        {Py_tp_dealloc, reinterpret_cast<void*>(&Free)},
        {Py_tp_repr, reinterpret_cast<void*>(&Repr)},
        {Py_tp_richcompare, reinterpret_cast<void*>(&Compare)},
        {Py_tp_iter, reinterpret_cast<void*>(&PySeqIter_New)},
        {Py_tp_methods, g_methods},
        {Py_sq_length, reinterpret_cast<void*>(&Length)},
        {Py_sq_item, reinterpret_cast<void*>(&Item)},
        {Py_sq_contains, reinterpret_cast<void*>(&Contains)},
        {Py_sq_concat, reinterpret_cast<void*>(&Concatenate)},
        {Py_sq_inplace_concat, reinterpret_cast<void*>(&AddInPlace<&Extend>)},
        {Py_mp_length, reinterpret_cast<void*>(&Length)},
        {Py_mp_subscript, reinterpret_cast<void*>(&Subscript)},
        {Py_mp_ass_subscript, reinterpret_cast<void*>(&SetSubscript)},
        {0, nullptr}};
    PyType_Spec spec{"veka.TextList", static_cast<int>(sizeof(TextList)), 0,
                     Py_TPFLAGS_DEFAULT | Py_TPFLAGS_IMMUTABLETYPE | Py_TPFLAGS_DISALLOW_INSTANTIATION,
                     slots};
    g_type = reinterpret_cast<PyTypeObject*>(Checked(PyType_FromSpec(&spec)).release().ptr());
    module.add_object("TextList", reinterpret_cast<PyObject*>(g_type));
}

}  // namespace veka::python
