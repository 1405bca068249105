#include "export/kicad/Words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "support/Parsing.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(KiCadWords, LettersBecomeUpperCaseAndBytesStay) {
    EXPECT_EQ(kicad::Upper("aZ-\xE4\xC3\xA4"), "AZ-\xE4\xC3\xA4");
}

TEST(KiCadWords, KeysAreSplitByTheirType) {
    const auto parser = test::Import(
        "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (USGKEYS (USGTYPE mount) (USGVALUE smd x)) "
        "(USGKEYS (USGTYPE KEY) (USGVALUE a b)) (USGKEYS (USGTYPE OTHER) (USGVALUE c))))");
    const CVEKA_USGKeyArray& keys = *parser->GetCVEKA_Manager()->GetFootprintDBArr()->GetAt(0)->GetUSGKeys();
    EXPECT_THAT(kicad::KeysOfType(keys, "MOUNT"), ElementsAre("smd", "x"));
    EXPECT_THAT(kicad::KeysOfType(keys, "NONE"), IsEmpty());
    EXPECT_EQ(kicad::KeysBesides(keys, "MOUNT"), "a b c");
}

}  // namespace
