#pragma once

#include <string>
#include <string_view>

#include "platform/CString.h"
#include "platform/Utf16.h"

namespace veka {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows has 16-bit text");

/// A byte string as the system's text, by the rule of `ToUtf16`. The system takes a text to end at its first
/// zero byte.
inline std::wstring ToWide(std::string_view text) {
    const std::u16string units = ToUtf16(text);
    return {units.begin(), units.end()};
}
inline std::wstring ToWide(const CString& text) {
    return ToWide(text.View());
}

/// The bytes of the system's text, by the rule of `FromUtf16`.
inline CString FromWide(std::wstring_view text) {
    return FromUtf16(std::u16string(text.begin(), text.end()));
}

}  // namespace veka
