#pragma once

#include <array>
#include <string>
#include <vector>

#include "inspect/Description.h"
#include "python/Errors.h"

/// The classes of Python, made from the descriptions of the record classes.
namespace veka::python {

struct Class;

/// A field as an attribute of Python.
struct Attribute {
    std::string name;  ///< in Python
    const FieldDescription* field;
    const Class* owner;
    const Class* content;  ///< the class of a record or an array, else null
    PyObject* key;         ///< the name of the field as `str`
    std::string doc;
    bool isBlank = false;  ///< true if a new record has a number 0 or an empty text in the field
};

/// A described class and the class of Python that stands for it. They live until the process ends.
struct Class {
    const RecordDescription* description = nullptr;
    std::string name;                   ///< with the module: "veka.BOM"
    std::vector<Attribute> attributes;  ///< in the order of the fields
    const Class* element = nullptr;     ///< of an array
    bool leadsToObjects = false;        ///< true if a list of objects can be inside
    PyObject* kind = nullptr;           ///< the name of an object's kind as `str`, else null
    PyTypeObject* type = nullptr;

    bool IsListOfObjects() const noexcept { return element && element->description->object; }
    /// The attribute of a name, or null.
    const Attribute* Find(std::string_view attribute) const noexcept;

    std::string doc;
    std::vector<PyGetSetDef> properties;
    /// What a dictionary of a record begins with: all fields, with what is blank in a new record. One for
    /// `to_dict`, one with the kind, one for pickling. Each is made when it is first used.
    mutable std::array<PyObject*, 3> blankDicts{};
};

/// True if a field of a record is a number 0 or an empty text.
bool IsBlank(const FieldDescription& field, const void* record) noexcept;

/// The class of a description.
const Class& ClassOf(const RecordDescription& description);
/// The class that a class of Python is or is derived from; null for one that is not derived from a record
/// class.
const Class* ClassOf(PyTypeObject* type) noexcept;

/// The base classes of all records and of all arrays.
PyTypeObject* RecordType() noexcept;
PyTypeObject* ArrayType() noexcept;

/// Makes all classes and adds them to a module.
void AddClasses(py::module_& module);

}  // namespace veka::python
