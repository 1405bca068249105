#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/Utf8.h"

namespace test {

/// A text with every byte except NUL and the bytes that are left out, and with every character from U+0080 to
/// U+009F, each between two letters. A terminal takes many of them for commands.
inline std::string EveryByte(std::string_view without = {}) {
    std::string text = "x";
    for (int byte = 1; byte < 256; ++byte)
        if (without.find(static_cast<char>(byte)) == std::string_view::npos)
            (text += static_cast<char>(byte)) += 'x';
    for (int code = 0x80; code < 0xA0; ++code) (text += {'\xC2', static_cast<char>(code)}) += 'x';
    return text + "\xE2\x80\xAEx\x1B[2Jx\x9B[2Jx\xC2\x9B[2Jx";
}

/// The first place of an output that a terminal could take for a command, with the text around it; empty
/// where there is none. A line feed is none.
inline std::string TerminalFault(std::string_view output) {
    for (std::size_t at = 0; at < output.size();) {
        const auto byte = static_cast<unsigned char>(output[at]);
        const std::size_t length = byte < 0x80 ? 1 : veka::Utf8Length(output.substr(at));
        const bool upper = byte == 0xC2 && length == 2 && static_cast<unsigned char>(output[at + 1]) < 0xA0;
        const bool turning = output.substr(at).starts_with("\xE2\x80\xAE");
        if (length == 0 || (byte < 0x20 && byte != '\n') || byte == 0x7F || upper || turning) {
            std::array<char, 32> place{};
            std::snprintf(place.data(), place.size(), "byte %02X at %zu: ", byte, at);
            return place.data() + std::string(output.substr(at < 60 ? 0 : at - 60, 80));
        }
        at += length;
    }
    return {};
}

}  // namespace test
