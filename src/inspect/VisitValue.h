#pragma once

#include <type_traits>

#include "inspect/VisitObject.h"
#include "model/Record.h"

namespace host {

/// Tells a sink what a field of a record is, by one of its `Number`, `Text`, `Texts`, `Array` and `Record`.
template <class Sink, class T, class... Context>
void VisitValue(Sink&& sink, const T& value, Context&&... context) {
    if constexpr (std::is_arithmetic_v<T>)
        sink.Number(value, context...);
    else if constexpr (std::is_same_v<T, CString>)
        sink.Text(value, context...);
    else if constexpr (std::is_same_v<T, CStringArray>)
        sink.Texts(value, context...);
    else if constexpr (requires { value.Names(); })
        sink.Texts(value.Names(), context...);
    else if constexpr (requires { value.get(); })
        VisitValue(sink, *value, context...);
    else if constexpr (veka::IsArray<T>)
        sink.Array(value, context...);
    else
        sink.Record(value, context...);
}

/// Calls `visit(record, kind)` with an element of an array: an object of a drawing as its own class and with
/// its kind's name, any other record with null.
template <class T, class Visitor>
void VisitElement(const T& element, Visitor&& visit) {
    if constexpr (std::is_same_v<T, CVEKA_3DObject>)
        VisitObject(element, [&](const auto& object) { visit(object, KindName(element)); });
    else
        visit(element, nullptr);
}

}  // namespace host
