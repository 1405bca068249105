#include "host/qt/SolidView.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

#include "host/qt/SceneView.h"
#include "support/Parsing.h"
#include "support/QtScript.h"

namespace {

class SolidView : public test::QtTest {
protected:
    static std::shared_ptr<const CVEKA_Manager> Part(std::string_view text) {
        const auto parser = test::Import(text);
        std::shared_ptr<const CVEKA_Manager> part(parser->GetCVEKA_Manager());
        parser->SetCVEKA_Manager(nullptr);
        return part;
    }
    std::string Why() { return test::QtScript::Child<QLabel>(view, "solidsWhy")->text().toStdString(); }
    bool Wait() {
        return QTest::qWaitFor([&] { return done > 0; });
    }

    host::SolidView view;
    int done = 0;
};

constexpr const char* kPart =
    "(VEK (PARTGENERAL (UNIT MM)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 10)"
    " (HEIGHT 3) (THICKNESS 1)))))))";

TEST_F(SolidView, WithoutAScreenForSolidsItShowsThePackageAndSaysWhy) {
    view.onDone = [this] { ++done; };
    view.show();
    view.ShowPart(Part(kPart), "part.veka");
    ASSERT_TRUE(Wait());
    EXPECT_THAT(Why(), testing::HasSubstr("X11"));
    for (const char* name : {"solidsFromAbove", "solidsFromFront"}) {
        auto* drawn = test::QtScript::Child<host::SceneView>(view, name);
        EXPECT_TRUE(drawn->isVisible());
        const QImage image = drawn->grab().toImage();
        EXPECT_NE(image.pixelColor(image.rect().center()), image.pixelColor(2, 2)) << name;
    }
    EXPECT_FALSE(test::QtScript::Child<QToolButton>(view, "solidsTop")->isEnabled());
}

TEST_F(SolidView, NothingIsMadeBeforeTheTabIsShown) {
    view.onDone = [this] { ++done; };
    view.ShowPart(Part(kPart), "part.veka");
    QTest::qWait(20);
    EXPECT_EQ(done, 0);
    view.show();
    EXPECT_TRUE(Wait());
}

TEST_F(SolidView, APartWithoutAPackageIsShownAsNothing) {
    view.onDone = [this] { ++done; };
    view.show();
    view.grab();
    view.ShowPart(Part("(VEK (PARTGENERAL (MPN A)))"), "part.veka");
    ASSERT_TRUE(Wait());
    view.grab();
}

}  // namespace
