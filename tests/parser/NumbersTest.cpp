#include "parser/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

using veka::ToDouble;
using veka::ToInt;

TEST(ToInt, SkipsWhiteSpaceAndStopsAtTheFirstOtherByte) {
    EXPECT_EQ(ToInt("12mm"), 12);
    EXPECT_EQ(ToInt(" \t\n\v\f\r-7 8"), -7);
    EXPECT_EQ(ToInt("+5"), 5);
    EXPECT_EQ(ToInt("2x"), 2);
    EXPECT_EQ(ToInt("1.9"), 1);
}

TEST(ToInt, IsZeroWithoutADigit) {
    for (const char* text : {"", "abc", "-", "+-1", "- 1", "--1", "\xA0 1"})
        EXPECT_EQ(ToInt(text), 0) << text;
}

TEST(ToInt, WrapsAround) {
    EXPECT_EQ(ToInt("2147483647"), 2147483647);
    EXPECT_EQ(ToInt("2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(ToInt("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(ToInt("4294967296"), 0);
    EXPECT_EQ(ToInt("99999999999999999999"), 1661992959);
}

TEST(ToDouble, TakesTheLongestNumericPrefix) {
    EXPECT_EQ(ToDouble("12mm"), 12.0);
    EXPECT_EQ(ToDouble(" \t\n\v\f\r-1.5e2x"), -150.0);
    EXPECT_EQ(ToDouble("+.5"), 0.5);
    EXPECT_EQ(ToDouble("5."), 5.0);
    EXPECT_EQ(ToDouble("1e"), 1.0);
    EXPECT_EQ(ToDouble("1e+"), 1.0);
    EXPECT_EQ(ToDouble("1E+2"), 100.0);
    EXPECT_EQ(ToDouble("1.2.3"), 1.2);
    EXPECT_EQ(ToDouble("0x10"), 0.0);
    EXPECT_EQ(ToDouble("1,5"), 1.0);
    EXPECT_EQ(ToDouble("007"), 7.0);
}

TEST(ToDouble, IsZeroWithoutADigit) {
    for (const char* text :
         {"", "abc", "-", ".", "-.", "+-1", "- 1", "e5", ".e5", "inf", "-inf", "nan", "infinity"})
        EXPECT_EQ(ToDouble(text), 0.0) << text;
}

TEST(ToDouble, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(ToDouble("-0")));
    EXPECT_FALSE(std::signbit(ToDouble("0")));
}

TEST(ToDouble, IsInfiniteAboveItsRangeAndZeroBelow) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ToDouble("1e400"), infinity);
    EXPECT_EQ(ToDouble("-1e400"), -infinity);
    EXPECT_EQ(ToDouble("1e99999999999999999999"), infinity);
    EXPECT_EQ(ToDouble("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(ToDouble("0.0000001e-400"), 0.0);
    EXPECT_EQ(ToDouble("0e400"), 0.0);
    EXPECT_EQ(ToDouble(std::string(400, '9')), infinity);
    EXPECT_EQ(ToDouble("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ToDouble("0." + std::string(400, '0') + "1e402"), 10.0);
    EXPECT_EQ(ToDouble("4.9e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ToDouble("1e-400"), 0.0);
    EXPECT_EQ(ToDouble("123e-500"), 0.0);
}

TEST(ToDouble, EqualsTheCLibraryOnPlainNumbers) {
    std::mt19937 random(1);
    for (int round = 0; round < 20'000; ++round) {
        std::string text = round % 2 ? "-" : "";
        for (auto i = 1 + random() % 20; i > 0; --i) text += static_cast<char>('0' + random() % 10);
        if (random() % 2) text += '.';
        if (text.find('.') != std::string::npos)
            for (auto i = random() % 20; i > 0; --i) text += static_cast<char>('0' + random() % 10);
        if (random() % 2) text += "e" + std::to_string(static_cast<int>(random() % 700) - 350);
        EXPECT_EQ(ToDouble(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(ToDouble, KeepsTheDecimalPointInEveryLocale) {
    const std::string former = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(ToDouble("1.5"), 1.5);
    std::setlocale(LC_ALL, former.c_str());
}

TEST(ToDouble, EqualsTheStandardLibraryOnDecimalsOfAnyLength) {
    std::mt19937_64 random(1);
    for (int round = 0; round < 200'000; ++round) {
        std::string text = random() % 2 == 0 ? "-" : "";
        const size_t digits = random() % 20, point = random() % 20;
        for (size_t i = 0; i <= digits; ++i) {
            if (i == point) text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        if (random() % 16 == 0) text += "e" + std::to_string(static_cast<int>(random() % 60) - 30);
        EXPECT_EQ(ToDouble(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(ToDouble, TakesAnExponentWithAPlusAndOneAtTheEndOfTheText) {
    EXPECT_EQ(ToDouble("1e+400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble("1E400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble("1e400x"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble(std::string(400, '9') + "e"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble(std::string(400, '9') + "x"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ToDouble(std::string(400, '9') + ".1.2"), std::numeric_limits<double>::infinity());
}

TEST(Numbers, AreTheSameForAStringAndForItsBytes) {
    for (const char* text : {"",
                             "-",
                             ".",
                             "-.",
                             "5.",
                             ".5",
                             "-0",
                             "0",
                             "1.2.3",
                             "--1",
                             "1-",
                             "+1",
                             " 1",
                             "12345678",
                             "-1234567",
                             "-12345678",
                             "1234.567",
                             "1234567.",
                             ".1234567",
                             "-.123456",
                             "99999999",
                             "123456789",
                             "12/4",
                             "12:4",
                             "/",
                             ":",
                             "1\x80",
                             "1.00E-012",
                             "-2.5e+3",
                             "1e22",
                             "1e23",
                             "9007199254740991e1",
                             "9007199254740993",
                             "1e",
                             "1e+",
                             "1e5x",
                             "1e00005",
                             "a string of more than fifteen bytes",
                             "3.14159265358979323846"}) {
        const CString string(text);
        EXPECT_EQ(ToInt(string), ToInt(string.View())) << text;
        EXPECT_EQ(ToDouble(string), ToDouble(string.View())) << text;
        EXPECT_EQ(std::signbit(ToDouble(string)), std::signbit(ToDouble(string.View()))) << text;
    }
    for (const std::string_view text :
         {std::string_view("7\0", 2), std::string_view("7\0008", 3), std::string_view("\0007", 2),
          std::string_view("7\0\0\0\0\0\0\0008", 9), std::string_view("7.\0", 3),
          std::string_view("7\0\0\0\0\0\0\0a long text that is outside", 34)}) {
        const CString string(text);
        EXPECT_EQ(ToInt(string), ToInt(text)) << text;
        EXPECT_EQ(ToDouble(string), ToDouble(text)) << text;
    }
    std::mt19937 random(1);
    const std::string_view bytes = "0123456789012345678901234567890123456789.....----+eEx /:\x80\xFF";
    for (int round = 0; round < 500'000; ++round) {
        std::string text;
        for (auto i = random() % 18; i > 0; --i) text += bytes[random() % bytes.size()];
        const CString string(text);
        ASSERT_EQ(ToInt(string), ToInt(std::string_view(text))) << text;
        ASSERT_EQ(ToDouble(string), ToDouble(std::string_view(text))) << text;
        ASSERT_EQ(std::signbit(ToDouble(string)), std::signbit(ToDouble(std::string_view(text)))) << text;
    }
}

TEST(ToDouble, RoundsNumbersWithAnExponentCorrectly) {
    std::mt19937_64 random(2);
    for (int round = 0; round < 200'000; ++round) {
        std::string text;
        for (auto i = random() % 9; i > 0; --i) text += static_cast<char>('0' + random() % 10);
        text += static_cast<char>('0' + random() % 10);
        if (random() % 2) text.insert(1 + random() % text.size(), ".");
        text += random() % 2 ? "e" : "E";
        if (random() % 2) text += random() % 2 ? "-" : "+";
        text += std::to_string(random() % 30);
        ASSERT_EQ(ToDouble(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

}  // namespace
