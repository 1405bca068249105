#include <gtest/gtest.h>

#include <cmath>

#include "model/objects/Objects.h"
#include "support/Parsing.h"
#include "support/Records.h"

namespace {

/// The class of an object at run time.
template <class T>
const std::type_info& ClassOf(const T& object) {
    return typeid(object);
}

/// The object of a text by its level name, as a class that it must have.
template <class Class>
std::unique_ptr<Class> Object(std::string_view text) {
    auto object = test::Parse(&CVEK_AsciiParser::ObjectParser, text);
    auto* typed = dynamic_cast<Class*>(object.get());
    if (!typed || ClassOf(*typed) != typeid(Class))
        throw std::logic_error("another class: " + std::string(text));
    object.release();
    return std::unique_ptr<Class>(typed);
}

std::unique_ptr<CVEKA_3DObjectArray> Objects(std::string_view text) {
    return test::Parse(&CVEK_AsciiParser::ObjectsParser, text);
}

void ExpectPoint(const CVEKA_Coordinate* point, double x, double y, double z) {
    EXPECT_EQ(point->GetX(), x);
    EXPECT_EQ(point->GetY(), y);
    EXPECT_EQ(point->GetZ(), z);
}

void ExpectColor(const CVEKA_Color* color, int red, int green, int blue) {
    EXPECT_EQ(color->GetRed(), red);
    EXPECT_EQ(color->GetGreen(), green);
    EXPECT_EQ(color->GetBlue(), blue);
}

TEST(ObjectParser, EveryLevelNameHasItsParser) {
    int count = 0;
#define CHECK_KIND(Level, Number, Class, Method)                                        \
    {                                                                                   \
        const auto direct = test::Parse(&CVEK_AsciiParser::Method, "(ANYTHING)");       \
        EXPECT_EQ(ClassOf(*direct), typeid(Class)) << Level;                            \
        const auto found = test::Parse(&CVEK_AsciiParser::ObjectParser, "(" Level ")"); \
        ASSERT_NE(found, nullptr) << Level;                                             \
        if (std::string_view(Level) == "WRAPAROUND")                                    \
            EXPECT_EQ(ClassOf(*found), typeid(CVEKA_3DOJ_FLAT));                        \
        else                                                                            \
            EXPECT_EQ(ClassOf(*found), typeid(Class)) << Level;                         \
        ++count;                                                                        \
    }
    VEKA_OBJECT_KINDS(CHECK_KIND)
    EXPECT_EQ(count, 60);
}

TEST(ObjectParser, AnUnknownNameGivesNull) {
    for (const char* text :
         {"(NOSUCH)", "()", "(cuboid)", "(PROPTEXT)", "(3DTEXT)", "(NONE)", "(METAKMASKSHAPE)",
          "(METALMASKSHAPE)", "(CUBOIDCUBOIDCUBOIDCUBOIDCUBOID)", "(\"CUBOID \")"})
        EXPECT_EQ(test::Parse(&CVEK_AsciiParser::ObjectParser, text), nullptr) << text;
}

TEST(ObjectsParser, LeavesOutWhatItDoesNotKnow) {
    const auto objects = Objects("(X (SPHERE) (NOSUCH) (BALL) value)");
    ASSERT_EQ(objects->GetSize(), 2);
    EXPECT_EQ(objects->GetAt(0)->GetType(), 5);
    EXPECT_EQ(objects->GetAt(1)->GetType(), 16);
    EXPECT_EQ(Objects("(X)")->GetSize(), 0);
}

TEST(ObjectsParser, APropertyTextIsNamedPtext) {
    EXPECT_EQ(Objects("(X (PROPTEXT))")->GetSize(), 0);
    const auto objects = Objects("(X (PTEXT))");
    ASSERT_EQ(objects->GetSize(), 1);
    EXPECT_EQ(objects->GetAt(0)->GetType(), 60);
}

TEST(ObjectParser, ReadsTheExampleOfACuboid) {
    const auto cuboid = Object<CVEKA_3DOJ_CUBOID>(
        "(CUBOID\n (WIDTH 2.0) (HEIGHT 1.0) (THICKNESS 0.5)\n (PT 10 20 0) (ROTATE 0 0 90) (COLOR 255 0 0))");
    EXPECT_EQ(cuboid->WIDTH, 2);
    EXPECT_EQ(cuboid->HEIGHT, 1);
    EXPECT_EQ(cuboid->THICKNESS, 0.5);
    ExpectPoint(cuboid->GetPoint(), 10, 20, 0);
    ExpectPoint(cuboid->GetRotate(), 0, 0, 90);
    ExpectColor(cuboid->GetColor(), 255, 0, 0);
    EXPECT_NEAR(cuboid->GetFront()->GetX(), 0, 1e-9);
    EXPECT_NEAR(cuboid->GetFront()->GetY(), -1, 1e-9);
    EXPECT_EQ(cuboid->GetUp()->GetZ(), 1);
}

TEST(ObjectParser, TheLastValueOfANumberCounts) {
    EXPECT_EQ(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (WIDTH 1 2 3))")->WIDTH, 3);
}

TEST(ObjectParser, ANumberWithoutAValueKeepsItsDefault) {
    EXPECT_EQ(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (WIDTH))")->WIDTH, 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (WIDTH 2) (WIDTH))")->WIDTH, 2);
}

TEST(ObjectParser, AnUnknownKeywordIsSkipped) {
    EXPECT_EQ(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (BOGUS 1) (WIDTH 2) (width 3))")->WIDTH, 2);
}

