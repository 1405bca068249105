#include "python/Classes.h"

#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "python/ArrayType.h"
#include "python/Handle.h"
#include "python/Names.h"
#include "python/RecordType.h"

namespace veka::python {

namespace {

/// Never deleted: Python frees objects until the very end of the process.
struct Registry {
    std::unordered_map<const RecordDescription*, std::unique_ptr<Class>> classes;
    std::unordered_map<const PyTypeObject*, const Class*> byType;
    PyTypeObject* record = nullptr;
    PyTypeObject* array = nullptr;
};

Registry& TheRegistry() {
    static Registry* const registry = new Registry;
    return *registry;
}

/// The documentation of a class: its name in the library, and what its attributes mean.
std::string DocOf(const Class& type) {
    const RecordDescription& description = *type.description;
    if (type.element) return std::string(description.name) + ": an array of " + type.element->name + ".";
    std::string doc = std::string(description.name) + ".\n";
    for (const Attribute& attribute : type.attributes)
        doc += "\n" + attribute.name + ": " + TypeName(*attribute.field) + " -- " + attribute.field->doc;
    return doc;
}

/// Notes the classes that a list of objects can be inside of.
bool LeadsToObjects(Class& type, std::map<const Class*, bool>& known) {
    const auto [place, isNew] = known.try_emplace(&type, type.IsListOfObjects());
    if (!isNew) return place->second;
    bool leads = place->second;
    for (const Attribute& attribute : type.attributes)
        if (attribute.content)
            leads = LeadsToObjects(*TheRegistry().classes.at(attribute.content->description), known) || leads;
    if (type.element)
        leads = LeadsToObjects(*TheRegistry().classes.at(type.element->description), known) || leads;
    known[&type] = leads;
    return leads;
}

void FillAttributes(Class& type) {
    const RecordDescription& description = *type.description;
    const std::vector<std::string> names = AttributeNames(description);
    const std::unique_ptr<void, void (*)(void*) noexcept> fresh(description.make(), description.destroy);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const FieldDescription& field = description.fields[i];
        // A property of the base works on the derived class, since the value is at the same place.
        if (i < description.inherited && description.base->fields[i].offset != field.offset)
            throw std::logic_error("a field is not where the base has it");
        const Class* content = field.content ? &ClassOf(*field.content) : nullptr;
        type.attributes.push_back({names[i], &field, &type, content,
                                   Checked(PyUnicode_InternFromString(field.name)).release().ptr(),
                                   std::string(field.doc), IsBlank(field, fresh.get())});
    }
}

PyTypeObject* MakeType(const char* name, const char* doc, PyTypeObject* base,
                       std::vector<PyType_Slot> slots) {
    slots.push_back({Py_tp_doc, const_cast<char*>(doc)});
    slots.push_back({Py_tp_dealloc, reinterpret_cast<void*>(&FreeHandle)});
    slots.push_back({0, nullptr});
    PyType_Spec spec{name, static_cast<int>(sizeof(Handle)), 0,
                     Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE | Py_TPFLAGS_IMMUTABLETYPE, slots.data()};
    const py::object bases =
        base ? py::make_tuple(py::handle(reinterpret_cast<PyObject*>(base))) : py::object();
    return reinterpret_cast<PyTypeObject*>(
        Checked(PyType_FromSpecWithBases(&spec, bases.ptr())).release().ptr());
}

/// Makes the class of Python, after that of its base.
void MakeClass(Class& type) {
    if (type.type) return;
    const RecordDescription& description = *type.description;
    PyTypeObject* base = description.IsArray() ? ArrayType() : RecordType();
    if (description.base) {
        MakeClass(*TheRegistry().classes.at(description.base));
        base = ClassOf(*description.base).type;
    }
    type.doc = DocOf(type);
    for (std::size_t i = description.inherited; i < type.attributes.size(); ++i) {
        const Attribute& attribute = type.attributes[i];
        type.properties.push_back({attribute.name.c_str(), GetAttribute, SetAttribute, attribute.doc.c_str(),
                                   const_cast<Attribute*>(&attribute)});
    }
    type.properties.push_back({});
    type.type = MakeType(type.name.c_str(), type.doc.c_str(), base, {{Py_tp_getset, type.properties.data()}});
    TheRegistry().byType[type.type] = &type;
    py::dict fields;
    for (const Attribute& attribute : type.attributes)
        fields[py::str(attribute.name)] = py::reinterpret_borrow<py::object>(attribute.key);
    Checked(
        PyDict_SetItemString(type.type->tp_dict, "__fields__", Checked(PyDictProxy_New(fields.ptr())).ptr()));
    PyType_Modified(type.type);
}

}  // namespace

const Attribute* Class::Find(std::string_view attribute) const noexcept {
    for (const Attribute& candidate : attributes)
        if (candidate.name == attribute) return &candidate;
    return nullptr;
}

bool IsBlank(const FieldDescription& field, const void* record) noexcept {
    switch (field.kind) {
        case FieldKind::Whole:
        case FieldKind::Flag:
            return field.Whole(record) == 0;
        case FieldKind::Real:
            return field.Real(record) == 0 && !std::signbit(field.Real(record));
        case FieldKind::Text:
            return field.Text(record).IsEmpty();
        default:
            return false;
    }
}

const Class& ClassOf(const RecordDescription& description) {
    return *TheRegistry().classes.at(&description);
}

const Class* ClassOf(PyTypeObject* type) noexcept {
    const auto& byType = TheRegistry().byType;
    for (; type; type = type->tp_base)
        if (const auto found = byType.find(type); found != byType.end()) return found->second;
    return nullptr;
}

PyTypeObject* RecordType() noexcept {
    return TheRegistry().record;
}

PyTypeObject* ArrayType() noexcept {
    return TheRegistry().array;
}

void AddClasses(py::module_& module) {
    Registry& registry = TheRegistry();
    registry.record = MakeType("veka.Record", "The base of all records of a part.", nullptr, RecordSlots());
    registry.array =
        MakeType("veka.RecordArray", "The base of all arrays of records.", nullptr, ArraySlots());
    for (const RecordDescription* description : AllDescriptions()) {
        auto type = std::make_unique<Class>();
        type->description = description;
        type->name = "veka." + ClassName(*description);
        if (description->kind) type->kind = py::str(description->kind).release().ptr();
        registry.classes[description] = std::move(type);
    }
    std::map<const Class*, bool> known;
    for (const auto& [description, type] : registry.classes) {
        if (description->element) type->element = &ClassOf(*description->element);
        FillAttributes(*type);
    }
    for (const auto& [description, type] : registry.classes)
        type->leadsToObjects = LeadsToObjects(*type, known);
    const auto add = [&](PyTypeObject* type) {
        module.add_object(std::string(type->tp_name).substr(5).c_str(), reinterpret_cast<PyObject*>(type));
    };
    add(registry.record);
    add(registry.array);
    for (const RecordDescription* description : AllDescriptions()) {
        MakeClass(*registry.classes.at(description));
        add(ClassOf(*description).type);
    }
}

}  // namespace veka::python
