#include "platform/Version.h"

#include <gtest/gtest.h>

#include <string>

TEST(Version, OfTheLibraryIsThatOfItsHeaders) {
    EXPECT_EQ(veka::Version(), std::to_string(VEKA_VERSION_MAJOR) + "." + std::to_string(VEKA_VERSION_MINOR) +
                                   "." + std::to_string(VEKA_VERSION_PATCH));
}
