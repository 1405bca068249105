#include "geometry/SolidShapesLib.h"

#include <gtest/gtest.h>

#include <BRepBndLib.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TopoDS_Shape.hxx>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <numbers>
#include <random>

#include "geometry/SolidFiles.h"
#include "geometry/StepFiles.h"
#include "support/Files.h"

namespace {

using geometry::vector;
using std::numbers::pi;

const vector kZero{}, kX{1, 0, 0}, kZ{0, 0, 1};
const vector kColor{0.5, 0.25, 1};
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

GProp_GProps Properties(const geometry::object& solid) {
    EXPECT_EQ(solid.GetFailure(), "");
    EXPECT_TRUE(BRepCheck_Analyzer(*solid.GetShape()).IsValid());
    GProp_GProps properties;
    BRepGProp::VolumeProperties(*solid.GetShape(), properties);
    return properties;
}

void ExpectVolume(const geometry::object& solid, double volume) {
    EXPECT_NEAR(Properties(solid).Mass(), volume, volume * 1e-3);
}

/// As above, without the modeller's check, which takes long for many faces.
void ExpectVolumeUnchecked(const geometry::object& solid, double volume) {
    ASSERT_EQ(solid.GetFailure(), "");
    GProp_GProps properties;
    BRepGProp::VolumeProperties(*solid.GetShape(), properties);
    EXPECT_NEAR(properties.Mass(), volume, volume * 1e-3);
}

void ExpectCenter(const geometry::object& solid, double x, double y, double z) {
    const gp_Pnt center = Properties(solid).CentreOfMass();
    EXPECT_NEAR(center.X(), x, 1e-6);
    EXPECT_NEAR(center.Y(), y, 1e-6);
    EXPECT_NEAR(center.Z(), z, 1e-6);
}

void ExpectBounds(const geometry::object& solid, vector low, vector high) {
    Bnd_Box box;
    BRepBndLib::AddOptimal(*solid.GetShape(), box, false, false);
    double x1, y1, z1, x2, y2, z2;
    box.Get(x1, y1, z1, x2, y2, z2);
    EXPECT_NEAR(x1, low.X, 1e-4);
    EXPECT_NEAR(y1, low.Y, 1e-4);
    EXPECT_NEAR(z1, low.Z, 1e-4);
    EXPECT_NEAR(x2, high.X, 1e-4);
    EXPECT_NEAR(y2, high.Y, 1e-4);
    EXPECT_NEAR(z2, high.Z, 1e-4);
}

void ExpectFailure(const geometry::object& solid, const char* reason) {
    ASSERT_NE(solid.GetShape(), nullptr);
    EXPECT_TRUE(solid.GetShape()->IsNull());
    EXPECT_EQ(solid.GetFailure(), reason);
}

geometry::cuboid Cuboid(double width, double height, double depth, vector point = {}, vector front = kX,
                        vector up = kZ) {
    return {point, front, up, width, height, depth, kColor, false};
}

/// An outline of straight pieces through points, closed.
CPCDrawObjArray Outline(std::vector<CPointD> points) {
    CPCDrawObjArray outline;
    for (size_t i = 0; i < points.size(); ++i) {
        const CPointD& a = points[i];
        const CPointD& b = points[(i + 1) % points.size()];
        outline.Add(new CPCLineSeg(a.x, a.y, b.x, b.y));
    }
    return outline;
}

CPCArc* Arc(CPointD center, double radius, double start, double end, int direction) {
    auto* arc = new CPCArc;
    arc->SetCenterPt(center);
    arc->SetRadius(radius);
    arc->SetStartAngle(start);
    arc->SetEndAngle(end);
    arc->SetDirection(direction);
    return arc;
}

geometry::pillar Pillar(const CPCDrawObjArray& outline, const CPCPolygonArray& voids = {}, double depth = 2) {
    return {kZero, kZero, kZero, outline, voids, depth, kColor, false};
}

TEST(Solids, KeepWhatTheyAreMadeOf) {
    const geometry::cuboid solid({1, 2, 3}, kX, kZ, 4, 5, 6, kColor, true);
    EXPECT_EQ(solid.Width, 4);
    EXPECT_EQ(solid.Height, 5);
    EXPECT_EQ(solid.Depth, 6);
    EXPECT_EQ(solid.GetPoint(), (vector{1, 2, 3}));
    EXPECT_EQ(solid.GetFront(), kX);
    EXPECT_EQ(solid.GetUp(), kZ);
    EXPECT_EQ(solid.GetColor(), kColor);
    EXPECT_STREQ(solid.GetKind(), "cuboid");
    EXPECT_TRUE(solid.GetFlag());
}

TEST(Solids, HaveTheRightVolume) {
    ExpectVolume(Cuboid(2, 3, 4), 24);
    ExpectVolume(geometry::hole_cuboid(kZero, kX, kZ, 4, 5, 2, 3, 6, kColor, false), (20 - 6) * 6);
    ExpectVolume(geometry::cylinder(kZero, kX, kZ, 2, 3, kColor, false), pi * 4 * 3);
    ExpectVolume(geometry::donut(kZero, kX, kZ, 2, 6, 3, kColor, false), pi * (9 - 1) * 3);
    ExpectVolume(geometry::pyramid(kZero, kX, kZ, 4, 6, 2, 3, 5, kColor, false),
                 5.0 / 6 * (24 + 6 + 4 * 3 * 4.5));
    ExpectVolume(geometry::pyramid(kZero, kX, kZ, 4, 6, 0, 0, 5, kColor, false), 5 * 24 / 3.0);
    ExpectVolume(geometry::pyramid(kZero, kX, kZ, 0, 0, 4, 6, 5, kColor, false), 5 * 24 / 3.0);
    ExpectVolume(geometry::sphere(kZero, 2, kColor, false), 4.0 / 3 * pi * 8);
    ExpectVolume(geometry::ellipse(kZero, kX, kZ, 4, 6, 5, kColor, false), pi * 2 * 3 * 5);
    ExpectVolume(geometry::ellipse(kZero, kX, kZ, 6, 4, 5, kColor, false), pi * 2 * 3 * 5);
}

TEST(Solids, StandOnTheirOriginWithTheirWidthAlongX) {
    ExpectBounds(Cuboid(2, 4, 6), {-1, -2, 0}, {1, 2, 6});
    ExpectBounds(geometry::pyramid(kZero, kX, kZ, 2, 4, 1, 1, 6, kColor, false), {-1, -2, 0}, {1, 2, 6});
    ExpectBounds(geometry::ellipse(kZero, kX, kZ, 2, 4, 6, kColor, false), {-1, -2, 0}, {1, 2, 6});
    ExpectBounds(geometry::cylinder(kZero, kX, kZ, 1, 6, kColor, false), {-1, -1, 0}, {1, 1, 6});
    ExpectBounds(geometry::sphere(kZero, 2, kColor, false), {-2, -2, -2}, {2, 2, 2});
}

TEST(Solids, AreMovedToTheirPoint) {
    ExpectCenter(Cuboid(2, 4, 6, {10, 20, 30}), 10, 20, 33);
    ExpectCenter(geometry::sphere({1, 2, 3}, 1, kColor, false), 1, 2, 3);
}

TEST(Solids, AreTurnedByTheirAngles) {
    geometry::cuboid solid = Cuboid(2, 4, 6, {10, 0, 0});
    solid.SetAngle(0, 0, 90);
    ExpectBounds(solid, {8, -1, 0}, {12, 1, 6});
    solid.SetAngle(0, 90, 0);
    ExpectBounds(solid, {10, -2, -1}, {16, 2, 1});
    solid.SetAngle(90, 0, 0);
    ExpectBounds(solid, {9, -6, -2}, {11, 0, 2});
    ExpectVolume(solid, 48);
}

TEST(Solids, AreTurnedAboutXThenYThenZ) {
    geometry::cuboid solid = Cuboid(2, 4, 6);
    solid.SetAngle(90, 90, 0);
    // The depth turns from Z to -Y and stays there; the height turns from Y to Z and on to X.
    ExpectBounds(solid, {-2, -6, -1}, {2, 0, 1});
}

TEST(Solids, AreTurnedAboutTheirPivot) {
    geometry::cuboid solid = Cuboid(2, 2, 2, {10, 0, 0});
    solid.pivot = {1, 0, 0};
    solid.SetAngle(0, 0, 180);
    ExpectCenter(solid, 12, 0, 1);
}

TEST(Solids, AreTurnedByTheirDirectionsWhereNoAngleIs) {
    // Front and up as a record makes them of 90 degrees about Z: the body lies as that angle lays it.
    const vector front{0, -1, 0};
    const geometry::pyramid byDirections({5, 0, 0}, front, kZ, 2, 4, 1, 1, 6, kColor, false);
    geometry::pyramid byAngle({5, 0, 0}, kX, kZ, 2, 4, 1, 1, 6, kColor, false);
    byAngle.SetAngle(0, 0, 90);
    ExpectBounds(byDirections, {3, -1, 0}, {7, 1, 6});
    ExpectBounds(byAngle, {3, -1, 0}, {7, 1, 6});
}

TEST(Solids, DirectionsOfAnyRotationTurnAsItsAnglesDo) {
    const double a = 30 * pi / 180, b = 40 * pi / 180, c = 50 * pi / 180;
    const double sa = std::sin(a), sb = std::sin(b), sc = std::sin(c), ca = std::cos(a), cb = std::cos(b),
                 cc = std::cos(c);
    const vector front{cc * cb, cc * sb * sa - ca * sc, cc * sb * ca + sc * sa}, up{-sb, cb * sa, cb * ca};
    geometry::cuboid byDirections = Cuboid(2, 4, 6, {1, 2, 3}, front, up),
                     byAngles = Cuboid(2, 4, 6, {1, 2, 3}, front, up);
    byDirections.pivot = byAngles.pivot = {1, 1, 1};
    byAngles.SetAngle(30, 40, 50);
    const gp_Pnt one = Properties(byDirections).CentreOfMass(), other = Properties(byAngles).CentreOfMass();
    EXPECT_LT(one.Distance(other), 1e-9) << "and never twice";
    const gp_Mat first = Properties(byDirections).MatrixOfInertia(),
                 second = Properties(byAngles).MatrixOfInertia();
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 3; ++column)
            EXPECT_NEAR(first(row, column), second(row, column), 1e-6);
}

