#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kicad {

/// The most bytes of a name of a symbol, and of a footprint, whose name is that of a file.
inline constexpr std::size_t kLongestSymbolName = 4000;
inline constexpr std::size_t kLongestFootprintName = 200;

/// A name as KiCad takes it; different names give different ones. Letters, digits, characters beyond ASCII in
/// UTF-8, blanks inside and most signs stay. Any other byte becomes "=" with its two hexadecimal digits:
/// control bytes, bytes that are no UTF-8, the signs " $ % * / : < = > ? \ { | } , a blank at an end, a point
/// at an end, and the first letter of a name that Windows keeps for a device. An empty name is "=". A name
/// that would be longer than `most` bytes is cut and ends in "==" with 16 digits of a hash of the whole name.
std::string NameInKiCad(std::string_view name, std::size_t most = kLongestSymbolName);

/// The name that became a name in KiCad; none for a name that was cut, and for one that `NameInKiCad` never
/// gives.
std::optional<std::string> NameFromKiCad(std::string_view kicadName);

}  // namespace kicad
