#include "qt/Text.h"

#include <gtest/gtest.h>

namespace {

using veka::FromQString;
using veka::ToQString;

TEST(QtText, Utf8BecomesItsCharacters) {
    EXPECT_EQ(ToQString("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"), QString::fromUtf16(u"aä€\U0001F600"));
    EXPECT_EQ(FromQString(QString::fromUtf16(u"aä€\U0001F600")), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(QtText, EveryByteComesBack) {
    std::string bytes;
    for (int one = 0; one < 256; ++one)
        for (int other = 0; other < 256; other += 3)
            bytes += {static_cast<char>(one), static_cast<char>(other)};
    EXPECT_EQ(FromQString(ToQString(CString(bytes))), CString(bytes));
}

TEST(QtText, ALoneSurrogateThatStandsForNoByteIsReplaced) {
    EXPECT_EQ(FromQString(QString(QChar(0xD800)) + "a"), "?a");
    EXPECT_EQ(FromQString(QString(QChar(0xDC00))), "?");
}

}  // namespace