TEST(Solids, AreNotTurnedWithoutTwoDirections) {
    for (const auto& [front, up] :
         {std::pair{kZero, kZero}, {kX, kZero}, {kZero, kZ}, {kZ, kZ}, {kX, vector{kNaN, 0, 0}}})
        ExpectBounds(Cuboid(2, 4, 6, {}, front, up), {-1, -2, 0}, {1, 2, 6});
}

TEST(Solids, DirectionsNeedNeitherLengthOneNorARightAngle) {
    ExpectBounds(Cuboid(2, 4, 6, {}, {0, -5, 3}, {0, 0, 7}), {-2, -1, 0}, {2, 1, 6});
}

TEST(Solids, ImpossibleSizesGiveNoShapeAndAReason) {
    ExpectFailure(Cuboid(0, 1, 1), "the width is not above 0");
    ExpectFailure(Cuboid(1, -1, 1), "the height is not above 0");
    ExpectFailure(Cuboid(1, 1, kNaN), "the depth is not above 0");
    ExpectFailure(Cuboid(1, kInfinity, 1), "the height is too large");
    ExpectFailure(Cuboid(1e-30, 1, 1), "the width is too small");
    ExpectFailure(Cuboid(1, 1, 1e30), "the depth is too large");
    ExpectFailure(Cuboid(1, 1, 1, {kNaN, 0, 0}), "the point is not a place that a body can have");
    ExpectFailure(geometry::hole_cuboid(kZero, kX, kZ, 1, 1, 1, 0.5, 1, kColor, false),
                  "the hole is not smaller than the box");
    ExpectFailure(geometry::hole_cuboid(kZero, kX, kZ, 1, 1, 0, 0.5, 1, kColor, false),
                  "the hole's width is not above 0");
    ExpectFailure(geometry::cylinder(kZero, kX, kZ, -1, 1, kColor, false), "the radius is not above 0");
    ExpectFailure(geometry::donut(kZero, kX, kZ, 2, 1, 1, kColor, false),
                  "the inner diameter is not smaller than the outer one");
    ExpectFailure(geometry::pyramid(kZero, kX, kZ, 0, 0, 0, 0, 1, kColor, false), "both ends are tips");
    ExpectFailure(geometry::pyramid(kZero, kX, kZ, 1, 0, 1, 1, 1, kColor, false),
                  "the bottom's height is not above 0");
    ExpectFailure(geometry::sphere(kZero, 0, kColor, false), "the radius is not above 0");
    ExpectFailure(geometry::ellipse(kZero, kX, kZ, 1, 0, 1, kColor, false), "the height is not above 0");
    geometry::cuboid turned = Cuboid(1, 1, 1);
    turned.SetAngle(kInfinity, 0, 0);
    ExpectFailure(turned, "the rotation is no number");
    turned.SetAngle(0, 0, 0);
    turned.pivot = {0, 1e300, 0};
    ExpectFailure(turned, "the pivot is not a place that a body can have");
}

