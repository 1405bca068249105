#include "drawing/PackageScene.h"

#include <gmock/gmock.h>

#include "drawing/Drawn.h"
#include "leads/Lead.h"

namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A package seen from a direction.
Scene See(const std::string& package, Looking looking, const std::string& unit = "MM") {
    const auto parser =
        Import("(VEK (PARTGENERAL (UNIT " + unit + ")) (PACKAGES (PACKAGE (NAME P) " + package + ")))");
    const Part part(*parser->GetCVEKA_Manager());
    return PackageScene(part, *part.DefaultPackage(), looking);
}
Scene SeeBody(const std::string& body, Looking looking) {
    return See("(BODYGEOMETRY (BODYSHAPE " + body + "))", looking);
}

TEST(PackageScene, ABoxIsARectangleFromEverySide) {
    const std::string box = "(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (PT 1 2 3))";
    const Scene above = SeeBody(box, Looking::FromAbove);
    EXPECT_EQ(above.Title(), "Package P from above");
    ExpectBox(above.Bounds(), -1, 1, 3, 3);
    ASSERT_EQ(above.Shapes().size(), 2u) << "the body and the line around it";
    EXPECT_TRUE(std::get<Polygon>(above.Shapes()[0].form).filled);
    EXPECT_FALSE(std::get<Polygon>(above.Shapes()[1].form).filled);
    ExpectBox(SeeBody(box, Looking::FromFront).Bounds(), -1, 3, 3, 4);
    ExpectBox(SeeBody(box, Looking::FromSide).Bounds(), 1, 3, 3, 4);
}

TEST(PackageScene, ATurnedBoxIsTurned) {
    ExpectBox(
        SeeBody("(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (ROTATE 0 0 90))", Looking::FromAbove).Bounds(),
        -1, -2, 1, 2);
    ExpectBox(
        SeeBody("(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (ROTATE 0 90 0))", Looking::FromAbove).Bounds(),
        0, -1, 1, 1);
    // The same by directions: front is the first row of the rotation, and up is the last one.
    ExpectBox(
        SeeBody("(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (FRONT 0 0 1) (UP -1 0 0))", Looking::FromAbove)
            .Bounds(),
        0, -1, 1, 1);
}

TEST(PackageScene, ABodyTurnsAboutItsPivot) {
    ExpectBox(SeeBody("(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (PIVOT 2 0 0) (ROTATE 0 0 90))",
                      Looking::FromAbove)
                  .Bounds(),
              1, -4, 3, 0);
}

TEST(PackageScene, RoundBodiesAreRoundAlongTheirAxisAndFlatAcrossIt) {
    const Scene above = SeeBody("(CYLINDER (RADIUS 2) (THICKNESS 5))", Looking::FromAbove);
    ExpectBox(above.Bounds(), -2, -2, 2, 2);
    EXPECT_GT(above.Distance(above.Shapes()[0], {1.9, 1.9}), 0.5);
    ExpectBox(SeeBody("(CYLINDER (RADIUS 2) (THICKNESS 5))", Looking::FromFront).Bounds(), -2, 0, 2, 5);
    const Scene lying = SeeBody("(CYLINDER (RADIUS 2) (THICKNESS 5) (ROTATE 0 90 0))", Looking::FromAbove);
    ExpectBox(lying.Bounds(), 0, -2, 5, 2);
    ExpectBox(SeeBody("(ELLIPSE (WIDTH 4) (HEIGHT 2) (THICKNESS 3))", Looking::FromAbove).Bounds(), -2, -1, 2,
              1);
    ExpectBox(SeeBody("(SPHERE (RADIUS 2) (PT 1 1 1))", Looking::FromFront).Bounds(), -1, -1, 3, 3);
}

TEST(PackageScene, ARingAndAFrameHaveTheirHoles) {
    for (const char* body :
         {"(DONUT (OUTERDIAM 4) (INNERDIAM 2) (THICKNESS 1))",
          "(HOLECUBOID (WIDTH 4) (HEIGHT 4) (THICKNESS 1) (HOLEWIDTH 2) (HOLEHEIGHT 2))"}) {
        const Scene scene = SeeBody(body, Looking::FromAbove);
        ExpectBox(scene.Bounds(), -2, -2, 2, 2);
        EXPECT_NEAR(scene.Distance(scene.Shapes()[0], {0, 0}), 1, 1e-9) << body;
        ExpectBox(SeeBody(body, Looking::FromFront).Bounds(), -2, 0, 2, 1);
    }
}

