#pragma once

#include <string>

#include "python/Classes.h"
#include "python/Handle.h"
#include "python/Values.h"

namespace veka::python {

/// The record of an object of Python; an object of another class raises `TypeError`.
template <class Record>
const Record& RecordOf(const py::object& object) {
    const Class& type = ClassOf(Describe(typeid(Record)));
    const Handle* handle = AsHandle(object);
    if (!handle || handle->type != &type)
        throw py::type_error("a " + type.name + " is expected, not " + TypeNameOf(object));
    return *static_cast<const Record*>(handle->record);
}

}  // namespace veka::python
