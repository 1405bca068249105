#pragma once

#include "model/Record.h"

/// A font by its number.
class VEKA_API CVEKA_Font {
    VEKA_RECORD(CVEKA_Font)
    VEKA_NUMBER(int, FontID, 0, GetFontID, SetFontID)
    VEKA_NUMBER(double, CharWidth, 1.0, GetCharWidthA, SetCharWidth)
    VEKA_NUMBER(double, CharHeight, 1.0, GetCharHeight, SetCharHeight)
    VEKA_NUMBER(double, CharSpace, 0, GetCharSpace, SetCharSpace)
    VEKA_NUMBER(double, LineSpace, 0, GetLineSpace, SetLineSpace)
    VEKA_NUMBER(double, PenWidth, 0.1, GetPenWidth, SetPenWidth)
    VEKA_TEXT(WindowFontName, GetWindowFontName, SetWindowFontName)
    VEKA_NUMBER(int, WindowFontSize, 0, GetWindowFontSize, SetWindowFontSize)
};

/// The fonts of a library in file order.
class VEKA_API CVEKA_FontArray : public CExPtrArray<CVEKA_Font*, CVEKA_Font*> {
    VEKA_ARRAY_OPERATIONS(CVEKA_FontArray, CVEKA_Font)

public:
    /// The first font with a number, or null; it stays the array's.
    CVEKA_Font* GetFontByID(int id);
};
