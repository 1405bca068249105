#include "python/State.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

#include "inspect/Json.h"
#include "inspect/Shortest.h"
#include "python/Values.h"

namespace veka::python {

namespace {

/// How values are written that the two forms of a record write differently.
enum class Form {
    Json,   // what a JSON reader gives for what the library prints
    Pickle  // all values as they are
};

py::object JsonText(std::string_view bytes) {
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    return isAscii ? FromText(bytes) : FromText(MarkedUtf8(bytes));
}

/// Turns records into dictionaries.
template <Form form>
struct Writer {
    static py::object Text(std::string_view bytes) {
        return form == Form::Json ? JsonText(bytes) : FromText(bytes);
    }
    static py::object Texts(const CStringArray& texts) {
        const py::object list = Checked(PyList_New(texts.GetSize()));
        for (INT_PTR i = 0; i < texts.GetSize(); ++i)
            PyList_SET_ITEM(list.ptr(), i, Text(texts[i].View()).release().ptr());
        return list;
    }
    static py::object Real(double value) {
        if (form == Form::Json && !std::isfinite(value)) return py::str(Shortest(value));
        return Checked(PyFloat_FromDouble(value));
    }
    static py::object Whole(const FieldDescription& field, const void* record) {
        const long long number = field.Whole(record);
        if (form == Form::Pickle && field.kind == FieldKind::Flag) return py::bool_(number != 0);
        return Checked(PyLong_FromLongLong(number));
    }
    static py::object Value(const Attribute& attribute, const void* record) {
        const FieldDescription& field = *attribute.field;
        switch (field.kind) {
            case FieldKind::Whole:
            case FieldKind::Flag:
                return Whole(field, record);
            case FieldKind::Real:
                return Real(field.Real(record));
            case FieldKind::Text:
                return Text(field.Text(record).View());
            case FieldKind::TextList:
            case FieldKind::DistinctNames:
                return Texts(field.Texts(record));
            case FieldKind::Record:
                return Record(*attribute.content, field.In(record), nullptr);
            case FieldKind::Array:
                break;
        }
        return Array(*attribute.content, field.In(record));
    }
    /// A new `dict` of all fields, with the values that are blank in a new record, and `None` for the others.
    static py::object BlankDict(const Class& type, PyObject* kind) {
        py::object dict = Checked(PyDict_New());
        if (kind) {
            static PyObject* const key = Checked(PyUnicode_InternFromString("kind")).release().ptr();
            Checked(PyDict_SetItem(dict.ptr(), key, kind));
        }
        const std::unique_ptr<void, void (*)(void*) noexcept> fresh(type.description->make(),
                                                                    type.description->destroy);
        for (const Attribute& attribute : type.attributes)
            Checked(PyDict_SetItem(dict.ptr(), attribute.key,
                                   (attribute.isBlank ? Value(attribute, fresh.get()) : py::none()).ptr()));
        return dict;
    }
    /// A copy of a `dict` has its keys at once, while a new one grows in steps.
    static py::object Record(const Class& type, const void* record, PyObject* kind) {
        PyObject*& blank = type.blankDicts[form == Form::Pickle ? 2 : kind ? 1 : 0];
        if (!blank) blank = BlankDict(type, kind).release().ptr();
        py::object dict = Checked(PyDict_Copy(blank));
        for (const Attribute& attribute : type.attributes)
            if (!attribute.isBlank || !IsBlank(*attribute.field, record))
                Checked(PyDict_SetItem(dict.ptr(), attribute.key, Value(attribute, record).ptr()));
        return dict;
    }
    static py::object Element(const Class& array, const RecordView& view) {
        if (!view.record) return py::none();
        if (!array.IsListOfObjects()) return Record(*array.element, view.record, nullptr);
        const Class& type = ClassOf(*view.description);
        if (form == Form::Json) return Record(type, view.record, type.kind);
        return py::make_tuple(py::handle(type.kind), Record(type, view.record, nullptr));
    }
    static py::object Array(const Class& type, const void* array) {
        const RecordDescription& description = *type.description;
        const INT_PTR size = description.size(array);
        py::object list = Checked(PyList_New(size));
        for (INT_PTR i = 0; i < size; ++i)
            PyList_SET_ITEM(list.ptr(), i, Element(type, description.at(array, i)).release().ptr());
        return list;
    }
    static py::object Whole(const Handle& handle) {
        if (handle.type->element) return Array(*handle.type, handle.record);
        return Record(*handle.type, handle.record, nullptr);
    }
};

/// Fills records from dictionaries.
class Reader {
public:
    void Fill(const Class& type, void* record, py::handle state) {
        if (type.element)
            FillArray(type, record, state);
        else
            FillRecord(type, record, state);
    }

private:
    void FillRecord(const Class& type, void* record, py::handle state) {
        if (!PyDict_Check(state.ptr())) throw py::type_error("the state of a record must be dict");
        for (const Attribute& attribute : type.attributes) {
            // A strong reference: what runs while a value is converted may change the state.
            const auto value =
                py::reinterpret_borrow<py::object>(PyDict_GetItemWithError(state.ptr(), attribute.key));
            if (value)
                FillField(attribute, record, value);
            else if (PyErr_Occurred())
                throw py::error_already_set();
        }
    }
    void FillField(const Attribute& attribute, void* record, const py::object& value) {
        const FieldDescription& field = *attribute.field;
        switch (field.kind) {
            case FieldKind::Whole:
                field.StoreWhole(record, ToWhole(value, field.size));
                break;
            case FieldKind::Flag:
                field.StoreWhole(record, ToFlag(value));
                break;
            case FieldKind::Real:
                *static_cast<double*>(field.In(record)) = ToReal(value);
                break;
            case FieldKind::Text:
                *static_cast<CString*>(field.In(record)) = ToText(value);
                break;
            case FieldKind::TextList:
            case FieldKind::DistinctNames:
                field.StoreTexts(record, ToTexts(value));
                break;
            case FieldKind::Record:
            case FieldKind::Array:
                Fill(*attribute.content, field.In(record), value);
                break;
        }
    }
    void FillArray(const Class& type, void* array, py::handle state) {
        if (!PyList_Check(state.ptr())) throw py::type_error("the state of an array must be list");
        if (type.IsListOfObjects() && ++m_depth > kDeepest) throw py::value_error("the state is too deep");
        const RecordDescription& description = *type.description;
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(state.ptr()); ++i) {
            const auto item = py::reinterpret_borrow<py::object>(PyList_GET_ITEM(state.ptr(), i));
            const Class* element = type.element;
            py::object content = item;
            if (type.IsListOfObjects() && !item.is_none()) {
                if (!PyTuple_Check(item.ptr()) || PyTuple_GET_SIZE(item.ptr()) != 2)
                    throw py::type_error("the state of an object must be its kind and its fields");
                element = &OfKind(py::reinterpret_borrow<py::object>(PyTuple_GET_ITEM(item.ptr(), 0)));
                content = py::reinterpret_borrow<py::object>(PyTuple_GET_ITEM(item.ptr(), 1));
            }
            if (item.is_none()) {
                description.exchange(array, description.size(array), 0, {{element->description, nullptr}});
                continue;
            }
            const RecordDescription& made = *element->description;
            std::unique_ptr<void, void (*)(void*) noexcept> record(made.make(), made.destroy);
            FillRecord(*element, record.get(), content);
            description.exchange(array, description.size(array), 0, {{&made, record.get()}});
            (void)record.release();
        }
        if (type.IsListOfObjects()) --m_depth;
    }
    static const Class& OfKind(const py::object& kind) {
        const CString name = ToText(kind);
        for (const RecordDescription* description : AllDescriptions())
            if (description->kind && name == description->kind) return ClassOf(*description);
        throw py::value_error("the state has an object of an unknown kind");
    }

    int m_depth = 0;
};

}  // namespace

py::object GetValue(const Attribute& attribute, const void* record) {
    return Writer<Form::Pickle>::Value(attribute, record);
}

py::object AsDict(const Handle& handle) {
    return Writer<Form::Json>::Whole(handle);
}

py::object StateOf(const Handle& handle) {
    return Writer<Form::Pickle>::Whole(handle);
}

void Restore(const Class& type, void* record, py::handle state) {
    Reader().Fill(type, record, state);
}

}  // namespace veka::python