TEST(Solids, MakeTheirShapeOnce) {
    const geometry::cuboid solid = Cuboid(1, 1, 1);
    EXPECT_EQ(solid.GetShape(), solid.GetShape());
}

TEST(Pillar, IsAPrismOverItsOutline) {
    const geometry::pillar solid = Pillar(Outline({{1, 1}, {5, 1}, {5, 4}, {1, 4}}));
    ExpectVolume(solid, 4 * 3 * 2);
    ExpectBounds(solid, {1, 1, 0}, {5, 4, 2});
}

TEST(Pillar, MayRunEitherWayRound) {
    ExpectVolume(Pillar(Outline({{1, 4}, {5, 4}, {5, 1}, {1, 1}})), 24);
}

TEST(Pillar, HasArcsAndVoids) {
    // A square of 10 with a half circle on its right side, two holes: a square and a circle.
    CPCDrawObjArray outline;
    outline.Add(new CPCLineSeg(0, 0, 10, 0));
    outline.Add(Arc({10, 5}, 5, 270, 90, 0));
    outline.Add(new CPCLineSeg(10, 10, 0, 10));
    outline.Add(new CPCLineSeg(0, 10, 0, 0));
    CPCPolygonArray voids;
    auto* square = new CPCPolygon;
    square->GetBoundary() = Outline({{1, 1}, {1, 3}, {3, 3}, {3, 1}});
    voids.Add(square);
    auto* circle = new CPCPolygon;
    circle->GetBoundary().Add(Arc({6, 6}, 1, 0, 0, 1));
    voids.Add(circle);
    const geometry::pillar solid = Pillar(outline, voids);
    ExpectVolume(solid, (100 + pi * 25 / 2 - 4 - pi) * 2);
    ExpectBounds(solid, {0, 0, 0}, {15, 10, 2});
}

