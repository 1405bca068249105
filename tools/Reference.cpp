#include "tools/Reference.h"

#include <string>

#include "inspect/Description.h"

namespace {

using veka::FieldDescription;
using veka::FieldKind;

/// The C++ type of a field's value.
std::string TypeOf(const FieldDescription& field) {
    switch (field.kind) {
        case FieldKind::Whole:
            return field.size == sizeof(int) ? "int" : "long long";
        case FieldKind::Flag:
            return "bool";
        case FieldKind::Real:
            return "double";
        case FieldKind::Text:
            return "CString";
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            return "CStringArray";
        case FieldKind::Record:
        case FieldKind::Array:
            break;
    }
    return field.content->name;
}

/// Writes the accessors and the field of one row.
class RowWriter {
public:
    RowWriter(std::ostream& out, const FieldDescription& field)
        : m_out(out), m_field(field), m_class(std::string(field.owner->name) + "::"), m_type(TypeOf(field)) {}

    void Write() {
        if (!m_field.getterName.empty()) WriteGetter();
        if (!m_field.setterName.empty()) WriteSetter();
        if (m_field.getterName.empty() && m_field.setterName.empty()) WriteField();
    }

private:
    void WriteGetter() {
        const std::string get = m_class + std::string(m_field.getterName);
        switch (m_field.kind) {
            case FieldKind::TextList:
            case FieldKind::DistinctNames:
                Function("void " + get + "(CStringArray& list) const",
                         Meaning() + " Fills the list that is given.");
                break;
            case FieldKind::Record:
            case FieldKind::Array: {
                const std::string text = Meaning() + " The record keeps the ownership.";
                if (m_field.givesConstant) {
                    Function("const " + m_type + "* " + get + "() const", text);
                    Function(m_type + "* " + get + "()", text);
                } else {
                    Function(m_type + "* " + get + "() const", text);
                }
                break;
            }
            default:
                Function(m_type + ' ' + get + "() const", Meaning());
        }
    }
    void WriteSetter() {
        const std::string set = "void " + m_class + std::string(m_field.setterName);
        const std::string name = '`' + std::string(m_field.name) + '`';
        switch (m_field.kind) {
            case FieldKind::TextList:
            case FieldKind::DistinctNames:
                Function(set + "(const CStringArray& list)", "Replaces " + name + ": " + m_field.doc + '.');
                break;
            case FieldKind::Record:
            case FieldKind::Array:
                Function(set + "(const " + m_type + "* value)", "Copies into " + name + ": " + m_field.doc +
                                                                    ". Null raises `CInvalidArgException`.");
                break;
            default:
                Function(set + '(' + m_type + " value)", "Sets " + name + ": " + m_field.doc + '.');
        }
    }
    void WriteField() {
        const bool owned = m_field.content != nullptr;
        m_out << "/** @var " << (owned ? "Owned<" + m_type + '>' : m_type) << ' ' << m_class << m_field.name
              << "\n    @brief " << Meaning() << " */\n";
    }
    void Function(const std::string& declaration, const std::string& text) {
        m_out << "/** @fn " << declaration << "\n    @brief " << text << " */\n";
    }
    /// The description of the row as a sentence.
    std::string Meaning() const {
        std::string text = m_field.doc;
        if (text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
        return text + '.';
    }

    std::ostream& m_out;
    const FieldDescription& m_field;
    const std::string m_class, m_type;
};

}  // namespace

void WriteReference(std::ostream& out) {
    for (const veka::RecordDescription* record : veka::AllDescriptions())
        for (const FieldDescription& field : record->fields)
            if (field.owner == record) RowWriter(out, field).Write();
}
