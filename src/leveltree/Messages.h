#pragma once

namespace veka::messages {

/// A level too deep, or one opened after a stray close parenthesis: the depth and the line number.
inline constexpr const char* kUnexpectedBrace =
    "Parser meet unexpected Brace Counting Number, %d at line number %d.!";

}  // namespace veka::messages
