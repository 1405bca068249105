#pragma once

#include <array>
#include <charconv>
#include <string>
#include <type_traits>

namespace veka {

/// The shortest text that reads back as the number.
template <class Number>
std::string Shortest(Number number) {
    std::array<char, 32> text{};
    std::to_chars_result result{};
    if constexpr (std::is_same_v<Number, bool>)
        result = std::to_chars(text.data(), text.data() + text.size(), static_cast<int>(number));
    else
        result = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), result.ptr};
}

}  // namespace veka
