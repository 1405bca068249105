#include "python/RecordType.h"

#include <structmember.h>

#include <cstddef>
#include <string>

#include "python/Classes.h"
#include "python/Handle.h"
#include "python/State.h"
#include "python/TextListType.h"
#include "python/Values.h"

namespace veka::python {

namespace {

Handle& AsSelf(PyObject* self) {
    return *reinterpret_cast<Handle*>(self);
}

/// The handle of an attribute. A handle of another class cannot come here but by force.
Handle& AsOwner(PyObject* self, const Attribute& attribute) {
    Handle& handle = AsSelf(self);
    if (!handle.type->description->IsA(*attribute.owner->description))
        throw py::type_error(handle.type->name + " has no attribute of " + attribute.owner->name);
    return handle;
}

template <class T>
void StoreNumber(const FieldDescription& field, void* record, T value) {
    if (field.set)
        field.set(field, record, &value);
    else
        *static_cast<T*>(field.In(record)) = value;
}

/// Calls the setter of the field, or stores the value directly where the field has none.
void StoreValue(Handle& handle, const Attribute& attribute, py::handle value) {
    const FieldDescription& field = *attribute.field;
    switch (field.kind) {
        case FieldKind::Whole: {
            const long long number = ToWhole(value, field.size);
            if (field.size == sizeof(int))
                StoreNumber(field, handle.record, static_cast<int>(number));
            else
                StoreNumber(field, handle.record, number);
            break;
        }
        case FieldKind::Flag:
            StoreNumber(field, handle.record, ToFlag(value));
            break;
        case FieldKind::Real:
            StoreNumber(field, handle.record, ToReal(value));
            break;
        case FieldKind::Text:
            StoreNumber(field, handle.record, ToText(value));
            break;
        case FieldKind::TextList:
        case FieldKind::DistinctNames: {
            const CStringArray texts = ToTexts(value);
            if (field.set)
                field.set(field, handle.record, &texts);
            else
                field.StoreTexts(handle.record, texts);
            break;
        }
        case FieldKind::Record:
        case FieldKind::Array: {
            Handle* source = AsHandle(value);
            if (source && source->type == attribute.content) {
                Assign(handle, field, *source);
            } else if (field.kind == FieldKind::Array) {
                const py::object array = HandleOf(handle, field.Content(handle.record));
                const std::vector<py::object> elements = ToElements(value);
                Handle& target = *AsHandle(array);
                Splice(target, 0, target.Size(), elements);
            } else {
                throw py::type_error(attribute.name + " must be " + attribute.content->name + ", not " +
                                     TypeNameOf(value));
            }
            break;
        }
    }
}

int Init(PyObject* self, PyObject* arguments, PyObject* keywords) {
    return Guarded(-1, [&] {
        Handle& handle = AsSelf(self);
        if (PyTuple_GET_SIZE(arguments) > 0)
            throw py::type_error(handle.type->name + " takes its fields by their names: name=value");
        if (!keywords) return 0;
        for (const auto& [name, value] : py::reinterpret_borrow<py::dict>(keywords)) {
            const Attribute* attribute = handle.type->Find(name.cast<std::string>());
            if (!attribute)
                throw py::type_error(handle.type->name + " has no field " + name.cast<std::string>());
            StoreValue(handle, *attribute, value);
        }
        return 0;
    });
}

/// The fields that differ from their defaults, as they would be written to make the record.
PyObject* Repr(PyObject* self) {
    return Guarded([&] {
        const Handle& handle = AsSelf(self);
        const RecordDescription& description = *handle.type->description;
        const std::unique_ptr<void, void (*)(void*) noexcept> fresh(description.make(), description.destroy);
        std::string text = handle.type->name + "(";
        const char* separator = "";
        for (const Attribute& attribute : handle.type->attributes) {
            const FieldDescription& field = *attribute.field;
            if (field.HaveEqualValues(handle.record, fresh.get())) continue;
            text += separator + attribute.name + "=";
            text += field.content ? "..." : py::repr(GetValue(attribute, handle.record)).cast<std::string>();
            separator = ", ";
        }
        return py::str(text + ")");
    });
}

PyObject* ToDict(PyObject* self, PyObject*) {
    return Guarded([&] { return AsDict(AsSelf(self)); });
}

PyMethodDef kMethods[] = {
    {"to_dict", ToDict, METH_NOARGS,
     "to_dict() -> dict\n\nThe record as veka-host --print json prints it, by the names of the library."},
    {"__copy__", Copy, METH_NOARGS, "A copy, by the copying rules of the record."},
    {"__deepcopy__", Copy, METH_O, "As __copy__: a copy shares nothing with its source."},
    {"__reduce__", Reduce, METH_NOARGS, nullptr},
    {"__setstate__", SetState, METH_O, nullptr},
    {}};

}  // namespace

std::vector<PyType_Slot> RecordSlots() {
    return {{Py_tp_new, reinterpret_cast<void*>(&New)},
            {Py_tp_init, reinterpret_cast<void*>(&Init)},
            {Py_tp_repr, reinterpret_cast<void*>(&Repr)},
            {Py_tp_richcompare, reinterpret_cast<void*>(&Compare)},
            {Py_tp_methods, kMethods},
            {Py_tp_members, HandleMembers()}};
}

PyObject* GetAttribute(PyObject* self, void* closure) {
    return Guarded([&]() -> py::object {
        const Attribute& attribute = *static_cast<const Attribute*>(closure);
        Handle& handle = AsOwner(self, attribute);
        const FieldDescription& field = *attribute.field;
        if (field.content) return HandleOf(handle, field.Content(handle.record));
        if (field.kind == FieldKind::TextList || field.kind == FieldKind::DistinctNames)
            return NewTextList(handle, field);
        return GetValue(attribute, handle.record);
    });
}

int SetAttribute(PyObject* self, PyObject* value, void* closure) {
    return Guarded(-1, [&] {
        const Attribute& attribute = *static_cast<const Attribute*>(closure);
        Handle& handle = AsOwner(self, attribute);
        if (!value) throw py::type_error("the field " + attribute.name + " cannot be deleted");
        StoreValue(handle, attribute, value);
        return 0;
    });
}

PyObject* New(PyTypeObject* type, PyObject*, PyObject*) {
    return Guarded([&] {
        const Class* known = ClassOf(type);
        if (!known)
            throw py::type_error(std::string("there is no ") + type->tp_name +
                                 " but those of its subclasses");
        return NewHandle(type, *known, known->description->make());
    });
}

PyObject* Copy(PyObject* self, PyObject*) {
    return Guarded([&] {
        const Handle& handle = AsSelf(self);
        return NewHandle(*handle.type, handle.type->description->copy(handle.record));
    });
}

PyObject* Reduce(PyObject* self, PyObject*) {
    return Guarded([&] {
        return py::make_tuple(py::handle(reinterpret_cast<PyObject*>(Py_TYPE(self))), py::tuple(),
                              StateOf(AsSelf(self)));
    });
}

PyObject* SetState(PyObject* self, PyObject* state) {
    return Guarded([&] {
        Handle& handle = AsSelf(self);
        const RecordDescription& description = *handle.type->description;
        std::unique_ptr<void, void (*)(void*) noexcept> fresh(description.make(), description.destroy);
        Restore(*handle.type, fresh.get(), state);
        if (handle.parent || (handle.children && !handle.children->empty()))
            throw py::type_error("only a new record can take a state");
        description.destroy(handle.record);
        handle.record = fresh.release();
        return py::none();
    });
}

PyObject* Compare(PyObject* self, PyObject* other, int operation) {
    return Guarded([&]() -> py::object {
        const Handle* right = AsHandle(other);
        if (!right || (operation != Py_EQ && operation != Py_NE))
            return py::reinterpret_borrow<py::object>(Py_NotImplemented);
        return py::bool_(AreEqual(AsSelf(self).View(), right->View()) == (operation == Py_EQ));
    });
}

PyMemberDef* HandleMembers() {
    static PyMemberDef members[] = {
        {"__weaklistoffset__", T_PYSSIZET, offsetof(Handle, weakReferences), READONLY, nullptr}, {}};
    return members;
}

}  // namespace veka::python
