#include "qt/DialogUnits.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <cmath>

namespace veka {

namespace {

int Scale(int units, int base, int parts) {
    return (units * base + parts / 2) / parts;
}

}  // namespace

QRect DialogUnits::ToPixels(int x, int y, int width, int height) const {
    return {Scale(x, baseX, 4), Scale(y, baseY, 8), Scale(width, baseX, 4), Scale(height, baseY, 8)};
}

QFont DialogFont(const DialogTemplate& dialog) {
    // The template's font is Windows' name for its dialog font; elsewhere the nearest one takes its place.
    QString family = dialog.fontName;
    for (const char* near : {"Liberation Sans", "Arial", "Tahoma"})
        if (!QFontDatabase::hasFamily(family)) family = near;
    QFont font(family);
    font.setPixelSize(static_cast<int>(std::lround(dialog.fontSize * 96 / 72.0)));
    return font;
}

DialogUnits MeasureDialogUnits(const QFont& font) {
    const QFontMetrics metrics(font);
    const int width = metrics.horizontalAdvance("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    return {(width / 26 + 1) / 2, metrics.height()};
}

}  // namespace veka
