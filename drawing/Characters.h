#pragma once

#include <string>
#include <string_view>

namespace drawing {

/// A text of a file in UTF-8. A byte that is no UTF-8 counts as a character of Windows-1252, and one that is
/// none there either becomes U+FFFD.
std::string ToUtf8(std::string_view bytes);

}  // namespace drawing
