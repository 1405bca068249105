#include "platform/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

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

}  // namespace
