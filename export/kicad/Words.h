#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/CVEKA_USGKey.h"

namespace kicad {

/// A text whose ASCII letters are in upper case.
std::string Upper(std::string_view text);

/// The elements of a list.
std::vector<std::string> Elements(const CStringArray& list);

/// The values of the search keys of a type, in any case.
std::vector<std::string> KeysOfType(const CVEKA_USGKeyArray& keys, std::string_view type);
/// The values of the search keys of all other types, with a blank between them.
std::string KeysBesides(const CVEKA_USGKeyArray& keys, std::string_view type);

}  // namespace kicad
