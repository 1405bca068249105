#pragma once

#include <string>
#include <string_view>

#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// A byte string as 16-bit text, for window systems. UTF-8 becomes its characters. A byte that is not UTF-8
/// becomes a lone surrogate: U+DC00 plus the byte. No UTF-8 text contains such a character, so `FromUtf16`
/// gives each byte back.
VEKA_API std::u16string ToUtf16(std::string_view text);
/// The bytes of a text: UTF-8, and the byte of each lone surrogate that `ToUtf16` made. Any other lone
/// surrogate becomes a "?".
VEKA_API CString FromUtf16(std::u16string_view text);

}  // namespace veka
