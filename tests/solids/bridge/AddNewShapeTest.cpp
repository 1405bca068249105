#include <gtest/gtest.h>

#include <cmath>

#include "bridge/MakeDrawObjArray.h"
#include "geometry/SolidShapesLib.h"
#include "model/objects/Objects.h"
#include "support/Parsing.h"

namespace {

using Shapes = std::vector<std::shared_ptr<geometry::object>>;

/// The solids of a level's objects.
Shapes Make(const std::string& objects) {
    const auto array = test::Parse(&CVEK_AsciiParser::ObjectsParser, "(X " + objects + ")");
    Shapes shapes;
    CVEKA_3DObject::AddNewShape(&shapes, *array);
    return shapes;
}

/// The only solid of a level's objects, as a class that it must have.
template <class Solid>
std::shared_ptr<Solid> MakeOne(const std::string& objects) {
    const Shapes shapes = Make(objects);
    if (shapes.size() != 1) throw std::logic_error("not one solid: " + objects);
    return std::dynamic_pointer_cast<Solid>(shapes[0]);
}

std::unique_ptr<CPCDrawObjArray> Outline(const std::string& objects) {
    const auto array = test::Parse(&CVEK_AsciiParser::ObjectsParser, "(X " + objects + ")");
    return std::unique_ptr<CPCDrawObjArray>(MakeDrawObjArray(*array));
}

void ExpectVector(const geometry::vector& v, double x, double y, double z) {
    EXPECT_DOUBLE_EQ(v.X, x);
    EXPECT_DOUBLE_EQ(v.Y, y);
    EXPECT_DOUBLE_EQ(v.Z, z);
}

TEST(AddNewShape, MakesSolidsOfWhatHasASolidForm) {
    const Shapes shapes = Make("(CUBOID) (GULLWING) (SPHERE)");
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_NE(dynamic_cast<geometry::cuboid*>(shapes[0].get()), nullptr);
    EXPECT_NE(dynamic_cast<geometry::sphere*>(shapes[1].get()), nullptr);
}

TEST(AddNewShape, AppendsToWhatIsThere) {
    const auto array = test::Parse(&CVEK_AsciiParser::ObjectsParser, "(X (CUBOID))");
    Shapes shapes(1);
    CVEKA_3DObject::AddNewShape(&shapes, *array);
    EXPECT_EQ(shapes.size(), 2u);
}

TEST(AddNewShape, AParametricShapeHasNoSolidThoughItsNumberIsACuboids) {
    EXPECT_TRUE(Make("(3DSHAPE (W 1) (L 1) (T 1))").empty());
}

TEST(AddNewShape, NothingElseHasASolid) {
    EXPECT_TRUE(Make("(BALL) (LINE) (CIRCLE) (3DLINE) (TEXT) (WRAPAROUND) (NOSUCH)").empty());
    EXPECT_TRUE(Make("(USERDEFINED (MAINSHAPE (CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1))))").empty());
    CVEKA_3DObjectArray objects;
    objects.SetSize(2);
    objects.Add(std::make_unique<CVEKA_3DObject>());
    objects[2]->SetType(0);
    Shapes shapes;
    CVEKA_3DObject::AddNewShape(&shapes, objects);
    EXPECT_TRUE(shapes.empty()) << "nor has null, nor a base record with a solid's number";
}

TEST(AddNewShape, AColourIsDividedBy255AndNotClamped) {
    ExpectVector(Make("(SPHERE (COLOR 255 128 0))")[0]->GetColor(), 1, 128 / 255.0, 0);
    ExpectVector(Make("(CUBOID (COLOR 300 0 -255))")[0]->GetColor(), 300 / 255.0, 0, -1);
}

TEST(AddNewShape, PassesPlaceDirectionsPivotAndAngles) {
    const auto solid = MakeOne<geometry::cuboid>(
        "(CUBOID (WIDTH 1) (HEIGHT 2) (THICKNESS 3) (ROTATE 400 0 -90) (FRONT 4 5 6) (UP 7 8 9) (PIVOT 10 11 "
        "12) (PT 13 14 15))");
    ExpectVector(solid->GetPoint(), 13, 14, 15);
    ExpectVector(solid->GetFront(), 4, 5, 6);
    ExpectVector(solid->GetUp(), 7, 8, 9);
    ExpectVector(solid->pivot, 10, 11, 12);
    ExpectVector(solid->GetAngle(), 400, 0, -90);
    EXPECT_FALSE(solid->GetFlag());
    EXPECT_EQ(solid->Width, 1);
    EXPECT_EQ(solid->Height, 2);
    EXPECT_EQ(solid->Depth, 3);
}

TEST(AddNewShape, PassesTheSizesInTheSolidsOrder) {
    const auto hole = MakeOne<geometry::hole_cuboid>(
        "(HOLECUBOID (WIDTH 1) (HEIGHT 2) (THICKNESS 3) (HOLEWIDTH 4) (HOLEHEIGHT 5))");
    EXPECT_EQ(hole->Width, 1);
    EXPECT_EQ(hole->Height, 2);
    EXPECT_EQ(hole->HoleWidth, 4);
    EXPECT_EQ(hole->HoleHeight, 5);
    EXPECT_EQ(hole->Depth, 3);
    const auto cylinder = MakeOne<geometry::cylinder>("(CYLINDER (RADIUS 1) (THICKNESS 2))");
    EXPECT_EQ(cylinder->Radius, 1);
    EXPECT_EQ(cylinder->Depth, 2);
    const auto donut = MakeOne<geometry::donut>("(DONUT (OUTERDIAM 1) (INNERDIAM 2) (THICKNESS 3))");
    EXPECT_EQ(donut->OutterSize, 1);
    EXPECT_EQ(donut->InnerSize, 2);
    EXPECT_EQ(donut->Depth, 3);
    const auto pyramid = MakeOne<geometry::pyramid>(
        "(PYRAMID (TOPWIDTH 1) (TOPHEIGHT 2) (BOTWIDTH 3) (BOTHEIGHT 4) (THICKNESS 5))");
    EXPECT_EQ(pyramid->TopWidth, 1);
    EXPECT_EQ(pyramid->TopHeight, 2);
    EXPECT_EQ(pyramid->BtmWidth, 3);
    EXPECT_EQ(pyramid->BtmHeight, 4);
    EXPECT_EQ(pyramid->Depth, 5);
    const auto sphere = MakeOne<geometry::sphere>("(SPHERE (RADIUS 1) (PT 2 3 4))");
    EXPECT_EQ(sphere->Radius, 1);
    ExpectVector(sphere->GetPoint(), 2, 3, 4);
    const auto ellipse = MakeOne<geometry::ellipse>("(ELLIPSE (WIDTH 1) (HEIGHT 2) (THICKNESS 3))");
    EXPECT_EQ(ellipse->Width, 1);
    EXPECT_EQ(ellipse->Height, 2);
    EXPECT_EQ(ellipse->Depth, 3);
    EXPECT_EQ(MakeOne<geometry::step>("(STEP (PATH a.step))")->Path, "a.step");
}

TEST(AddNewShape, APillarTakesLinesAndArcsAndVoids) {
    const auto pillar = MakeOne<geometry::pillar>(
        "(PILLAR (THICKNESS 1.2) (BOUNDARY (LINE (PT 0 0) (PT 4 0)) (ARC (PT 4 0) (PT 0 0) (PT 2 0) (DIR "
        "CCW)))"
        " (VOIDS (VOID (LINE (PT 1 0) (PT 2 0)) (LINE (PT 2 0) (PT 1 0)) (CIRCLE)) (LINE)))");
    EXPECT_EQ(pillar->Bound.GetSize(), 2u);
    ASSERT_EQ(pillar->Voids.GetSize(), 1u) << "a line is no void";
    EXPECT_EQ(pillar->Voids[0].GetBoundary().GetSize(), 2u);
    EXPECT_EQ(pillar->Depth, 1.2);
}

TEST(AddNewShape, APillarOverARectangleHasAnEmptyOutlineAndIsMadeAllTheSame) {
    const auto pillar =
        MakeOne<geometry::pillar>("(PILLAR (THICKNESS 1) (BOUNDARY (RECTANGLE (W 1) (H 1))))");
    EXPECT_EQ(pillar->Bound.GetSize(), 0u);
}

/// A STEP body with a value of its own in each field.
const char* const kStep =
    "(STEP (PATH a.step) (FRONT 4 5 6) (UP 7 8 9) (PIVOT 10 11 12) (PT 13 14 15) (COLOR 255 51 102))";

TEST(AddNewShape, AStepBodyHasItsFrontBeforeItsUp) {
    const auto step = MakeOne<geometry::step>(kStep);
    ExpectVector(step->GetFront(), 4, 5, 6);
    ExpectVector(step->GetUp(), 7, 8, 9);
}

TEST(AddNewShape, AStepBodyHasItsPoint) {
    ExpectVector(MakeOne<geometry::step>(kStep)->GetPoint(), 13, 14, 15);
}

TEST(AddNewShape, AStepBodyHasItsColour) {
    ExpectVector(MakeOne<geometry::step>(kStep)->GetColor(), 1, 0.2, 0.4);
}

TEST(AddNewShape, AStepBodyHasItsPivotAndItsAngles) {
    ExpectVector(MakeOne<geometry::step>(kStep)->pivot, 10, 11, 12);
    ExpectVector(MakeOne<geometry::step>("(STEP (ROTATE 10 20 30))")->GetAngle(), 10, 20, 30);
}

TEST(AddNewShape, TheLastFlagOfEverySolidIsFalse) {
    const Shapes shapes = Make(
        "(CUBOID) (HOLECUBOID) (CYLINDER) (DONUT) (PYRAMID) (SPHERE) (ELLIPSE) (PILLAR) (STEP (PATH "
        "a.step))");
    ASSERT_EQ(shapes.size(), 9u);
    for (const auto& shape : shapes)
        EXPECT_FALSE(dynamic_cast<geometry::type_multi_object&>(*shape).GetFlag()) << shape->GetKind();
}

TEST(AddNewShape, EverySolidHasItsPivotItsAnglesAndItsColour) {
    const std::string common = " (ROTATE 10 20 30) (PIVOT 1 2 3) (COLOR 255 51 0))";
    for (const char* kind :
         {"CUBOID", "HOLECUBOID", "CYLINDER", "DONUT", "PYRAMID", "SPHERE", "ELLIPSE", "PILLAR", "STEP"}) {
        const auto solid = MakeOne<geometry::object>("(" + std::string(kind) + common);
        ExpectVector(solid->pivot, 1, 2, 3);
        ExpectVector(solid->GetAngle(), 10, 20, 30);
        ExpectVector(solid->GetColor(), 1, 0.2, 0);
    }
}

TEST(AddNewShape, EverySolidButTheSphereHasItsPointItsFrontAndItsUp) {
    for (const char* kind :
         {"CUBOID", "HOLECUBOID", "CYLINDER", "DONUT", "PYRAMID", "ELLIPSE", "PILLAR", "STEP"}) {
        const auto solid = MakeOne<geometry::multi_object>("(" + std::string(kind) +
                                                           " (FRONT 4 5 6) (UP 7 8 9) (PT 1 2 3))");
        ExpectVector(solid->GetPoint(), 1, 2, 3);
        ExpectVector(solid->GetFront(), 4, 5, 6);
        ExpectVector(solid->GetUp(), 7, 8, 9);
    }
    const auto sphere = MakeOne<geometry::sphere>("(SPHERE (FRONT 4 5 6) (UP 7 8 9) (PT 1 2 3))");
    ExpectVector(sphere->GetPoint(), 1, 2, 3);
    ExpectVector(sphere->GetFront(), 0, 0, 0);
    ExpectVector(sphere->GetUp(), 0, 0, 0);
}

TEST(AddNewShape, AVoidHasItsOwnOutline) {
    const auto pillar = MakeOne<geometry::pillar>(
        "(PILLAR (THICKNESS 1) (BOUNDARY (LINE (PT 0 0) (PT 4 0)) (LINE (PT 4 0) (PT 0 0)))"
        " (VOIDS (VOID (LINE (PT 1 2) (PT 3 4)))))");
    ASSERT_EQ(pillar->Voids.GetSize(), 1u);
    const CPCDrawObjArray& outline = pillar->Voids[0].GetBoundary();
    ASSERT_EQ(outline.GetSize(), 1u);
    EXPECT_EQ(outline[0].GetStartPt(), (CPointD{1, 2}));
    EXPECT_EQ(outline[0].GetEndPt(), (CPointD{3, 4}));
}

TEST(AddNewShape, TheObjectsOfACompositeAreNotEntered) {
    const std::string box = "(CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1))";
    for (const char* kind : {"COMPOSITE", "CONTOUR", "POLYLINE", "VOID"})
        EXPECT_TRUE(Make("(" + std::string(kind) + " " + box + ")").empty()) << kind;
    EXPECT_TRUE(Make("(CONTOUR (X " + box + "))").empty());
    EXPECT_TRUE(Make("(POLYGON (BOUNDARY " + box + "))").empty());
    EXPECT_EQ(MakeOne<geometry::pillar>("(PILLAR (BOUNDARY (COMPOSITE (LINE (PT 0 0) (PT 1 0)))))")
                  ->Bound.GetSize(),
              0u)
        << "nor in an outline";
}

TEST(MakeDrawObjArray, AnArcHasItsCentre) {
    const auto outline = Outline("(ARC (PT 5 3) (PT 4 4) (PT 4 3) (DIR CCW))");
    const auto& arc = dynamic_cast<const CPCArc&>((*outline)[0]);
    EXPECT_EQ(arc.GetCenterPt(), (CPointD{4, 3}));
    EXPECT_DOUBLE_EQ(arc.GetRadius(), 1);
}

TEST(MakeDrawObjArray, AnArcIsToldByAnglesRadiusAndDirection) {
    const auto outline = Outline("(ARC (PT 1 0) (PT 0 1) (PT 0 0) (R 9) (DIR CCW))");
    ASSERT_EQ(outline->GetSize(), 1u);
    const auto& arc = dynamic_cast<const CPCArc&>((*outline)[0]);
    EXPECT_DOUBLE_EQ(arc.GetStartAngle(), 0);
    EXPECT_DOUBLE_EQ(arc.GetEndAngle(), 90);
    EXPECT_DOUBLE_EQ(arc.GetRadius(), 1);
    EXPECT_EQ(arc.GetDirection(), 0);
}

TEST(MakeDrawObjArray, OnlyTheExactWordIsCounterClockwise) {
    for (const char* word : {"(DIR ccw)", "(DIR CW)", "(DIR \"CCW \")", ""}) {
        const auto outline = Outline(std::string("(ARC (PT 1 0) (PT 0 1) (PT 0 0) ") + word + ")");
        EXPECT_TRUE(dynamic_cast<const CPCArc&>((*outline)[0]).IsCW()) << word;
    }
}

TEST(MakeDrawObjArray, AnAngleIsNeverNegative) {
    const auto outline = Outline("(ARC (PT 1 -1 7) (PT -1 -1) (PT 0 0 9))");
    const auto& arc = dynamic_cast<const CPCArc&>((*outline)[0]);
    EXPECT_DOUBLE_EQ(arc.GetStartAngle(), 315);
    EXPECT_DOUBLE_EQ(arc.GetEndAngle(), 225);
    EXPECT_DOUBLE_EQ(arc.GetRadius(), std::sqrt(2.0)) << "every Z is ignored";
}

TEST(MakeDrawObjArray, AnAngleJustBelow0Is360) {
    const auto outline = Outline("(ARC (PT 1 -1e-300) (PT 1 0) (PT 0 0))");
    const auto& arc = dynamic_cast<const CPCArc&>((*outline)[0]);
    EXPECT_EQ(arc.GetStartAngle(), 360);
    EXPECT_EQ(arc.GetEndAngle(), 0);
}

TEST(MakeDrawObjArray, ALineIsItsTwoPoints) {
    const auto outline = Outline("(LINE (PT 1 2 3) (PT 4 5 6) (LW 7)) (RECTANGLE) (3DLINE)");
    ASSERT_EQ(outline->GetSize(), 1u);
    EXPECT_EQ((*outline)[0].GetStartPt(), (CPointD{1, 2}));
    EXPECT_EQ((*outline)[0].GetEndPt(), (CPointD{4, 5}));
}

}  // namespace
