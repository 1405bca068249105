#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <type_traits>

namespace veka {

/// The shortest text that reads back as the number: "inf", "-inf" and "nan" for numbers that have no digits.
template <class Number>
std::string Shortest(Number number) {
    // The sign of such a number says nothing, and compilers and processors differ in it.
    if constexpr (std::is_floating_point_v<Number>)
        if (std::isnan(number)) return "nan";
    std::array<char, 32> text{};
    std::to_chars_result result{};
    if constexpr (std::is_same_v<Number, bool>)
        result = std::to_chars(text.data(), text.data() + text.size(), static_cast<int>(number));
    else
        result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

}  // namespace veka
