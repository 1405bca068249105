#pragma once

#include "model/Record.h"

/// A font by its number.
class VEKA_API CVEKA_Font {
    VEKA_RECORD(CVEKA_Font)
    VEKA_NUMBER(int, FontID, 0, "number of the font, which texts refer to")
    VEKA_NUMBER_AS(double, CharWidth, 1.0, GetCharWidthA, SetCharWidth, "width of a character")
    VEKA_NUMBER(double, CharHeight, 1.0, "height of a character")
    VEKA_NUMBER(double, CharSpace, 0, "space between characters")
    VEKA_NUMBER(double, LineSpace, 0, "space between lines")
    VEKA_NUMBER(double, PenWidth, 0.1, "width of the pen")
    VEKA_TEXT(WindowFontName, "name of the system's font")
    VEKA_NUMBER(int, WindowFontSize, 0, "size of the system's font")
};

/// The fonts of a library in file order.
class VEKA_API CVEKA_FontArray : public CExPtrArray<CVEKA_Font*, CVEKA_Font*> {
    VEKA_ARRAY_OPERATIONS(CVEKA_FontArray, CVEKA_Font)

public:
    /// The first font with this number, or null. The array keeps the font.
    CVEKA_Font* GetFontByID(int id);
    const CVEKA_Font* GetFontByID(int id) const;
};
