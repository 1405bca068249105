#include "platform/Utf16.h"

#include <gtest/gtest.h>

namespace {

using veka::FromUtf16;
using veka::ToUtf16;

TEST(Utf16, Utf8BecomesItsCharacters) {
    EXPECT_EQ(ToUtf16("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u00E4\u20AC\U0001F600");
    EXPECT_EQ(FromUtf16(u"a\u00E4\u20AC\U0001F600"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf16(""), u"");
    EXPECT_EQ(FromUtf16(u""), "");
}

TEST(Utf16, EveryCharacterComesBack) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF) continue;
        std::u16string text(1, static_cast<char16_t>(character));
        if (character >= 0x10000)
            text = {static_cast<char16_t>(0xD7C0 + (character >> 10)),
                    static_cast<char16_t>(0xDC00 + (character & 0x3FF))};
        ASSERT_EQ(ToUtf16(FromUtf16(text).View()), text) << static_cast<unsigned>(character);
    }
}

TEST(Utf16, EveryByteComesBack) {
    std::string bytes;
    for (int one = 0; one < 256; ++one)
        for (int other = 0; other < 256; other += 3)
            bytes += {static_cast<char>(one), static_cast<char>(other)};
    EXPECT_EQ(FromUtf16(ToUtf16(bytes)), CString(bytes));
    // Behind a character of two units, a sequence that is cut, surrogates and a character beyond the last.
    for (const char* text : {"\xF0\x9F\x98\x80\xB0", "\xE2\x82", "\xED\xB2\x80", "\xED\xA0\x80\xED\xB0\x80",
                             "\xFF\xC3\xA4", "\xC0\x80", "\xF4\x90\x80\x80"})
        EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
}

TEST(Utf16, ALoneSurrogateThatStandsForNoByteIsReplaced) {
    const auto units = [](std::initializer_list<unsigned> list) {
        std::u16string text;
        for (unsigned unit : list) text += static_cast<char16_t>(unit);
        return text;
    };
    EXPECT_EQ(FromUtf16(units({0xD800, 'a'})), "?a");
    EXPECT_EQ(FromUtf16(units({0xDC00})), "?");
    EXPECT_EQ(FromUtf16(units({0xDFFF, 0xDBFF})), "??");
    EXPECT_EQ(FromUtf16(units({0xDC7F, 0xDC80, 0xDD00})), "?\x80?");
}

}  // namespace
