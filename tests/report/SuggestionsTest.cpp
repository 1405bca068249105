#include "report/Suggestions.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

using veka::Nearest;

TEST(Suggestions, FindAWordWithWrongMissingSurplusOrExchangedLetters) {
    constexpr std::array<std::string_view, 3> words{"ROTATION", "PT", "MIRROR"};
    EXPECT_EQ(Nearest("ROTATON", words), "ROTATION");
    EXPECT_EQ(Nearest("ROTTAION", words), "ROTATION");
    EXPECT_EQ(Nearest("ROTATIONSS", words), "ROTATION");
    EXPECT_EQ(Nearest("mirror", words), "MIRROR");
    EXPECT_EQ(Nearest("MIROR", words), "MIRROR");
}

TEST(Suggestions, FindNothingThatIsFar) {
    constexpr std::array<std::string_view, 3> words{"ROTATION", "PT", "MIRROR"};
    EXPECT_EQ(Nearest("ROT", words), "");
    EXPECT_EQ(Nearest("XT", words), "");
    EXPECT_EQ(Nearest("", words), "");
    EXPECT_EQ(Nearest(std::string(100'000, 'R'), words), "");
    EXPECT_EQ(Nearest("A", {}), "");
}

TEST(Suggestions, TakeTheNearestWord) {
    constexpr std::array<std::string_view, 3> words{"GULLWINGA", "GULLWING", "FLAT"};
    EXPECT_EQ(Nearest("gullwing", words), "GULLWING");
    EXPECT_EQ(Nearest("GULWING", words), "GULLWING");
}

}  // namespace
