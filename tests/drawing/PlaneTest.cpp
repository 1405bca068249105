#include "drawing/Plane.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace drawing;

TEST(Place, RightAnglesAreExact) {
    EXPECT_EQ(Place({}, 90)(Point{1, 2}), (Point{-2, 1}));
    EXPECT_EQ(Place({}, -90)(Point{1, 2}), (Point{2, -1}));
    EXPECT_EQ(Place({}, 540)(Point{1, 2}), (Point{-1, -2}));
    EXPECT_EQ(Place({}, 270).Angle(), 270);
}

TEST(Place, AnInnerPlaceComesFirst) {
    const Place both = Place({10, 0}, 90) * Place({1, 0}) * Place::Mirrored();
    EXPECT_EQ(both(Point{2, 3}), (Point{7, -1}));
    EXPECT_TRUE(both.IsMirrored());
    EXPECT_FALSE((both * Place::Mirrored()).IsMirrored());
    EXPECT_EQ((Place::Scaled(2) * Place({1, 1}))(Point{1, 0}), (Point{4, 2}));
    EXPECT_EQ((Place::Scaled(2) * Place({1, 1})).Scale(), 2);
}

TEST(ArcBetween, EqualPointsGiveAWholeCircle) {
    EXPECT_EQ(ArcBetween({1, 0}, {1, 0}, {}, true).sweep, 360);
    EXPECT_EQ(ArcBetween({1, 0}, {1, 0}, {}, false).sweep, -360);
    EXPECT_EQ(ArcBetween({1, 0}, {1, -1e-14}, {}, true).sweep, 360) << "so does what rounding leaves";
    EXPECT_NEAR(ArcBetween({0, -1}, {1, 0}, {}, true).sweep, 90, 1e-9);
    EXPECT_NEAR(ArcBetween({0, -1}, {1, 0}, {}, false).sweep, -270, 1e-9);
}

TEST(AppendArc, ItsPiecesMakeTheArcAgain) {
    for (const double sweep : {30.0, 180.0, 270.0, 360.0, -90.0, -300.0}) {
        std::vector<Vertex> way;
        AppendArc(way, {3, 4}, 5, {20, sweep});
        way.push_back({Point{3, 4} + Direction(20 + sweep) * 5, 0});
        double total = 0;
        for (size_t i = 0; i + 1 < way.size(); ++i) {
            const Arc2 arc = ArcOf(way[i], way[i + 1].point);
            EXPECT_NEAR(arc.radius, 5, 1e-9);
            EXPECT_NEAR(Distance(arc.center, {3, 4}), 0, 1e-9);
            total += arc.angles.sweep;
        }
        EXPECT_NEAR(total, sweep, 1e-9);
    }
}

TEST(Box, AWayIncludesTheReachOfItsArc) {
    Box box;
    AddWay(box, {{-1, 0}, -1}, {1, 0});  // clockwise over the top
    box.Add(Point{1, 0});
    EXPECT_NEAR(box.top, 1, 1e-12);
    EXPECT_NEAR(box.bottom, 0, 1e-12);
}

TEST(Outlines, RoundedCornersLeaveNoEdgeWithoutALength) {
    EXPECT_EQ(RoundedOutline(4, 2, 0.5).size(), 8u);
    EXPECT_EQ(RoundedOutline(4, 2, 1).size(), 6u);
    EXPECT_EQ(RoundedOutline(2, 2, 1).size(), 4u);
    EXPECT_EQ(RoundedOutline(4, 2, 0).size(), 4u);
    EXPECT_EQ(ChamferedOutline(4, 2, 0).size(), 4u);
}

}  // namespace
