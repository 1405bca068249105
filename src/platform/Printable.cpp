#include "platform/Printable.h"

#include "platform/Utf8.h"

namespace veka {

namespace {

/// The code point of a UTF-8 character of two or three bytes; 0 for other lengths.
unsigned CodePoint(std::string_view character) {
    const auto bits = [&](size_t i, unsigned mask) {
        return static_cast<unsigned char>(character[i]) & mask;
    };
    if (character.size() == 2) return bits(0, 0x1F) << 6 | bits(1, 0x3F);
    if (character.size() == 3) return bits(0, 0x0F) << 12 | bits(1, 0x3F) << 6 | bits(2, 0x3F);
    return 0;
}

/// True for a character that controls a terminal, ends a line, or turns the direction of the text.
bool Controls(unsigned code) {
    return (code >= 0x80 && code < 0xA0) || code == 0x061C || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void AppendEscaped(std::string& result, std::string_view bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        result.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
    }
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const size_t length = byte < 0x80 ? 1 : Utf8Length(text);
        const std::string_view character = text.substr(0, length == 0 ? 1 : length);
        const bool plain = byte < 0x80 ? byte >= 0x20 && byte != 0x7F && !text.starts_with("\\x")
                                       : length > 0 && !Controls(CodePoint(character));
        if (plain)
            result += character;
        else
            AppendEscaped(result, character);
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace veka
