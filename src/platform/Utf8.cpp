#include "platform/Utf8.h"

size_t veka::Utf8Length(std::string_view text) noexcept {
    if (text.empty()) return 0;
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
