#include "inspect/Outline.h"

#include <algorithm>

namespace host {

std::string Printable(std::string_view text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7F && c != '\\')
            result += c;
        else
            result.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
    }
    return result;
}

std::string Printable(const CStringArray& texts) {
    std::string result;
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) result += (i > 0 ? " | " : "") + Printable(texts[i].View());
    return result;
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

}  // namespace host
