#include "host/qt/PartPictures.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>

#include "host/qt/ScenePainter.h"
#include "support/Parsing.h"
#include "support/QtScript.h"

namespace {

constexpr const char* kPart =
    "(VEK (PARTGENERAL (UNIT MM) (MPN A)) (ELECTRICAL (PINS (PIN (NAME 1)) (PIN (NAME 2))))"
    " (PACKAGES (PACKAGE (NAME Body) (DEFAULTFOOTPRINT Second) (BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 4)"
    " (HEIGHT 2) (THICKNESS 1)))) (PKGPINS (PKGPIN 1 (PT -2 0) (LEAD (BALL (H 0.6))))"
    " (PKGPIN 2 (PT 2 0) (LEAD (BALL (H 0.6)))))))"
    " (LOGICSYMBOLS (SYMBOL (SYMBOLNAME Gates)"
    " (PARTITION (PARTITIONPINS (PARTITIONPIN 1 IO TRUE (PT 0 0))))"
    " (PARTITION (PARTITIONPINS (PARTITIONPIN 2 IO TRUE (PT 0 0)))))))"
    "(PADS (PAD (PADNAME P) (FILLCIRCLE (D 1))))"
    "(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P) (SOLD P)) (BOTTOM (CON P))))"
    "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME First) (FPINS (FPIN 1 1 (LIBPADSTACK S) (PT 0 0))))"
    " (FOOTPRINT (FOOTPRINTNAME Second) (FPINS (FPIN 1 1 (LIBPADSTACK S) (PT -2 0))"
    " (FPIN 2 2 (LIBPADSTACK S) (PT 2 0)))))";

class PartPictures : public test::QtTest {
protected:
    PartPictures() {
        pictures.onPick = [this](const void* record) { picked = record; };
        pictures.onPointer = [this](const QString& text) { place = text; };
        pictures.resize(700, 500);
        pictures.show();
    }
    void Show(std::string_view text) {
        former = std::move(parser);
        parser = test::Import(text);
        pictures.ShowPart(Part());
        former.reset();
    }
    const CVEKA_Manager& Part() { return *parser->GetCVEKA_Manager(); }
    const CVEKA_FootprintDB& Footprint(int index) { return *Part().GetFootprintDBArr()->GetAt(index); }
    host::SceneView& View(const char* name) {
        return *test::QtScript::Child<host::SceneView>(pictures, name);
    }
    QComboBox& Choice(const char* name) { return *test::QtScript::Child<QComboBox>(pictures, name); }
    QListWidget& Layers() { return *test::QtScript::Child<QListWidget>(pictures, "footprintLayers"); }
    QListWidgetItem* Layer(const char* name) {
        const auto found = Layers().findItems(name, Qt::MatchExactly);
        return found.isEmpty() ? nullptr : found[0];
    }
    static void Click(host::SceneView& view, double x, double y) {
        QTest::mouseClick(&view, Qt::LeftButton, {}, view.ToWidget({x, y}).toPoint());
    }

