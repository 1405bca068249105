#pragma once

#include <cmath>
#include <ostream>
#include <string>
#include <string_view>

#include "inspect/Shortest.h"
#include "inspect/VisitValue.h"

namespace host {

/// A byte string as a JSON string. What is UTF-8 stands as it is. Any byte that is not part of a UTF-8
/// character, and any of a character from U+10FF80 to U+10FFFF, stands as the one character U+10FF00 plus the
/// byte; so every byte string can be told from every other, and the output is always valid.
VEKA_API std::string JsonString(std::string_view bytes);

/// Writes records as JSON, made from the records' own rows: a record is an object with its fields by their
/// names, an array a list. An object of a drawing has its class as "kind". Numbers that JSON lacks stand as
/// texts.
class Json {
public:
    explicit Json(std::ostream& out) : m_out(out) {}

    template <class T>
    void Write(const T& record) {
        Object(record, nullptr);
        m_out << '\n';
    }

    template <class T>
    void Number(T value) {
        const bool finite = std::isfinite(static_cast<double>(value));
        m_out << (finite ? Shortest(value) : '"' + Shortest(value) + '"');
    }
    void Text(const CString& value) { m_out << JsonString(value.View()); }
    void Texts(const CStringArray& values) {
        List(values, [&](const CString& text) { Text(text); });
    }
    template <class T>
    void Record(const T& value) {
        Object(value, nullptr);
    }
    template <class T>
    void Array(const T& array) {
        List(array, [&](const auto* element) {
            if (!element)
                m_out << "null";
            else
                VisitElement(*element, [&](const auto& record, const char* kind) { Object(record, kind); });
        });
    }

private:
    template <class T>
    void Object(const T& record, const char* kind) {
        m_out << '{';
        bool first = true;
        if (kind) {
            m_out << "\"kind\":" << JsonString(kind);
            first = false;
        }
        veka::ForEachField(record, [&](const auto& description, const auto& field) {
            m_out << (first ? "" : ",") << JsonString(description.name) << ':';
            first = false;
            VisitValue(*this, field);
        });
        m_out << '}';
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
