#pragma once

// The release that these headers belong to. The build reads it here.
#define VEKA_VERSION_MAJOR 1
#define VEKA_VERSION_MINOR 0
#define VEKA_VERSION_PATCH 0

#ifndef RC_INVOKED  // a resource compiler takes the numbers alone

#include "platform/Export.h"

namespace veka {

/// The release of the library that is loaded, as "1.0.0": it may be later than the headers'.
VEKA_API const char* Version() noexcept;

}  // namespace veka

#endif
