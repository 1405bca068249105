#include "export/kicad/Outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "drawing/SceneBuilder.h"

namespace {

using namespace kicad;
using drawing::Point;

std::vector<Point> Square(double half, Point middle = {}) {
    return {middle + Point{-half, -half}, middle + Point{half, -half}, middle + Point{half, half},
            middle + Point{-half, half}};
}

double Area(const std::vector<Point>& outline) {
    double area = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point a = outline[i], b = outline[(i + 1) % outline.size()];
        area += (a.x * b.y - a.y * b.x) / 2;
    }
    return area;
}

TEST(KiCadOutlines, AnArcIsFollowedToAMicrometre) {
    const std::vector<Point> circle = Straightened(drawing::CircleOutline(5));
    for (std::size_t i = 0; i < circle.size(); ++i) {
        EXPECT_NEAR(std::hypot(circle[i].x, circle[i].y), 5, 1e-9);
        const Point middle = (circle[i] + circle[(i + 1) % circle.size()]) * 0.5;
        EXPECT_GE(std::hypot(middle.x, middle.y), 5 - kArcError);
    }
    EXPECT_NEAR(Area(circle), 25 * std::numbers::pi, 0.03);
}

TEST(KiCadOutlines, AHugeArcHasFewCorners) {
    EXPECT_LE(Straightened(drawing::CircleOutline(1e6)).size(), 362u);
    EXPECT_GE(Straightened(drawing::CircleOutline(1e-6)).size(), 8u);
}

TEST(KiCadOutlines, AHoleIsJoinedToTheOutlineAroundIt) {
    const auto joined = WithoutHoles({Square(5), Square(1), Square(1, {3, 0})});
    ASSERT_EQ(joined.size(), 1u);
    EXPECT_NEAR(Area(joined[0]), 100 - 8, 1e-9);
    EXPECT_EQ(DepthOf({0, 0}, joined[0]), 0);
    EXPECT_GT(DepthOf({0, 3}, joined[0]), 0);
}

TEST(KiCadOutlines, AnIslandInAHoleIsAnAreaByItself) {
    const auto areas = WithoutHoles({Square(1), Square(3), Square(5), Square(1, {20, 0})});
    ASSERT_EQ(areas.size(), 3u);
    EXPECT_NEAR(std::fabs(Area(areas[0])), 100 - 36, 1e-9);
}

TEST(KiCadOutlines, OutlinesWithoutAnAreaAreLeftOut) {
    EXPECT_TRUE(WithoutHoles({{{0, 0}, {1, 1}}, {}}).empty());
}

TEST(KiCadOutlines, AnAreaOfTwoCornersIsTheLineOfItsPen) {
    const auto line = LineOf({{0, 0}, {1, 2}}, 0.5);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->end, (Point{1, 2}));
    EXPECT_EQ(line->width, 0.5);
    EXPECT_TRUE(LineOf({{3, 4}}, 0.5));
    EXPECT_FALSE(LineOf({{0, 0}, {1, 2}}, 0));
    EXPECT_FALSE(LineOf({}, 1));
    EXPECT_FALSE(LineOf(Square(1), 1));
}

TEST(KiCadOutlines, VeryManyHolesAreRefused) {
    std::vector<std::vector<Point>> outlines(12'000, Square(1));
    EXPECT_THROW(WithoutHoles(outlines), drawing::TooLarge);
}

TEST(KiCadOutlines, APointInsideIsFarFromTheEdges) {
    // An L, whose box has its middle outside.
    const std::vector<Point> outline{{0, 0}, {10, 0}, {10, 1}, {1, 1}, {1, 10}, {0, 10}};
    const Inside inside = PointInside(outline);
    EXPECT_GT(inside.depth, 0.4);
    EXPECT_NEAR(inside.depth, DepthOf(inside.point, outline), 1e-12);
    EXPECT_EQ(PointInside(std::vector<Point>{{0, 0}, {1, 0}}).depth, 0);
    EXPECT_EQ(PointInside({}).depth, 0);
}

}  // namespace
