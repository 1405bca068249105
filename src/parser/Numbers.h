#pragma once

#include <string_view>

#include "platform/CString.h"

namespace veka {

/// White space, an optional sign and decimal digits; reading stops at the first other byte. Without a
/// digit it is 0. Digits that do not fit wrap around modulo 2^32, so every text gives a defined number.
int ToInt(std::string_view text) noexcept;
int ToInt(const CString& text) noexcept;
inline int ToInt(const char* text) noexcept {
    return ToInt(std::string_view(text));
}

/// White space, an optional sign, digits with at most one point and an optional exponent; the longest
/// such prefix counts, without one it is 0. Correctly rounded, with a decimal point in every locale.
/// Neither hexadecimal nor "inf" nor "nan" is a number. Too large gives infinity, too small gives 0.
double ToDouble(std::string_view text) noexcept;
double ToDouble(const CString& text) noexcept;
inline double ToDouble(const char* text) noexcept {
    return ToDouble(std::string_view(text));
}

}  // namespace veka
