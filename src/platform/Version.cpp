#include "platform/Version.h"

const char* veka::Version() noexcept {
    return VEKA_VERSION_TEXT;
}
