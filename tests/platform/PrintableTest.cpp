#include "platform/Printable.h"

#include <gtest/gtest.h>

#include "platform/Utf8.h"

namespace {

using veka::Printable;

TEST(Printable, PlainTextIsItself) {
    EXPECT_EQ(Printable("a b.c \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80"),
              "a b.c \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(Printable(""), "");
}

TEST(Printable, ControlBytesAreEscaped) {
    EXPECT_EQ(Printable("a\nb\x1B[2J\x7F"), "a\\x0Ab\\x1B[2J\\x7F");
    EXPECT_EQ(Printable(std::string_view("\0", 1)), "\\x00");
}

TEST(Printable, ABackslashIsEscapedWhereItLooksLikeAnEscape) {
    EXPECT_EQ(Printable("C:\\parts\\new"), "C:\\parts\\new");
    EXPECT_EQ(Printable("\\x41"), "\\x5Cx41");
    EXPECT_EQ(Printable("\\"), "\\");
}

TEST(Printable, BytesThatAreNoUtf8AreEscaped) {
    EXPECT_EQ(Printable("a\x9B[2J"), "a\\x9B[2J");
    EXPECT_EQ(Printable("\xE4\xC3"), "\\xE4\\xC3");
}

TEST(Printable, CharactersThatControlATerminalAreEscaped) {
    for (int code = 0x80; code < 0xA0; ++code) {
        const std::string character{'\xC2', static_cast<char>(code)};
        EXPECT_EQ(Printable(character).substr(0, 6), "\\xC2\\x") << code;
    }
    EXPECT_EQ(Printable("\xC2\xA0"), "\xC2\xA0") << "a blank that does not break a line";
}

TEST(Printable, CharactersThatTurnTheTextOrEndALineAreEscaped) {
    for (const char* character : {"\xD8\x9C", "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xA8", "\xE2\x80\xAE",
                                  "\xE2\x81\xA6", "\xE2\x81\xA9"})
        EXPECT_EQ(Printable(character).substr(0, 2), "\\x") << character;
    EXPECT_EQ(Printable("\xE2\x80\x93"), "\xE2\x80\x93") << "a dash";
}

TEST(Printable, DifferentTextsLookDifferent) {
    EXPECT_NE(Printable("\x1B"), Printable("\\x1B"));
    EXPECT_NE(Printable("\\\x1B"), Printable("\\x5C\x1B"));
}

/// True if no byte of a text can control a terminal, whether or not that takes the text for UTF-8.
bool IsSafe(std::string_view text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const size_t length = veka::Utf8Length(text);
        if (length == 0 || byte < 0x20 || byte == 0x7F) return false;
        if (length == 2 && byte == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0) return false;
        text.remove_prefix(length);
    }
    return true;
}

TEST(Printable, NoTwoBytesReachATerminalAsAControl) {
    for (int one = 0; one < 256; ++one)
        for (int other = 0; other < 256; ++other) {
            const std::string text{static_cast<char>(one), static_cast<char>(other), 'x'};
            ASSERT_TRUE(IsSafe(Printable(text))) << one << ' ' << other;
        }
}

}  // namespace
