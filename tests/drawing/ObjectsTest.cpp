#include "drawing/Objects.h"

#include <gmock/gmock.h>

#include <cmath>

#include "drawing/Drawn.h"

namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(ObjectDrawer, ALineHasItsPointsAndItsWidth) {
    const Scene scene = Draw("(LINE (PT 1 2) (PT 4 6) (LW 0.5))");
    const Line& line = One<Line>(scene);
    ExpectPoint(line.start, 1, 2);
    ExpectPoint(line.end, 4, 6);
    EXPECT_EQ(line.width, 0.5);
    ExpectBox(scene.Bounds(), 0.75, 1.75, 4.25, 6.25);
}

TEST(ObjectDrawer, AnArcTurnsInItsDirection) {
    const Scene left = Draw("(ARC (PT 1 0) (PT 0 1) (PT 0 0) (R 1) (LW 0) (DIR CCW))");
    EXPECT_NEAR(One<Arc>(left).sweep, 90, 1e-9);
    EXPECT_NEAR(One<Arc>(left).radius, 1, 1e-9);
    ExpectBox(left.Bounds(), 0, 0, 1, 1);
    const Scene right = Draw("(ARC (PT 1 0) (PT 0 1) (PT 0 0) (R 1) (LW 0) (DIR CW))");
    EXPECT_NEAR(One<Arc>(right).sweep, -270, 1e-9);
    ExpectBox(right.Bounds(), -1, -1, 1, 1);
}

TEST(ObjectDrawer, AnArcBackToItsStartIsAWholeCircle) {
    const Scene scene = Draw("(ARC (PT 3 1) (PT 3 1) (PT 1 1) (R 9) (LW 0.2) (DIR CCW))");
    const Circle& circle = One<Circle>(scene);
    ExpectPoint(circle.center, 1, 1);
    EXPECT_NEAR(circle.radius, 2, 1e-9) << "the distance of its start from its centre counts, not its R";
    EXPECT_FALSE(circle.filled);
}

TEST(ObjectDrawer, ACircleIsALineAndADiscIsFilled) {
    const Scene circle = Draw("(CIRCLE (PT 1 2) (D 4) (LW 0.2))");
    EXPECT_FALSE(One<Circle>(circle).filled);
    ExpectBox(circle.Bounds(), -1.1, -0.1, 3.1, 4.1);
    const Scene disc = Draw("(FILLCIRCLE (PT 1 2) (D 4) (OFFSET 1 1))");
    EXPECT_TRUE(One<Circle>(disc).filled);
    ExpectBox(disc.Bounds(), 0, 1, 4, 5);
}

TEST(ObjectDrawer, ARectangleIsALineAroundItsPoint) {
    const Scene scene = Draw("(RECTANGLE (W 4) (H 2) (LW 0.1) (PT 1 1))");
    EXPECT_FALSE(One<Polygon>(scene).filled);
    ExpectBox(scene.Bounds(), -1.05, -0.05, 3.05, 2.05);
}

TEST(ObjectDrawer, ARectangleWithoutAWidthIsALine) {
    const Scene scene = Draw("(RECTANGLE (W 0) (H 2) (LW 0.1) (PT 1 1) (ROTATION 90))");
    ExpectPoint(One<Line>(scene).start, 2, 1);
    ExpectPoint(One<Line>(scene).end, 0, 1);
}

TEST(ObjectDrawer, AFilledRectangleTurnsAboutItsPointAndItsOffsetTurnsWithIt) {
    const Scene scene = Draw("(FILLRECT (W 4) (H 2) (PT 10 0) (ROTATION 90) (OFFSET 1 0))");
    EXPECT_TRUE(One<Polygon>(scene).filled);
    ExpectBox(scene.Bounds(), 9, -1, 11, 3);
    EXPECT_EQ(Points(scene).size(), 4u);
}