TEST(Pillar, AClockwiseArcCutsIntoIt) {
    CPCDrawObjArray outline;
    outline.Add(new CPCLineSeg(0, 0, 10, 0));
    outline.Add(Arc({10, 5}, 5, 270, 90, 1));
    outline.Add(new CPCLineSeg(10, 10, 0, 10));
    outline.Add(new CPCLineSeg(0, 10, 0, 0));
    ExpectVolume(Pillar(outline), (100 - pi * 25 / 2) * 2);
}

TEST(Pillar, MayBeTwoHalfCircles) {
    CPCDrawObjArray outline;
    outline.Add(Arc({0, 0}, 3, 0, 180, 0));
    outline.Add(Arc({0, 0}, 3, 180, 360, 0));
    ExpectVolume(Pillar(outline), pi * 9 * 2);
}

TEST(Pillar, ClosesGapsThatRoundingExplains) {
    CPCDrawObjArray outline;
    outline.Add(new CPCLineSeg(0, 0, 10, 0.0002));
    outline.Add(new CPCLineSeg(10, 0, 10, 10));
    outline.Add(new CPCLineSeg(10.0003, 10, 0, 10));
    outline.Add(new CPCLineSeg(0, 10, 0, 0));
    ExpectVolume(Pillar(outline), 200);
}

TEST(Pillar, ImpossibleOutlinesGiveNoShapeAndAReason) {
    ExpectFailure(Pillar({}), "the outline is empty");
    ExpectFailure(Pillar(Outline({{0, 0}, {1, 0}})), "the outline has two points only");
    ExpectFailure(Pillar(Outline({{0, 0}, {0, 0}})), "the outline is empty");
    CPCDrawObjArray open;
    open.Add(new CPCLineSeg(0, 0, 1, 0));
    open.Add(new CPCLineSeg(1, 0, 1, 1));
    open.Add(new CPCLineSeg(1, 1, 0, 1));
    ExpectFailure(Pillar(open), "the outline does not close");
    ExpectFailure(Pillar(Outline({{0, 0}, {1, 0}, {kNaN, 1}})),
                  "the outline has a point that no body can have");
    ExpectFailure(Pillar(Outline({{0, 0}, {4, 4}, {4, 0}, {0, 4}})), "the outline crosses itself");
    ExpectFailure(Pillar(Outline({{0, 0}, {1, 0}, {1, 1}}), {}, 0), "the depth is not above 0");
    CPCPolygonArray voids;
    voids.Add(new CPCPolygon);
    ExpectFailure(Pillar(Outline({{0, 0}, {1, 0}, {1, 1}}), voids), "a void is empty");
    CPCDrawObjArray point;
    point.Add(Arc({0, 0}, 0, 0, 90, 0));
    EXPECT_TRUE(Pillar(point).GetShape()->IsNull());
}

