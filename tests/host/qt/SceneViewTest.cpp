#include "host/qt/SceneView.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>
#include <cstdlib>

#include "drawing/SceneBuilder.h"
#include "host/qt/ScenePainter.h"
#include "support/QtScript.h"

namespace {

using drawing::Point;
using drawing::Role;
using drawing::Side;

int g_disc, g_square;  // records, by their addresses

/// A disc of copper on the top at (5, 0), and a square of silk on the bottom at (-5, 0).
std::shared_ptr<const drawing::Scene> TwoShapes() {
    drawing::SceneBuilder builder("Two");
    builder.pen = {
        builder.Layer("Copper", Role::Copper, Side::Top, 10), Role::Copper, {&g_disc, &typeid(int)}, {}};
    builder.AddCircle({}, {5, 0}, 2, 0, true);
    builder.pen = {
        builder.Layer("Silk", Role::Silk, Side::Bottom, 20), Role::Silk, {&g_square, &typeid(int)}, {}};
    builder.AddPolygon(drawing::Place({-5, 0}), {drawing::RectangleOutline(4, 4)}, 0, true);
    return std::make_shared<const drawing::Scene>(builder.Finish());
}

class SceneView : public test::QtTest {
protected:
    SceneView() {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::black);
        view.setPalette(palette);
        view.resize(600, 400);
        view.onPick = [this](const drawing::Source& source) { picked = source.record; };
        view.onPointer = [this](std::optional<Point> point) { pointer = point; };
        view.show();
        view.ShowScene(TwoShapes(), Side::Both);
    }
    QPoint At(double x, double y) { return view.ToWidget({x, y}).toPoint(); }
    /// The colour of the picture at a point of the scene.
    QColor ColorAt(double x, double y) { return view.grab().toImage().pixelColor(At(x, y)); }
    static QColor ColorOf(Role role, Side side) {
        return host::ToQColor(drawing::ColorOf(role, side, drawing::Theme::Dark));
    }
    static QColor Ground() { return host::ToQColor(drawing::Ground(drawing::Theme::Dark)); }
    void Click(double x, double y) { QTest::mouseClick(&view, Qt::LeftButton, {}, At(x, y)); }
    void Wheel(QPoint at, int notches) {
        QWheelEvent event(at, view.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &event);
    }
    void Drag(Qt::MouseButton button, QPoint from, QPoint to) {
        QTest::mousePress(&view, button, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, button, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &move);
        QTest::mouseRelease(&view, button, {}, to);
    }

    host::SceneView view;
    const void* picked = &view;
    std::optional<Point> pointer;
};

TEST_F(SceneView, ShowsAllOfTheSceneAtFirst) {
    EXPECT_EQ(ColorAt(5, 0), ColorOf(Role::Copper, Side::Top));
    EXPECT_EQ(ColorAt(0, 0).lightness() > Ground().lightness(), true) << "the cross at the origin";
    EXPECT_EQ(ColorAt(0, 1), Ground());
    for (const Point corner : {Point{-7, 2}, Point{7, -2}})
        EXPECT_TRUE(view.rect().contains(view.ToWidget(corner).toPoint()));
    EXPECT_GT(view.PixelsPerMillimetre(), 35) << "and no smaller than needed";
}

TEST_F(SceneView, TheWheelZoomsAtThePointer) {
    const QPoint at = At(5, 0);
    const double before = view.PixelsPerMillimetre();
    Wheel(at, 3);
    EXPECT_GT(view.PixelsPerMillimetre(), before * 1.5);
    EXPECT_NEAR(view.ToScene(at).x, 5, 0.1);
    EXPECT_NEAR(view.ToScene(at).y, 0, 0.1);
    Wheel(at, -3);
    EXPECT_NEAR(view.PixelsPerMillimetre(), before, 1e-9);
}

TEST_F(SceneView, ZoomHasItsEnds) {
    for (int i = 0; i < 100; ++i) Wheel({10, 10}, 10);
    EXPECT_LE(view.PixelsPerMillimetre(), 1e4);
    view.grab();
    for (int i = 0; i < 100; ++i) Wheel({10, 10}, -10);
    EXPECT_GT(view.PixelsPerMillimetre(), 0);
    view.grab();
    QTest::keyClick(&view, Qt::Key_F);
    EXPECT_EQ(ColorAt(5, 0), ColorOf(Role::Copper, Side::Top));
}

TEST_F(SceneView, TheMiddleButtonMovesTheScene) {
    view.grab();
    const QPointF before = view.ToWidget({0, 0});
    Drag(Qt::MiddleButton, {100, 100}, {130, 90});
    EXPECT_EQ(view.ToWidget({0, 0}) - before, QPointF(30, -10));
    EXPECT_EQ(ColorAt(5, 0), ColorOf(Role::Copper, Side::Top));
    EXPECT_EQ(ColorAt(-5, 0), ColorOf(Role::Silk, Side::Bottom));
    EXPECT_EQ(picked, &view) << "that is no click";
}