TEST(ObjectDrawer, ACutRectangleHasEightCornersOrFour) {
    const Scene scene = Draw("(CHAMPEREDRECT (PT 0 0) (W 4) (H 2) (CHAMPEREDVALUE 0.5) (ROTATION 0))");
    EXPECT_EQ(Points(scene).size(), 8u);
    ExpectPoint(Points(scene)[0], -1.5, -1);
    ExpectPoint(Points(scene)[2], 2, -0.5);
    ExpectBox(scene.Bounds(), -2, -1, 2, 1);
    EXPECT_EQ(Points(Draw("(CHAMPEREDRECT (W 4) (H 2))")).size(), 4u);
    EXPECT_EQ(Points(Draw("(CHAMPEREDRECT (W 4) (H 2) (CHAMPEREDVALUE 9))")).size(), 8u)
        << "cut at most by half";
}

TEST(ObjectDrawer, ARoundedRectangleHasArcsAtItsCorners) {
    const Scene scene = Draw("(ROUNDEDRECTANGLE (W 4) (H 2) (R 0.5) (PT 0 0) (ROTATION 90))");
    EXPECT_EQ(Points(scene).size(), 8u);
    ExpectBox(scene.Bounds(), -1, -2, 1, 2);
    const Shape& shape = scene.Shapes()[0];
    EXPECT_EQ(scene.Distance(shape, {0.9, 0}), 0);
    EXPECT_GT(scene.Distance(shape, {0.98, 1.98}), 0.1) << "outside of the round corner";
}

TEST(ObjectDrawer, AnOblongEndsInHalfCircles) {
    const Scene scene = Draw("(OBLONG (W 4) (H 2) (PT 1 0) (ROTATION 0))");
    ExpectBox(scene.Bounds(), -1, -1, 3, 1);
    const Shape& shape = scene.Shapes()[0];
    EXPECT_EQ(scene.Distance(shape, {2.9, 0}), 0);
    EXPECT_NEAR(scene.Distance(shape, {3, 1}), std::sqrt(2) - 1, 1e-9);
}

TEST(ObjectDrawer, ASquareOblongIsACircle) {
    const Scene scene = Draw("(OBLONG (W 2) (H 2))");
    ExpectBox(scene.Bounds(), -1, -1, 1, 1);
    EXPECT_NEAR(scene.Distance(scene.Shapes()[0], {1, 1}), std::sqrt(2) - 1, 1e-9);
}

TEST(ObjectDrawer, APolygonJoinsLinesAndArcsAndCutsItsVoidsOut) {
    const Scene scene = Draw(
        "(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 4 0) (LW 0.2)) (ARC (PT 4 0) (PT 4 4) (PT 4 2) (DIR CCW)) "
        "(LINE (PT 4 "
        "4) (PT 0 4)) (LINE (PT 0 4) (PT 0 0))) (VOID (CIRCLE (PT 2 2) (D 2))))");
    const Polygon& polygon = One<Polygon>(scene);
    EXPECT_TRUE(polygon.filled);
    EXPECT_EQ(polygon.count, 2u);
    EXPECT_EQ(polygon.width, 0.2) << "the line around it belongs to it";
    ExpectBox(scene.Bounds(), -0.1, -0.1, 6.1, 4.1);
    const Shape& shape = scene.Shapes()[0];
    EXPECT_EQ(scene.Distance(shape, {0.5, 0.5}), 0);
    EXPECT_EQ(scene.Distance(shape, {5.5, 2}), 0) << "inside of the arc";
    EXPECT_NEAR(scene.Distance(shape, {2, 2}), 0.9, 1e-9) << "in the middle of the void";
}

TEST(ObjectDrawer, PiecesOfAPolygonMayRunBackwardsAndLeaveGaps) {
    const Scene backwards = Draw(
        "(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 4 0)) (LINE (PT 4 4) (PT 4 0)) (LINE (PT 4 4) (PT 0 4)) (LINE "
        "(PT 0 "
        "0) (PT 0 4))))");
    EXPECT_EQ(Points(backwards).size(), 4u);
    EXPECT_EQ(backwards.Distance(backwards.Shapes()[0], {2, 2}), 0);
    const Scene gaps = Draw("(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 4 0)) (LINE (PT 4 4) (PT 0 4))))");
    EXPECT_EQ(Points(gaps).size(), 4u);
    ExpectBox(gaps.Bounds(), 0, 0, 4, 4);
}

