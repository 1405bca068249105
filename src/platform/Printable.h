#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace veka {

/// A text on one line of a terminal. Every byte that could control a terminal is written as `\xNN`: control
/// bytes, bytes that are no UTF-8, and characters that control the terminal or the direction of text. So is a
/// backslash before an "x", so that no text looks like another one.
VEKA_API std::string Printable(std::string_view text);

/// The character at the begin of a text if it controls a terminal, ends a line or turns the direction of the
/// text; nothing for any other character, a byte that is no UTF-8 and an empty text.
std::optional<unsigned> ControlAt(std::string_view text);

}  // namespace veka
