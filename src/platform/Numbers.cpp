#include "platform/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace veka {

namespace {

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes white space and one sign off the front; true for a minus.
bool TakeSign(std::string_view& text) {
    const char* begin = text.data();
    const char* const end = begin + text.size();
    while (begin != end && IsSpace(*begin)) ++begin;
    const bool minus = begin != end && *begin == '-';
    if (minus || (begin != end && *begin == '+')) ++begin;
    text = {begin, static_cast<size_t>(end - begin)};
    return minus;
}

/// A decimal of up to 15 digits without an exponent, as part files hold them; false for any other text.
/// Digits and power of ten are exact as doubles, so one division rounds as correctly as a longer way would.
bool ToShortDecimal(std::string_view text, double& value) {
    constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    constexpr size_t kDigits = 15;
    if (text.size() > kDigits + 1) return false;
    std::int64_t digits = 0;
    size_t i = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i) digits = digits * 10 + (text[i] - '0');
    size_t behindPoint = 0;
    if (i < text.size() && text[i] == '.') {
        const size_t first = ++i;
        for (; i < text.size() && IsDigit(text[i]); ++i) digits = digits * 10 + (text[i] - '0');
        behindPoint = i - first;
    }
    if (i != text.size() || (behindPoint == 0 && text.size() > kDigits)) return false;
    value = static_cast<double>(digits) / kPowers[behindPoint];
    return true;
}

/// True if a number outside the range of a double is too large rather than too small. `number` is a
/// valid number without a sign and is not zero.
bool IsLarge(std::string_view number) {
    constexpr long long kLimit = 100'000'000'000'000'000;
    long long magnitude = 0;  // digits before the point, or minus the zeros behind it
    bool significant = false, point = false;
    size_t i = 0;
    for (; i < number.size() && (IsDigit(number[i]) || (number[i] == '.' && !point)); ++i) {
        if (number[i] == '.') {
            point = true;
        } else {
            significant = significant || number[i] != '0';
            if (significant && !point) ++magnitude;
            if (!significant && point) --magnitude;
        }
    }
    long long exponent = 0;
    if (i < number.size() && (number[i] == 'e' || number[i] == 'E')) {
        ++i;
        const bool minus = i < number.size() && number[i] == '-';
        if (i < number.size() && (number[i] == '-' || number[i] == '+')) ++i;
        for (; i < number.size() && IsDigit(number[i]); ++i)
            exponent = std::min(exponent * 10 + (number[i] - '0'), kLimit);
        if (minus) exponent = -exponent;
    }
    return magnitude + exponent > 0;
}

}  // namespace

int ToInt(std::string_view text) noexcept {
    const bool minus = TakeSign(text);
    unsigned value = 0;
    for (char c : text) {
        if (!IsDigit(c)) break;
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    return static_cast<int>(minus ? 0u - value : value);
}

double ToDouble(std::string_view text) noexcept {
    const bool minus = TakeSign(text);
    // What std::from_chars takes besides numbers, "inf" and "nan", begins with neither of these.
    const bool number =
        (!text.empty() && IsDigit(text[0])) || (text.size() > 1 && text[0] == '.' && IsDigit(text[1]));
    if (!number) return 0.0;
    double value = 0.0;
    if (ToShortDecimal(text, value)) return minus ? -value : value;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range)
        value = IsLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
    return minus ? -value : value;
}

}  // namespace veka