    std::unique_ptr<CVEK_AsciiParser> parser, former;
    host::PartPictures pictures;
    const void* picked = nullptr;
    QString place;
};

TEST_F(PartPictures, TheTabsAreThere) {
    ASSERT_GE(pictures.count(), 3);
    EXPECT_EQ(pictures.tabText(0), "&Footprint");
    EXPECT_EQ(pictures.tabText(1), "&Symbol");
    View("footprintView").grab();
}

TEST_F(PartPictures, TheDefaultFootprintComesFirst) {
    Show(kPart);
    ASSERT_EQ(Choice("footprintChoice").count(), 2);
    EXPECT_EQ(Choice("footprintChoice").currentText(), "Second");
    Click(View("footprintView"), 2.3, 0.3);
    EXPECT_EQ(picked, Footprint(1).GetFPins()->GetAt(1));
    Choice("footprintChoice").setCurrentIndex(1);
    Click(View("footprintView"), 0.3, 0.3);
    EXPECT_EQ(picked, Footprint(0).GetFPins()->GetAt(0));
}

TEST_F(PartPictures, AGateCanBeChosen) {
    Show(kPart);
    pictures.setCurrentIndex(1);
    QComboBox& choice = Choice("symbolChoice");
    ASSERT_EQ(choice.count(), 3);
    EXPECT_EQ(choice.itemText(0), "Gates");
    EXPECT_EQ(choice.itemText(2), "Gates, gate 2");
    const double both = View("symbolView").PixelsPerMillimetre();
    choice.setCurrentIndex(2);
    EXPECT_GT(View("symbolView").PixelsPerMillimetre(), both);
}

TEST_F(PartPictures, APackageIsSeenFromThreeSides) {
    Show(kPart);
    pictures.setCurrentIndex(2);
    QComboBox& choice = Choice("packageChoice");
    ASSERT_EQ(choice.count(), 3);
    EXPECT_EQ(choice.itemText(1), "Body from the front");
    for (int i = 0; i < 3; ++i) {
        choice.setCurrentIndex(i);
        picked = nullptr;
        Click(View("packageView"), 0, i == 0 ? 0.5 : 0.5);
        EXPECT_NE(picked, nullptr) << i;
    }
}

TEST_F(PartPictures, LayersAreSwitchedOffInTheList) {
    Show(kPart);
    QListWidgetItem* copper = Layer("Top copper");
    ASSERT_TRUE(copper);
    EXPECT_FALSE(Layer("Bottom copper")) << "it is not seen from the top";
    EXPECT_EQ(copper->checkState(), Qt::Checked);
    const QImage before = View("footprintView").grab().toImage();
    for (int i = 0; i < Layers().count(); ++i) Layers().item(i)->setCheckState(Qt::Unchecked);
    EXPECT_NE(View("footprintView").grab().toImage(), before);
    Click(View("footprintView"), 2.3, 0.3);
    EXPECT_EQ(picked, nullptr);
    Choice("footprintChoice").setCurrentIndex(1);
    EXPECT_EQ(Layer("Top copper")->checkState(), Qt::Unchecked) << "it stays so for the next picture";
    Layer("Top copper")->setCheckState(Qt::Checked);
    Click(View("footprintView"), 0.3, 0.3);
    EXPECT_NE(picked, nullptr);
}

TEST_F(PartPictures, TheOtherSideOfTheBoardIsShown) {
    Show(kPart);
    Choice("footprintSide").setCurrentIndex(1);
    EXPECT_TRUE(Layer("Bottom copper"));
    EXPECT_GT(View("footprintView").ToWidget({-2, 0}).x(), View("footprintView").ToWidget({2, 0}).x());
    Click(View("footprintView"), 2.3, 0.3);
    EXPECT_EQ(picked, Footprint(1).GetFPins()->GetAt(1));
}

TEST_F(PartPictures, APinIsHighlightedInAllPictures) {
    Show(kPart);
    const CVEKA_FootprintPin& pin = *Footprint(1).GetFPins()->GetAt(1);
    pictures.Highlight({{&pin, 0}});
    EXPECT_EQ(View("footprintView").Highlighted().size(), 4u) << "copper on two sides, a mask and the name";
    pictures.setCurrentIndex(1);
    EXPECT_FALSE(View("symbolView").Highlighted().empty());
    pictures.setCurrentIndex(2);
    EXPECT_EQ(View("packageView").Highlighted().size(), 1u);
    EXPECT_EQ(pictures.PinOf(&pin), "2");
    EXPECT_EQ(pictures.PinOf(&Part()), "");
    pictures.HighlightPin("none");
    EXPECT_TRUE(View("packageView").Highlighted().empty());
    pictures.HighlightPin("1");
    EXPECT_EQ(View("packageView").Highlighted().size(), 1u);
}

TEST_F(PartPictures, TheInnermostRecordThatIsDrawnIsHighlighted) {
    Show(kPart);
    const CVEKA_FootprintPinArray& pins = *Footprint(1).GetFPins();
    int nowhere = 0;
    pictures.Highlight({{&nowhere, 0}, {pins.GetAt(0), 1}, {pins.GetAt(1), 2}});
    EXPECT_EQ(View("footprintView").Highlighted().size(), 4u);
}

TEST_F(PartPictures, TheFootprintOfARecordIsShown) {
    Show(kPart);
    const CVEKA_FootprintPin& pin = *Footprint(0).GetFPins()->GetAt(0);
    pictures.Highlight({{&pin, 0}, {&Footprint(0), 1}});
    EXPECT_EQ(Choice("footprintChoice").currentText(), "First");
    EXPECT_FALSE(View("footprintView").Highlighted().empty());
}

TEST_F(PartPictures, ThePlaceOfThePointerIsTold) {
    Show(kPart);
    QTest::mouseMove(&View("footprintView"), {50, 60});
    QTest::qWait(20);
    EXPECT_TRUE(place.contains("mm")) << place.toStdString();
}

TEST_F(PartPictures, WhatIsMissingIsToldInASentence) {
    Show("(VEK (PARTGENERAL (MPN A)))");
    for (int tab = 0; tab < pictures.count(); ++tab) {
        pictures.setCurrentIndex(tab);
        pictures.grab();
    }
    EXPECT_FALSE(Choice("footprintChoice").isEnabled());
    pictures.HighlightPin("1");
    Show(
        "(VEK (PARTGENERAL (UNIT FURLONG) (MPN A)))(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 1 (PT nan 1e300))"
        "(FPIN 2 2 (LIBPADSTACK X) (PT 1 1)))))");
    auto* remarks = test::QtScript::Child<QLabel>(pictures, "footprintRemarks");
    pictures.setCurrentIndex(0);
    EXPECT_TRUE(remarks->isVisible());
    EXPECT_TRUE(remarks->text().contains("FURLONG")) << remarks->text().toStdString();
}

TEST_F(PartPictures, ATabIsDrawnOnceItIsShown) {
    Show(kPart);
    EXPECT_TRUE(View("symbolView").Highlighted().empty());
    pictures.hide();
    Show("(VEK (PARTGENERAL (MPN B)))");
    Show(kPart);
    pictures.show();
    Click(View("footprintView"), 2.3, 0.3);
    EXPECT_EQ(picked, Footprint(1).GetFPins()->GetAt(1));
}

/// Places and sizes that no drawing has, long names and many of everything.
TEST_F(PartPictures, HostilePartsDoNotHoldUpTheWindow) {
    const std::string name(1'000'000, 'x');
    std::string pins;
    for (int i = 0; i < 20'000; ++i)
        pins += "(FPIN " + std::to_string(i) + " " + (i % 2 ? "1" : "2") + " (LIBPADSTACK S) (PT " +
                std::to_string(i % 200) + " " + std::to_string(i / 200) + "))";
    Show("(VEK (PARTGENERAL (UNIT " + name + ") (MPN " + name +
         ")))(PADS (PAD (PADNAME P) (FILLCIRCLE (D 1e300)) (FILLCIRCLE (D -1))"
         "(FILLCIRCLE (D nan)) (RECTANGLE (W inf) (H 1)) (FILLRECTANGLE (W 1) (H 1e5))))"
         "(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P))))(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME " +
         name + ") (FPINS " + pins + " (FPIN 1 " + name + " (PT 1e300 -1e300))) (CAMLAYERS (LAYER (LNAME " +
         name + ") (FILLCIRCLE (D 1) (PT 1e6 -1e6))))))");
    pictures.grab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return View("footprintView").IsPainted(); }, 60'000));
    host::Ranks all;
    for (const CVEKA_FootprintPin* pin : *Footprint(0).GetFPins()) all.emplace(pin, 0);
    pictures.Highlight(all);
    pictures.grab();
    EXPECT_TRUE(QTest::qWaitFor([&] { return View("footprintView").IsPainted(); }, 60'000));
    Click(View("footprintView"), 1, 1);
    EXPECT_NE(picked, nullptr);
}

}  // namespace