TEST(Step, HoldsTheShapeOfAFileInItsFolders) {
    const test::TemporaryDirectory directory;
    geometry::WriteStep(
        static_cast<const char*>(directory / "body.step"),
        {{"body", std::make_shared<geometry::cuboid>(kZero, kX, kZ, 2, 3, 4, kColor, false)}});
    geometry::step solid("body.step", {10, 0, 0}, kZero, kZero, kColor, false);
    solid.files = std::make_shared<geometry::step_files>(
        std::vector<std::string>{static_cast<const char*>(directory / "")});
    ExpectVolume(solid, 24);
    ExpectCenter(solid, 10, 0, 2);
}

TEST(Step, AFileThatIsNotNamedOrHasNoFolderGivesAReason) {
    const auto step = [](const char* path) {
        return geometry::step(path, kZero, kZero, kZero, kColor, false);
    };
    ExpectFailure(step(nullptr), "no STEP file is named");
    ExpectFailure(step(""), "no STEP file is named");
    ExpectFailure(step("/etc/passwd"), "no folder is named to look for the STEP file \"/etc/passwd\" in");
}

/// A comb of some lines, which never crosses itself.
std::vector<CPointD> Comb(int lines) {
    std::vector<CPointD> points;
    for (int i = 0; i < lines / 2; ++i) points.push_back({double(i), i % 2 * 0.5});
    for (int i = lines / 2; i-- > 0;) points.push_back({double(i), 2 + i % 2 * 0.5});
    return points;
}

TEST(Pillar, MayHaveThousandsOfLines) {
    ExpectVolumeUnchecked(Pillar(Outline(Comb(4000))), 1999 * 2 * 2);
    std::vector<CPointD> crossed = Comb(4000);
    std::swap(crossed[100], crossed[3000]);
    ExpectFailure(Pillar(Outline(crossed)), "the outline crosses itself");
    ExpectFailure(Pillar(Outline(Comb(5002))), "the outline and its voids have more than 5,000 pieces");
}

TEST(Pillar, MayHaveHundredsOfVoids) {
    CPCPolygonArray voids;
    for (int i = 0; i < 400; ++i) {
        auto* hole = new CPCPolygon;
        const double x = i % 20, y = i / 20;
        // Some run one way round, some the other.
        hole->GetBoundary() = i % 2 ? Outline({{x, y}, {x + 0.5, y}, {x + 0.5, y + 0.5}, {x, y + 0.5}})
                                    : Outline({{x, y}, {x, y + 0.5}, {x + 0.5, y + 0.5}, {x + 0.5, y}});
        voids.Add(hole);
    }
    const CPCDrawObjArray border = Outline({{-1, -1}, {20, -1}, {20, 20}, {-1, 20}});
    ExpectVolumeUnchecked(Pillar(border, voids), (21 * 21 - 400 * 0.25) * 2);
    auto* outside = new CPCPolygon;
    outside->GetBoundary() = Outline({{30, 0}, {31, 0}, {31, 1}});
    voids.Add(outside);
    ExpectFailure(Pillar(border, voids), "a void lies outside of the outline");
}

TEST(Pillar, AFewVoidsMayCrossTheOutlineAndEachOther) {
    CPCPolygonArray voids;
    for (const double x : {3.0, 3.5}) {
        auto* hole = new CPCPolygon;
        hole->GetBoundary() = Outline({{x, 1}, {x + 1, 1}, {x + 1, 2}, {x, 2}});
        voids.Add(hole);
    }
    ExpectVolume(Pillar(Outline({{0, 0}, {4, 0}, {4, 4}, {0, 4}}), voids), (16 - 1) * 2);
}

geometry::sweep Strip(double width, double thickness, std::vector<CPointD> corners) {
    geometry::sweep sweep;
    sweep.width = width;
    sweep.thickness = thickness;
    sweep.outline = Outline(std::move(corners));
    return sweep;
}

geometry::lead Lead(std::vector<geometry::sweep> sweeps, std::vector<geometry::lead::ball> balls = {}) {
    return {kZero, kZero, kZero, std::move(sweeps), std::move(balls), kColor, false};
}

TEST(Lead, AStripStandsUprightInItsDirection) {
    geometry::sweep strip = Strip(2, 1, {{0, 0}, {5, 0}, {5, 1}, {0, 1}});
    ExpectVolume(Lead({strip}), 10);
    ExpectBounds(Lead({strip}), {0, -1, 0}, {5, 1, 1});
    strip.direction = 90;
    ExpectBounds(Lead({strip}), {-1, 0, 0}, {1, 5, 1});
}

