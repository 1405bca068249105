#include "inspect/Outline.h"

#include <algorithm>

#include "inspect/Shortest.h"

namespace veka {

std::string Printable(const CStringArray& texts) {
    std::string result;
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) result += (i > 0 ? " | " : "") + Printable(texts[i].View());
    return result;
}

void Outline::Write(const RecordView& record) {
    for (const FieldDescription& field : record.description->fields) WriteField(field, record.record);
}

void Outline::WriteField(const FieldDescription& field, const void* record) {
    switch (field.kind) {
        case FieldKind::Whole:
        case FieldKind::Flag:
            if (const long long value = field.Whole(record); m_all || value != 0)
                Line(field.name) << Shortest(value) << '\n';
            break;
        case FieldKind::Real:
            if (const double value = field.Real(record); m_all || value != 0)
                Line(field.name) << Shortest(value) << '\n';
            break;
        case FieldKind::Text:
            if (const CString& text = field.Text(record); m_all || !text.IsEmpty())
                Line(field.name) << Printable(text.View()) << '\n';
            break;
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            if (const CStringArray& texts = field.Texts(record); m_all || !texts.IsEmpty())
                Line(field.name) << Printable(texts) << '\n';
            break;
        case FieldKind::Record:
            Group(field.name, field.Content(record));
            break;
        case FieldKind::Array:
            WriteArray(field.name, field.Content(record));
            break;
    }
}

void Outline::WriteArray(const char* name, const RecordView& array) {
    const INT_PTR size = array.description->size(array.record);
    for (INT_PTR i = 0; i < size; ++i) {
        const RecordView element = array.description->at(array.record, i);
        if (!element.record) continue;
        if (const char* kind = element.description->kind) {
            Heading(std::string(name) + " " + kind);
            Flush();  // an object is shown even where all its fields are left out
            Group(nullptr, element);
        } else {
            Group(name, element);
        }
    }
}

void Outline::Group(const char* name, const RecordView& record) {
    const std::string heading = m_heading;
    if (name) Heading(name);
    if (m_all) Flush();
    m_indent += 2;
    Write(record);
    m_indent -= 2;
    // Where a line was written below, the headings are written too.
    if (!m_heading.empty()) m_heading = heading;
}

void Outline::Heading(const std::string& text) {
    m_heading += std::string(m_indent, ' ') + text + "\n";
}

void Outline::Flush() {
    m_out << m_heading;
    m_heading.clear();
}

std::ostream& Outline::Line(const char* name) {
    Flush();
    std::string label(m_indent, ' ');
    label += name;
    label.resize(std::max<size_t>(label.size() + 1, 24), ' ');
    return m_out << label;
}

}  // namespace veka
