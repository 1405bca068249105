#include "export/kicad/PadShape.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace kicad;
using drawing::Place;
using drawing::Point;
using drawing::Vertex;
using Kind = PadShape::Kind;

std::vector<Vertex> At(const Place& place, std::vector<Vertex> outline) {
    for (Vertex& vertex : outline) vertex = place.Moved(vertex);
    return outline;
}

void ExpectShape(const std::optional<PadShape>& shape, Kind kind, double width, double height, double angle,
                 double corner = 0) {
    ASSERT_TRUE(shape);
    EXPECT_EQ(shape->kind, kind);
    EXPECT_NEAR(shape->width, width, 1e-9);
    EXPECT_NEAR(shape->height, height, 1e-9);
    EXPECT_NEAR(shape->angle, angle, 1e-9);
    EXPECT_NEAR(shape->corner, corner, 1e-9);
}

TEST(KiCadPadShape, ARectangleIsFoundAtAnyTurn) {
    for (const double turn : {-44.0, 0.0, 7.5, 45.0}) {
        const auto shape = ShapeOf(At(Place({3, -2}, turn), drawing::RectangleOutline(2, 1)));
        ExpectShape(shape, Kind::Rectangle, 2, 1, turn);
        EXPECT_NEAR(shape->center.x, 3, 1e-9);
        EXPECT_NEAR(shape->center.y, -2, 1e-9);
    }
    ExpectShape(ShapeOf(At(Place({}, 90), drawing::RectangleOutline(2, 1))), Kind::Rectangle, 1, 2, 0);
}

TEST(KiCadPadShape, TheDirectionAndTheFirstCornerOfAnOutlineDoNotMatter) {
    std::vector<Vertex> outline = drawing::RectangleOutline(2, 1);
    std::reverse(outline.begin(), outline.end());
    std::rotate(outline.begin(), outline.begin() + 1, outline.end());
    outline.insert(outline.begin(), outline[0]);
    outline.insert(outline.begin() + 2, {(outline[1].point + outline[2].point) * 0.5});
    ExpectShape(ShapeOf(outline), Kind::Rectangle, 2, 1, 0);
}

TEST(KiCadPadShape, RoundCornersHaveTheirRadius) {
    ExpectShape(ShapeOf(At(Place({1, 1}, 20), drawing::RoundedOutline(2, 1, 0.25))), Kind::RoundedRectangle,
                2, 1, 20, 0.25);
    ExpectShape(ShapeOf(drawing::RoundedOutline(2, 1, 0.5)), Kind::Oval, 2, 1, 0, 0.5);
    ExpectShape(ShapeOf(drawing::RoundedOutline(1, 3, 0.5)), Kind::Oval, 1, 3, 0, 0.5);
    ExpectShape(ShapeOf(drawing::RoundedOutline(1, 1, 0.5)), Kind::Circle, 1, 1, 0);
    ExpectShape(ShapeOf(drawing::CircleOutline(0.5)), Kind::Circle, 1, 1, 0);
}

TEST(KiCadPadShape, CutCornersAreTold) {
    const auto all = ShapeOf(drawing::ChamferedOutline(2, 1, 0.2));
    ExpectShape(all, Kind::ChamferedRectangle, 2, 1, 0, 0.2);
    EXPECT_EQ(all->corners, 15u);
    const auto one =
        ShapeOf(std::vector<Vertex>{{{-1, -0.5}}, {{1, -0.5}}, {{1, 0.5}}, {{-0.8, 0.5}}, {{-1, 0.3}}});
    ExpectShape(one, Kind::ChamferedRectangle, 2, 1, 0, 0.2);
    EXPECT_EQ(one->corners, static_cast<unsigned>(PadShape::TopLeft));
    // Half a side is cut at both ends, so that nothing of the side is left.
    const auto tip =
        ShapeOf(std::vector<Vertex>{{{-1, -0.5}}, {{0.5, -0.5}}, {{1, 0}}, {{0.5, 0.5}}, {{-1, 0.5}}});
    ExpectShape(tip, Kind::ChamferedRectangle, 2, 1, 0, 0.5);
    EXPECT_EQ(tip->corners, static_cast<unsigned>(PadShape::TopRight | PadShape::BottomRight));
}

TEST(KiCadPadShape, ATrapezoidSaysWhichEdgeIsLonger) {
    const std::vector<Vertex> left{{{-1, -0.8}}, {{1, -0.2}}, {{1, 0.2}}, {{-1, 0.8}}};
    const auto shape = ShapeOf(left);
    ExpectShape(shape, Kind::Trapezoid, 2, 1, 0);
    EXPECT_NEAR(shape->deltaX, 1.2, 1e-9);
    EXPECT_EQ(shape->deltaY, 0);
    const auto down = ShapeOf(At(Place({}, 90), left));
    ExpectShape(down, Kind::Trapezoid, 1, 2, 0);
    EXPECT_NEAR(down->deltaY, 1.2, 1e-9);
    const auto right = ShapeOf(At(Place({5, 0}, 180), left));
    EXPECT_NEAR(right->deltaX, -1.2, 1e-9);
    const auto up = ShapeOf(At(Place({}, -90), left));
    EXPECT_NEAR(up->deltaY, -1.2, 1e-9);
}

TEST(KiCadPadShape, OtherOutlinesAreNone) {
    EXPECT_FALSE(ShapeOf(std::vector<Vertex>{{{0, 0}}, {{1, 0}}, {{0, 1}}}));
    EXPECT_FALSE(ShapeOf(std::vector<Vertex>{{{0, 0}}, {{3, 0}}, {{2, 1}}, {{1, 3}}}));
    EXPECT_FALSE(ShapeOf(std::vector<Vertex>{{{0, 0}}, {{1, 0}}}));
    EXPECT_FALSE(ShapeOf(std::vector<Vertex>{}));
    EXPECT_FALSE(ShapeOf(std::vector<Vertex>{{{0, 0}}, {{0, 0}}, {{0, 0}}, {{0, 0}}}));
    std::vector<Vertex> bitten = drawing::RectangleOutline(2, 1);
    bitten[0].bulge = 0.3;
    EXPECT_FALSE(ShapeOf(bitten));
}

TEST(KiCadPadShape, AQuarterTurnChangesTheFrameAndNotTheShape) {
    PadShape shape;
    shape.kind = Kind::ChamferedRectangle;
    shape.width = 2;
    shape.height = 1;
    shape.corners = PadShape::TopRight;
    shape.deltaX = 0.5;
    const PadShape turned = TurnedLike(shape, 90);
    EXPECT_EQ(turned.angle, 90);
    EXPECT_EQ(turned.width, 1);
    EXPECT_EQ(turned.height, 2);
    EXPECT_EQ(turned.corners, static_cast<unsigned>(PadShape::BottomRight));
    // The left edge is the upper one in the turned frame.
    EXPECT_EQ(turned.deltaY, -0.5);
    EXPECT_EQ(TurnedLike(shape, 30).angle, 0);
}

}  // namespace
