#pragma once

#include <cmath>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "host/Numbers.h"
#include "host/VisitObject.h"
#include "model/Record.h"

namespace host {

/// A byte string as a JSON string. What is UTF-8 stands as it is. Any byte that is not part of a UTF-8
/// character, and any of a character from U+10FF80 to U+10FFFF, stands as the one character U+10FF00 plus the
/// byte; so every byte string can be told from every other, and the output is always valid.
std::string JsonString(std::string_view bytes);

/// Writes records as JSON, made from the records' own rows: a record is an object with its fields by their
/// names, an array a list. An object of a drawing has its class as "kind". Numbers that JSON lacks stand as
/// texts.
class Json {
public:
    explicit Json(std::ostream& out) : m_out(out) {}

    template <class Record>
    void Write(const Record& record) {
        Object(record, nullptr);
        m_out << '\n';
    }

private:
    template <class Record>
    void Object(const Record& record, const char* kind) {
        m_out << '{';
        bool first = true;
        if (kind) {
            m_out << "\"kind\":" << JsonString(kind);
            first = false;
        }
        veka::ForEachField(record, [&](const auto& description, const auto& field) {
            m_out << (first ? "" : ",") << JsonString(description.name) << ':';
            first = false;
            Value(field);
        });
        m_out << '}';
    }
    template <class T>
    void Value(const T& value) {
        if constexpr (std::is_floating_point_v<T>) {
            m_out << (std::isfinite(value) ? Shortest(value) : '"' + Shortest(value) + '"');
        } else if constexpr (std::is_arithmetic_v<T>) {
            m_out << Shortest(value);
        } else if constexpr (std::is_same_v<T, CString>) {
            m_out << JsonString(value.View());
        } else if constexpr (std::is_same_v<T, CStringArray>) {
            List(value, [&](const CString& text) { Value(text); });
        } else if constexpr (requires { value.Names(); }) {
            Value(value.Names());
        } else if constexpr (requires { value.get(); }) {
            Value(*value);
        } else if constexpr (veka::IsArray<T>) {
            List(value, [&](const auto* element) { Element(element); });
        } else {
            Object(value, nullptr);
        }
    }
    template <class T>
    void Element(const T* element) {
        if (!element)
            m_out << "null";
        else if constexpr (std::is_same_v<T, CVEKA_3DObject>)
            VisitObject(*element, [&](const auto& object) { Object(object, KindName(*element)); });
        else
            Object(*element, nullptr);
    }
    template <class Container, class Write>
    void List(const Container& container, Write write) {
        m_out << '[';
        bool first = true;
        for (const auto& element : container) {
            if (!first) m_out << ',';
            first = false;
            write(element);
        }
        m_out << ']';
    }

    std::ostream& m_out;
};

}  // namespace host