TEST(ObjectParser, ALaterKeywordOverwritesAnEarlierOne) {
    const auto cuboid = Object<CVEKA_3DOJ_CUBOID>("(CUBOID (WIDTH 1) (PT 1 2 3) (WIDTH 2) (PT 4))");
    EXPECT_EQ(cuboid->WIDTH, 2);
    ExpectPoint(cuboid->GetPoint(), 4, 0, 0);
}

// Q23
TEST(ObjectParser, AWrapAroundEndBecomesAFlatLead) {
    const auto flat = Object<CVEKA_3DOJ_FLAT>(
        "(WRAPAROUND (H 1) (L 2) (W 3) (T 4) (ROTATION 5 6 7) (MIRROR N) (COLOR 8 9 10) (PT 11 12 13))");
    EXPECT_EQ(flat->CVEKA_3DObject::GetType(), 23);
    EXPECT_EQ(flat->L, 2);
    EXPECT_EQ(flat->W, 3);
    EXPECT_EQ(flat->T, 1);
    ExpectPoint(flat->GetRotation(), 5, 6, 7);
    EXPECT_EQ(flat->GetMirror(), "N");
    ExpectColor(flat->GetColor(), 8, 9, 10);
    ExpectPoint(flat->GetPoint(), 11, 12, 13);
    EXPECT_EQ(Object<CVEKA_3DOJ_FLAT>("(WRAPAROUND (T 9))")->T, 0) << "its own thickness is lost";
}

TEST(ObjectParser, AWrapAroundEndOnItsOwnStaysOne) {
    const auto end = test::Parse(&CVEK_AsciiParser::WRAPAROUNDObjectParser, "(X (H 1) (T 4))");
    EXPECT_EQ(end->CVEKA_3DObject::GetType(), 33);
    EXPECT_EQ(end->H, 1);
    EXPECT_EQ(end->T, 4);
}

TEST(SolidObjects, AnEmptyRotationStillMakesDirections) {
    const auto cuboid = Object<CVEKA_3DOJ_CUBOID>("(CUBOID (ROTATE))");
    ExpectPoint(cuboid->GetRotate(), 0, 0, 0);
    ExpectPoint(cuboid->GetFront(), 1, 0, 0);
    ExpectPoint(cuboid->GetUp(), 0, 0, 1);
}

TEST(SolidObjects, ANegativeAngleIsCutTowardsZero) {
    const auto cuboid = Object<CVEKA_3DOJ_CUBOID>("(CUBOID (ROTATE 0 0 -30))");
    // -30 degrees are -357913941.33 steps of a turn of 2^32 steps.
    const double angle = (4294967296.0 - 357913941.0) * 4.656612873077393e-10 * 3.141592653589793;
    EXPECT_NEAR(cuboid->GetFront()->GetX(), std::cos(angle), 1e-12);
    EXPECT_NEAR(cuboid->GetFront()->GetY(), -std::sin(angle), 1e-12);
}

// Q27
TEST(SolidObjects, TheOrderOfDirectionsAndRotationCounts) {
    ExpectPoint(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (FRONT 1 2 3) (ROTATE 0 0 0))")->GetFront(), 1, 0, 0);
    ExpectPoint(Object<CVEKA_3DOJ_CUBOID>("(CUBOID (ROTATE 0 0 0) (FRONT 1 2 3))")->GetFront(), 1, 2, 3);
}

TEST(SolidObjects, ReadTheirCommonKeywords) {
    const auto sphere = Object<CVEKA_3DOJ_SPHERE>(
        "(SPHERE (RADIUS 1) (FRONT 1 2 3) (UP 4 5 6) (COLOR 7 8 9) (PIVOT 10 11 12) (PT 13 14 15))");
    EXPECT_EQ(sphere->RADIUS, 1);
    ExpectPoint(sphere->GetFront(), 1, 2, 3);
    ExpectPoint(sphere->GetUp(), 4, 5, 6);
    ExpectColor(sphere->GetColor(), 7, 8, 9);
    ExpectPoint(sphere->GetPivot(), 10, 11, 12);
    ExpectPoint(sphere->GetPoint(), 13, 14, 15);
    ExpectPoint(sphere->GetRotate(), 0, 0, 0);
}

TEST(SolidObjects, AnEmptySphereIsAllZero) {
    const auto sphere = Object<CVEKA_3DOJ_SPHERE>("(SPHERE)");
    EXPECT_EQ(sphere->RADIUS, 0);
    ExpectPoint(sphere->GetFront(), 0, 0, 0);
    ExpectPoint(sphere->GetUp(), 0, 0, 0);
    ExpectPoint(sphere->GetPivot(), 0, 0, 0);
}

TEST(SolidObjects, ReadTheirOwnKeywords) {
    const auto hole = Object<CVEKA_3DOJ_HOLECUBOID>(
        "(HOLECUBOID (WIDTH 1) (HEIGHT 2) (THICKNESS 3) (HOLEWIDTH 4) (HOLEHEIGHT 5))");
    EXPECT_EQ(hole->WIDTH, 1);
    EXPECT_EQ(hole->HEIGHT, 2);
    EXPECT_EQ(hole->THICKNESS, 3);
    EXPECT_EQ(hole->HOLEWIDTH, 4);
    EXPECT_EQ(hole->HOLEHEIGHT, 5);
    const auto cylinder = Object<CVEKA_3DOJ_CYLINDER>("(CYLINDER (RADIUS 1) (THICKNESS 2))");
    EXPECT_EQ(cylinder->RADIUS, 1);
    EXPECT_EQ(cylinder->THICKNESS, 2);
    const auto donut = Object<CVEKA_3DOJ_DONUT>("(DONUT (OUTERDIAM 1) (INNERDIAM 2) (THICKNESS 3))");
    EXPECT_EQ(donut->OUTERDIAM, 1);
    EXPECT_EQ(donut->INNERDIAM, 2);
    EXPECT_EQ(donut->THICKNESS, 3);
    const auto pyramid = Object<CVEKA_3DOJ_PYRAMID>(
        "(PYRAMID (TOPWIDTH 1) (TOPHEIGHT 2) (BOTWIDTH 3) (BOTHEIGHT 4) (THICKNESS 5))");
    EXPECT_EQ(pyramid->TOPWIDTH, 1);
    EXPECT_EQ(pyramid->TOPHEIGHT, 2);
    EXPECT_EQ(pyramid->BOTWIDTH, 3);
    EXPECT_EQ(pyramid->BOTHEIGHT, 4);
    EXPECT_EQ(pyramid->THICKNESS, 5);
    EXPECT_EQ(Object<CVEKA_3DOJ_ELLIPSE>("(ELLIPSE (HEIGHT 2))")->HEIGHT, 2);
}

