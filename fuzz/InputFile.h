#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/CString.h"

namespace fuzz {

/// A file that holds an input, in memory where the system can; one for all inputs of the process.
/// Returns its path.
CString WriteInput(const std::uint8_t* data, std::size_t size);

/// Lets the messages of the import go nowhere.
void SilenceMessages();

}  // namespace fuzz
