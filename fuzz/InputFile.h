#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/CString.h"

namespace fuzz {

/// A file in memory that holds an input; one for all inputs of the process. Returns its path.
CString WriteInput(std::string_view bytes);

/// What the fuzzer hands over, as text.
std::string_view View(const std::uint8_t* data, std::size_t size);

}  // namespace fuzz