TEST(ObjectDrawer, TwoLoopsInOneVoidAreTwoHoles) {
    const Scene scene = Draw(
        "(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 9 0)) (LINE (PT 9 0) (PT 9 9)) (LINE (PT 9 9) (PT 0 0))) "
        "(VOID (LINE (PT 4 1) (PT 5 1)) (LINE (PT 5 1) (PT 5 2)) (LINE (PT 5 2) (PT 4 1))"
        " (LINE (PT 7 1) (PT 8 1)) (LINE (PT 8 1) (PT 8 2)) (LINE (PT 8 2) (PT 7 1))))");
    EXPECT_EQ(One<Polygon>(scene).count, 3u);
}

TEST(ObjectDrawer, ARunOfLinesIsItsPieces) {
    for (const char* kind : {"POLYLINE", "CONTOUR (OUTLINE"}) {
        const std::string close = kind[0] == 'C' ? "))" : ")";
        const Scene scene =
            Draw("(" + std::string(kind) +
                 " (LINE (PT 0 0) (PT 1 0) (LW 0.1)) (ARC (PT 1 0) (PT 0 1) (PT 0 0) (DIR CCW))" + close);
        ASSERT_EQ(scene.Shapes().size(), 2u);
        EXPECT_EQ(scene.Shapes()[0].source, scene.Shapes()[1].source) << "both show the run";
        EXPECT_STREQ(scene.Shapes()[0].source.type->name(),
                     kind[0] == 'C' ? typeid(CVEKA_3DOJ_CONTOUR).name() : typeid(CVEKA_3DOJ_POLYLINE).name());
    }
}

TEST(ObjectDrawer, AVoidByItselfIsAnOutline) {
    const Scene scene =
        Draw("(VOID (LINE (PT 0 0) (PT 2 0)) (LINE (PT 2 0) (PT 2 2)) (LINE (PT 2 2) (PT 0 0)))");
    EXPECT_FALSE(One<Polygon>(scene).filled);
    ExpectBox(scene.Bounds(), 0, 0, 2, 2);
}

TEST(ObjectDrawer, AGroupMovesAndTurnsItsObjects) {
    const Scene scene =
        Draw("(COMPOSITE (NAME G) (PT 10 0) (ROTATION 90) (FILLCIRCLE (D 2) (PT 5 0)) (NOSUCH))");
    ExpectPoint(One<Circle>(scene).center, 10, 5);
    EXPECT_STREQ(scene.Shapes()[0].source.type->name(), typeid(CVEKA_3DOJ_COMPOSITE).name());
}

TEST(ObjectDrawer, ATaperedLineIsAsWideAsItsEnds) {
    const Scene scene = Draw("(TAPERED (SWIDTH 2) (PT 0 0) (EWIDTH 4) (PT 3 0) (DIRECTION X))");
    const std::vector<Point> points = Points(scene);
    ASSERT_EQ(points.size(), 4u);
    ExpectPoint(points[0], 0, 1);
    ExpectPoint(points[1], 0, -1);
    ExpectPoint(points[2], 3, -2);
    ExpectPoint(points[3], 3, 2);
}

TEST(ObjectDrawer, AThermalReliefIsTheGapsBetweenItsSpokes) {
    const Scene scene =
        Draw("(THERMAL (TYPE ROUND) (OUTER 4) (INNER 2) (SPOKEWIDTH 0.4) (ROTATION 0) (NOOFSPOKES 4))");
    EXPECT_EQ(One<Polygon>(scene).count, 4u);
    const Shape& shape = scene.Shapes()[0];
    EXPECT_NEAR(scene.Distance(shape, {1.5, 0}), 0.2, 1e-9) << "in the middle of a spoke";
    EXPECT_EQ(scene.Distance(shape, {1.1, 1.1}), 0) << "in a gap";
    EXPECT_NEAR(scene.Distance(shape, {0.5, 0.5}), 1 - std::sqrt(0.5), 1e-6) << "in the pad";
    EXPECT_NEAR(scene.Distance(shape, {2, 2}), std::sqrt(8) - 2, 1e-9) << "outside";
}

