#pragma once

#include <QFont>
#include <QRect>

#include "window/UserInterface.h"

namespace veka {

/// The unit that dialog templates are measured in: a quarter of the font's mean width by an eighth of its
/// height.
struct DialogUnits {
    int baseX = 6;   ///< mean width of a letter, in pixels
    int baseY = 13;  ///< height of the font, in pixels

    /// A place and a size in dialog units, rounded to pixels.
    QRect ToPixels(int x, int y, int width, int height) const;
};

/// The font of a dialog; a point is 96/72 of a pixel, whatever the screen.
QFont DialogFont(const DialogTemplate& dialog);
/// The unit that a font makes on this screen.
DialogUnits MeasureDialogUnits(const QFont& font);

}  // namespace veka
