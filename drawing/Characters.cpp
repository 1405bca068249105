#include "drawing/Characters.h"

#include <array>

#include "platform/Utf8.h"

namespace drawing {

namespace {

constexpr unsigned kReplacement = 0xFFFD;

/// The characters of Windows-1252 from 0x80 to 0x9F; 0 for a byte that stands for none.
constexpr std::array<unsigned, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& text, unsigned character) {
    if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (character & 0x3F));
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const auto byte = static_cast<unsigned char>(bytes[0]);
        const std::size_t length = veka::Utf8Length(bytes);
        if (length > 0) {
            text += bytes.substr(0, length);
            bytes.remove_prefix(length);
            continue;
        }
        const unsigned character = byte < 0xA0 ? kWindows1252[byte - 0x80u] : byte;
        AppendUtf8(text, character ? character : kReplacement);
        bytes.remove_prefix(1);
    }
    return text;
}

}  // namespace drawing