TEST(SolidObjects, AnOutlineMayBeEmpty) {
    EXPECT_EQ(Object<CVEKA_3DOJ_PILLAR>("(PILLAR (BOUNDARY))")->BOUNDARY->GetSize(), 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_PILLAR>("(PILLAR (BOUNDARY (NOSUCH)))")->BOUNDARY->GetSize(), 0);
}

TEST(SolidObjects, ASecondOutlineReplacesTheFirst) {
    const auto pillar = Object<CVEKA_3DOJ_PILLAR>("(PILLAR (BOUNDARY (LINE)) (BOUNDARY (ARC) (ARC)))");
    ASSERT_EQ(pillar->BOUNDARY->GetSize(), 2);
    EXPECT_EQ(pillar->BOUNDARY->GetAt(0)->GetType(), 38);
}

TEST(SolidObjects, ReadTheExampleOfAPillar) {
    const auto pillar = Object<CVEKA_3DOJ_PILLAR>(
        "(PILLAR (THICKNESS 1.2) (PT 0 0 0)\n (BOUNDARY (LINE (PT 0 0) (PT 4 0)) (ARC (PT 4 0) (PT 0 0) (PT "
        "2 0) (DIR CCW)))\n"
        " (VOIDS (VOID (LINE (PT 1 0) (PT 2 0)) (LINE (PT 2 0) (PT 1 0)))))");
    EXPECT_EQ(pillar->THICKNESS, 1.2);
    ASSERT_EQ(pillar->BOUNDARY->GetSize(), 2);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_ARC&>(*pillar->BOUNDARY->GetAt(1)).DIR, "CCW");
    ASSERT_EQ(pillar->VOIDS->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_VOID&>(*pillar->VOIDS->GetAt(0)).Elements->GetSize(), 2);
}

TEST(SolidObjects, APathKeepsItsLastValue) {
    EXPECT_EQ(Object<CVEKA_3DOJ_STEP>("(STEP (PATH a.stp b.stp))")->PATH, "b.stp");
}

// Q25
TEST(SolidObjects, AParametricShapeReportsTheCuboidsNumber) {
    const auto shape = Object<CVEKA_3DOJ_3DSHAPE>("(3DSHAPE (OFFSET 1 2 3) (W1 4))");
    ExpectPoint(shape->OFFSET, 1, 2, 3);
    EXPECT_EQ(shape->W1, 4);
    EXPECT_EQ(shape->W, 0);
    EXPECT_EQ(shape->CVEKA_3DObject::GetType(), 0);
}

TEST(SolidObjects, AParametricShapeReadsAllItsSizes) {
    const auto shape = Object<CVEKA_3DOJ_3DSHAPE>(R"(
        (3DSHAPE
            (W 1) (W1 2) (W2 3) (L 4) (L1 5) (L2 6) (T 7) (T1 8) (T2 9) (R 10) (R1 11) (R2 12) (CW 13) (CL 14)))");
    double expected = 0;
    for (double value : {shape->W, shape->W1, shape->W2, shape->L, shape->L1, shape->L2, shape->T, shape->T1,
                         shape->T2, shape->R, shape->R1, shape->R2, shape->CW, shape->CL})
        EXPECT_EQ(value, ++expected);
}

TEST(SolidObjects, EachBaseHasItsOwnWordForARotation) {
    const auto hole = Object<CVEKA_3DOJ_HOLECUBOID>("(HOLECUBOID (ROTATION 0 0 90))");
    ExpectPoint(hole->GetRotate(), 0, 0, 0);
    ExpectPoint(hole->GetFront(), 0, 0, 0);
    ExpectPoint(Object<CVEKA_3DOJ_3DSHAPE>("(3DSHAPE (ROTATE 0 0 90))")->GetRotation(), 0, 0, 0);
    ExpectPoint(Object<CVEKA_3DOJ_3DSHAPE>("(3DSHAPE (ROTATION 0 0 90))")->GetRotation(), 0, 0, 90);
}

// Q24
TEST(DrawnObjects, ALineTakesItsPointsByPlace) {
    const auto line = Object<CVEKA_3DOJ_3DLINE>("(3DLINE (LW 1) (PT 5 5 5) (PT 1 1 1))");
    EXPECT_EQ(line->LW, 1);
    ExpectPoint(line->StartPoint, 0, 0, 0);
    ExpectPoint(line->EndPoint, 5, 5, 5);
    ExpectPoint(line->GetPoint(), 0, 0, 0);
}

