#pragma once

#include <ostream>
#include <string>

#include "inspect/Description.h"
#include "platform/Printable.h"

namespace veka {

/// A list of texts as one text, with bars between them.
VEKA_API std::string Printable(const CStringArray& texts);

/// Writes records as an indented outline with one line for each field.
class VEKA_API Outline {
public:
    /// Without `all`, empty texts, empty lists and zeros are left out.
    explicit Outline(std::ostream& out, bool all = false) : m_out(out), m_all(all) {}

    /// Writes the fields of a record.
    void Write(const RecordView& record);
    template <class T>
    void Write(const T& record) {
        Write(View(record));
    }

private:
    void WriteField(const FieldDescription& field, const void* record);
    void WriteArray(const char* name, const RecordView& array);
    /// Writes a heading, if there is a name, and the record below it. Writes nothing where no field is
    /// written.
    void Group(const char* name, const RecordView& record);
    void Heading(const std::string& text);
    /// Writes the headings that no line has needed so far.
    void Flush();
    /// Begins the line of a field.
    std::ostream& Line(const char* name);

    std::ostream& m_out;
    bool m_all;
    std::string m_heading;  // lines that are written before the next field
    size_t m_indent = 2;
};

}  // namespace veka
