#include "geometry/PlaneShapesLib.h"

#include <gtest/gtest.h>

namespace {

CPCArc Arc(double start, double end, int direction) {
    CPCArc arc;
    arc.SetCenterPt({1, 2});
    arc.SetRadius(2);
    arc.SetStartAngle(start);
    arc.SetEndAngle(end);
    arc.SetDirection(direction);
    return arc;
}

TEST(CPCArc, TurnsInItsDirection) {
    EXPECT_DOUBLE_EQ(Arc(0, 90, 0).GetSweep(), 90);
    EXPECT_DOUBLE_EQ(Arc(0, 90, 1).GetSweep(), 270);
    EXPECT_DOUBLE_EQ(Arc(350, 10, 0).GetSweep(), 20);
    EXPECT_DOUBLE_EQ(Arc(45, 45, 0).GetSweep(), 360);
    EXPECT_TRUE(Arc(0, 90, 1).IsCW());
    EXPECT_FALSE(Arc(0, 90, 0).IsCW());
}

TEST(CPCArc, KnowsItsPoints) {
    const CPCArc arc = Arc(0, 180, 1);
    EXPECT_NEAR(arc.GetStartPt().x, 3, 1e-12);
    EXPECT_NEAR(arc.GetEndPt().x, -1, 1e-12);
    EXPECT_NEAR(arc.GetMiddlePt().y, 0, 1e-12);
    EXPECT_NEAR(Arc(0, 180, 0).GetMiddlePt().y, 4, 1e-12);
}

TEST(CPCDrawObjArray, CopiesDeeply) {
    CPCDrawObjArray array;
    array.Add(new CPCLineSeg(1, 2, 3, 4));
    array.Add(new CPCArc(Arc(0, 90, 0)));
    array.Add(nullptr);
    const CPCDrawObjArray copy(array);
    ASSERT_EQ(copy.GetSize(), 2u);
    EXPECT_NE(&copy[0], &array[0]);
    EXPECT_EQ(copy[0].GetEndPt(), (CPointD{3, 4}));
    const CPCDrawObjArray& same = array;
    array = same;
    EXPECT_EQ(array.GetSize(), 2u);
}

TEST(CPCPolygonArray, CopiesDeeply) {
    CPCPolygonArray array;
    auto* polygon = new CPCPolygon;
    polygon->GetBoundary().Add(new CPCLineSeg(0, 0, 1, 1));
    array.Add(polygon);
    array.Add(nullptr);
    CPCPolygonArray copy(array);
    ASSERT_EQ(copy.GetSize(), 1u);
    EXPECT_NE(&copy[0], &array[0]);
    EXPECT_EQ(copy[0].GetBoundary().GetSize(), 1u);
}

}  // namespace
