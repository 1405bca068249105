#include "model/library/CVEKA_Font.h"

#include <gtest/gtest.h>

namespace {

TEST(CVEKA_FontArray, FindsAFontByItsNumberAndPassesOverNulls) {
    CVEKA_FontArray fonts;
    fonts.SetSize(1);
    for (int id : {3, 5, 5}) {
        auto font = std::make_unique<CVEKA_Font>();
        font->SetFontID(id);
        fonts.Add(std::move(font));
    }
    EXPECT_EQ(fonts.GetFontByID(5), fonts[2]);
    EXPECT_EQ(fonts.GetFontByID(4), nullptr);
}

}  // namespace
