#include "platform/Version.h"

#define VEKA_TEXT(number) #number
#define VEKA_TEXT_OF(number) VEKA_TEXT(number)

const char* veka::Version() noexcept {
    return VEKA_TEXT_OF(VEKA_VERSION_MAJOR) "." VEKA_TEXT_OF(VEKA_VERSION_MINOR) "." VEKA_TEXT_OF(
        VEKA_VERSION_PATCH);
}
