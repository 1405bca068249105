#include "parser/Losses.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "parser/Numbers.h"

namespace veka {

namespace {

constexpr std::string_view kSpaces = " \t\n\v\f\r";
constexpr std::string_view kDigits = "0123456789";

/// Cuts all leading bytes of a set off a text; returns them.
std::string_view CutPrefix(std::string_view& text, std::string_view set) {
    const std::string_view taken = text.substr(0, text.find_first_not_of(set));
    text.remove_prefix(taken.size());
    return taken;
}

void CutSpacesAndSign(std::string_view& text) {
    CutPrefix(text, kSpaces);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
}

bool OnlySpaces(std::string_view text) {
    return text.find_first_not_of(kSpaces) == std::string_view::npos;
}

}  // namespace

Loss LossOfWhole(std::string_view text) noexcept {
    if (text.empty()) return Loss::None;
    std::string_view rest = text;
    CutSpacesAndSign(rest);
    const std::string_view digits = CutPrefix(rest, kDigits);
    if (digits.empty()) return Loss::NoNumber;
    if (!OnlySpaces(rest)) return Loss::TextAfterNumber;
    const bool minus = text.substr(text.find_first_not_of(kSpaces)).starts_with('-');
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool fits = error == std::errc() && (minus ? -value >= INT32_MIN : value <= INT32_MAX);
    return fits ? Loss::None : Loss::Wraps;
}

Loss LossOfReal(std::string_view text) noexcept {
    if (text.empty()) return Loss::None;
    std::string_view rest = text;
    CutSpacesAndSign(rest);
    const std::string_view whole = CutPrefix(rest, kDigits);
    std::string_view fraction;
    if (rest.starts_with('.')) {
        std::string_view behind = rest.substr(1);
        fraction = CutPrefix(behind, kDigits);
        if (!whole.empty() || !fraction.empty()) rest = behind;
    }
    if (whole.empty() && fraction.empty()) return Loss::NoNumber;
    if (rest.starts_with('e') || rest.starts_with('E')) {
        std::string_view exponent = rest.substr(1);
        if (exponent.starts_with('-') || exponent.starts_with('+')) exponent.remove_prefix(1);
        if (!CutPrefix(exponent, kDigits).empty()) rest = exponent;
    }
    if (!OnlySpaces(rest)) return Loss::TextAfterNumber;
    const double value = ToDouble(text);
    const bool zero = whole.find_first_not_of('0') == std::string_view::npos &&
                      fraction.find_first_not_of('0') == std::string_view::npos;
    return std::isfinite(value) && (zero || value != 0) ? Loss::None : Loss::OutOfRange;
}

}  // namespace veka
