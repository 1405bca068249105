#pragma once

#include <cstdint>
#include <vector>

#include "window/UserInterface.h"

namespace veka {

/// A dialog template in the system's binary form, as a resource compiler writes it for the table.
std::vector<std::uint32_t> MakeDialogResource(const DialogTemplate& dialog);

}  // namespace veka
