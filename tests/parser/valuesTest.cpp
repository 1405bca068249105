#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Color.h"
#include "model/CVEKA_Comment.h"
#include "model/CVEKA_Coordinate.h"
#include "model/CVEKA_USGKey.h"
#include "support/Parsing.h"

namespace {

using test::Parse;
using testing::ElementsAre;

TEST(PointParser, APointWithOneValueHasOnlyX) {
    const auto point = Parse(&CVEK_AsciiParser::PointParser, "(P 1.5)");
    EXPECT_EQ(point->GetX(), 1.5);
    EXPECT_EQ(point->GetY(), 0);
    EXPECT_EQ(point->GetZ(), 0);
}

TEST(PointParser, APointWithFourValuesIgnoresTheFourth) {
    const auto point = Parse(&CVEK_AsciiParser::PointParser, "(P 1 -2 3mm 4)");
    EXPECT_EQ(point->GetX(), 1);
    EXPECT_EQ(point->GetY(), -2);
    EXPECT_EQ(point->GetZ(), 3);
}

TEST(ColorParser, KeepsNumbersOutsideTheUsualRange) {
    const auto color = Parse(&CVEK_AsciiParser::ColorParser, "(C 300 -1 abc 4)");
    EXPECT_EQ(color->GetRed(), 300);
    EXPECT_EQ(color->GetGreen(), -1);
    EXPECT_EQ(color->GetBlue(), 0);
}

TEST(COMMENTParser, ACommentKeepsItsFirstTwoValues) {
    const auto comments = Parse(&CVEK_AsciiParser::COMMENTParser, "(COMMENT (1 a b c))");
    ASSERT_EQ(comments->GetSize(), 1);
    EXPECT_EQ(comments->GetAt(0)->GetIndex(), 1);
    EXPECT_EQ(comments->GetAt(0)->GetProperty(), "a");
    EXPECT_EQ(comments->GetAt(0)->GetComment(), "b");
}

TEST(COMMENTParser, TheNameOfALevelIsItsIndexWhateverItIs) {
    const auto comments = Parse(&CVEK_AsciiParser::COMMENTParser, "(COMMENT (2x a) (note) ())");
    ASSERT_EQ(comments->GetSize(), 3);
    EXPECT_EQ(comments->GetAt(0)->GetIndex(), 2);
    EXPECT_EQ(comments->GetAt(0)->GetComment(), "");
    EXPECT_EQ(comments->GetAt(1)->GetIndex(), 0);
    EXPECT_EQ(comments->GetAt(2)->GetIndex(), 0);
}

TEST(USGKeysParser, OnlyKeyLevelsCount) {
    const auto keys =
        Parse(&CVEK_AsciiParser::USGKeysParser,
              "(X (OTHER (USGTYPE no)) (USGKEYS (USGTYPE a b) (USGVALUE 1 2)) (USGKEYS (OTHER x)))");
    ASSERT_EQ(keys->GetSize(), 2);
    EXPECT_EQ(keys->GetAt(0)->GetType(), "b");
    EXPECT_THAT(test::Strings(*keys->GetAt(0), &CVEKA_USGKey::GetValue), ElementsAre("1", "2"));
    EXPECT_EQ(keys->GetAt(1)->GetType(), "");
    EXPECT_THAT(test::Strings(*keys->GetAt(1), &CVEKA_USGKey::GetValue), ElementsAre());
}

TEST(USGKeysParser, ASecondListOfValuesReplacesTheFirst) {
    const auto keys = Parse(&CVEK_AsciiParser::USGKeysParser,
                            "(X (USGKEYS (USGVALUE 1 2) (USGVALUE 3)) (USGKEYS (USGVALUE 4) (USGVALUE)))");
    EXPECT_THAT(test::Strings(*keys->GetAt(0), &CVEKA_USGKey::GetValue), ElementsAre("3"));
    EXPECT_THAT(test::Strings(*keys->GetAt(1), &CVEKA_USGKey::GetValue), ElementsAre());
}

TEST(ColorParser, ReadsValuesThatWereAddedToALevel) {
    const auto tree = test::ReadTree("(COLOR 1)");
    CECadClsLvl* level = tree->m_pRootLevels->GetAt(0);
    level->m_aValues.Add("2");
    level->m_aValues.Add("3");
    CVEK_AsciiParser parser;
    const std::unique_ptr<CVEKA_Color> color(parser.ColorParser(level));
    EXPECT_EQ(color->GetRed(), 1);
    EXPECT_EQ(color->GetGreen(), 2);
    EXPECT_EQ(color->GetBlue(), 3);
}

}  // namespace
