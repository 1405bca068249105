#include "host/qt/ScenePainter.h"

#include <gtest/gtest.h>

#include <QImage>

#include "drawing/Drawing.h"
#include "host/qt/QtDesktop.h"
#include "support/Files.h"
#include "support/Parsing.h"
#include "support/QtScript.h"

namespace {

class ScenePainter : public test::QtTest {};

/// A footprint as an image of ten pixels for a millimetre: a disc to the right, and a hole in it.
QImage Paint(drawing::Side from) {
    const auto parser = test::Import(
        "(PADS (PAD (PADNAME P) (FILLCIRCLE (D 6))) (PAD (PADNAME D) (FILLCIRCLE (D 2))))"
        "(PADSTACKS (PADSTACK (PADSTACKNAME S) (DRILL (SHAPE D)) (TOP (CON P)) (BOTTOM (CON P))))"
        "(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 \"\" (LIBPADSTACK S) (PT 5 0))) (CAMLAYERS (LAYER (LNAME "
        "KEEPOUT)"
        " (RECTANGLE (W 20) (H 10) (LW 0.1) (PT 0 0))))))");
    const drawing::Part part(*parser->GetCVEKA_Manager());
    std::vector<drawing::View> views;
    views.push_back({FootprintScene(part, *part.DefaultFootprint()), from, drawing::Theme::Dark});
    const drawing::Sheet sheet(std::move(views));
    return host::ImageOf(sheet, static_cast<int>(sheet.Width() * 10));
}

QColor At(const QImage& image, double x, double y) {
    // The middle of the image is the origin.
    return image.pixelColor(static_cast<int>(image.width() / 2.0 + x * 10),
                            static_cast<int>(image.height() / 2.0 - y * 10));
}

TEST_F(ScenePainter, PaintsAreasWhereTheyAre) {
    const QImage image = Paint(drawing::Side::Top);
    const QColor copper =
        host::ToQColor(ColorOf(drawing::Role::Copper, drawing::Side::Top, drawing::Theme::Dark));
    const QColor ground = host::ToQColor(drawing::Ground(drawing::Theme::Dark));
    EXPECT_EQ(At(image, 5, 2), copper);
    EXPECT_EQ(At(image, 5, 0), ground) << "a hole";
    EXPECT_EQ(At(image, -5, 2), ground);
}

TEST_F(ScenePainter, FromTheBottomItIsMirrored) {
    const QImage image = Paint(drawing::Side::Bottom);
    EXPECT_EQ(At(image, -5, 2),
              host::ToQColor(ColorOf(drawing::Role::Copper, drawing::Side::Bottom, drawing::Theme::Dark)));
    EXPECT_EQ(At(image, 5, 2), host::ToQColor(drawing::Ground(drawing::Theme::Dark)));
}

TEST_F(ScenePainter, AnImageHasTheAskedSize) {
    const QImage image = Paint(drawing::Side::Top);
    EXPECT_GE(image.width(), 200);
    EXPECT_LT(image.height(), image.width());
}

TEST_F(ScenePainter, WritesAPngFile) {
    const auto parser =
        test::Import("(FOOTPRINTS (FOOTPRINT (CAMLAYERS (LAYER (LNAME A) (FILLCIRCLE (D 1))))))");
    const drawing::Part part(*parser->GetCVEKA_Manager());
    std::vector<drawing::View> views;
    views.push_back(
        {FootprintScene(part, *part.DefaultFootprint()), drawing::Side::Top, drawing::Theme::Dark});
    const test::TemporaryDirectory directory;
    const std::string path = (directory / "out.png").GetString();
    host::QtDesktop().WritePng(drawing::Sheet(std::move(views)), path);
    EXPECT_EQ(test::ReadFile(path).substr(1, 3), "PNG");
    EXPECT_EQ(QImage(QString::fromStdString(path)).width(), 2000);
}

}  // namespace