TEST(ObjectDrawer, ASquareReliefHasSquaresAndTurnsItsSpokesAlone) {
    const Scene scene =
        Draw("(THERMAL (TYPE SQUARE) (OUTER 4) (INNER 2) (SPOKEWIDTH 0.4) (ROTATION 45) (NOOFSPOKES 4))");
    EXPECT_EQ(One<Polygon>(scene).count, 4u);
    const Shape& shape = scene.Shapes()[0];
    ExpectBox(scene.Bounds(), -2, -2, 2, 2);
    EXPECT_EQ(scene.Distance(shape, {1.9, 0}), 0) << "a gap to the right";
    EXPECT_NEAR(scene.Distance(shape, {1.5, 1.5}), 0.2, 1e-9) << "a spoke to the corner";
    EXPECT_NEAR(scene.Distance(shape, {0.9, 0}), 0.1, 1e-9) << "the pad is a square";
}

TEST(ObjectDrawer, AThermalReliefWithoutSpokesIsARing) {
    const Scene scene = Draw("(THERMAL (TYPE ROUND) (OUTER 4) (INNER 2) (SPOKEWIDTH 0) (NOOFSPOKES 4))");
    EXPECT_EQ(One<Polygon>(scene).count, 2u);
    EXPECT_NEAR(scene.Distance(scene.Shapes()[0], {0, 0}), 1, 1e-9);
}

TEST(ObjectDrawer, SpokesThatFillEverythingLeaveNothing) {
    for (const char* thermal : {"(THERMAL (OUTER 4) (INNER 2) (SPOKEWIDTH 5) (NOOFSPOKES 4))",
                                "(THERMAL (OUTER 4) (INNER 5) (NOOFSPOKES 4))",
                                "(THERMAL (OUTER 4) (INNER 2) (SPOKEWIDTH 0.1) (NOOFSPOKES 1e9))",
                                "(THERMAL (OUTER -4))", "(THERMAL)"}) {
        const Scene scene = Draw(thermal);
        EXPECT_TRUE(scene.IsEmpty()) << thermal;
        EXPECT_EQ(scene.Remarks().size(), 1u) << thermal;
    }
}

TEST(ObjectDrawer, WideSpokesMeetInsideOfTheRing) {
    const Scene scene = Draw("(THERMAL (TYPE ROUND) (OUTER 4) (INNER 1) (SPOKEWIDTH 1.4) (NOOFSPOKES 4))");
    EXPECT_EQ(One<Polygon>(scene).count, 4u);
    EXPECT_NEAR(scene.Distance(scene.Shapes()[0], {0.7, 0.7}), 0, 1e-9) << "where two spokes meet";
    EXPECT_GT(scene.Distance(scene.Shapes()[0], {0.6, 0.6}), 0.1);
}

TEST(ObjectDrawer, AMarkOfAPinIsADisc) {
    EXPECT_TRUE(One<Circle>(Draw("(PINPOINT (TYPE 1) (D 0.3) (PT 1 1))")).filled);
}

TEST(ObjectDrawer, ATextHasItsFontItsPlaceAndItsJustification) {
    const auto parser = Import(
        "(FONTS (FONT (ID 7) (CHARHEIGHT 2)))(FOOTPRINTS (FOOTPRINT (CAMLAYERS (LAYER (ANO 1) (LNAME A)"
        "(TEXT (FID 7) (JUSTIFY 6) (ROTATION 90) (MIRROR Y) (PT 1 2) (VALUE AB))"
        "(TEXT (FID 8) (PT 1 2) (VALUE \"A\nB\"))))))");
    const Part part(*parser->GetCVEKA_Manager());
    const Scene scene = FootprintScene(part, *part.DefaultFootprint());
    ASSERT_EQ(scene.Shapes().size(), 2u);
    const auto& text = std::get<Text>(scene.Shapes()[0].form);
    EXPECT_EQ(scene.String(text), "AB");
    EXPECT_EQ(text.height, 2);
    EXPECT_EQ(text.rotation, 90);
    EXPECT_TRUE(text.mirrored);
    EXPECT_EQ(text.align, Align::Middle);
    EXPECT_EQ(text.lift, Lift::Top);
    const auto& other = std::get<Text>(scene.Shapes()[1].form);
    EXPECT_EQ(other.height, 1) << "a font that is not there is a new font";
    EXPECT_EQ(LinesOf(scene.String(other)).size(), 2u);
}

