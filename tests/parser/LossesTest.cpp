#include "parser/Losses.h"

#include <gtest/gtest.h>

namespace {

using namespace veka;

TEST(Losses, AWholeNumberOfAllItsTextIsNone) {
    for (const char* text : {"", "0", "-1", "+7", "00012", " 5", "5 ", "2147483647", "-2147483648"})
        EXPECT_EQ(LossOfWhole(text), Loss::None) << text;
}

TEST(Losses, OfWholeNumbersAreTold) {
    for (const char* text : {"a", "-", "+", " ", ".5", "--1", "\xFF"})
        EXPECT_EQ(LossOfWhole(text), Loss::NoNumber) << text;
    for (const char* text : {"12mm", "1.5", "1,5", "0x10", "1e3", "1 2", "-1-"})
        EXPECT_EQ(LossOfWhole(text), Loss::TextAfterNumber) << text;
    for (const char* text : {"2147483648", "-2147483649", "99999999999999999999999999",
                             "-9223372036854775808", "-9223372036854775809"})
        EXPECT_EQ(LossOfWhole(text), Loss::Wraps) << text;
}

TEST(Losses, ADecimalNumberOfAllItsTextIsNone) {
    for (const char* text :
         {"", "0", "-.5", "5.", "1e3", "1.5E-3", "+7", " 5 ", "1e308", "0e999", "0.000", "1e-300"})
        EXPECT_EQ(LossOfReal(text), Loss::None) << text;
}

TEST(Losses, OfDecimalNumbersAreTold) {
    for (const char* text : {"inf", "nan", ".", "-", "e5", "mm", " "})
        EXPECT_EQ(LossOfReal(text), Loss::NoNumber) << text;
    for (const char* text : {"1e", "1e+", "12mm", "1,5", "0x10", "1.2.3", "1 2", "5.-"})
        EXPECT_EQ(LossOfReal(text), Loss::TextAfterNumber) << text;
    for (const char* text : {"1e309", "-1e999", "1e-999"})
        EXPECT_EQ(LossOfReal(text), Loss::OutOfRange) << text;
}

TEST(Losses, OfAFlagIsAnyWordButTrueAndFalse) {
    int number = 0;
    Flag flag(number);
    EXPECT_EQ(LossOf(CString("TRUE"), flag), Loss::None);
    EXPECT_EQ(LossOf(CString("FALSE"), flag), Loss::None);
    EXPECT_EQ(LossOf(CString(""), flag), Loss::None);
    EXPECT_EQ(LossOf(CString("true"), flag), Loss::NoFlag);
    EXPECT_EQ(LossOf(CString("1"), flag), Loss::NoFlag);
}

TEST(Losses, ATextHasNone) {
    CString text;
    EXPECT_EQ(LossOf(CString("12mm"), text), Loss::None);
}

}  // namespace
