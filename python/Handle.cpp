#include "python/Handle.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>

#include "python/Classes.h"
#include "python/Values.h"

namespace veka::python {

namespace {

/// Records that are deleted unless they are released.
class Records {
public:
    Records() = default;
    ~Records() {
        for (const RecordView& record : m_records) DeleteRecord()(record);
    }
    Records(const Records&) = delete;
    Records& operator=(const Records&) = delete;
    /// A copy of a record.
    RecordView Copy(const RecordView& source) {
        m_records.push_back({source.description, nullptr});
        m_records.back().record = source.description->copy(source.record);
        return m_records.back();
    }
    void Release() noexcept { m_records.clear(); }

private:
    std::vector<RecordView> m_records;
};

/// Number of lists of objects that a handle and what it is part of are in.
int Depth(const Handle* handle) {
    int depth = 0;
    for (; handle; handle = handle->parent)
        if (handle->type->IsListOfObjects()) ++depth;
    return depth;
}

/// Number of lists of objects that are inside of one another in a record.
int Height(const RecordView& view) {
    if (!view.record) return 0;
    const Class& type = ClassOf(*view.description);
    if (!type.leadsToObjects) return 0;
    int height = 0;
    for (const FieldDescription& field : view.description->fields)
        if (field.content) height = std::max(height, Height(field.Content(view.record)));
    if (!view.description->IsArray()) return height;
    for (INT_PTR i = 0; i < view.description->size(view.record); ++i)
        height = std::max(height, Height(view.description->at(view.record, i)));
    return type.IsListOfObjects() ? height + 1 : height;
}

void CheckDepth(const Handle& place, const RecordView& content) {
    if (Depth(&place) + Height(content) > kDeepest)
        throw py::value_error("objects can be inside of one another at most " + std::to_string(kDeepest) +
                              " deep");
}

/// Gives a record that is no longer part of anything to its handle.
void Detach(Handle& child) {
    Handle* parent = child.parent;
    parent->children->erase(child.record);
    child.parent = nullptr;
    Py_DECREF(parent->Self());
}

/// Takes those elements that have handles out of all arrays inside of a record, before the arrays are
/// replaced.
void Evacuate(Handle& handle) {
    if (!handle.children) return;
    std::vector<py::object> children;
    children.reserve(handle.children->size());
    for (const auto& [record, child] : *handle.children)
        children.push_back(py::reinterpret_borrow<py::object>(child->Self()));
    const RecordDescription& description = *handle.type->description;
    if (!description.IsArray()) {
        for (const py::object& child : children) Evacuate(*AsHandle(child));
        return;
    }
    std::vector<RecordView> elements =
        description.exchange(handle.record, 0, description.size(handle.record), {});
    const auto hasHandle = [&](const RecordView& element) { return handle.Child(element.record) != nullptr; };
    elements.erase(std::remove_if(elements.begin(), elements.end(), hasHandle), elements.end());
    description.exchange(handle.record, 0, 0, elements);
    for (const py::object& child : children) Detach(*AsHandle(child));
}

/// Records on their way into an array. Unless they have arrived, nothing has changed.
class Newcomers {
public:
    explicit Newcomers(Handle& array) : m_array(array) {
        if (!array.children) array.children = new Handle::Children;
    }
    ~Newcomers() {
        for (const Handle* handle : m_adopted) m_array.children->erase(handle->record);
    }
    Newcomers(const Newcomers&) = delete;
    Newcomers& operator=(const Newcomers&) = delete;

