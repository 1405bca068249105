#include "export/kicad/Sexpr.h"

#include <array>
#include <charconv>
#include <cmath>

#include "drawing/Characters.h"
#include "platform/Assert.h"

namespace kicad {

std::string Quoted(std::string_view bytes) {
    std::string text = "\"";
    for (const char c : drawing::ToUtf8(bytes)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            text += {'\\', c};
        else if (c == '\n')
            text += "\\n";
        else if (c == '\t')
            text += "\\t";
        else if (c == '\r')
            text += "";  // a line end is the line feed
        else if (byte < 0x20 || byte == 0x7F)
            text += "\xEF\xBF\xBD";
        else
            text += c;
    }
    return text + '"';
}

std::string Decimal(double value, int digits) {
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, digits).ptr;
    std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
    if (number.find('.') != std::string_view::npos) {
        while (number.back() == '0') number.remove_suffix(1);
        if (number.back() == '.') number.remove_suffix(1);
    }
    return number == "-0" ? "0" : std::string(number);
}

bool Holds(double millimetres) {
    return std::fabs(millimetres) <= 2000;  // false for what is no number
}

bool Holds(drawing::Point point) {
    return Holds(point.x) && Holds(point.y);
}

Sexpr& Sexpr::Line(std::string_view name) {
    if (!m_lists.empty()) m_lists.back() = true;
    if (!m_text.empty()) m_text += '\n';
    m_text.append(2 * m_lists.size(), ' ');
    m_text += '(';
    m_text += name;
    m_lists.push_back(false);
    return *this;
}

Sexpr& Sexpr::Open(std::string_view name) {
    m_text += " (";
    m_text += name;
    m_lists.push_back(false);
    return *this;
}

Sexpr& Sexpr::Close() {
    VEKA_ASSERT(!m_lists.empty());
    const bool lines = m_lists.back();
    m_lists.pop_back();
    if (lines) {
        m_text += '\n';
        m_text.append(2 * m_lists.size(), ' ');
    }
    m_text += ')';
    return *this;
}

Sexpr& Sexpr::Lines(std::string_view lines) {
    m_lists.back() = true;
    m_text += lines;
    return *this;
}

Sexpr& Sexpr::Word(std::string_view word) {
    m_text += ' ';
    m_text += word;
    return *this;
}

Sexpr& Sexpr::Text(std::string_view bytes) {
    return Word(Quoted(bytes));
}

Sexpr& Sexpr::Length(double millimetres) {
    return Word(Decimal(millimetres, 6));
}

Sexpr& Sexpr::Angle(double degrees) {
    double turn = std::fmod(degrees, 360);
    if (turn < 0) turn += 360;
    const std::string text = Decimal(turn, 9);
    return Word(text == "360" ? "0" : text);
}

Sexpr& Sexpr::Down(drawing::Point point) {
    return Length(point.x).Length(-point.y);
}

Sexpr& Sexpr::Up(drawing::Point point) {
    return Length(point.x).Length(point.y);
}

std::string Sexpr::Take() {
    VEKA_ASSERT(m_lists.empty());
    return std::move(m_text) + '\n';
}

}  // namespace kicad
