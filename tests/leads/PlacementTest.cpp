#include "leads/Placement.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/Parsing.h"

namespace {

using veka::Position;

CVEKA_Coordinate At(double x, double y, double z) {
    CVEKA_Coordinate point;
    point.SetX(x);
    point.SetY(y);
    point.SetZ(z);
    return point;
}

void ExpectAt(const Position& position, double x, double y, double z) {
    EXPECT_NEAR(position.x, x, 1e-12);
    EXPECT_NEAR(position.y, y, 1e-12);
    EXPECT_NEAR(position.z, z, 1e-12);
}

std::unique_ptr<CVEKA_3DObject> Object(const std::string& text) {
    return test::Parse(&CVEK_AsciiParser::ObjectParser, text);
}

TEST(PlaceOfPin, TurnsAboutZAndThenMoves) {
    const veka::Placement place = veka::PlaceOfPin(At(10, 20, 30), 90);
    ExpectAt(place({1, 0, 2}), 10, 21, 32);
    ExpectAt(place.Turned({1, 0, 2}), 0, 1, 2);
}

TEST(PlaceOfPin, AQuarterTurnIsExact) {
    for (const double turns : {0.0, 360.0, -720.0}) {
        EXPECT_EQ(veka::PlaceOfPin(At(0, 0, 0), 90 + turns)({1, 2, 3}), (Position{-2, 1, 3}));
        EXPECT_EQ(veka::PlaceOfPin(At(0, 0, 0), 180 + turns)({1, 2, 3}), (Position{-1, -2, 3}));
        EXPECT_EQ(veka::PlaceOfPin(At(0, 0, 0), 270 + turns)({1, 2, 3}), (Position{2, -1, 3}));
    }
    ExpectAt(veka::PlaceOfPin(At(0, 0, 0), -30)({2, 0, 0}), std::sqrt(3), -1, 0);
}

TEST(PlaceOfPin, ARotationThatIsNoNumberIsNotFinite) {
    EXPECT_TRUE(veka::PlaceOfPin(At(1, 2, 3), 45).IsFinite());
    EXPECT_FALSE(veka::PlaceOfPin(At(1, 2, 3), INFINITY).IsFinite());
    EXPECT_FALSE(veka::PlaceOfPin(At(1, NAN, 3), 45).IsFinite());
}

TEST(PlaceOfObject, MirrorsThenTurnsAboutXThenYThenZThenMoves) {
    const auto place = [](const std::string& text) {
        return veka::PlaceOfObject(dynamic_cast<const CVEKA_3DOJ_RotMirror&>(*Object("(FLAT " + text + ")")));
    };
    ExpectAt(place("(PT 1 2 3)")({1, 1, 1}), 2, 3, 4);
    ExpectAt(place("(MIRROR Y) (ROTATION 0 0 90)")({1, 0, 0}), 0, -1, 0);
    ExpectAt(place("(ROTATION 90 90 0)")({0, 1, 0}), 1, 0, 0);
    ExpectAt(place("(MIRROR N)")({1, 0, 0}), 1, 0, 0);
}

TEST(PlaceOnPin, TheTurnOfAPinThatAnObjectRepeatsCountsOnce) {
    const auto place = [](const std::string& text, double rotation) {
        return veka::PlaceOnPin(*Object(text), At(5, 0, 0), rotation)({1, 0, 0});
    };
    ExpectAt(place("(FLAT)", 90), 5, 1, 0);
    ExpectAt(place("(FLAT (ROTATION 0 0 30))", 90), 5, 1, 0);
    ExpectAt(place("(FLAT (ROTATION 0 0 90))", 90), 6, 0, 0);
    ExpectAt(place("(FLAT (ROTATION 0 0 -270))", 90), 6, 0, 0);
    ExpectAt(place("(CUBOID (ROTATE 0 0 180))", 180), 6, 0, 0);
    ExpectAt(place("(CUBOID (ROTATE 0 0 90))", 180), 4, 0, 0);
    ExpectAt(place("(FLAT (ROTATION 0 0 360))", 0), 6, 0, 0);
}

TEST(IsMirrored, OnlyFourWordsMeanSo) {
    for (const char* word : {"Y", "y", "YES", "True", "1"}) EXPECT_TRUE(veka::IsMirrored(word)) << word;
    for (const char* word : {"", "N", "NO", "FALSE", "0", "X", "Y ", "MIRROR"})
        EXPECT_FALSE(veka::IsMirrored(word)) << word;
}

TEST(MillimetersOfUnit, KnowsTheUnitsOfLength) {
    EXPECT_EQ(veka::MillimetersOfUnit("MM"), 1);
    EXPECT_EQ(veka::MillimetersOfUnit("mm"), 1);
    EXPECT_EQ(veka::MillimetersOfUnit("INCH"), 25.4);
    EXPECT_EQ(veka::MillimetersOfUnit("MIL"), 0.0254);
    EXPECT_EQ(veka::MillimetersOfUnit("UM"), 0.001);
    EXPECT_EQ(veka::MillimetersOfUnit(""), 0);
    EXPECT_EQ(veka::MillimetersOfUnit("FURLONG"), 0);
}

}  // namespace
