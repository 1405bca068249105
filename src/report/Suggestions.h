#pragma once

#include <span>
#include <string>
#include <string_view>

namespace veka {

/// The word that a misspelt word was probably meant to be; empty where none is near. A word is near if some
/// letters are wrong, missing, surplus or exchanged: one, or two where the word is long. Upper and lower case
/// do not count.
std::string_view Nearest(std::string_view word, std::span<const std::string_view> words);

}  // namespace veka