TEST(DrawnObjects, ACircleTakesItsPointAnywhere) {
    const auto circle = Object<CVEKA_3DOJ_3DCIRCLE>("(3DCIRCLE (D 2) (LW 1) (PT 1 2 3) (ROTATION 10 20 30))");
    EXPECT_EQ(circle->D, 2);
    ExpectPoint(circle->PT, 1, 2, 3);
    ExpectPoint(circle->GetPoint(), 0, 0, 0);
    ExpectPoint(circle->GetRotation(), 10, 20, 30);
    ExpectPoint(Object<CVEKA_3DOJ_3DFILLCIRCLE>("(3DFILLCIRCLE (D 1) (PT 4))")->PT, 4, 0, 0);
}

TEST(DrawnObjects, AFilledRectangleHasOneAngle) {
    const auto rectangle = Object<CVEKA_3DOJ_3DFILLRECT>(
        "(3DFILLRECT (W 2) (H 1) (ROTATION 10 20 30) (OFFSET 0.1 0 0) (MIRROR N))");
    EXPECT_EQ(rectangle->ROTATION, 30);
    ExpectPoint(rectangle->GetRotation(), 0, 0, 0);
    ExpectPoint(rectangle->OFFSET, 0.1, 0, 0);
    EXPECT_EQ(rectangle->GetMirror(), "N");
    const auto oblong = Object<CVEKA_3DOJ_3DOBLONG>("(3DOBLONG (ROTATION 10 20))");
    EXPECT_EQ(oblong->ROTATION, 20);
    ExpectPoint(oblong->GetRotation(), 0, 0, 0);
}

TEST(DrawnObjects, ReadTheExampleOfALine) {
    const auto line =
        Object<CVEKA_3DOJ_3DLINE>("(3DLINE (PT 0 0 1) (PT 5 0 1) (LW 0.1) (COLOR 0 255 0) (MIRROR N))");
    ExpectPoint(line->StartPoint, 0, 0, 1);
    ExpectPoint(line->EndPoint, 5, 0, 1);
    ExpectColor(line->GetColor(), 0, 255, 0);
    EXPECT_EQ(line->GetMirror(), "N");
}

TEST(DrawnObjects, APolygonKeepsUnknownElementsAsNull) {
    const auto polygon =
        Object<CVEKA_3DOJ_3DPOLYGON>("(3DPOLYGON (BOUNDARY (LINE) (NOSUCH)) (BOUNDARY (ARC)))");
    ASSERT_EQ(polygon->BOUNDARY->GetSize(), 3);
    EXPECT_EQ(polygon->BOUNDARY->GetAt(1), nullptr);
    EXPECT_NE(polygon->BOUNDARY->GetAt(2), nullptr);
}

TEST(DrawnObjects, APolygonHasNoColour) {
    ExpectColor(Object<CVEKA_3DOJ_3DPOLYGON>("(3DPOLYGON (COLOR 1 2 3))")->GetColor(), 0, 0, 0);
}

TEST(DrawnObjects, ACloneOfAnArcKeepsEverything) {
    const auto arc = Object<CVEKA_3DOJ_3DARC>(R"(
        (3DARC (PT 1) (PT 2) (PT 3) (PT 9) (R 4) (LW 5) (DIR CW) (ROTATION 6 7 8) (MIRROR P) (COLOR 1 2 3)))");
    arc->GetPoint()->SetX(10);
    const std::unique_ptr<CVEKA_3DOJ_3DARC> clone(arc->Clone());
    ExpectPoint(clone->StartPoint, 1, 0, 0);
    ExpectPoint(clone->EndPoint, 2, 0, 0);
    ExpectPoint(clone->CenterPoint, 3, 0, 0);
    EXPECT_EQ(clone->R, 4);
    EXPECT_EQ(clone->LW, 5);
    EXPECT_EQ(clone->DIR, "CW");
    ExpectPoint(clone->GetRotation(), 6, 7, 8);
    EXPECT_EQ(clone->GetMirror(), "P");
    ExpectColor(clone->GetColor(), 1, 2, 3);
    ExpectPoint(clone->GetPoint(), 10, 0, 0);
    EXPECT_EQ(clone->CVEKA_3DObject::GetType(), 9);
}

TEST(PlaneShapes, ATextKnowsNoVisibility) {
    const auto hidden = Object<CVEKA_3DOJ_TEXT>("(TEXT (VISIBLE FALSE) (NAME n) (VALUE a))");
    const auto text = Object<CVEKA_3DOJ_TEXT>("(TEXT (VALUE a))");
    EXPECT_TRUE(test::SameButApart(*hidden, *text));
}

TEST(LeadObjects, ReadTheExampleOfABar) {
    const auto bar = Object<CVEKA_3DOJ_BAR>(R"(
        (BAR
            (Z 3.5) (H 0.8) (T 0.25) (ROTATION 0 0 90) (MIRROR N) (COLOR 200 201 202) (PT 1.27 0 0) (CLINCH 1)
            (CLINCHLENGTH 1.5) (CLINCHROTATE 30)))");
    EXPECT_EQ(bar->Z, 3.5);
    EXPECT_EQ(bar->H, 0.8);
    EXPECT_EQ(bar->T, 0.25);
    ExpectPoint(bar->GetRotation(), 0, 0, 90);
    EXPECT_EQ(bar->GetMirror(), "N");
    ExpectColor(bar->GetColor(), 200, 201, 202);
    ExpectPoint(bar->GetPoint(), 1.27, 0, 0);
    EXPECT_TRUE(bar->CLINCH);
    EXPECT_EQ(bar->CLINCHLENGTH, 1.5);
    EXPECT_EQ(bar->CLINCHROTATE, 30);
}