TEST(PackageScene, APillarHasItsOutlineAndItsVoids) {
    const Scene scene = SeeBody(
        "(PILLAR (THICKNESS 2) (BOUNDARY (LINE (PT 0 0) (PT 6 0)) (LINE (PT 6 0) (PT 6 6)) (LINE (PT 6 6) "
        "(PT 3 3)) (LINE "
        "(PT 3 3) (PT 0 6)) (LINE (PT 0 6) (PT 0 0))) (VOIDS (VOID (LINE (PT 1 1) (PT 2 1)) (LINE (PT 2 1) "
        "(PT 2 2)) "
        "(LINE (PT 2 2) (PT 1 1)))))",
        Looking::FromAbove);
    EXPECT_EQ(std::get<Polygon>(scene.Shapes()[0].form).count, 2u);
    EXPECT_GT(scene.Distance(scene.Shapes()[0], {3, 5}), 1) << "the outline is not made convex";
}

TEST(PackageScene, AFrustumShowsItsNearEnd) {
    const Scene scene = SeeBody(
        "(PYRAMID (TOPWIDTH 2) (TOPHEIGHT 2) (BOTWIDTH 4) (BOTHEIGHT 4) (THICKNESS 1))", Looking::FromAbove);
    ExpectBox(scene.Bounds(), -2, -2, 2, 2);
    ASSERT_EQ(scene.Shapes().size(), 3u);
    ExpectBox(scene.Bounds(scene.Shapes()[2]), -1, -1, 1, 1);
    ExpectBox(SeeBody("(PYRAMID (BOTWIDTH 4) (BOTHEIGHT 4) (THICKNESS 1))", Looking::FromFront).Bounds(), -2,
              0, 2, 1);
}

TEST(PackageScene, HigherBodiesCoverLowerOnes) {
    const Scene scene = SeeBody(
        "(CUBOID (WIDTH 2) (HEIGHT 2) (THICKNESS 1) (PT 0 0 5)) (CUBOID (WIDTH 4) (HEIGHT 4) "
        "(THICKNESS 1))",
        Looking::FromAbove);
    EXPECT_GT(scene.Bounds(scene.Shapes()[0]).Width(), scene.Bounds(scene.Shapes()[1]).Width());
}

TEST(PackageScene, LeadsStandAtTheirPins) {
    const std::string pins =
        "(PKGPINS (PKGPIN 1 (PT 5 1 0) (LEAD (FLAT (L 2) (W 1) (T 0.2)))) (PKGPIN 2 (PT 0 5 0) (ROTATION 90) "
        "(LEAD (FLAT (L "
        "2) (W 1) (T 0.2)))))";
    const Scene above = See(pins, Looking::FromAbove);
    std::vector<Box> boxes;
    std::vector<Source> pinsSeen;
    for (const Shape* lead : WithRole(above, Role::Lead)) {
        EXPECT_STREQ(lead->source.type->name(), typeid(CVEKA_PackagePin).name());
        EXPECT_STREQ(lead->definition.type->name(), typeid(CVEKA_3DOJ_FLAT).name());
        if (pinsSeen.empty() || !(pinsSeen.back() == lead->source)) {
            pinsSeen.push_back(lead->source);
            boxes.emplace_back();
        }
        boxes.back().Add(above.Bounds(*lead));
    }
    ASSERT_EQ(boxes.size(), 2u);
    ExpectBox(boxes[0], 4, 0.5, 6, 1.5);
    ExpectBox(boxes[1], -0.5, 4, 0.5, 6);
    ExpectBox(See(pins, Looking::FromFront).Bounds(), -0.5, 0, 6, 0.2);
}

TEST(PackageScene, ALeadThatCannotBeIsASentence) {
    const Scene scene = See("(PKGPINS (PKGPIN 1 (LEAD (GULLWING (H -1)))))", Looking::FromAbove);
    EXPECT_TRUE(scene.IsEmpty());
    EXPECT_THAT(scene.Remarks(), testing::Contains(HasSubstr("a lead is left out: ")));
}

TEST(PackageScene, AStepFileIsNotDrawn) {
    const Scene scene = SeeBody("(STEP (PATH a.stp))", Looking::FromAbove);
    EXPECT_TRUE(scene.IsEmpty());
    EXPECT_THAT(scene.Remarks(), ElementsAre("the STEP file \"a.stp\" is not drawn"));
}

