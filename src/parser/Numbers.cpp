#include "parser/Numbers.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
bool ReadSign(std::string_view& text) {
    const char* begin = text.data();
    const char* const end = begin + text.size();
    while (begin != end && IsSpace(*begin)) ++begin;
    const bool minus = begin != end && *begin == '-';
    if (minus || (begin != end && *begin == '+')) ++begin;
    text = {begin, static_cast<size_t>(end - begin)};
    return minus;
}

constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Digits times a power of ten; false if that is not sure to be rounded correctly. Up to 2^53 and up to 10^22
/// both are exact as doubles, so that one multiplication or division rounds as well as a longer way would.
bool Scale(std::int64_t digits, int power, double& value) {
    constexpr int kMost = std::ssize(kPowers) - 1;
    if (digits >= std::int64_t{1} << 53 || power < -kMost || power > kMost) return false;
    value = power < 0 ? static_cast<double>(digits) / kPowers[-power]
                      : static_cast<double>(digits) * kPowers[power];
    return true;
}

/// A number of up to 16 bytes, as part files hold them; false for any other text, and for a number that needs
/// a longer way. Takes no sign in front.
bool ToShortNumber(std::string_view text, double& value) {
    constexpr size_t kMostBytes = 16;
    if (text.size() > kMostBytes) return false;
    const char* next = text.data();
    const char* const end = next + text.size();
    std::int64_t digits = 0;
    int power = 0;
    for (; next != end && IsDigit(*next); ++next) digits = digits * 10 + (*next - '0');
    if (next != end && *next == '.') {
        const char* const point = next++;
        for (; next != end && IsDigit(*next); ++next) digits = digits * 10 + (*next - '0');
        power = static_cast<int>(point + 1 - next);
    }
    if (next != end && (*next == 'e' || *next == 'E')) {
        if (++next == end) return false;
        const bool minus = *next == '-';
        if (minus || *next == '+') ++next;
        if (next == end || end - next > 4) return false;
        int exponent = 0;
        for (; next != end && IsDigit(*next); ++next) exponent = exponent * 10 + (*next - '0');
        power += minus ? -exponent : exponent;
    }
    return next == end && Scale(digits, power, value);
}

/// True if a number outside the range of a double is too large rather than too small. `number` is a
/// valid number without a sign and is not zero.
bool IsLarge(std::string_view number) {
    constexpr long long kLimit = 100'000'000'000'000'000;
    long long magnitude = 0;  // digits before the point, or minus the zeros after it
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

/// A number that repeats a byte eight times.
constexpr std::uint64_t Eight(unsigned char byte) {
    return byte * UINT64_C(0x0101010101010101);
}

/// A text of up to eight bytes, the first one lowest, followed by zeros.
struct ShortText {
    std::uint64_t bytes;
    unsigned size;

    explicit ShortText(const CString& text) noexcept
        : bytes(text.FirstBytes()), size(static_cast<unsigned>(text.View().size())) {}

    /// Takes a minus off the front; true if there was one.
    bool ReadMinus() noexcept {
        const bool minus = (bytes & 0xFF) == '-';
        bytes >>= 8 * minus;
        size -= minus;
        return minus;
    }
    /// Takes the first point out, and returns how many bytes followed it.
    unsigned ReadPoint() noexcept {
        const std::uint64_t points = bytes ^ Eight('.');
        // The lowest bit that is set belongs to the first byte that is zero, a point.
        const std::uint64_t found = (points - Eight(1)) & ~points & Eight(0x80);
        if (found == 0) return 0;
        const std::uint64_t before = (found ^ (found - 1)) >> 8;  // a mask of the bytes before the point
        bytes = (bytes & before) | (bytes >> 8 & ~before);
        --size;
        return size - static_cast<unsigned>(std::countr_zero(found)) / 8;
    }
    /// The number that the text is; -1 if there is none, or another byte than a digit.
    std::int64_t Digits() const noexcept {
        if (size - 1 > 7) return -1;
        // The last digit becomes the highest byte; the bytes below the first digit are zeros.
        const unsigned shift = 64 - 8 * size;
        std::uint64_t digits = (bytes ^ Eight('0')) << shift;
        if (((digits + Eight(0x80 - 10)) | digits) & Eight(0x80)) return -1;
        // Neighbours are joined: to pairs, and those to fours and eights.
        digits = digits * 10 + (digits >> 8);
        digits = ((digits & 0x000000FF000000FF) * 0x000F424000000064 +
                  (digits >> 16 & 0x000000FF000000FF) * 0x0000271000000001) >>
                 32;
        return static_cast<std::int64_t>(digits);
    }
};
constexpr int kShortText = 8;

/// The number of a text that is one digit, as many numbers in part files are; 10 or more for any other text. The bytes after
/// a short text are zeros, and count. A digit before a zero byte is the same number.
std::uint64_t OneDigit(const CString& text) noexcept {
    return text.FirstBytes() - '0';
}

}  // namespace

int ToInt(std::string_view text) noexcept {
    const bool minus = ReadSign(text);
    unsigned value = 0;
    for (char c : text) {
        if (!IsDigit(c)) break;
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    return static_cast<int>(minus ? 0u - value : value);
}

double ToDouble(std::string_view text) noexcept {
    const bool minus = ReadSign(text);
    // What std::from_chars takes besides numbers, "inf" and "nan", begins with neither of these.
    const bool number =
        (!text.empty() && IsDigit(text[0])) || (text.size() > 1 && text[0] == '.' && IsDigit(text[1]));
    if (!number) return 0.0;
    double value = 0.0;
    if (ToShortNumber(text, value)) return minus ? -value : value;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range)
        value = IsLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
    return minus ? -value : value;
}

int ToInt(const CString& text) noexcept {
    if (const std::uint64_t digit = OneDigit(text); digit < 10) return static_cast<int>(digit);
    if (text.GetLength() <= kShortText) {
        ShortText rest(text);
        const bool minus = rest.ReadMinus();
        const std::int64_t digits = rest.Digits();
        if (digits >= 0) return static_cast<int>(minus ? -digits : digits);
    }
    return ToInt(text.View());
}

double ToDouble(const CString& text) noexcept {
    if (const std::uint64_t digit = OneDigit(text); digit < 10) return static_cast<double>(static_cast<int>(digit));
    if (text.GetLength() <= kShortText) {
        ShortText rest(text);
        const bool minus = rest.ReadMinus();
        const unsigned behindPoint = rest.ReadPoint();
        const std::int64_t digits = rest.Digits();
        if (digits >= 0) {
            const double value = static_cast<double>(digits) / kPowers[behindPoint];
            return minus ? -value : value;
        }
    }
    return ToDouble(text.View());
}

}  // namespace veka
