#include "drawing/Characters.h"

#include <gtest/gtest.h>

namespace {

using drawing::ToUtf8;

TEST(Characters, Utf8Stays) {
    EXPECT_EQ(ToUtf8("a\xC2\xB5\xE2\x82\xAC\xF0\x9F\x98\x80\n"), "a\xC2\xB5\xE2\x82\xAC\xF0\x9F\x98\x80\n");
}

TEST(Characters, OtherBytesAreWindows1252) {
    EXPECT_EQ(ToUtf8("\xB5\x80\xFF"), "\xC2\xB5\xE2\x82\xAC\xC3\xBF");
    EXPECT_EQ(ToUtf8("\xE2\x82"), "\xC3\xA2\xE2\x80\x9A");
}

TEST(Characters, ByteThatStandsForNoneIsReplaced) {
    EXPECT_EQ(ToUtf8("\x81x"), "\xEF\xBF\xBDx");
}

}  // namespace
