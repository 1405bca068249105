#include "inspect/Json.h"

#include <cstdio>

#include "platform/Utf8.h"

namespace host {

namespace {

/// True for a character that stands for a byte.
bool IsMark(std::string_view character) {
    return character.size() == 4 && character.substr(0, 3) >= "\xF4\x8F\xBE" &&
           character.substr(0, 3) <= "\xF4\x8F\xBF";
}

}  // namespace

std::string JsonString(std::string_view bytes) {
    std::string result = "\"";
    while (!bytes.empty()) {
        const size_t length = veka::Utf8Length(bytes);
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
