#include "inspect/Shortest.h"

#include <gtest/gtest.h>

namespace {

TEST(Shortest, ReadsBackAsTheNumber) {
    EXPECT_EQ(host::Shortest(0.1), "0.1");
    EXPECT_EQ(host::Shortest(1e300), "1e+300");
    EXPECT_EQ(host::Shortest(-7), "-7");
    EXPECT_EQ(host::Shortest(true), "1");
}

}  // namespace