    RecordView Add(Handle& value) {
        const bool isFree = !value.parent && !m_array.children->contains(value.record);
        if (isFree && &value == &m_array.Root()) throw py::value_error("a record cannot be inside of itself");
        CheckDepth(m_array, value.View());
        if (!isFree) return m_copies.Copy(value.View());
        m_adopted.reserve(m_adopted.size() + 1);
        m_array.children->emplace(value.record, &value);
        m_adopted.push_back(&value);
        return value.View();
    }
    void Arrive() noexcept {
        for (Handle* handle : m_adopted) {
            Py_INCREF(m_array.Self());
            handle->parent = &m_array;
        }
        m_adopted.clear();
        m_copies.Release();
    }

private:
    Handle& m_array;
    std::vector<Handle*> m_adopted;
    Records m_copies;
};

/// A value as a handle whose record an array can hold.
Handle& AsElement(const Handle& array, py::handle value) {
    Handle* handle = AsHandle(value);
    const Class& element = *array.type->element;
    if (!handle || !handle->type->description->IsA(*element.description) ||
        (handle->type != &element && !array.type->IsListOfObjects()))
        throw py::type_error(array.type->name + " holds " + element.name + ", not " + TypeNameOf(value));
    return *handle;
}

}  // namespace

RecordView Handle::View() const noexcept {
    return {type->description, record};
}

Py_ssize_t Handle::Size() const {
    return type->description->size(record);
}

const Handle& Handle::Root() const noexcept {
    const Handle* root = this;
    while (root->parent) root = root->parent;
    return *root;
}

Handle* Handle::Child(const void* address) const noexcept {
    if (!children) return nullptr;
    const auto found = children->find(address);
    return found == children->end() ? nullptr : found->second;
}

Handle* AsHandle(py::handle object) noexcept {
    const bool isHandle =
        PyObject_TypeCheck(object.ptr(), RecordType()) || PyObject_TypeCheck(object.ptr(), ArrayType());
    return isHandle ? reinterpret_cast<Handle*>(object.ptr()) : nullptr;
}

py::object NewHandle(PyTypeObject* python, const Class& type, void* record) {
    PyObject* self = python->tp_alloc(python, 0);  // all zero
    if (!self) {
        DeleteRecord()({type.description, record});
        throw py::error_already_set();
    }
    auto* handle = reinterpret_cast<Handle*>(self);
    handle->type = &type;
    handle->record = record;
    return py::reinterpret_steal<py::object>(self);
}

py::object NewHandle(const Class& type, void* record) {
    return NewHandle(type.type, type, record);
}

py::object HandleOf(Handle& parent, const RecordView& view) {
    if (!view.record) return py::none();
    if (Handle* child = parent.Child(view.record)) return py::reinterpret_borrow<py::object>(child->Self());
    if (!parent.children) parent.children = new Handle::Children;
    // The record does not belong to the handle, also where this fails.
    py::object object = NewHandle(ClassOf(*view.description), nullptr);
    auto* handle = reinterpret_cast<Handle*>(object.ptr());
    parent.children->emplace(view.record, handle);
    handle->record = const_cast<void*>(view.record);
    Py_INCREF(parent.Self());
    handle->parent = &parent;
    return object;
}

void FreeHandle(PyObject* self) {
    auto* handle = reinterpret_cast<Handle*>(self);
    PyTypeObject* type = Py_TYPE(self);
    // First, so that nobody finds the handle while the callbacks of weak references run.
    if (handle->parent) handle->parent->children->erase(handle->record);
    if (handle->weakReferences) PyObject_ClearWeakRefs(self);
    if (handle->parent)
        Py_DECREF(handle->parent->Self());
    else if (handle->record)
        handle->type->description->destroy(handle->record);
    delete handle->children;
    type->tp_free(self);
    Py_DECREF(type);
}

void Assign(Handle& parent, const FieldDescription& field, const Handle& source) {
    void* target = field.In(parent.record);
    if (target == source.record) return;
    CheckDepth(parent, source.View());
    // What is assigned may be inside of what is replaced.
    Records copies;
    const RecordView content = &parent.Root() == &source.Root() ? copies.Copy(source.View()) : source.View();
    if (Handle* child = parent.Child(target)) {
        const py::object kept = py::reinterpret_borrow<py::object>(child->Self());
        Evacuate(*child);
    }
    if (field.set)
        field.set(field, parent.record, content.record);
    else
        field.content->assign(target, content.record);
}

void Splice(Handle& array, Py_ssize_t first, Py_ssize_t count, const std::vector<py::object>& values) {
    const RecordDescription& description = *array.type->description;
    std::unordered_set<const void*> leaving;
    for (Py_ssize_t i = first; i < first + count && !values.empty(); ++i)
        leaving.insert(description.at(array.record, i).record);
    std::unordered_set<const void*> staying;
    Newcomers newcomers(array);
    std::vector<RecordView> elements;
    elements.reserve(values.size());
    for (const py::object& value : values) {
        if (value.is_none() && leaving.contains(nullptr)) {
            elements.emplace_back();
            continue;
        }
        Handle& handle = AsElement(array, value);
        if (handle.parent == &array && leaving.contains(handle.record) &&
            staying.insert(handle.record).second)
            elements.push_back(handle.View());
        else
            elements.push_back(newcomers.Add(handle));
    }
    const std::vector<RecordView> taken = description.exchange(array.record, first, count, elements);
    newcomers.Arrive();
    for (const RecordView& element : taken) {
        if (staying.contains(element.record)) continue;
        if (Handle* child = array.Child(element.record))
            Detach(*child);
        else
            DeleteRecord()(element);
    }
}

}  // namespace veka::python
