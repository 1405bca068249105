#include "python/Values.h"

#include <limits>

namespace veka::python {

py::object FromText(std::string_view bytes) {
    return Checked(
        PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()), "surrogateescape"));
}

py::object FromTexts(const CStringArray& texts) {
    py::list list(static_cast<std::size_t>(texts.GetSize()));
    for (INT_PTR i = 0; i < texts.GetSize(); ++i)
        PyList_SET_ITEM(list.ptr(), i, FromText(texts[i].View()).release().ptr());
    return list;
}

CString ToText(py::handle value) {
    if (!PyUnicode_Check(value.ptr()))
        throw py::type_error(std::string("a text must be str, not ") + TypeNameOf(value));
    Py_ssize_t size = 0;
    if (const char* bytes = PyUnicode_AsUTF8AndSize(value.ptr(), &size))
        return CString(std::string_view(bytes, static_cast<std::size_t>(size)));
    // Surrogates are no UTF-8; they stand for single bytes.
    PyErr_Clear();
    const py::object bytes = Checked(PyUnicode_AsEncodedString(value.ptr(), "utf-8", "surrogateescape"));
    return CString(std::string_view(PyBytes_AS_STRING(bytes.ptr()),
                                    static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr()))));
}

CStringArray ToTexts(py::handle value) {
    if (PyUnicode_Check(value.ptr())) throw py::type_error("a list of texts is expected, not str");
    CStringArray texts;
    for (const py::object& text : ToElements(value)) texts.Add(ToText(text));
    return texts;
}

std::vector<py::object> ToElements(py::handle value) {
    std::vector<py::object> elements;
    const py::object iterator = Checked(PyObject_GetIter(value.ptr()));
    while (PyObject* element = PyIter_Next(iterator.ptr()))
        elements.push_back(py::reinterpret_steal<py::object>(element));
    if (PyErr_Occurred()) throw py::error_already_set();
    return elements;
}

long long ToWhole(py::handle value, std::size_t size) {
    const py::object number = Checked(PyNumber_Index(value.ptr()));
    const long long result = PyLong_AsLongLong(number.ptr());
    if (result == -1 && PyErr_Occurred()) throw py::error_already_set();
    if (size == sizeof(int) &&
        (result < std::numeric_limits<int>::min() || result > std::numeric_limits<int>::max())) {
        PyErr_SetString(PyExc_OverflowError, "the number does not fit into 32 bits");
        throw py::error_already_set();
    }
    return result;
}

bool ToFlag(py::handle value) {
    if (PyBool_Check(value.ptr())) return value.ptr() == Py_True;
    return ToWhole(value, sizeof(long long)) != 0;
}

double ToReal(py::handle value) {
    const double result = PyFloat_AsDouble(value.ptr());
    if (result == -1 && PyErr_Occurred()) throw py::error_already_set();
    return result;
}

const char* TypeNameOf(py::handle value) {
    return Py_TYPE(value.ptr())->tp_name;
}

}  // namespace veka::python
