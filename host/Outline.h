#pragma once

#include <ostream>
#include <string>
#include <type_traits>

#include "host/Numbers.h"
#include "host/VisitObject.h"
#include "model/Record.h"

namespace host {

/// A text for a terminal: control bytes and backslashes as \xNN, everything else as it stands.
std::string Printable(std::string_view text);

/// Writes records as an indented outline, one field a line, made from the records' own rows.
class Outline {
public:
    /// Without `all`, fields that hold nothing, such as empty texts and zeros, are left out.
    explicit Outline(std::ostream& out, bool all = false) : m_out(out), m_all(all) {}

    template <class Record>
    void Write(const Record& record) {
        veka::ForEachField(
            record, [&](const auto& description, const auto& field) { Field(description.name, field); });
    }

private:
    template <class T>
    void Field(const char* name, const T& value) {
        if constexpr (std::is_arithmetic_v<T>) {
            if (m_all || value != T{}) Line(name) << Shortest(value) << '\n';
        } else if constexpr (std::is_same_v<T, CString>) {
            if (m_all || !value.IsEmpty()) Line(name) << Printable(value.View()) << '\n';
        } else if constexpr (std::is_same_v<T, CStringArray>) {
            if (!m_all && value.IsEmpty()) return;
            std::ostream& out = Line(name);
            for (INT_PTR i = 0; i < value.GetSize(); ++i)
                out << (i > 0 ? " | " : "") << Printable(value[i].View());
            out << '\n';
        } else if constexpr (requires { value.Names(); }) {
            Field(name, value.Names());
        } else {
            OwnedField(name, *value);
        }
    }
    template <class T>
    void OwnedField(const char* name, const T& value) {
        if constexpr (veka::IsArray<T>) {
            for (const auto* element : value)
                if (element) Element(name, *element);
        } else {
            Group(name, value);
        }
    }
    template <class T>
    void Element(const char* name, const T& element) {
        if constexpr (std::is_same_v<T, CVEKA_3DObject>) {
            const std::string heading = std::string(name) + " " + KindName(element);
            // An object is shown even where nothing in it is set.
            Heading(heading);
            Flush();
            VisitObject(element, [&](const auto& object) { Group(nullptr, object); });
        } else {
            Group(name, element);
        }
    }
    /// A heading, if there is a name, with a record below it; nothing where the record holds nothing.
    template <class T>
    void Group(const char* name, const T& record) {
        const std::string heading = m_heading;
        if (name) Heading(name);
        if (m_all) Flush();
        m_indent += 2;
        Write(record);
        m_indent -= 2;
        // A line below has written the headings above it.
        if (!m_heading.empty()) m_heading = heading;
    }
    void Heading(const std::string& text);
    void Flush();
    std::ostream& Line(const char* name);

    std::ostream& m_out;
    bool m_all;
    std::string m_heading;  // lines that stand above the next field
    size_t m_indent = 2;
};

}  // namespace host