TEST_F(SceneView, TheSpaceBarMakesTheLeftButtonMoveTheScene) {
    const QPointF before = view.ToWidget({0, 0});
    Drag(Qt::LeftButton, {100, 100}, {130, 90});
    EXPECT_EQ(view.ToWidget({0, 0}), before);
    QTest::keyPress(&view, Qt::Key_Space);
    Drag(Qt::LeftButton, {100, 100}, {130, 90});
    QTest::keyRelease(&view, Qt::Key_Space);
    EXPECT_EQ(view.ToWidget({0, 0}) - before, QPointF(30, -10));
    Drag(Qt::LeftButton, {100, 100}, {130, 90});
    EXPECT_EQ(view.ToWidget({0, 0}) - before, QPointF(30, -10));
}

TEST_F(SceneView, WhatComesIntoSightIsPainted) {
    for (int i = 0; i < 5; ++i) Wheel(At(5, 0), 1);
    view.grab();
    EXPECT_FALSE(view.rect().contains(At(-5, 0)));
    for (int i = 0; i < 25; ++i) {
        Drag(Qt::MiddleButton, {100, 100}, {140, 100});
        view.grab();
    }
    ASSERT_TRUE(view.rect().contains(At(-5, 0)));
    EXPECT_EQ(ColorAt(-5, 0), ColorOf(Role::Silk, Side::Bottom));
    const QImage moved = view.grab().toImage();
    view.ShowLayers({true, false});
    view.ShowLayers({true, true});
    const QImage anew = view.grab().toImage();
    int different = 0;
    for (int y = 0; y < anew.height(); ++y)
        for (int x = 0; x < anew.width(); ++x)
            different += std::abs(qGray(anew.pixel(x, y)) - qGray(moved.pixel(x, y))) > 8 ? 1 : 0;
    EXPECT_EQ(different, 0) << "it is as if all of it were painted anew";
}

TEST_F(SceneView, ASideShowsItsLayersOnly) {
    view.ShowScene(TwoShapes(), Side::Top);
    EXPECT_EQ(ColorAt(5, 0), ColorOf(Role::Copper, Side::Top));
    EXPECT_NEAR(view.ToWidget({5, 0}).x(), view.width() / 2.0, 1) << "the other shape needs no room";
    view.ShowScene(TwoShapes(), Side::Bottom);
    EXPECT_EQ(ColorAt(-5, 0), ColorOf(Role::Silk, Side::Bottom));
    EXPECT_GT(view.ToWidget({-6, 0}).x(), view.ToWidget({-5, 0}).x()) << "it is mirrored";
    EXPECT_NEAR(view.ToScene(view.ToWidget({-5, 1})).x, -5, 1e-9);
}

TEST_F(SceneView, LayersAreSwitchedOff) {
    view.ShowLayers({false, true});
    EXPECT_EQ(ColorAt(5, 0), Ground());
    EXPECT_EQ(ColorAt(-5, 0), ColorOf(Role::Silk, Side::Bottom));
    Click(5, 0);
    EXPECT_EQ(picked, nullptr);
}

TEST_F(SceneView, AClickPicksAShape) {
    Click(5, 0);
    EXPECT_EQ(picked, &g_disc);
    Click(-5, 1);
    EXPECT_EQ(picked, &g_square);
    Click(0, 3);
    EXPECT_EQ(picked, nullptr);
}

TEST_F(SceneView, AHighlightedShapeHasAnotherColourAndComesIntoSight) {
    view.Highlight({0});
    EXPECT_NE(ColorAt(5, 0), ColorOf(Role::Copper, Side::Top));
    EXPECT_EQ(ColorAt(-5, 0), ColorOf(Role::Silk, Side::Bottom));
    for (int i = 0; i < 6; ++i) Wheel(At(5, 0), 2);
    EXPECT_FALSE(view.rect().contains(At(-5, 0)));
    view.Highlight({1});
    EXPECT_NEAR(view.ToWidget({-5, 0}).x(), view.width() / 2.0, 1);
}

TEST_F(SceneView, ThePointerHasAPlaceInMillimetres) {
    const QPoint at = At(5, 1);
    QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, {}, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &move);
    ASSERT_TRUE(pointer);
    EXPECT_NEAR(pointer->x, 5, 0.05);
    EXPECT_NEAR(pointer->y, 1, 0.05);
    EXPECT_EQ(host::PlaceText({2.54, -1}), "X 2.540  Y -1.000 mm   (X 100.0  Y -39.4 mil)");
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&view, &leave);
    EXPECT_FALSE(pointer);
}

