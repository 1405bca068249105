#pragma once

#include <ostream>
#include <string>

#include "inspect/Shortest.h"
#include "inspect/VisitValue.h"

namespace host {

/// A text for a terminal: control bytes and backslashes as \xNN, everything else as it stands.
VEKA_API std::string Printable(std::string_view text);
/// A list of texts as one, with bars between them.
VEKA_API std::string Printable(const CStringArray& texts);

/// Writes records as an indented outline, one field a line, made from the records' own rows.
class VEKA_API Outline {
public:
    /// Without `all`, fields that hold nothing, such as empty texts and zeros, are left out.
    explicit Outline(std::ostream& out, bool all = false) : m_out(out), m_all(all) {}

    template <class T>
    void Write(const T& record) {
        veka::ForEachField(record, [&](const auto& description, const auto& field) {
            VisitValue(*this, field, description.name);
        });
    }

    void Text(const CString& value, const char* name) {
        if (m_all || !value.IsEmpty()) Line(name) << Printable(value.View()) << '\n';
    }
    void Texts(const CStringArray& values, const char* name) {
        if (m_all || !values.IsEmpty()) Line(name) << Printable(values) << '\n';
    }
    template <class T>
    void Number(T value, const char* name) {
        if (m_all || value != T{}) Line(name) << Shortest(value) << '\n';
    }
    template <class T>
    void Record(const T& value, const char* name) {
        Group(name, value);
    }
    template <class T>
    void Array(const T& array, const char* name) {
        for (const auto* element : array)
            if (element)
                VisitElement(*element, [&](const auto& record, const char* kind) {
                    if (!kind) return Group(name, record);
                    Heading(std::string(name) + " " + kind);
                    Flush();  // an object is shown even where nothing in it is set
                    Group(nullptr, record);
                });
    }

private:
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
