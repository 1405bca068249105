#include "export/kicad/Sexpr.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace kicad;

TEST(KiCadSexpr, ATextIsEscaped) {
    EXPECT_EQ(Quoted("a\"b\\c(d)"), "\"a\\\"b\\\\c(d)\"");
    EXPECT_EQ(Quoted("a\r\nb\tc"), "\"a\\nb\\tc\"");
    EXPECT_EQ(Quoted(std::string_view("\0\x1B\x7F", 3)), "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(KiCadSexpr, ATextIsUtf8) {
    EXPECT_EQ(Quoted("\xCE\xA9"), "\"\xCE\xA9\"");
    EXPECT_EQ(Quoted("\xB5"), "\"\xC2\xB5\"");
    EXPECT_EQ(Quoted("\x80\x81"), "\"\xE2\x82\xAC\xEF\xBF\xBD\"");
}

TEST(KiCadSexpr, ALengthIsExactToTheNanometre) {
    EXPECT_EQ(Decimal(1.2345674, 6), "1.234567");
    EXPECT_EQ(Decimal(1.0000005, 6), "1.000001");
    EXPECT_EQ(Decimal(-0.0000001, 6), "0");
    EXPECT_EQ(Decimal(100, 6), "100");
    EXPECT_EQ(Decimal(0.1 + 0.2, 6), "0.3");
    EXPECT_EQ(Decimal(12, 0), "12");
}

TEST(KiCadSexpr, AnAngleIsWithinAFullTurn) {
    EXPECT_EQ(Sexpr().Line("a").Angle(-90).Angle(720).Angle(33.3).Angle(359.9999999999).Close().Take(),
              "(a 270 0 33.3 0)\n");
}

TEST(KiCadSexpr, OnlyABoardsLengthsAreHeld) {
    EXPECT_TRUE(Holds(2000));
    EXPECT_FALSE(Holds(2000.1));
    EXPECT_FALSE(Holds(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(Holds(drawing::Point{0, -std::numeric_limits<double>::infinity()}));
}

TEST(KiCadSexpr, ListsStandInLines) {
    Sexpr out;
    out.Line("a")
        .Text("x")
        .Open("b")
        .Word("1")
        .Close()
        .Line("c")
        .Down({1, 2})
        .Close()
        .Line("d")
        .Up({1, 2})
        .Close();
    EXPECT_EQ(out.Close().Take(), "(a \"x\" (b 1)\n  (c 1 -2)\n  (d 1 2)\n)\n");
}

}  // namespace