TEST(Lead, ARoundBarFollowsItsLine) {
    geometry::sweep bar;
    bar.round = true;
    bar.width = bar.thickness = 1;
    bar.middle.Add(new CPCLineSeg(-5, 4, -1, 4));
    bar.middle.Add(Arc({-1, 3}, 1, 90, 0, 1));
    bar.middle.Add(new CPCLineSeg(0, 3, 0, -2));
    ExpectVolume(Lead({bar}), pi / 4 * (4 + pi / 2 + 5));
    ExpectBounds(Lead({bar}), {-5, -0.5, -2}, {0.5, 0.5, 4.5});
    bar.width = 0.5;
    ExpectVolume(Lead({bar}), pi / 8 * (4 + pi / 2 + 5));
    ExpectBounds(Lead({bar}), {-5, -0.25, -2}, {0.5, 0.25, 4.5});
}

TEST(Lead, ARoundBarMayBeginWithABendAndHaveASharpCorner) {
    geometry::sweep bar;
    bar.round = true;
    bar.width = bar.thickness = 1;
    bar.middle.Add(Arc({-1, 3}, 1, 90, 0, 1));
    bar.middle.Add(new CPCLineSeg(0, 3, 0, -2));
    ExpectVolume(Lead({bar}), pi / 4 * (pi / 2 + 5));
    geometry::sweep corner = bar;
    corner.middle = CPCDrawObjArray();
    corner.middle.Add(new CPCLineSeg(-5, 0, 0, 0));
    corner.middle.Add(new CPCLineSeg(0, 0, 0, -5));
    ExpectVolume(Lead({corner}), pi / 4 * 10);
}

TEST(Lead, ItsPartsBecomeOneBody) {
    const geometry::lead solid = Lead(
        {Strip(2, 1, {{0, 0}, {1, 0}, {1, 2}, {0, 2}}), Strip(1, 1, {{0, -3}, {1, -3}, {1, 0.5}, {0, 0.5}})});
    ExpectVolume(solid, 4 + 3);
    ExpectVolume(Lead({}, {{1, 1}}), 4.0 / 3 * pi);
    ExpectBounds(Lead({}, {{1, 1}}), {-1, -1, 0}, {1, 1, 2});
}

TEST(Lead, ImpossiblePartsGiveNoShapeAndAReason) {
    ExpectFailure(Lead({}), "the lead is empty");
    ExpectFailure(Lead({}, {{kNaN, 1}}), "the radius is not above 0");
    ExpectFailure(Lead({Strip(0, 1, {{0, 0}, {1, 0}, {1, 1}})}), "the width of a section is not above 0");
    geometry::sweep bar;
    bar.round = true;
    bar.width = bar.thickness = 1;
    ExpectFailure(Lead({bar}), "the line of a bar is empty");
}

TEST(Placed, ABodyIsTurnedMovedAndScaled) {
    const auto body = std::make_shared<geometry::cuboid>(kZero, kX, kZ, 2, 4, 6, kColor, false);
    geometry::placement place{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}, {10, 0, 1}, 1};
    const geometry::placed turned(body, place);
    ExpectBounds(turned, {8, -1, 1}, {12, 1, 7});
    EXPECT_EQ(turned.GetColor(), kColor);
    EXPECT_STREQ(turned.GetKind(), "cuboid");
    EXPECT_TRUE(turned.GetShape()->IsPartner(*body->GetShape())) << "the shape is shared";
    place.scale = 2;
    ExpectBounds(geometry::placed(body, place), {16, -2, 2}, {24, 2, 14});
    ExpectVolume(geometry::placed(body, place), 48 * 8);
}

TEST(Placed, ABodyMayBeMirrored) {
    const auto body = std::make_shared<geometry::cuboid>(vector{5, 0, 0}, kX, kZ, 2, 4, 6, kColor, false);
    const geometry::placed mirrored(body, {{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}, 1});
    ExpectBounds(mirrored, {-6, -2, 0}, {-4, 2, 6});
    ExpectVolume(mirrored, 48);
}

