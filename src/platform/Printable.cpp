#include "platform/Printable.h"

#include "platform/Utf8.h"

namespace veka {

namespace {

/// The code point of a UTF-8 character of up to three bytes. No longer one controls anything.
std::optional<unsigned> CodePoint(std::string_view character) {
    const auto bits = [&](size_t i, unsigned mask) {
        return static_cast<unsigned char>(character[i]) & mask;
    };
    if (character.size() == 1) return bits(0, 0x7F);
    if (character.size() == 2) return bits(0, 0x1F) << 6 | bits(1, 0x3F);
    if (character.size() == 3) return bits(0, 0x0F) << 12 | bits(1, 0x3F) << 6 | bits(2, 0x3F);
    return {};
}

bool Controls(unsigned code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x061C || code == 0x200E ||
           code == 0x200F || (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void AppendEscaped(std::string& result, std::string_view bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        result.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
    }
}

}  // namespace

std::optional<unsigned> ControlAt(std::string_view text) {
    if (text.empty()) return {};
    const std::size_t length = static_cast<unsigned char>(text[0]) < 0x80 ? 1 : Utf8Length(text);
    if (length == 0) return {};
    const std::optional<unsigned> code = CodePoint(text.substr(0, length));
    return code && Controls(*code) ? code : std::nullopt;
}

std::string Printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const size_t length = byte < 0x80 ? 1 : Utf8Length(text);
        const std::string_view character = text.substr(0, length == 0 ? 1 : length);
        const bool plain = length > 0 && !ControlAt(character) && !text.starts_with("\\x");
        if (plain)
            result += character;
        else
            AppendEscaped(result, character);
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace veka
