#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace {

using veka::Utf8Length;

TEST(Utf8, CharactersAreOneToFourBytesLong) {
    EXPECT_EQ(Utf8Length("a"), 1u);
    EXPECT_EQ(Utf8Length(std::string_view("\0", 1)), 1u);
    EXPECT_EQ(Utf8Length("\xC3\xA4x"), 2u);
    EXPECT_EQ(Utf8Length("\xE2\x82\xACx"), 3u);
    EXPECT_EQ(Utf8Length("\xF0\x9F\x98\x80x"), 4u);
}

TEST(Utf8, TheFirstAndLastCharacterOfEachLengthCount) {
    for (const char* text : {"\xC2\x80", "\xDF\xBF"}) EXPECT_EQ(Utf8Length(text), 2u);
    for (const char* text : {"\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF"})
        EXPECT_EQ(Utf8Length(text), 3u);
    for (const char* text : {"\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) EXPECT_EQ(Utf8Length(text), 4u);
}

TEST(Utf8, NothingElseIsACharacter) {
    EXPECT_EQ(Utf8Length(""), 0u);
    for (const char* text :
         {"\x80", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3x", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
          "\xF0\x8F\xBF\xBF", "\xF0\x90\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"})
        EXPECT_EQ(Utf8Length(text), 0u) << text;
}

}  // namespace
