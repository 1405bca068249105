#include "export/kicad/Names.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

#include "export/kicad/Words.h"
#include "platform/Utf8.h"

namespace kicad {

namespace {

constexpr std::string_view kForbidden = "\"$%*/:<=>?\\{|}";
constexpr std::string_view kDigits = "0123456789ABCDEF";

/// True for a name that Windows keeps for a device, with any ending.
bool IsDevice(std::string_view name) {
    static constexpr std::array<std::string_view, 4> plain = {"CON", "PRN", "AUX", "NUL"};
    const std::string stem = Upper(name.substr(0, name.find('.')));
    if (std::find(plain.begin(), plain.end(), stem) != plain.end()) return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) && stem[3] >= '1' &&
           stem[3] <= '9';
}

void AppendByte(std::string& text, char byte) {
    const auto value = static_cast<unsigned char>(byte);
    text += {'=', kDigits[value >> 4], kDigits[value & 15]};
}

/// True for a character that can stand in a name, whatever is around it.
bool IsPlain(std::string_view character) {
    const auto byte = static_cast<unsigned char>(character[0]);
    if (character.size() == 1)
        return byte >= 0x20 && byte < 0x7F && kForbidden.find(character[0]) == kForbidden.npos;
    // Control characters beyond ASCII, and the marks of lines and of the direction of text.
    if (byte == 0xC2) return static_cast<unsigned char>(character[1]) >= 0xA0;
    const bool general = character.substr(0, 2) == "\xE2\x80";
    const auto last = static_cast<unsigned char>(character.back());
    if (general && ((last >= 0x8B && last <= 0x8F) || (last >= 0xA8 && last <= 0xAE))) return false;
    if (character.substr(0, 2) == "\xE2\x81" && last >= 0xA0 && last <= 0xAF) return false;
    return character != "\xEF\xBB\xBF" && character != "\xEF\xBF\xBE" && character != "\xEF\xBF\xBF";
}

/// The hash FNV-1a. It has no key, so that a name is the same in each run.
std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : text) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return hash;
}

int ValueOf(char digit) {
    const std::size_t value = kDigits.find(digit);
    return value == kDigits.npos ? -1 : static_cast<int>(value);
}

}  // namespace

std::string NameInKiCad(std::string_view name, std::size_t most) {
    if (name.empty()) return "=";
    std::array<char, 24> mark{};
    const int markLength =
        std::snprintf(mark.data(), mark.size(), "==%016llX", static_cast<unsigned long long>(Hash(name)));
    const std::size_t room = most - static_cast<std::size_t>(markLength);
    const bool device = IsDevice(name) || name == "~";
    std::string result;
    std::size_t cut = 0;  // length of the longest beginning that leaves room for the mark
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t length = veka::Utf8Length(name.substr(i));
        const std::string_view character = name.substr(i, length ? length : 1);
        const bool atEnd = i == 0 || i + 1 == name.size();
        const bool loose = atEnd && (character == " " || character == ".");
        if (length > 0 && IsPlain(character) && !loose && !(device && i == 0))
            result += character;
        else
            for (const char byte : character) AppendByte(result, byte);
        i += character.size();
        if (result.size() <= room) cut = result.size();
        if (result.size() > most)
            return result.substr(0, cut).append(mark.data(), static_cast<std::size_t>(markLength));
    }
    return result;
}

std::optional<std::string> NameFromKiCad(std::string_view kicadName) {
    std::string name;
    if (kicadName == "=") return name;
    for (std::size_t i = 0; i < kicadName.size(); ++i) {
        if (kicadName[i] != '=') {
            name += kicadName[i];
            continue;
        }
        if (i + 2 >= kicadName.size()) return std::nullopt;
        const int high = ValueOf(kicadName[i + 1]), low = ValueOf(kicadName[i + 2]);
        if (high < 0 || low < 0) return std::nullopt;
        name += static_cast<char>(high * 16 + low);
        i += 2;
    }
    // Only what the rule gives has an original.
    if (NameInKiCad(name, kicadName.size() + 64) != kicadName) return std::nullopt;
    return name;
}

}  // namespace kicad
