#include "platform/Utf16.h"

#include "platform/Utf8.h"

namespace veka {

namespace {

bool IsHigh(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The character that a whole UTF-8 sequence stands for.
char32_t Decode(std::string_view sequence) {
    constexpr unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = static_cast<unsigned char>(sequence[0]) & kLeadBits[sequence.size()];
    for (char c : sequence.substr(1)) character = (character << 6) | (static_cast<unsigned char>(c) & 0x3F);
    return character;
}

void Encode(char32_t character, std::string& bytes) {
    const auto add = [&](char32_t byte) { bytes += static_cast<char>(byte); };
    const auto addRest = [&](int shift) {
        for (; shift >= 0; shift -= 6) add(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | (character >> 6));
        addRest(0);
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12));
        addRest(6);
    } else {
        add(0xF0 | (character >> 18));
        addRest(12);
    }
}

}  // namespace

std::u16string ToUtf16(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const size_t length = Utf8Length(text);
        if (length == 0) {
            result += static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(text[0]));
        } else if (const char32_t character = Decode(text.substr(0, length)); character < 0x10000) {
            result += static_cast<char16_t>(character);
        } else {
            result += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            result += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

CString FromUtf16(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1]))
            Encode(0x10000 + ((unit - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00), bytes);
        else if (unit >= 0xDC80 && unit <= 0xDCFF)
            bytes += static_cast<char>(unit - 0xDC00);
        else
            Encode(IsHigh(unit) || IsLow(unit) ? U'?' : unit, bytes);
    }
    return CString(bytes);
}

}  // namespace veka
