// The viewer of solids on a real screen: it needs X11 and OpenGL.

#include "host/qt/SolidView.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QStackedWidget>
#include <QToolButton>
#include <set>

#include "host/qt/SolidCanvas.h"
#include "support/Parsing.h"
#include "support/QtScript.h"

namespace {

class SolidViewer : public test::QtTest {
protected:
    SolidViewer() {
        view.onDone = [this] { done = true; };
        view.resize(600, 500);
        view.show();
    }
    void Show(std::string_view text) {
        const auto parser = test::Import(text);
        std::shared_ptr<const CVEKA_Manager> part(parser->GetCVEKA_Manager());
        parser->SetCVEKA_Manager(nullptr);
        done = false;
        view.ShowPart(std::move(part), "part.veka");
        ASSERT_TRUE(QTest::qWaitFor([&] { return done; }, 30'000));
        QTest::qWait(100);
    }
    host::SolidCanvas& Canvas() { return *test::QtScript::Child<host::SolidCanvas>(view, "solidCanvas"); }
    std::string Why() { return test::QtScript::Child<QLabel>(view, "solidsWhy")->text().toStdString(); }
    /// What the screen shows of the solids.
    QImage Seen() {
        return QGuiApplication::primaryScreen()
            ->grabWindow(Canvas().winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    void Press(const char* button) {
        QTest::mouseClick(test::QtScript::Child<QToolButton>(view, button), Qt::LeftButton);
        QTest::qWait(50);
    }

    host::SolidView view;
    bool done = false;
};

constexpr const char* kPart =
    "(VEK (PARTGENERAL (UNIT MM)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 10) "
    "(HEIGHT 3)"
    " (THICKNESS 1)))) (PKGPINS (PKGPIN 1 (PT -4 0) (LEAD (BALL (H 0.6))))))))";

TEST_F(SolidViewer, ShowsTurnsAndLooksFromEachSide) {
    Show(kPart);
    ASSERT_TRUE(Canvas().isVisible()) << Why();
    std::set<int> colors;
    const QImage first = Seen();
    ASSERT_FALSE(first.isNull());
    for (int x = 0; x < first.width(); x += 5)
        for (int y = 0; y < first.height(); y += 5)
            colors.insert(static_cast<int>(first.pixel(x, y) & 0xFFFFFF));
    EXPECT_GT(colors.size(), 3u) << "a body with light and shade";
    for (const char* side : {"solidsTop", "solidsFront", "solidsRight"}) {
        const QImage before = Seen();
        Press(side);
        EXPECT_NE(Seen(), before) << side;
    }
    for (const char* side : {"solidsBottom", "solidsBack", "solidsLeft", "solidsOblique"}) Press(side);
    const QImage flat = Seen();
    Press("solidsPerspective");
    EXPECT_NE(Seen(), flat);
    Press("solidsPerspective");
    const QImage before = Seen();
    QTest::mousePress(&Canvas(), Qt::LeftButton, {}, {200, 200});
    QMouseEvent move(QEvent::MouseMove, {260, 230}, Canvas().mapToGlobal(QPoint(260, 230)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Canvas(), &move);
    QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, {260, 230});
    QTest::qWait(50);
    EXPECT_NE(Seen(), before) << "it was turned";
    QTest::keyClick(&Canvas(), Qt::Key_F);
    view.resize(400, 300);
    QTest::qWait(50);
}

TEST_F(SolidViewer, ShowsTheNextPartInPlaceOfTheFormer) {
    Show(kPart);
    const QImage first = Seen();
    Show(
        "(VEK (PARTGENERAL (UNIT MM)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE (SPHERE (RADIUS "
        "2)))))))");
    EXPECT_NE(Seen(), first);
    Show("(VEK (PARTGENERAL (MPN A)))");
    EXPECT_FALSE(Canvas().isVisible());
    EXPECT_NE(Why(), "");
}

}  // namespace
