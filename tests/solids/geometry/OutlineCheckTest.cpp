#include "geometry/OutlineCheck.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Loop = std::vector<CPointD>;

Loop Square(double x, double y, double size) {
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

TEST(WhyNoFace, ABorderWithHolesIsAFace) {
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10)}), "");
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(1, 1, 2), Square(5, 5, 2)}), "");
    EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {1, 0}, {0, 1}, {0, 0}}}), "")
        << "the first corner may be repeated";
}

TEST(WhyNoFace, WhatCrossesOrTouchesIsNone) {
    EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {4, 4}, {4, 0}, {0, 4}}}), "the outline crosses itself");
    EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {4, 0}, {2, 0}, {2, 4}}}), "the outline crosses itself");
    EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}}}), "the outline crosses itself");
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(9, 9, 2)}), "two outlines cross");
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(0, 1, 2)}), "two outlines cross");
}

TEST(WhyNoFace, AHoleLiesInTheBorderAndInNoOther) {
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(20, 0, 2)}),
              "a void lies outside of the outline");
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(-20, 1, 2)}),
              "a void lies outside of the outline");
    EXPECT_EQ(geometry::WhyNoFace({Square(0, 0, 10), Square(1, 1, 5), Square(2, 2, 1)}),
              "a void lies inside of another");
}

TEST(WhyNoFace, WhatIsNoOutlineIsTold) {
    EXPECT_EQ(geometry::WhyNoFace({}), "there is no outline");
    EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {1, 1}}}), "an outline has fewer than three corners");
    EXPECT_EQ(geometry::WhyNoFace({{{1, 1}, {1, 1}, {1, 1}}}), "an outline has fewer than three corners");
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(geometry::WhyNoFace({{{0, 0}, {1, 0}, {0, value}}}), "a corner is no number");
    EXPECT_NE(geometry::WhyNoFace({{{0, 0}, {1e300, 0}, {-1e300, 1e300}, {3, -1e300}}}),
              "a corner is no number");
}

TEST(WhyNoFace, FindsOneCrossingAmongThousands) {
    Loop circle;
    for (int i = 0; i < 20'000; ++i)
        circle.push_back({std::cos(i * std::numbers::pi / 10'000), std::sin(i * std::numbers::pi / 10'000)});
    EXPECT_EQ(geometry::WhyNoFace({circle}), "");
    std::swap(circle[5'000], circle[5'001]);
    EXPECT_EQ(geometry::WhyNoFace({circle}), "the outline crosses itself");
}

TEST(WhyNoFace, PiecesThatAllLieTogetherAreRefused) {
    // Ten thousand needles, all through the middle of a few cells, and a far corner that makes the cells
    // large.
    Loop needles;
    for (int i = 0; i < 10'000; ++i) {
        needles.push_back({i * 1e-4, 0});
        needles.push_back({i * 1e-4 + 5e-5, 1});
    }
    needles.push_back({1e6, -1e6});
    EXPECT_EQ(geometry::WhyNoFace({needles}), "too many pieces of the outline lie close together");
}

TEST(CornersOf, AnArcHasPointsOnItsCircle) {
    CPCDrawObjArray outline;
    auto* arc = new CPCArc;
    arc->SetRadius(2);
    arc->SetEndAngle(90);
    outline.Add(arc);
    outline.Add(new CPCLineSeg(0, 2, 2, 0));
    const Loop corners = geometry::CornersOf(outline);
    ASSERT_EQ(corners.size(), 19u);
    for (const CPointD& corner : corners) EXPECT_NEAR(std::hypot(corner.x, corner.y), 2, 1e-12);
    EXPECT_GT(corners[9].x, 0) << "on the short way";
    arc->SetDirection(1);
    EXPECT_EQ(geometry::CornersOf(outline).size(), 55u) << "clockwise is the long way";
}

}  // namespace
