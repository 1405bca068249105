#include "model/library/CVEKA_Font.h"

CVEKA_Font* CVEKA_FontArray::GetFontByID(int id) {
    for (CVEKA_Font* font : *this)
        if (font && font->GetFontID() == id) return font;
    return nullptr;
}