// Q26
TEST(LeadObjects, AClinchIsTheNumberOneAndItsLastValueDecides) {
    EXPECT_TRUE(Object<CVEKA_3DOJ_BAR>("(BAR (CLINCH 1))")->CLINCH);
    for (const char* text : {"(BAR (CLINCH 1) (CLINCH 0))", "(BAR (CLINCH))", "(BAR (CLINCH 2))",
                             "(BAR (CLINCH TRUE))", "(BAR (CLINCH 1 0))"})
        EXPECT_FALSE(Object<CVEKA_3DOJ_BAR>(text)->CLINCH) << text;
    EXPECT_TRUE(Object<CVEKA_3DOJ_BAR>("(BAR (CLINCH 1) (CLINCH))")->CLINCH);
}

TEST(LeadObjects, AFormKnowsItsOwnLettersAlone) {
    const auto dipa = Object<CVEKA_3DOJ_DIPA>("(DIPA (T 1))");
    EXPECT_EQ(dipa->T1, 0);
    EXPECT_EQ(dipa->T2, 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_DIP>("(DIP (T1 1))")->T, 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_GULLWING>("(GULLWING (M 2))")->M, 2);
    const auto wing = Object<CVEKA_3DOJ_GULLWINGA>("(GULLWINGA (M 2))");
    for (double value : {wing->H, wing->B, wing->W, wing->BL, wing->T}) EXPECT_EQ(value, 0);
    const auto flat = Object<CVEKA_3DOJ_FLAT>("(FLAT (H 1))");
    for (double value : {flat->L, flat->W, flat->T}) EXPECT_EQ(value, 0);
}

TEST(LeadObjects, NearbyLettersAreDifferentFields) {
    const auto bar = Object<CVEKA_3DOJ_ROUNDBARC>("(ROUNDBARC (H 1) (H1 2) (H2 3))");
    EXPECT_EQ(bar->H, 1);
    EXPECT_EQ(bar->H1, 2);
    EXPECT_EQ(bar->H2, 3);
}

TEST(LeadObjects, AnEmptyWireIsAllZero) {
    const auto wire = Object<CVEKA_3DOJ_WIRE>("(WIRE)");
    EXPECT_EQ(wire->T, 0);
    EXPECT_EQ(wire->L, 0);
}

TEST(LeadObjects, AFormWithoutAClinchSkipsIt) {
    const auto dip = Object<CVEKA_3DOJ_DIP>("(DIP (CLINCH 1) (H1 2))");
    EXPECT_EQ(dip->H1, 2);
}

TEST(LeadObjects, TheirMirrorKeepsItsLastValue) {
    const auto dip = Object<CVEKA_3DOJ_ROUNDDIPA>("(ROUNDDIPA (W3 5) (Z 6) (MIRROR P Q))");
    EXPECT_EQ(dip->W3, 5);
    EXPECT_EQ(dip->Z, 6);
    EXPECT_EQ(dip->GetMirror(), "Q");
}

TEST(LeadObjects, TheWordOfTheSolidsIsUnknown) {
    ExpectPoint(Object<CVEKA_3DOJ_BALL>("(BALL (ROTATE 1 2 3))")->GetRotation(), 0, 0, 0);
    ExpectPoint(Object<CVEKA_3DOJ_BALL>("(BALL (ROTATION 1 2 3))")->GetRotation(), 1, 2, 3);
}

/// Reads a lead with each of its letters set to a number of its own, and returns the letters in their order.
template <class Lead>
std::string Letters(const char* level) {
    std::string text = std::string("(") + level, letters;
    int number = 0;
    Lead empty;
    veka::FieldAccess::ForEachOwn(empty, [&](const auto& row, const auto&) {
        text += std::string(" (") + row.name + " " + std::to_string(++number) + ")";
        letters += std::string(row.name) + " ";
    });
    const auto lead = Object<Lead>(text + ")");
    number = 0;
    veka::FieldAccess::ForEachOwn(*lead, [&](const auto& row, const auto& field) {
        ++number;
        if constexpr (std::is_same_v<decltype(field), const double&>)
            EXPECT_EQ(field, number) << level << ' ' << row.name;
        else
            EXPECT_FALSE(field) << level << ' ' << row.name << ": no clinch but for 1";
    });
    return letters;
}

TEST(LeadObjects, EveryFormReadsItsLetters) {
    const std::string clinch = "CLINCH CLINCHLENGTH CLINCHROTATE ";
    EXPECT_EQ(Letters<CVEKA_3DOJ_BALL>("BALL"), "H ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_BAR>("BAR"), "Z H T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_BUTT>("BUTT"), "H T W Z BL ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_CBEND>("CBEND"), "H L W Z ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_DIP>("DIP"), "H1 H2 T W1 W2 Z ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_DIPA>("DIPA"), "H1 H2 T1 T2 Z " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_DIPB>("DIPB"), "H1 H2 W1 W2 S T Z ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_FLAT>("FLAT"), "L W T ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_GULLWING>("GULLWING"), "H B W M BL T ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_GULLWINGA>("GULLWINGA"), "H B W BL T ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_JBEND>("JBEND"), "H1 H2 D W1 W2 BL T ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_JINVERTED>("JINVERTED"), "H1 H2 D T W1 W2 BL ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_REVERSEBUTT>("REVERSEBUTT"), "H T W B ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDBAR>("ROUNDBAR"), "Z BL H T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDBARA>("ROUNDBARA"), "H1 H2 Z L T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDBARB>("ROUNDBARB"), "H1 H2 L1 L2 L3 T Z " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDBARC>("ROUNDBARC"), "H1 H2 H Z L T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_KINKDIP>("KINKDIP"), "H D Z T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_KINKDIPA>("KINKDIPA"), "H H1 D Z T " + clinch);
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDDIP>("ROUNDDIP"), "H1 H2 T W1 W2 BL Z ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_ROUNDDIPA>("ROUNDDIPA"), "H H1 H2 H3 L1 L2 T W1 W2 W3 Z ");
    EXPECT_EQ(Letters<CVEKA_3DOJ_WIRE>("WIRE"), "T L ");
}

