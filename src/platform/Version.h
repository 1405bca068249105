#pragma once

// The release of these headers. The build reads the numbers from this file.
#define VEKA_VERSION_MAJOR 1
#define VEKA_VERSION_MINOR 0
#define VEKA_VERSION_PATCH 0

/// The release as a literal, such as "1.0.0".
#define VEKA_VERSION_TEXT \
    VEKA_DIGITS(VEKA_VERSION_MAJOR) "." VEKA_DIGITS(VEKA_VERSION_MINOR) "." VEKA_DIGITS(VEKA_VERSION_PATCH)
#define VEKA_DIGITS(number) VEKA_DIGITS_OF(number)
#define VEKA_DIGITS_OF(number) #number

#ifndef RC_INVOKED  // a resource compiler reads only the macros

#include "platform/Export.h"

namespace veka {

/// The release of the loaded library, such as "1.0.0". It can be later than the release of the headers.
VEKA_API const char* Version() noexcept;

}  // namespace veka

#endif
