#include "inspect/Shortest.h"

#include <gtest/gtest.h>

namespace {

TEST(Shortest, ReadsBackAsTheNumber) {
    EXPECT_EQ(veka::Shortest(0.1), "0.1");
    EXPECT_EQ(veka::Shortest(1e300), "1e+300");
    EXPECT_EQ(veka::Shortest(-7), "-7");
    EXPECT_EQ(veka::Shortest(true), "1");
}

}  // namespace
