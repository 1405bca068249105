#include "inspect/Shortest.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(Shortest, ReadsBackAsTheNumber) {
    EXPECT_EQ(veka::Shortest(0.1), "0.1");
    EXPECT_EQ(veka::Shortest(1e300), "1e+300");
    EXPECT_EQ(veka::Shortest(-7), "-7");
    EXPECT_EQ(veka::Shortest(true), "1");
}

TEST(Shortest, ANumberWithoutDigitsHasOneName) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(veka::Shortest(infinity), "inf");
    EXPECT_EQ(veka::Shortest(-infinity), "-inf");
    EXPECT_EQ(veka::Shortest(nan), "nan");
    EXPECT_EQ(veka::Shortest(std::copysign(nan, -1.0)), "nan");
}

}  // namespace