// Q24
TEST(PlaneShapes, ALineTakesItsPointsByPlace) {
    const auto line = Object<CVEKA_3DOJ_LINE>("(LINE (PT 0 0) (PT 1 1) (LW 0.2))");
    ExpectPoint(line->EndPoint, 1, 1, 0);
    EXPECT_EQ(line->LW, 0.2);
    const auto late = Object<CVEKA_3DOJ_LINE>("(LINE (LW 0.2) (PT 5 5) (PT 1 1))");
    ExpectPoint(late->StartPoint, 0, 0, 0);
    ExpectPoint(late->EndPoint, 5, 5, 0);
    const auto unknown = Object<CVEKA_3DOJ_LINE>("(LINE (NOSUCH) (PT 5 5))");
    ExpectPoint(unknown->EndPoint, 5, 5, 0);
}

TEST(PlaneShapes, AThirdPointOfALineIsIgnored) {
    const auto line = Object<CVEKA_3DOJ_LINE>("(LINE (PT 1 1) (PT 2 2) (PT 3 3))");
    ExpectPoint(line->StartPoint, 1, 1, 0);
    ExpectPoint(line->EndPoint, 2, 2, 0);
}

// Q24
TEST(PlaneShapes, AnArcTakesItsPointsByPlace) {
    const auto arc = Object<CVEKA_3DOJ_ARC>("(ARC (LW 1) (PT 1 0) (PT 0 1) (PT 2 2))");
    ExpectPoint(arc->StartPoint, 0, 0, 0);
    ExpectPoint(arc->EndPoint, 1, 0, 0);
    ExpectPoint(arc->CenterPoint, 0, 1, 0);
    const auto example = Object<CVEKA_3DOJ_ARC>("(ARC (PT 1 0) (PT 0 1) (PT 0 0) (R 1) (LW 0.1) (DIR CCW))");
    ExpectPoint(example->StartPoint, 1, 0, 0);
    ExpectPoint(example->EndPoint, 0, 1, 0);
    EXPECT_EQ(example->R, 1);
    EXPECT_EQ(example->LW, 0.1);
    EXPECT_EQ(example->DIR, "CCW");
}

// Q24
TEST(PlaneShapes, ATaperedShapeTakesItsPointsAtItsOwnPlaces) {
    const auto none = Object<CVEKA_3DOJ_TAPERED>("(TAPERED (PT 1 1))");
    ExpectPoint(none->StartPoint, 0, 0, 0);
    ExpectPoint(none->EndPoint, 0, 0, 0);
    const auto all =
        Object<CVEKA_3DOJ_TAPERED>("(TAPERED (SWIDTH 1) (PT 1 1) (EWIDTH 2) (PT 2 2) (DIRECTION X))");
    EXPECT_EQ(all->SWIDTH, 1);
    ExpectPoint(all->StartPoint, 1, 1, 0);
    EXPECT_EQ(all->EWIDTH, 2);
    ExpectPoint(all->EndPoint, 2, 2, 0);
    EXPECT_EQ(all->DIRECTION, "X");
}

TEST(PlaneShapes, ARoundedRectangleTakesTwoWordsForItsRadius) {
    EXPECT_EQ(Object<CVEKA_3DOJ_ROUNDEDRECTANGLE>("(ROUNDEDRECTANGLE (R 1) (CHAMPEREDVALUE 2))")->R, 2);
    EXPECT_EQ(Object<CVEKA_3DOJ_ROUNDEDRECTANGLE>("(ROUNDEDRECTANGLE (CHAMPEREDVALUE 2) (R 1))")->R, 1);
    EXPECT_EQ(Object<CVEKA_3DOJ_CHAMPEREDRECT>("(CHAMPEREDRECT (R 1))")->CHAMPEREDVALUE, 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_CHAMPEREDRECT>("(CHAMPEREDRECT (CHAMPEREDVALUE 1))")->CHAMPEREDVALUE, 1);
}

// Q18
TEST(PlaneShapes, UnknownElementsAreNullAndVanishInAClone) {
    const auto composite =
        Object<CVEKA_3DOJ_COMPOSITE>("(COMPOSITE (NOSUCH) (NAME n) (PT 1 2) (ROTATION 3))");
    ASSERT_EQ(composite->Elements->GetSize(), 1);
    EXPECT_EQ(composite->Elements->GetAt(0), nullptr);
    EXPECT_EQ(composite->NAME, "n");
    ExpectPoint(composite->PT, 1, 2, 0);
    EXPECT_EQ(composite->ROTATION, 3);
    const std::unique_ptr<CVEKA_3DOJ_COMPOSITE> clone(composite->Clone());
    EXPECT_EQ(clone->Elements->GetSize(), 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_POLYLINE>("(POLYLINE (NOSUCH))")->Elements->GetSize(), 1);
    EXPECT_EQ(Object<CVEKA_3DOJ_VOID>("(VOID (NOSUCH) (PT 1 1) (LINE))")->Elements->GetSize(), 3);
}

