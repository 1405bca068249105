#include "platform/Paths.h"

#include <gtest/gtest.h>

namespace {

TEST(Paths, KeepAllBytes) {
    const CString path("/tmp/\xC3\xA4 \xFF.veka");
    EXPECT_EQ(veka::FromPath(veka::ToPath(path)), path);
}

}  // namespace
