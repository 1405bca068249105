#include "drawing/Scene.h"

#include <gmock/gmock.h>

#include <cmath>

#include "drawing/Drawn.h"

namespace {

using namespace test;

const auto kAll = [](const Layer&) { return true; };

TEST(Scene, FindsTheUppermostShapeAtAPoint) {
    const Scene scene = Draw("(FILLCIRCLE (D 10)) (FILLCIRCLE (D 2)) (LINE (PT 20 0) (PT 30 0) (LW 2))");
    EXPECT_EQ(scene.ShapeAt({0, 0}, 0, kAll), 1u);
    EXPECT_EQ(scene.ShapeAt({3, 0}, 0, kAll), 0u);
    EXPECT_EQ(scene.ShapeAt({25, 1.5}, 0.6, kAll), 2u);
    EXPECT_EQ(scene.ShapeAt({25, 1.5}, 0.4, kAll), std::nullopt);
    EXPECT_EQ(scene.ShapeAt({0, 0}, 0, [](const Layer& layer) { return layer.side == Side::Bottom; }),
              std::nullopt);
}

TEST(Scene, TheInsideOfAnOpenCircleIsNotItself) {
    const Scene scene = Draw("(CIRCLE (D 10) (LW 1)) (RECTANGLE (W 100) (H 100) (LW 1))");
    EXPECT_EQ(scene.ShapeAt({0, 0}, 0.1, kAll), std::nullopt);
    EXPECT_EQ(scene.ShapeAt({5.4, 0}, 0, kAll), 0u);
    EXPECT_EQ(scene.ShapeAt({50, 3}, 0, kAll), 1u);
}

TEST(Scene, ATextIsFoundInItsBox) {
    const Scene scene = Draw("(TEXT (JUSTIFY 5) (ROTATION 90) (PT 5 5) (VALUE ABCDEFGH))");
    EXPECT_EQ(scene.ShapeAt({5, 7}, 0, kAll), 0u);
    EXPECT_EQ(scene.ShapeAt({7, 5}, 0, kAll), std::nullopt) << "it stands upright";
    const Box box = scene.Bounds();
    EXPECT_NEAR(box.Width(), 1, 1e-9);
    EXPECT_NEAR(box.Center().y, 5, 1e-9);
}

TEST(Scene, AnArcIsFarFromWhereItIsNot) {
    const Scene scene = Draw("(ARC (PT 10 0) (PT 0 10) (PT 0 0) (DIR CCW))");
    const Shape& shape = scene.Shapes()[0];
    EXPECT_NEAR(scene.Distance(shape, {0, 0}), 10, 1e-9);
    EXPECT_NEAR(scene.Distance(shape, {std::sqrt(50), std::sqrt(50)}), 0, 1e-9);
    EXPECT_NEAR(scene.Distance(shape, {-10, 0}), std::sqrt(200), 1e-9) << "from its end";
}

TEST(Scene, ALongTextIsCut) {
    const Scene scene = Draw("(TEXT (PT 0 0) (VALUE " + std::string(1'000'000, 'A') + "))");
    EXPECT_EQ(scene.String(One<Text>(scene)), std::string(400, 'A') + "\xE2\x80\xA6");
}

TEST(Scene, AnEmptySceneHasNoBox) {
    const Scene scene = Draw("");
    EXPECT_TRUE(scene.Bounds().IsEmpty());
    EXPECT_EQ(scene.Bounds().Width(), 0);
    EXPECT_TRUE(scene.Bounds().Grown(5).IsEmpty());
}

TEST(Source, KnowsTheClassOfARecord) {
    const CVEKA_3DOJ_LINE line;
    const CVEKA_3DObject& object = line;
    EXPECT_EQ(Source::Of(object), Source::Of(line));
    EXPECT_TRUE(*Source::Of(object).type == typeid(CVEKA_3DOJ_LINE));
    EXPECT_FALSE(Source());
    EXPECT_FALSE(Source::Of(line) == Source());
}

}  // namespace