TEST(PlaneShapes, APolygonHasAnOutlineAndVoids) {
    const auto polygon = Object<CVEKA_3DOJ_POLYGON>(R"(
        (POLYGON
            (BOUNDARY (LINE (PT 0 0) (PT 1 0)) (LINE (PT 1 0) (PT 0 0))) (VOID (CIRCLE (PT 0.5 0) (D 0.1)))
            (BOUNDARY (NOSUCH)) (LINE)))");
    ASSERT_EQ(polygon->BOUNDARY->GetSize(), 3);
    EXPECT_EQ(polygon->BOUNDARY->GetAt(2), nullptr);
    ASSERT_EQ(polygon->VOID->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_CIRCLE&>(*polygon->VOID->GetAt(0)).D, 0.1);
}

TEST(PlaneShapes, AContourHoldsWhatItsLastChildHolds) {
    EXPECT_EQ(Object<CVEKA_3DOJ_CONTOUR>("(CONTOUR (A (LINE)) (B (ARC) (ARC)))")->Elements->GetSize(), 2);
    EXPECT_EQ(Object<CVEKA_3DOJ_CONTOUR>("(CONTOUR (LINE (PT 0 0)))")->Elements->GetSize(), 0);
}

// Q26
TEST(PlaneShapes, APropertyTextCanOnlyBeSwitchedOff) {
    EXPECT_EQ(Object<CVEKA_3DOJ_PROPTEXT>("(PTEXT)")->GetVisible(), 1);
    EXPECT_EQ(Object<CVEKA_3DOJ_PROPTEXT>("(PTEXT (VISIBLE TRUE))")->GetVisible(), 1);
    EXPECT_EQ(Object<CVEKA_3DOJ_PROPTEXT>("(PTEXT (VISIBLE false))")->GetVisible(), 1);
    EXPECT_EQ(Object<CVEKA_3DOJ_PROPTEXT>("(PTEXT (VISIBLE FALSE TRUE))")->GetVisible(), 0);
    EXPECT_EQ(Object<CVEKA_3DOJ_PROPTEXT>("(PTEXT (Visible FALSE))")->GetVisible(), 1);
    CVEKA_3DOJ_PROPTEXT text;
    text.SetVisible(7);
    EXPECT_EQ(text.Visible, 7);
}

TEST(PlaneShapes, ReadTheExampleOfAPropertyText) {
    const auto text = Object<CVEKA_3DOJ_PROPTEXT>(
        "(PTEXT (FID 2) (JUSTIFY 4) (ROTATION 90) (MIRROR N)\n (PT 0 0) (VALUE R1) (NAME REFDES) (VISIBLE "
        "FALSE))");
    EXPECT_EQ(text->FID, 2);
    EXPECT_EQ(text->JUSTIFY, 4);
    EXPECT_EQ(text->ROTATION, 90);
    EXPECT_EQ(text->MIRROR, "N");
    EXPECT_EQ(text->VALUE, "R1");
    EXPECT_EQ(text->NAME, "REFDES");
    EXPECT_EQ(text->GetVisible(), 0);
}

TEST(PlaneShapes, APlainTextHasNoVisibility) {
    const auto text = Object<CVEKA_3DOJ_TEXT>("(TEXT (VISIBLE FALSE) (VALUE a))");
    EXPECT_EQ(text->VALUE, "a");
}

TEST(PlaneShapes, HaveNoColour) {
    ExpectColor(Object<CVEKA_3DOJ_CIRCLE>("(CIRCLE (COLOR 255 0 0))")->GetColor(), 0, 0, 0);
}

TEST(PlaneShapes, ReadTheirOwnKeywords) {
    const auto circle = Object<CVEKA_3DOJ_CIRCLE>("(CIRCLE (PT 1 2) (D 3) (LW 4))");
    ExpectPoint(circle->PT, 1, 2, 0);
    ExpectPoint(circle->GetPoint(), 0, 0, 0);
    EXPECT_EQ(circle->D, 3);
    EXPECT_EQ(circle->LW, 4);
    const auto dot = Object<CVEKA_3DOJ_FILLCIRCLE>("(FILLCIRCLE (D 1) (PT 2) (OFFSET 3))");
    ExpectPoint(dot->OFFSET, 3, 0, 0);
    const auto rectangle = Object<CVEKA_3DOJ_RECTANGLE>("(RECTANGLE (W 1) (H 2) (LW 3) (PT 4) (ROTATION 5))");
    EXPECT_EQ(rectangle->LW, 3);
    EXPECT_EQ(rectangle->ROTATION, 5);
    const auto cut =
        Object<CVEKA_3DOJ_CHAMPEREDRECT>("(CHAMPEREDRECT (PT 1) (W 2) (H 3) (ROTATION 4) (OFFSET 5))");
    EXPECT_EQ(cut->H, 3);
    ExpectPoint(cut->OFFSET, 5, 0, 0);
    const auto fill = Object<CVEKA_3DOJ_FILLRECT>("(FILLRECT (W 1) (H 2) (PT 3) (ROTATION 4) (OFFSET 5))");
    EXPECT_EQ(fill->ROTATION, 4);
    const auto oblong = Object<CVEKA_3DOJ_OBLONG>("(OBLONG (W 1) (H 2) (ROTATION 3) (PT 4))");
    EXPECT_EQ(oblong->ROTATION, 3);
    const auto thermal = Object<CVEKA_3DOJ_THERMAL>(
        "(THERMAL (TYPE t) (OUTER 1) (INNER 2) (SPOKEWIDTH 3) (ROTATION 4) (NOOFSPOKES 4.5))");
    EXPECT_EQ(thermal->TYPE, "t");
    EXPECT_EQ(thermal->INNER, 2);
    EXPECT_EQ(thermal->SPOKEWIDTH, 3);
    EXPECT_EQ(thermal->NOOFSPOKES, 4.5);
    const auto pin = Object<CVEKA_3DOJ_PINPOINT>("(PINPOINT (TYPE 1) (D 2) (PT 3))");
    EXPECT_EQ(pin->TYPE, 1);
    EXPECT_EQ(pin->D, 2);
    ExpectPoint(pin->PT, 3, 0, 0);
}