TEST(ObjectDrawer, AHiddenPropertyIsNotDrawn) {
    EXPECT_TRUE(Draw("(PTEXT (PT 0 0) (VALUE A) (VISIBLE FALSE))").IsEmpty());
    const Scene named = Draw("(PTEXT (PT 0 0) (NAME REFDES))");
    EXPECT_EQ(named.String(One<Text>(named)), "REFDES") << "a property without a value shows its name";
}

TEST(ObjectDrawer, ShapesInSpaceAreSeenFromAbove) {
    ExpectPoint(One<Line>(Draw("(3DLINE (PT 1 2 9) (PT 3 4 9) (LW 0.1))")).end, 3, 4);
    EXPECT_NEAR(One<Arc>(Draw("(3DARC (PT 1 0 5) (PT 0 1 5) (PT 0 0 5) (R 1) (LW 0.1) (DIR CCW))")).sweep, 90,
                1e-9);
    EXPECT_FALSE(One<Circle>(Draw("(3DCIRCLE (D 2) (LW 0.1) (PT 0 0 1))")).filled);
    EXPECT_TRUE(One<Circle>(Draw("(3DFILLCIRCLE (D 2) (PT 0 0 1))")).filled);
    ExpectBox(Draw("(3DFILLRECT (W 4) (H 2) (PT 1 0 1) (ROTATION 90) (OFFSET 1 0 0))").Bounds(), 0, -1, 2, 3);
    ExpectBox(Draw("(3DOBLONG (W 4) (H 2) (PT 1 0 1) (ROTATION 90))").Bounds(), 0, -2, 2, 2);
    EXPECT_EQ(
        Points(Draw("(3DPOLYGON (BOUNDARY (3DLINE (PT 0 0 1) (PT 1 0 1)) (3DLINE (PT 1 0 1) (PT 0 1 1)) "
                    "(3DLINE (PT 0 1 1) (PT 0 0 1))))"))
            .size(),
        3u);
}

TEST(ObjectDrawer, SolidsAndLeadsAreNoDrawing) {
    const Scene scene = Draw("(CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1)) (GULLWING (H 1))");
    EXPECT_TRUE(scene.IsEmpty());
    EXPECT_THAT(scene.Remarks(), ElementsAre(HasSubstr("2 objects are left out")));
}

TEST(ObjectDrawer, APlaceMovesTurnsMirrorsAndScales) {
    const Place place = Place({10, 0}, 90) * Place::Mirrored() * Place::Scaled(2);
    const Scene line = Draw("(LINE (PT 1 0) (PT 1 1) (LW 0.5))", place);
    ExpectPoint(One<Line>(line).start, 10, -2);
    ExpectPoint(One<Line>(line).end, 8, -2);
    EXPECT_EQ(One<Line>(line).width, 1);
    const Scene arc = Draw("(ARC (PT 1 0) (PT 0 1) (PT 0 0) (DIR CCW))", place);
    EXPECT_NEAR(One<Arc>(arc).sweep, -90, 1e-9) << "a mirrored arc turns the other way round";
    EXPECT_NEAR(One<Arc>(arc).radius, 2, 1e-9);
    const Scene text = Draw("(TEXT (PT 0 0) (ROTATION 30) (VALUE A))", place);
    EXPECT_TRUE(One<Text>(text).mirrored);
    EXPECT_NEAR(One<Text>(text).rotation, 60, 1e-9);
    EXPECT_EQ(One<Text>(text).height, 2);
}

