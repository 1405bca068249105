#include "qt/DialogUnits.h"

#include <gtest/gtest.h>

#include <QFontMetrics>

#include "dialog/ImportDialogTemplate.h"
#include "support/QtScript.h"

namespace {

using QtDialogUnits = test::QtTest;

TEST_F(QtDialogUnits, AreAQuarterOfTheWidthByAnEighthOfTheHeight) {
    const veka::DialogUnits units{6, 13};
    EXPECT_EQ(units.ToPixels(0, 0, 316, 75), QRect(0, 0, 474, 122));
    EXPECT_EQ(units.ToPixels(4, 8, 4, 8), QRect(6, 13, 6, 13));
}

TEST_F(QtDialogUnits, AreRoundedToTheNearestPixel) {
    const veka::DialogUnits units{6, 13};
    EXPECT_EQ(units.ToPixels(1, 1, 3, 3), QRect(2, 2, 5, 5)) << "1.5, 1.625, 4.5 and 4.875";
}

TEST_F(QtDialogUnits, AreMeasuredFromTheFont) {
    QFont font = veka::DialogFont(veka::ImportDialogTemplate());
    EXPECT_EQ(font.pixelSize(), 11) << "8 points at 96 dots an inch";
    const veka::DialogUnits units = veka::MeasureDialogUnits(font);
    EXPECT_EQ(units.baseY, QFontMetrics(font).height());
    EXPECT_NEAR(units.baseX, QFontMetrics(font).averageCharWidth(), 2);
    font.setPixelSize(44);
    EXPECT_GT(veka::MeasureDialogUnits(font).baseX, 2 * units.baseX);
}

}  // namespace
