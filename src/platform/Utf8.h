#pragma once

#include <string_view>

#include "platform/Export.h"

namespace veka {

/// Length in bytes of the UTF-8 character at the beginning of a text; 0 if there is none.
VEKA_API size_t Utf8Length(std::string_view text) noexcept;

}  // namespace veka