TEST(UserDefinedObjects, AreEmptyAtFirst) {
    const auto object = Object<CVEKA_3DOJ_USERDEFINED>("(USERDEFINED)");
    EXPECT_EQ(object->CVEKA_3DObject::GetType(), 35);
    EXPECT_EQ(object->DrawObj->GetSize(), 0);
    EXPECT_EQ(object->Lead->GetSize(), 0);
    EXPECT_EQ(object->MetalMaskShapes->GetSize(), 0);
}

TEST(UserDefinedObjects, TheLastLeadStands) {
    const auto object =
        Object<CVEKA_3DOJ_USERDEFINED>("(USERDEFINED (LEADSHAPE (LEAD (BALL)) (LEAD (WIRE) (WIRE))))");
    ASSERT_EQ(object->Lead->GetSize(), 2);
    EXPECT_EQ(object->Lead->GetAt(0)->GetType(), 34);
    EXPECT_EQ(Object<CVEKA_3DOJ_USERDEFINED>("(USERDEFINED (LEADSHAPE (BALL)))")->Lead->GetSize(), 0);
}

TEST(UserDefinedObjects, ASecondMainShapeReplacesTheFirst) {
    const auto object = Object<CVEKA_3DOJ_USERDEFINED>(
        "(USERDEFINED (MAINSHAPE (BALL) (BALL)) (COLOR 1 2 3) (MAINSHAPE (WIRE) (NOSUCH)))");
    ASSERT_EQ(object->DrawObj->GetSize(), 1);
    EXPECT_EQ(object->DrawObj->GetAt(0)->GetType(), 34);
    ExpectColor(object->GetColor(), 0, 0, 0);
}

TEST(UserDefinedObjects, CollectTheirMaskShapes) {
    const auto object = Object<CVEKA_3DOJ_USERDEFINED>(
        "(USERDEFINED (METALMASKSHAPE (METALMASKSHAPEDATA) (OTHER) (METALMASKSHAPEDATA)))");
    ASSERT_EQ(object->MetalMaskShapes->GetSize(), 2);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_METAKMASKSHAPE&>(*object->MetalMaskShapes->GetAt(1)).LAYER, "TOP");
}

/// The first mask record of a user-defined object with the given data.
std::unique_ptr<CVEKA_3DOJ_USERDEFINED> Mask(const std::string& data) {
    return Object<CVEKA_3DOJ_USERDEFINED>("(USERDEFINED (METALMASKSHAPE (METALMASKSHAPEDATA " + data + ")))");
}
const CVEKA_3DOJ_METAKMASKSHAPE& First(const std::unique_ptr<CVEKA_3DOJ_USERDEFINED>& object) {
    return dynamic_cast<const CVEKA_3DOJ_METAKMASKSHAPE&>(*object->MetalMaskShapes->GetAt(0));
}

TEST(UserDefinedObjects, TheHighlightOfAMaskIsItsLastWord) {
    EXPECT_EQ(First(Mask("(HIGHLIGHT TRUE)")).HIGHLIGHT, 1);
    EXPECT_EQ(First(Mask("(HIGHLIGHT TRUE FALSE)")).HIGHLIGHT, 0);
    EXPECT_EQ(First(Mask("(HIGHLIGHT true)")).HIGHLIGHT, 0);
    EXPECT_EQ(First(Mask("(HIGHLIGHT TRUE) (HIGHLIGHT)")).HIGHLIGHT, 1);
}

TEST(UserDefinedObjects, AMaskKeepsUnknownShapesAsNull) {
    const auto object = Mask("(NOSUCH)");
    ASSERT_EQ(First(object).Shapes->GetSize(), 1);
    EXPECT_EQ(First(object).Shapes->GetAt(0), nullptr);
    const std::unique_ptr<CVEKA_3DOJ_USERDEFINED> clone(object->Clone());
    EXPECT_EQ(First(clone).Shapes->GetSize(), 0);
}

TEST(UserDefinedObjects, ReadTheExample) {
    const auto object = Object<CVEKA_3DOJ_USERDEFINED>(R"(
        (USERDEFINED
            (MAINSHAPE (CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1))) (LEADSHAPE (LEAD (GULLWING (H 1) (B 2))))
            (METALMASKSHAPE
                (METALMASKSHAPEDATA
                    (LAYER BOTTOM) (WIDTH 2) (LENGTH 3) (ROTATION 4) (PT 5 6 0) (THICKNESS 0.1) (HIGHLIGHT TRUE)
                    (RECTANGLE (W 2) (H 3))))))");
    EXPECT_EQ(object->DrawObj->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_GULLWING&>(*object->Lead->GetAt(0)).B, 2);
    const CVEKA_3DOJ_METAKMASKSHAPE& mask = First(object);
    EXPECT_EQ(mask.LAYER, "BOTTOM");
    EXPECT_EQ(mask.WIDTH, 2);
    EXPECT_EQ(mask.LENGTH, 3);
    EXPECT_EQ(mask.ROTATION, 4);
    ExpectPoint(mask.PT, 5, 6, 0);
    EXPECT_EQ(mask.THICKNESS, 0.1);
    EXPECT_EQ(mask.HIGHLIGHT, 1);
    EXPECT_EQ(mask.Shapes->GetSize(), 1);
    EXPECT_EQ(mask.CVEKA_3DObject::GetType(), 55);
    EXPECT_EQ(static_cast<const CVEKA_3DObject&>(mask).GetType(55), "NONE");
}

}  // namespace
