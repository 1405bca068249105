#include "inspect/Json.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "inspect/Shortest.h"
#include "platform/Printable.h"
#include "platform/Utf8.h"

namespace veka {

namespace {

/// True for a character that means a byte.
bool IsMark(std::string_view character) {
    return character.size() == 4 && character.substr(0, 3) >= "\xF4\x8F\xBE" &&
           character.substr(0, 3) <= "\xF4\x8F\xBF";
}

}  // namespace

std::string MarkedUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const size_t length = Utf8Length(bytes);
        if (length > 0 && !IsMark(bytes.substr(0, length))) {
            result += bytes.substr(0, length);
            bytes.remove_prefix(length);
            continue;
        }
        // U+10FF00 plus a byte from 0x80 on, as UTF-8.
        const auto byte = static_cast<unsigned char>(bytes[0]);
        result += "\xF4\x8F";
        result += static_cast<char>(0xBC | byte >> 6);
        result += static_cast<char>(0x80 | (byte & 0x3F));
        bytes.remove_prefix(1);
    }
    return result;
}

std::string JsonString(std::string_view bytes) {
    std::string result = "\"";
    // Most texts are plain, and a plain text is appended in one piece.
    const auto isPlain = [](char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; };
    if (std::all_of(bytes.begin(), bytes.end(), isPlain)) return result.append(bytes) += '"';
    const std::string marked = MarkedUtf8(bytes);
    for (std::string_view rest = marked; !rest.empty();) {
        const std::size_t length = std::max<std::size_t>(Utf8Length(rest), 1);
        // A terminal would take such a character for a command; JSON can name it.
        if (const std::optional<unsigned> control = ControlAt(rest)) {
            char escape[16];
            std::snprintf(escape, sizeof escape, "\\u%04x", *control);
            result += escape;
        } else {
            if (rest[0] == '"' || rest[0] == '\\') result += '\\';
            result += rest.substr(0, length);
        }
        rest.remove_prefix(length);
    }
    return result + '"';
}

void Json::Write(const RecordView& record) {
    Object(record, nullptr);
    m_out << '\n';
}

void Json::WriteField(const FieldDescription& field, const void* record) {
    switch (field.kind) {
        case FieldKind::Whole:
        case FieldKind::Flag:
            m_out << Shortest(field.Whole(record));
            break;
        case FieldKind::Real:
            Real(field.Real(record));
            break;
        case FieldKind::Text:
            m_out << JsonString(field.Text(record).View());
            break;
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            Texts(field.Texts(record));
            break;
        case FieldKind::Record:
            Object(field.Content(record), nullptr);
            break;
        case FieldKind::Array:
            Array(field.Content(record));
            break;
    }
}

void Json::Object(const RecordView& record, const char* kind) {
    m_out << '{';
    const char* separator = "";
    if (kind) {
        m_out << "\"kind\":\"" << kind << '"';
        separator = ",";
    }
    for (const FieldDescription& field : record.description->fields) {
        m_out << separator << '"' << field.name << "\":";  // an identifier needs no escape
        separator = ",";
        WriteField(field, record.record);
    }
    m_out << '}';
}

void Json::Array(const RecordView& array) {
    m_out << '[';
    const INT_PTR size = array.description->size(array.record);
    for (INT_PTR i = 0; i < size; ++i) {
        if (i > 0) m_out << ',';
        const RecordView element = array.description->at(array.record, i);
        if (element.record)
            Object(element, element.description->kind);
        else
            m_out << "null";
    }
    m_out << ']';
}

void Json::Texts(const CStringArray& texts) {
    m_out << '[';
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) m_out << (i > 0 ? "," : "") << JsonString(texts[i].View());
    m_out << ']';
}

void Json::Real(double value) {
    m_out << (std::isfinite(value) ? Shortest(value) : '"' + Shortest(value) + '"');
}

}  // namespace veka
