#pragma once

#include <string>
#include <string_view>

#include "platform/CString.h"
#include "platform/Export.h"

namespace veka {

/// A byte string as 16-bit text, for window systems. What is UTF-8 becomes its characters; any other byte
/// becomes the lone surrogate U+DC00 plus the byte, which no UTF-8 text holds, so that `FromUtf16` gives
/// every byte back.
VEKA_API std::u16string ToUtf16(std::string_view text);
/// The bytes of a text: UTF-8, and for the lone surrogates made by `ToUtf16` their bytes. Any other lone
/// surrogate is no character and becomes a "?".
VEKA_API CString FromUtf16(std::u16string_view text);

}  // namespace veka
