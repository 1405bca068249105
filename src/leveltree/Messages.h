#pragma once

namespace veka::messages {

/// For a level that is too deep, or that opens after a stray close parenthesis. With the depth and the line
/// number.
inline constexpr const char* kUnexpectedBrace =
    "Parser meet unexpected Brace Counting Number, %d at line number %d.!";

}  // namespace veka::messages