TEST(Placed, ImpossiblePlacesGiveNoShapeAndAReason) {
    const auto body = std::make_shared<geometry::cuboid>(kZero, kX, kZ, 2, 4, 6, kColor, false);
    ExpectFailure(geometry::placed(body, {{kNaN, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}, 1}),
                  "the rotation is no number");
    ExpectFailure(geometry::placed(body, {kX, {0, 1, 0}, kZ, {kInfinity, 0, 0}, 1}),
                  "the place is not a place that a body can have");
    ExpectFailure(geometry::placed(body, {kX, {0, 1, 0}, kZ, {}, 0}), "the scale is not above 0");
    const auto none = std::make_shared<geometry::cuboid>(kZero, kX, kZ, 0, 4, 6, kColor, false);
    ExpectFailure(geometry::placed(none, {}), "the width is not above 0");
}

TEST(SolidFiles, HoldNamesAndColours) {
    const test::TemporaryDirectory directory;
    const std::vector<geometry::NamedSolid> solids{
        {"first body", std::make_shared<geometry::cuboid>(kZero, kX, kZ, 2, 3, 4, kColor, false)},
        {"broken", std::make_shared<geometry::cuboid>(kZero, kX, kZ, 0, 3, 4, kColor, false)},
        {"ball", std::make_shared<geometry::sphere>(vector{9, 9, 9}, 2, vector{2, -1, 0}, false)}};
    const std::string stepPath(static_cast<const char*>(directory / "out.step"));
    EXPECT_EQ(geometry::WriteStep(stepPath, solids),
              std::vector<std::string>{"broken has no shape: the width is not above 0"});
    const std::string text = test::ReadFile(stepPath);
    EXPECT_NE(text.find("first body"), std::string::npos);
    EXPECT_NE(text.find("ball"), std::string::npos);
    EXPECT_NE(text.find("COLOUR_RGB"), std::string::npos);
    const std::string gltfPath(static_cast<const char*>(directory / "out.glb"));
    EXPECT_EQ(geometry::WriteGltf(gltfPath, solids).size(), 1u);
    const std::string gltf = test::ReadFile(gltfPath);
    EXPECT_EQ(gltf.substr(0, 4), "glTF");
    EXPECT_NE(gltf.find("first body"), std::string::npos);
}

TEST(SolidFiles, AreNotWrittenWithoutASolidOrAPlace) {
    const test::TemporaryDirectory directory;
    const std::vector<geometry::NamedSolid> good{
        {"ball", std::make_shared<geometry::sphere>(kZero, 2, kColor, false)}};
    EXPECT_THROW(geometry::WriteStep(static_cast<const char*>(directory / "x.step"), {}), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(static_cast<const char*>(directory / "x.step")));
    EXPECT_THROW(geometry::WriteStep("/nowhere/x.step", good), std::runtime_error);
    EXPECT_THROW(geometry::WriteGltf("/nowhere/x.glb", good), std::runtime_error);
}

TEST(SolidFiles, WhatStoodThereStaysWhereTheFileCannotBeWritten) {
    const test::TemporaryDirectory directory;
    const std::string path(directory.Write("x.glb", "former"));
    EXPECT_THROW(geometry::WriteGltf(path, {}), std::runtime_error);
    EXPECT_EQ(test::ReadFile(path), "former");
    const std::vector<geometry::NamedSolid> thin{
        {"thin", std::make_shared<geometry::ellipse>(kZero, kX, kZ, 1e-4, 1, 0.05, kColor, false)}};
    try {
        geometry::WriteGltf(path, thin);
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(test::ReadFile(path), "former") << error.what();
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(std::string(directory / "")), {}), 1)
        << "no temporary file stays";
}

/// The numbers behind a name in the JSON of a binary glTF file.
std::vector<double> NumbersOf(const std::string& gltf, const std::string& name) {
    std::vector<double> numbers;
    const size_t at = gltf.find('"' + name + "\":[");
    if (at == std::string::npos) return numbers;
    const char* next = gltf.c_str() + at + name.size() + 4;
    while (*next != ']') {
        char* end = nullptr;
        numbers.push_back(std::strtod(next, &end));
        if (end == next) break;
        next = *end == ',' ? end + 1 : end;
    }
    return numbers;
}