TEST_F(SceneView, TwoClicksMeasureADistanceBetweenPointsOfShapes) {
    QTest::keyClick(&view, Qt::Key_D);
    EXPECT_TRUE(view.IsMeasuring());
    Click(5.05, 0.05);
    EXPECT_FALSE(view.Distance());
    view.grab();
    Click(-3.05, 2.05);
    ASSERT_TRUE(view.Distance());
    EXPECT_DOUBLE_EQ(*view.Distance(), std::hypot(8, 2)) << "from the middle of the disc to a corner";
    EXPECT_EQ(picked, &view) << "nothing is picked meanwhile";
    view.grab();
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(view.IsMeasuring());
    EXPECT_FALSE(view.Distance());
}

TEST_F(SceneView, LengthsAreInMillimetresAndMil) {
    EXPECT_EQ(host::LengthText(1.27), "1.27 mm (50 mil)");
    EXPECT_EQ(host::LengthText(0), "0 mm (0 mil)");
}

TEST_F(SceneView, TheGroundFollowsThePalette) {
    QPalette light;
    light.setColor(QPalette::Window, Qt::white);
    view.setPalette(light);
    EXPECT_EQ(ColorAt(0, 1), host::ToQColor(drawing::Ground(drawing::Theme::Light)));
}

TEST_F(SceneView, WithoutASceneATextIsShown) {
    view.ShowScene(nullptr, Side::Both, "Nothing here.");
    const QImage image = view.grab().toImage();
    view.ShowScene(nullptr, Side::Both, "");
    EXPECT_NE(view.grab().toImage(), image);
    QTest::keyClick(&view, Qt::Key_D);
    Click(1, 1);
    Wheel({10, 10}, 1);
    view.grab();
}

TEST_F(SceneView, KeysZoomAndMove) {
    const double before = view.PixelsPerMillimetre();
    QTest::keyClick(&view, Qt::Key_Plus);
    EXPECT_GT(view.PixelsPerMillimetre(), before);
    QTest::keyClick(&view, Qt::Key_Minus);
    const QPointF origin = view.ToWidget({0, 0});
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_GT(view.ToWidget({0, 0}).x(), origin.x());
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_NEAR(view.ToWidget({0, 0}).x(), origin.x(), 1e-9);
    EXPECT_NEAR(view.ToWidget({0, 0}).y(), origin.y(), 1e-9);
}

TEST_F(SceneView, AnotherSizeKeepsWhatIsInTheMiddle) {
    view.resize(300, 500);
    EXPECT_TRUE(view.rect().contains(At(7, 0))) << "what was fitted is fitted";
    Wheel(view.rect().center(), 2);
    const Point middle = view.ToScene(QRectF(view.rect()).center());
    view.resize(500, 300);
    EXPECT_NEAR(view.ToScene(QRectF(view.rect()).center()).x, middle.x, 1e-6);
}

TEST_F(SceneView, ALargeSceneIsPaintedInPieces) {
    drawing::SceneBuilder builder("Large");
    builder.pen.layer = builder.Layer("Copper", Role::Copper, Side::Top, 10);
    for (int i = 0; i < 60'000; ++i) builder.AddCircle({}, {i % 300 * 1.0, i / 300 * 1.0}, 20, 0, true);
    view.ShowScene(std::make_shared<const drawing::Scene>(builder.Finish()), Side::Both);
    view.grab();
    EXPECT_FALSE(view.IsPainted());
    Drag(Qt::MiddleButton, {100, 100}, {110, 100});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.IsPainted(); }, 60'000));
    // Where many shapes cover each other, the colour is rounded.
    EXPECT_NEAR(ColorAt(150, 100).red(), ColorOf(Role::Copper, Side::Top).red(), 3);
}

TEST_F(SceneView, PlacesAtTheEndOfAllDrawingsAreShown) {
    drawing::SceneBuilder builder("Far");
    builder.pen.layer = builder.Layer("Copper", Role::Copper, Side::Top, 10);
    builder.AddLine({}, {-1e6, -1e6}, {1e6, 1e6}, 0);
    builder.AddCircle({}, {1e6, 1e6}, 1e6, 0, true);
    builder.AddPolygon({}, {drawing::RoundedOutline(1e6, 10, 5)}, 0, true);
    builder.AddText({}, {0, 0}, 1e5, 33, "text", drawing::Align::Left, drawing::Lift::Bottom);
    view.ShowScene(std::make_shared<const drawing::Scene>(builder.Finish()), Side::Both);
    view.grab();
    for (int i = 0; i < 30; ++i) {
        Wheel(At(1e6, 1e6 / 2), 4);
        view.grab();
    }
    for (int i = 0; i < 5; ++i) {
        Drag(Qt::MiddleButton, {0, 0}, {500, 300});
        view.grab();
    }
    EXPECT_TRUE(view.IsPainted());
    view.Highlight({0, 1});
    view.Highlight({2});
    EXPECT_TRUE(QRectF(view.rect()).contains(view.ToWidget({0, 0})));
    QTest::keyClick(&view, Qt::Key_D);
    Click(0, 0);
    for (int i = 0; i < 30; ++i) Wheel({10, 10}, 4);
    view.grab();
}

}  // namespace