TEST(PackageScene, AMarkingIsSeenFromAboveIfItIsVisible) {
    const std::string mark = "(3DFILLCIRCLE (D 1) (PT 1 1 1)) (TEXT (PT 0 0 1) (VALUE A)))";
    const Scene above = See("(MARKINGGEOMETRIES (VISIBLE TRUE) " + mark, Looking::FromAbove);
    EXPECT_EQ(WithRole(above, Role::Marking).size(), 2u);
    EXPECT_TRUE(above.Layers()[0].shown);
    EXPECT_FALSE(See("(MARKINGGEOMETRIES (VISIBLE FALSE) " + mark, Looking::FromAbove).Layers()[0].shown);
    EXPECT_TRUE(See("(MARKINGGEOMETRIES (VISIBLE TRUE) " + mark, Looking::FromFront).IsEmpty());
}

TEST(PackageScene, TheUnitOfThePartCounts) {
    ExpectBox(See("(BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 100) (HEIGHT 200) (THICKNESS 1))))",
                  Looking::FromAbove, "MIL")
                  .Bounds(),
              -1.27, -2.54, 1.27, 2.54);
    ExpectBox(
        See("(PKGPINS (PKGPIN 1 (PT 100 0) (LEAD (FLAT (L 100) (W 100) (T 1)))))", Looking::FromAbove, "MIL")
            .Bounds(),
        1.27, -1.27, 3.81, 1.27);
}

TEST(PackageScene, SizesThatNoBodyHasAreLeftOut) {
    for (const char* body :
         {"(CUBOID (WIDTH -1) (HEIGHT 1) (THICKNESS 1))", "(CYLINDER (RADIUS 1e300) (THICKNESS 1))",
          "(SPHERE (RADIUS 0))", "(DONUT (OUTERDIAM 1) (INNERDIAM 2) (THICKNESS 1))",
          "(PYRAMID (THICKNESS 1))", "(PILLAR (THICKNESS 1))",
          "(CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1) (PT 1e999 0 0))",
          "(CUBOID (WIDTH 1e999) (HEIGHT 1) (THICKNESS 1) (ROTATE 10 20 30))",
          "(CUBOID (WIDTH 1) (HEIGHT 1) (THICKNESS 1) (ROTATE 1e999 0 0))",
          "(PILLAR (THICKNESS 1) (BOUNDARY (LINE (PT 1e300 0) (PT 0 1e300)) (LINE (PT 0 1e300) (PT 1 1))))"})
        for (const Looking looking : {Looking::FromAbove, Looking::FromFront, Looking::FromSide}) {
            const Scene scene = SeeBody(body, looking);
            EXPECT_TRUE(scene.IsEmpty()) << body;
            EXPECT_FALSE(scene.Remarks().empty()) << body;
        }
}

TEST(PackageScene, ARealPartHasALeadForEachPin) {
    VEKA_NEEDS_CORPUS();
    ForEachRealPart([](const Part& part, const std::filesystem::path&) {
        const CVEKA_Package& package = *part.DefaultPackage();
        for (const Looking looking : {Looking::FromAbove, Looking::FromFront}) {
            const Scene scene = PackageScene(part, package, looking);
            for (const CVEKA_PackagePin* pin : *package.GetPKGPins()) {
                const auto impossible = [](const CVEKA_3DObject* object) {
                    return veka::IsLead(*object) && !veka::ReadLead(*object).failure.empty();
                };
                const CVEKA_3DObjectArray& objects = *pin->Get3DObjects();
                if (std::any_of(objects.begin(), objects.end(), impossible)) continue;
                Box box;
                for (const Shape& shape : scene.Shapes())
                    if (shape.source == Source::Of(*pin)) box.Add(scene.Bounds(shape));
                const Point at = looking == Looking::FromAbove
                                     ? Point{pin->GetPoint()->GetX(), pin->GetPoint()->GetY()}
                                     : Point{pin->GetPoint()->GetX(), 0};
                EXPECT_TRUE(box.Grown(0.3).Contains(at)) << pin->GetPKGPinName().GetString();
            }
            EXPECT_FALSE(WithRole(scene, Role::Body).empty());
        }
    });
}

}  // namespace