TEST(ObjectDrawer, SizesThatNothingHasAreLeftOutWithASentence) {
    for (const char* object :
         {"(FILLCIRCLE (D -1))", "(CIRCLE (D 0))", "(FILLRECT (W -1) (H 2))",
          "(FILLRECT (W 1e300) (H 1e300))", "(LINE (PT 1e300 0) (PT 0 0))", "(LINE (PT 1e999 0) (PT 0 0))",
          "(CIRCLE (D 1) (PT 1e999 0))", "(ROUNDEDRECTANGLE (W 1) (H 0))", "(OBLONG (W -2) (H 1))",
          "(TAPERED (SWIDTH 1) (PT 0 0) (EWIDTH 1) (PT 0 0))", "(POLYGON (BOUNDARY))",
          "(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 1e999 0)) (LINE (PT 1 0) (PT 0 1))))",
          "(CHAMPEREDRECT (W 1e999) (H 1e999) (CHAMPEREDVALUE 1e999))",
          "(FILLRECT (W 1) (H 1) (ROTATION 1e999))", "(TEXT (PT 1e999 0) (VALUE A))",
          "(ARC (PT 0 0) (PT 0 0) (PT 0 0))", "(3DFILLRECT (W 1e999) (H 1))",
          "(COMPOSITE (PT 1e999 1e999) (FILLCIRCLE (D 1)))"}) {
        const Scene scene = Draw(object);
        EXPECT_TRUE(scene.IsEmpty()) << object;
        EXPECT_THAT(scene.Remarks(), ElementsAre(HasSubstr("1 object is left out"))) << object;
    }
}

TEST(ObjectDrawer, APenOfNoWidthIsTheThinnestLine) {
    EXPECT_EQ(One<Line>(Draw("(LINE (PT 0 0) (PT 1 0) (LW -5))")).width, 0);
    EXPECT_EQ(One<Line>(Draw("(LINE (PT 0 0) (PT 1 0) (LW 1e999))")).width, 0);
    EXPECT_EQ(Points(Draw("(ROUNDEDRECTANGLE (W 2) (H 2) (R -1))")).size(), 4u);
}

TEST(ObjectDrawer, GroupsInsideOfEachOtherEndAtADepth) {
    // A file has at most 20 levels; a host can make more.
    CVEKA_3DObjectArray objects;
    for (int i = 0; i < 1000; ++i) {
        auto group = std::make_unique<CVEKA_3DOJ_COMPOSITE>();
        group->Elements->MoveElementTo(objects, 0, -1);
        while (!objects.IsEmpty()) group->Elements->Add(objects.RemoveLastElement());
        objects.Add(std::move(group));
    }
    CVEKA_FontArray none;
    const Fonts fonts(none);
    SceneBuilder builder("deep");
    ObjectDrawer(builder, fonts).Draw(objects, {});
    EXPECT_EQ(builder.Finish().Remarks().size(), 1u);
    // Taken apart from the outside, because each group deletes what it holds.
    while (!objects.IsEmpty()) {
        const std::unique_ptr<CVEKA_3DObject> group(objects.RemoveLastElement());
        auto& elements = *dynamic_cast<CVEKA_3DOJ_COMPOSITE&>(*group).Elements;
        while (!elements.IsEmpty()) objects.Add(elements.RemoveLastElement());
    }
}

TEST(Justification, CountsFromTheLowerLeftToTheUpperRight) {
    EXPECT_EQ(JustificationOf(1).align, Align::Left);
    EXPECT_EQ(JustificationOf(1).lift, Lift::Bottom);
    EXPECT_EQ(JustificationOf(5).align, Align::Middle);
    EXPECT_EQ(JustificationOf(5).lift, Lift::Middle);
    EXPECT_EQ(JustificationOf(9).align, Align::Right);
    EXPECT_EQ(JustificationOf(9).lift, Lift::Top);
    for (const int other : {0, -1, 10, 2147483647}) EXPECT_EQ(JustificationOf(other).align, Align::Left);
}

}  // namespace
