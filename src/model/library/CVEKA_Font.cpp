#include "model/library/CVEKA_Font.h"

CVEKA_Font* CVEKA_FontArray::GetFontByID(int id) {
    return const_cast<CVEKA_Font*>(std::as_const(*this).GetFontByID(id));
}

const CVEKA_Font* CVEKA_FontArray::GetFontByID(int id) const {
    for (const CVEKA_Font* font : *this)
        if (font && font->GetFontID() == id) return font;
    return nullptr;
}
