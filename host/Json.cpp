#include "host/Json.h"

#include <cstdint>
#include <cstdio>

namespace host {

namespace {

/// Length of the UTF-8 character at the front, or 0 if there is none.
size_t CharacterLength(std::string_view text) {
    const auto byte = [&](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    const auto follows = [&](size_t i) { return (byte(i) & 0xC0) == 0x80; };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return follows(1) ? 2 : 0;
    if (lead >= 0xE0 && lead <= 0xEF) {
        const bool tooShort = lead == 0xE0 && byte(1) < 0xA0, surrogate = lead == 0xED && byte(1) > 0x9F;
        return follows(1) && follows(2) && !tooShort && !surrogate ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const bool tooShort = lead == 0xF0 && byte(1) < 0x90, beyond = lead == 0xF4 && byte(1) > 0x8F;
        return follows(1) && follows(2) && follows(3) && !tooShort && !beyond ? 4 : 0;
    }
    return 0;
}

/// True for a character that stands for a byte.
bool IsMark(std::string_view character) {
    return character.size() == 4 && character.substr(0, 3) >= "\xF4\x8F\xBE" &&
           character.substr(0, 3) <= "\xF4\x8F\xBF";
}

}  // namespace

std::string JsonString(std::string_view bytes) {
    std::string result = "\"";
    while (!bytes.empty()) {
        const size_t length = CharacterLength(bytes);
        const auto byte = static_cast<unsigned char>(bytes[0]);
        if (length == 0 || IsMark(bytes.substr(0, length))) {
            // U+10FF00 plus a byte from 0x80 on, as UTF-8.
            result += "\xF4\x8F";
            result += static_cast<char>(0xBC | byte >> 6);
            result += static_cast<char>(0x80 | (byte & 0x3F));
            bytes.remove_prefix(1);
            continue;
        }
        if (byte == '"' || byte == '\\') {
            result += '\\';
            result += bytes[0];
        } else if (byte < 0x20 || byte == 0x7F) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
            result += escape;
        } else {
            result += bytes.substr(0, length);
        }
        bytes.remove_prefix(length);
    }
    return result + '"';
}

}  // namespace host
