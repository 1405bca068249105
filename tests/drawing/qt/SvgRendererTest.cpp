// Opens the SVG files with a renderer of others, and compares what it shows with what the window shows.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>

#include "drawing/Svg.h"
#include "host/Picture.h"
#include "host/qt/ScenePainter.h"
#include "support/Files.h"
#include "support/Parsing.h"
#include "support/QtScript.h"

namespace {

class SvgRenderer : public test::QtTest {
protected:
    /// Expects that the renderer shows the picture of a file as the window does.
    static void Compare(const std::filesystem::path& path) {
        SCOPED_TRACE(path.filename().string());
        const auto parser = test::Import(test::ReadFile(path));
        for (const host::PictureOf of :
             {host::PictureOf::Footprint, host::PictureOf::Symbol, host::PictureOf::Package}) {
            std::optional<drawing::Sheet> sheet;
            try {
                sheet = host::MakePicture(*parser->GetCVEKA_Manager(), of, drawing::Side::Top);
            } catch (const drawing::DrawingError&) {
                continue;  // the part has no such picture
            }
            CompareSheet(*sheet);
        }
    }
    static void CompareSheet(const drawing::Sheet& sheet) {
        QSvgRenderer renderer(QByteArray::fromStdString(WriteSvg(sheet)));
        ASSERT_TRUE(renderer.isValid());
        EXPECT_NEAR(renderer.viewBoxF().width(), sheet.Width(), 1e-3);
        EXPECT_NEAR(renderer.viewBoxF().height(), sheet.Height(), 1e-3);
        constexpr int kLongest = 500;
        QImage painted = host::ImageOf(sheet, kLongest);
        QImage rendered(painted.size(), QImage::Format_RGB32);
        rendered.fill(Qt::magenta);
        QPainter painter(&rendered);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter, QRectF(0, 0, painted.width(), painted.height()));
        painter.end();
        // Letters differ a little, so their greys are compared.
        constexpr int kBlock = 5;
        const QSize blocks = (painted.size() / kBlock).expandedTo({1, 1});
        painted = painted.scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        rendered = rendered.scaled(blocks, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        constexpr int kFar = 120;
        int different = 0;
        for (int y = 0; y < painted.height(); ++y)
            for (int x = 0; x < painted.width(); ++x) {
                const QRgb a = painted.pixel(x, y), b = rendered.pixel(x, y);
                if (std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                        std::abs(qBlue(a) - qBlue(b)) >
                    kFar)
                    ++different;
            }
        EXPECT_LE(different, painted.width() * painted.height() / 25);
    }
};

TEST_F(SvgRenderer, ShowsTheExamplesAsTheWindowDoes) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples")))
        if (entry.path().extension() == ".veka") {
            Compare(entry.path());
            ++count;
        }
    EXPECT_GT(count, 1);
}

TEST_F(SvgRenderer, ShowsRealPartsAsTheWindowDoes) {
    const std::vector<std::filesystem::path> files = test::CorpusFiles();
    if (files.empty()) GTEST_SKIP() << "the corpus is not beside the project";
    for (const std::filesystem::path& file : files) Compare(file);
}

TEST_F(SvgRenderer, ReadsWhatATextOfEveryByteBecomes) {
    std::string bytes;
    for (int i = 1; i < 256; ++i)
        if (i != '"') bytes += static_cast<char>(i);
    const auto parser =
        test::Import("(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME \"" + bytes + "\") (FPINS (FPIN 1 \"" + bytes +
                     "\" (LIBPADSTACK \"" + bytes + "\")))))");
    const drawing::Sheet sheet =
        host::MakePicture(*parser->GetCVEKA_Manager(), host::PictureOf::Footprint, drawing::Side::Top);
    EXPECT_TRUE(QSvgRenderer(QByteArray::fromStdString(WriteSvg(sheet))).isValid());
}

}  // namespace
