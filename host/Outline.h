#pragma once

#include <ostream>
#include <string>
#include <type_traits>

#include "model/Record.h"

namespace host {

/// A text for a terminal: control bytes and backslashes as \xNN, everything else as it stands.
std::string Printable(std::string_view text);

/// Writes records as an indented outline, one field a line, made from the records' own rows. Fields that hold
/// nothing, such as empty texts and zeros, are left out.
class Outline {
public:
    explicit Outline(std::ostream& out) : m_out(out) {}

    template <class Record>
    void Write(const Record& record) {
        veka::ForEachField(
            record, [&](const auto& description, const auto& field) { Field(description.name, field); });
    }

private:
    template <class T>
    void Field(const char* name, const T& value) {
        if constexpr (std::is_arithmetic_v<T>) {
            if (value != T{}) Line(name) << value << '\n';
        } else if constexpr (std::is_same_v<T, CString>) {
            if (!value.IsEmpty()) Line(name) << Printable(value.View()) << '\n';
        } else if constexpr (std::is_same_v<T, CStringArray>) {
            if (value.IsEmpty()) return;
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
        if constexpr (requires { value.GetSize(); }) {
            for (const auto* element : value)
                if (element) Group(name, *element);
        } else {
            Group(name, value);
        }
    }
    /// A heading with a record below it, or nothing where the record holds nothing.
    template <class T>
    void Group(const char* name, const T& record) {
        const std::string heading = m_heading;
        m_heading += std::string(m_indent, ' ') + name + "\n";
        m_indent += 2;
        Write(record);
        m_indent -= 2;
        // A line below has written the headings above it.
        if (!m_heading.empty()) m_heading = heading;
    }
    std::ostream& Line(const char* name);

    std::ostream& m_out;
    std::string m_heading;  // lines that stand above the next field
    size_t m_indent = 2;
};

}  // namespace host
