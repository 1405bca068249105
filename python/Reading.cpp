#include "python/Reading.h"

#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

#include "model/CVEKA_Manager.h"
#include "parser/CInvalidAccessException.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/Import.h"
#include "python/Classes.h"
#include "python/Handle.h"
#include "python/Values.h"

namespace veka::python {

namespace {

PyObject* g_invalidAccessError = nullptr;

[[noreturn]] void Raise(PyObject* type, const py::object& argument) {
    PyErr_SetObject(type, argument.ptr());
    throw py::error_already_set();
}

/// Raises why a file cannot be opened: Python finds it out anew.
[[noreturn]] void RaiseNotOpened(const py::object& path) {
    py::module_::import("io").attr("open")(path, "rb").attr("close")();
    Raise(PyExc_OSError, py::make_tuple(EIO, "the file could not be opened", path));
}

/// Ends an import when the user interrupts the program.
void StopForSignals(const ImportProgress&) {
    const py::gil_scoped_acquire lock;
    Checked(PyErr_CheckSignals());
}

/// A part that `import` reads into the parser that it is given, while other threads of Python run.
template <class Import>
py::object ReadPart(const py::object& path, Import import) {
    CVEK_AsciiParser parser;
    ImportResult result;
    try {
        const py::gil_scoped_release unlocked;
        ImportOptions options;
        options.progress = StopForSignals;
        result = import(parser, options);
    } catch (const CInvalidAccessException& error) {
        Raise(g_invalidAccessError, FromText(error.what()));
    } catch (const CFileException& error) {
        Raise(PyExc_OSError, py::make_tuple(EIO, FromText(error.what()), path));
    }
    if (result.end != ImportResult::End::Completed) RaiseNotOpened(path);
    std::unique_ptr<CVEKA_Manager> part(parser.GetCVEKA_Manager());
    parser.SetCVEKA_Manager(nullptr);
    const Class& type = ClassOf(Describe(typeid(CVEKA_Manager)));
    return NewHandle(type, part.release());
}

std::string_view BytesOf(const py::object& bytes) {
    return {PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr()))};
}

}  // namespace

py::object Read(const py::object& path) {
    PyObject* encoded = nullptr;
    if (!PyUnicode_FSConverter(path.ptr(), &encoded)) throw py::error_already_set();
    const CString native(BytesOf(py::reinterpret_steal<py::object>(encoded)));
    return ReadPart(path, [&](CVEK_AsciiParser& parser, const ImportOptions& options) {
        return ImportFile(parser, native, options);
    });
}

py::object ReadBytes(const py::object& bytes) {
    // Other objects are copied, since another thread could change what they hold.
    const py::object text =
        PyBytes_CheckExact(bytes.ptr()) ? bytes : Checked(PyBytes_FromObject(py::memoryview(bytes).ptr()));
    return ReadPart(py::none(), [&](CVEK_AsciiParser& parser, const ImportOptions& options) {
        return ImportBytes(parser, BytesOf(text), options);
    });
}

void AddInvalidAccessError(py::module_& module) {
    g_invalidAccessError = PyErr_NewExceptionWithDoc(
        "veka.InvalidAccessError",
        "A file lacks a level that its place selects: the file is outside of the format.", PyExc_ValueError,
        nullptr);
    module.attr("InvalidAccessError") = Checked(g_invalidAccessError);
    Py_INCREF(g_invalidAccessError);
}

}  // namespace veka::python