TEST(SolidFiles, GltfIsInMetresWithYUp) {
    const test::TemporaryDirectory directory;
    const std::string path(static_cast<const char*>(directory / "box.glb"));
    geometry::WriteGltf(
        path, {{"box", std::make_shared<geometry::cuboid>(kZero, kX, kZ, 20, 40, 60, kColor, false)}});
    std::string gltf = test::ReadFile(path);
    std::erase_if(gltf, [](char c) { return c == ' ' || c == '\n'; });
    // The largest corner of the first face in the file bounds no more than the box: its height of 60 is along
    // Y.
    double high = 0, wide = 0, deep = 0;
    for (size_t at = gltf.find("\"max\":["); at != std::string::npos; at = gltf.find("\"max\":[", at + 1)) {
        const std::vector<double> corner = NumbersOf(gltf.substr(at), "max");
        if (corner.size() != 3) continue;
        wide = std::max(wide, corner[0]);
        high = std::max(high, corner[1]);
        deep = std::max(deep, corner[2]);
    }
    EXPECT_NEAR(wide, 0.01, 1e-6);
    EXPECT_NEAR(high, 0.06, 1e-6);
    EXPECT_NEAR(deep, 0.02, 1e-6);
}

TEST(SolidFiles, ALargeBallTakesNoMoreTrianglesThanASmallOne) {
    const test::TemporaryDirectory directory;
    const auto size = [&](double radius) {
        const std::string path(static_cast<const char*>(directory / "ball.glb"));
        geometry::WriteGltf(path,
                            {{"ball", std::make_shared<geometry::sphere>(kZero, radius, kColor, false)}});
        return std::filesystem::file_size(path);
    };
    const auto small = size(1), large = size(1000);
    EXPECT_LT(large, small + small / 10);
    EXPECT_LT(large, 200'000u);
}

TEST(SolidFiles, BodiesWithOneShapeAreOnePartPlacedSeveralTimes) {
    const test::TemporaryDirectory directory;
    const auto size = [&](int count) {
        const auto body = std::make_shared<geometry::sphere>(kZero, 1, kColor, false);
        std::vector<geometry::NamedSolid> solids;
        for (int i = 0; i < count; ++i)
            solids.push_back({"ball " + std::to_string(i),
                              std::make_shared<geometry::placed>(
                                  body, geometry::placement{kX, {0, 1, 0}, kZ, {3.0 * i, 0, 0}, 1})});
        const std::string path(static_cast<const char*>(directory / "balls.glb"));
        EXPECT_TRUE(geometry::WriteGltf(path, solids).empty());
        EXPECT_NE(test::ReadFile(path).find("ball " + std::to_string(count - 1)), std::string::npos);
        return std::filesystem::file_size(path);
    };
    EXPECT_LT(size(50), size(1) * 2);
}

TEST(SolidFiles, BodiesOfRandomSizesEndWithTrianglesOrAReason) {
    const test::TemporaryDirectory directory;
    std::minstd_rand random(3);
    const auto size = [&] { return std::pow(10.0, (static_cast<int>(random() % 120) - 50) / 10.0); };
    std::vector<geometry::NamedSolid> solids;
    for (int i = 0; i < 56; ++i) {
        const double a = size(), b = size(), c = size(), d = size(), e = size();
        std::shared_ptr<geometry::object> solid;
        switch (i % 8) {
            case 0:
                solid = std::make_shared<geometry::cuboid>(kZero, kX, kZ, a, b, c, kColor, false);
                break;
            case 1:
                solid = std::make_shared<geometry::hole_cuboid>(kZero, kX, kZ, a, b, c, d, e, kColor, false);
                break;
            case 2:
                solid = std::make_shared<geometry::cylinder>(kZero, kX, kZ, a, b, kColor, false);
                break;
            case 3:
                solid = std::make_shared<geometry::donut>(kZero, kX, kZ, a, b, c, kColor, false);
                break;
            case 4:
                solid = std::make_shared<geometry::pyramid>(kZero, kX, kZ, a, b, c, d, e, kColor, false);
                break;
            case 5:
                solid = std::make_shared<geometry::sphere>(kZero, a, kColor, false);
                break;
            case 6:
                solid = std::make_shared<geometry::ellipse>(kZero, kX, kZ, a, b, c, kColor, false);
                break;
            default:
                solid = std::make_shared<geometry::pillar>(kZero, kX, kZ,
                                                           Outline({{a, b}, {a + c, b}, {a, b + d}}),
                                                           CPCPolygonArray(), e, kColor, false);
        }
        EXPECT_EQ(solid->GetShape()->IsNull(), !solid->GetFailure().empty());
        if (!solid->GetShape()->IsNull()) solids.push_back({"body " + std::to_string(i), std::move(solid)});
    }
    const std::string path(static_cast<const char*>(directory / "random.glb"));
    for (const std::string& reason : geometry::WriteGltf(path, solids))
        EXPECT_NE(reason.find(" is left out: "), std::string::npos) << reason;
    EXPECT_LT(std::filesystem::file_size(path), 20'000'000u);
}

}  // namespace
