#include "model/objects/CVEKA_3DOJ_AxisPivot.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

CVEKA_Coordinate Angles(double x, double y, double z) {
    CVEKA_Coordinate angles;
    angles.SetX(x);
    angles.SetY(y);
    angles.SetZ(z);
    return angles;
}

void ExpectNear(const CVEKA_Coordinate& point, double x, double y, double z) {
    EXPECT_NEAR(point.GetX(), x, 1e-9);
    EXPECT_NEAR(point.GetY(), y, 1e-9);
    EXPECT_NEAR(point.GetZ(), z, 1e-9);
}

TEST(CVEKA_3DOJ_AxisPivot, StartsWithoutDirections) {
    const CVEKA_3DOJ_AxisPivot body;
    EXPECT_EQ(body.CVEKA_3DObject::GetType(), -1);
    ExpectNear(*body.GetFront(), 0, 0, 0);
    ExpectNear(*body.GetUp(), 0, 0, 0);
    ExpectNear(*body.GetPivot(), 0, 0, 0);
    ExpectNear(*body.GetRotate(), 0, 0, 0);
}

TEST(CVEKA_3DOJ_AxisPivot, ARotationWithoutDirectionsIsOnlyStored) {
    CVEKA_3DOJ_AxisPivot body;
    const CVEKA_Coordinate angles = Angles(1, 2, 3);
    body.SetRotation(&angles, false);
    ExpectNear(*body.GetRotate(), 1, 2, 3);
    ExpectNear(*body.GetFront(), 0, 0, 0);
    EXPECT_THROW(body.SetRotation(nullptr, true), CInvalidArgException);
}

TEST(CVEKA_3DOJ_AxisPivot, ARotationMakesItsDirections) {
    CVEKA_3DOJ_AxisPivot body;
    const auto turn = [&](double x, double y, double z) {
        const CVEKA_Coordinate angles = Angles(x, y, z);
        body.SetRotation(&angles, true);
    };
    turn(0, 0, 0);
    ExpectNear(*body.GetFront(), 1, 0, 0);
    ExpectNear(*body.GetUp(), 0, 0, 1);
    EXPECT_TRUE(std::signbit(body.GetUp()->GetX())) << "a negated sine";
    turn(0, 0, 90);
    ExpectNear(*body.GetFront(), 0, -1, 0);
    ExpectNear(*body.GetUp(), 0, 0, 1);
    turn(90, 0, 0);
    ExpectNear(*body.GetFront(), 1, 0, 0);
    ExpectNear(*body.GetUp(), 0, 1, 0);
    turn(0, 90, 0);
    ExpectNear(*body.GetFront(), 0, 0, 1);
    ExpectNear(*body.GetUp(), -1, 0, 0);
    turn(30, 40, 50);
    const double r = std::numbers::pi / 180;
    const double sa = std::sin(30 * r), sb = std::sin(40 * r), sc = std::sin(50 * r);
    const double ca = std::cos(30 * r), cb = std::cos(40 * r), cc = std::cos(50 * r);
    ExpectNear(*body.GetFront(), cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa);
    ExpectNear(*body.GetUp(), -sb, cb * sa, cb * ca);
}

TEST(CVEKA_3DOJ_AxisPivot, AnglesAreReducedToOneTurn) {
    CVEKA_3DOJ_AxisPivot one, other;
    for (const auto& [a, b] : {std::pair{-90.0, 270.0}, {450.0, 90.0}, {-720.0, 0.0}, {360.0, 0.0}}) {
        const CVEKA_Coordinate first = Angles(a, a, a), second = Angles(b, b, b);
        one.SetRotation(&first, true);
        other.SetRotation(&second, true);
        EXPECT_EQ(one.GetFront()->GetY(), other.GetFront()->GetY()) << a;
        EXPECT_EQ(one.GetRotate()->GetX(), a) << "the angle itself is kept";
    }
}

TEST(CVEKA_3DOJ_AxisPivot, AnglesBeyondEveryTurnCountAsZero) {
    CVEKA_3DOJ_AxisPivot body;
    const double infinity = std::numeric_limits<double>::infinity();
    for (double angle : {1e300, -1e300, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        const CVEKA_Coordinate angles = Angles(angle, angle, angle);
        body.SetRotation(&angles, true);
        EXPECT_EQ(body.GetFront()->GetX(), 1);
        EXPECT_EQ(body.GetUp()->GetZ(), 1);
    }
}

TEST(CVEKA_3DOJ_AxisPivot, TheBinaryAngleCutsItsFractionOff) {
    CVEKA_3DOJ_AxisPivot body;
    const CVEKA_Coordinate angles = Angles(0, 0, 180.0 / 2147483648.0 * 0.9);
    body.SetRotation(&angles, true);
    EXPECT_EQ(body.GetFront()->GetY(), 0) << "less than one step is none";
}

}  // namespace
