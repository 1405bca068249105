#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "support/Parsing.h"
#include "support/RealModels.h"
#include "support/Records.h"

namespace {

using test::Import;
using test::Parse;
using testing::ElementsAre;

std::unique_ptr<CVEKA_FontArray> Fonts(const std::string& children) {
    return Parse(&CVEK_AsciiParser::FontLibParser, "(FONTS " + children + ")");
}
std::unique_ptr<CVEKA_PadArray> Pads(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PADParser, "(PADS " + children + ")");
}
std::unique_ptr<CVEKA_PadStackArray> Stacks(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PadStackParser, "(PADSTACKS " + children + ")");
}
std::unique_ptr<CVEKA_Padstack_LayerInfo> Layer(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PadStack_LAYERInfoParser, "(TOP " + children + ")");
}
std::unique_ptr<CVEKA_FootprintDBArray> Footprints(const std::string& children) {
    return Parse(&CVEK_AsciiParser::FOOTPRINTParser, "(FOOTPRINTS " + children + ")");
}
std::unique_ptr<CVEKA_NSHAPE> Shape(const std::string& text) {
    return Parse(&CVEK_AsciiParser::NSHAPEParser, text);
}
std::unique_ptr<CVEKA_PartitionDBArray> Partitions(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PARTITIONParser, "(PARTITIONS " + children + ")");
}
std::unique_ptr<CVEKA_PartitionDBPinArray> Pins(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PARTITION_PARTITIONPINSParser, "(PARTITIONPINS " + children + ")");
}
template <class T>
std::vector<std::string> Names(const T& holder) {
    return test::Strings(holder, &T::GetStandardizationPadNames);
}

// Q1
TEST(Parser, ReadsTheFontsFirstAndTheirFirstLevelAlone) {
    const auto parser = Import("(PADS (PAD)) (FONTS (FONT (ID 1))) (FONTS (FONT (ID 2)) (FONT (ID 3)))");
    ASSERT_EQ(parser->GetCVEKA_Manager()->GetLibFonts()->GetSize(), 1);
    EXPECT_EQ(parser->GetCVEKA_Manager()->GetLibFonts()->GetAt(0)->GetFontID(), 1);
}

// Q1, Q2
TEST(Parser, ALaterLibrarySectionReplacesAnEarlierOneAndPinShapesAddUp) {
    const auto parser = Import(R"(
        (PADS (PAD (PADNAME A)) (PAD))
        (PADS (PAD (PADNAME B)))
        (NSHAPE A)
        (NSHAPE B)
        (NSHAPE)
        (PARTITIONS (PARTITION) (PARTITION))
        (PARTITIONS (PARTITION (PARTITION P)))
        (COLORTABLE (1) (2))
        (COLORTABLE (3))
        (PADSTACKS (PADSTACK) (PADSTACK))
        (PADSTACKS)
        (FOOTPRINTS (FOOTPRINT) (FOOTPRINT))
        (FOOTPRINTS)
        (FOOTPRINT (FOOTPRINTNAME F)))");
    const CVEKA_Manager& model = *parser->GetCVEKA_Manager();
    ASSERT_EQ(model.GetPadArr()->GetSize(), 1);
    EXPECT_EQ(model.GetPadArr()->GetAt(0)->GetPadName(), "B");
    ASSERT_EQ(model.GetNShapeArr()->GetSize(), 3);
    EXPECT_EQ(model.GetNShapeArr()->GetAt(1)->GetShapeName(), "B");
    EXPECT_EQ(model.GetNShapeArr()->GetAt(2)->GetShapeName(), "");
    ASSERT_EQ(model.GetPartitionDBArr()->GetSize(), 1);
    EXPECT_EQ(model.GetPartitionDBArr()->GetAt(0)->GetPatitionName(), "P");
    EXPECT_EQ(model.GetColorTable()->GetSize(), 1);
    EXPECT_EQ(model.GetPadStackArr()->GetSize(), 0);
    EXPECT_EQ(model.GetFootprintDBArr()->GetSize(), 0) << "nor does a lone footprint count";
}

// Q2
TEST(Parser, TheSameParserReadingTwiceReplacesSectionsAndKeepsPinShapes) {
    const test::TemporaryDirectory directory;
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(directory.Write("f", "(NSHAPE A) (PADS (PAD))"));
    parser.Parser();
    parser.Parser();
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetNShapeArr()->GetSize(), 2);
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetPadArr()->GetSize(), 1);
}

// Q18
TEST(Parser, NoNullElementReachesTheModel) {
    const auto parser = Import(R"(
        (FOOTPRINTS
            (FOOTPRINT
                (CAMLAYERS (LAYER (LINE) (NOSUCH) (POLYGON (BOUNDARY (NOSUCH) (LINE))) (COMPOSITE (NOSUCH))))))
        (PARTITIONS
            (PARTITION (BODYSHAPE (NOSUCH) (LINE)) (PARTITIONPINS (PARTITIONPIN 1 (POLYLINE (NOSUCH))))))
        (PADS (PAD (NOSUCH) (VOID (NOSUCH) (LINE))))
        (VEK
            (PACKAGES
                (PACKAGE
                    (MARKINGGEOMETRIES (NOSUCH) (POLYLINE (NOSUCH)))
                    (BODYGEOMETRY (BODYSHAPE (COMPOSITE (NOSUCH))))))))");
    CVEKA_Manager& model = *parser->GetCVEKA_Manager();
    const auto& drawn = *model.GetFootprintDBArr()->GetAt(0)->GetCAMLayers()->GetAt(0)->GetCamLayerDrawObjs();
    ASSERT_EQ(drawn.GetSize(), 3);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_POLYGON&>(*drawn[1]).BOUNDARY->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_COMPOSITE&>(*drawn[2]).Elements->GetSize(), 0);
    EXPECT_EQ(model.GetPartitionDBArr()->GetAt(0)->GetBodyShape()->GetSize(), 1);
    auto& pin = *model.GetPartitionDBArr()->GetAt(0)->GetPins()->GetAt(0);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_POLYLINE&>(*pin.GetCAMLayerDrawObjs()->GetAt(0)).Elements->GetSize(),
              0);
    ASSERT_EQ(model.GetPadArr()->GetAt(0)->GetCamLayerDrawObjs()->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_VOID&>(*model.GetPadArr()->GetAt(0)->GetCamLayerDrawObjs()->GetAt(0))
                  .Elements->GetSize(),
              1);
    auto& package = *model.GetVEK()->GetPackages()->GetPackageArr()->GetAt(0);
    ASSERT_EQ(package.GetMarkingGeometries()->Get3DObjects()->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_POLYLINE&>(*package.GetMarkingGeometries()->Get3DObjects()->GetAt(0))
                  .Elements->GetSize(),
              0);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_COMPOSITE&>(*package.GetBodyGeometry()->Get3DObjects()->GetAt(0))
                  .Elements->GetSize(),
              0);
}

// Q18
TEST(Parser, FreshResultsMayHoldNullElements) {
    const auto layers =
        Parse(&CVEK_AsciiParser::FOOTPRINT_CAMLAYERSParser, "(CAMLAYERS (LAYER (LINE) (NOSUCH)))");
    ASSERT_EQ(layers->GetAt(0)->GetCamLayerDrawObjs()->GetSize(), 2);
    EXPECT_EQ(layers->GetAt(0)->GetCamLayerDrawObjs()->GetAt(1), nullptr);
    const auto partitions = Partitions("(PARTITION (BODYSHAPE (NOSUCH) (LINE)))");
    ASSERT_EQ(partitions->GetAt(0)->GetBodyShape()->GetSize(), 2);
    EXPECT_EQ(partitions->GetAt(0)->GetBodyShape()->GetAt(0), nullptr);
}

TEST(COLORTABLEParser, EveryChildIsAColourByItsName) {
    const auto colors =
        Parse(&CVEK_AsciiParser::COLORTABLEParser, "(COLORTABLE x (5 10 20 30) (word 1 2) ())");
    ASSERT_EQ(colors->GetSize(), 3);
    EXPECT_EQ(colors->GetAt(0)->GetIndex(), 5);
    EXPECT_EQ(colors->GetAt(0)->GetColor()->GetRed(), 10);
    EXPECT_EQ(colors->GetAt(0)->GetColor()->GetGreen(), 20);
    EXPECT_EQ(colors->GetAt(0)->GetColor()->GetBlue(), 30);
    EXPECT_EQ(colors->GetAt(1)->GetIndex(), 0);
    EXPECT_EQ(colors->GetAt(1)->GetColor()->GetBlue(), 0);
    EXPECT_EQ(Parse(&CVEK_AsciiParser::COLORTABLEParser, "(COLORTABLE)")->GetSize(), 0);
}

TEST(FontLibParser, ReadsTheExample) {
    const auto fonts = Fonts(R"(
        (FONT
            (ID 1) (CHARWIDTH 1.2) (CHARHEIGHT 1.5) (CHARSPACE 0.1) (LINESPACE 0.2) (PENWIDTH 0.05)
            (WINDOWFONTNAME FONT1) (WINDOWFONTSIZE 12)))");
    const CVEKA_Font& font = *fonts->GetAt(0);
    EXPECT_EQ(font.GetFontID(), 1);
    EXPECT_EQ(font.GetCharWidthA(), 1.2);
    EXPECT_EQ(font.GetCharHeight(), 1.5);
    EXPECT_EQ(font.GetCharSpace(), 0.1);
    EXPECT_EQ(font.GetLineSpace(), 0.2);
    EXPECT_EQ(font.GetPenWidth(), 0.05);
    EXPECT_EQ(font.GetWindowFontName(), "FONT1");
    EXPECT_EQ(font.GetWindowFontSize(), 12);
}

TEST(FontLibParser, AnEmptyFontHasItsDefaultsAndOtherNamesAreSkipped) {
    const auto fonts = Fonts("(X) (FONT)");
    ASSERT_EQ(fonts->GetSize(), 1);
    EXPECT_EQ(fonts->GetAt(0)->GetCharWidthA(), 1.0);
    EXPECT_EQ(fonts->GetAt(0)->GetCharHeight(), 1.0);
    EXPECT_EQ(fonts->GetAt(0)->GetCharSpace(), 0);
    EXPECT_EQ(fonts->GetAt(0)->GetPenWidth(), 0.1);
    EXPECT_EQ(Fonts("")->GetSize(), 0);
}

TEST(FontLibParser, AnEmptyFontHasNoSpaceBetweenItsLines) {
    const auto fonts = Fonts("(FONT)");
    EXPECT_EQ(fonts->GetAt(0)->GetLineSpace(), 0);
    EXPECT_EQ(fonts->GetAt(0)->GetCharSpace(), 0);
}

TEST(FontLibParser, TheLastValueStands) {
    EXPECT_EQ(Fonts("(FONT (CHARWIDTH 1 2))")->GetAt(0)->GetCharWidthA(), 2);
}

TEST(CVEKA_FontArray, FindsTheFirstFontOfANumber) {
    EXPECT_EQ(CVEKA_FontArray().GetFontByID(0), nullptr);
    const auto fonts = Fonts("(FONT (ID 1)) (FONT (ID 2) (PENWIDTH 3)) (FONT (ID 2))");
    EXPECT_EQ(fonts->GetFontByID(2), fonts->GetAt(1));
    EXPECT_EQ(fonts->GetFontByID(3), nullptr);
}

TEST(PADParser, ReadsTheExample) {
    const auto pads = Pads(R"(
        (PAD (PADNAME P60) (OFFSET 0.1 0.2) (FILLCIRCLE (PT 0 0) (D 0.6)))
        (PAD (PADNAME R40) (RECTANGLE (W 1))))");
    ASSERT_EQ(pads->GetSize(), 2);
    EXPECT_EQ(pads->GetAt(0)->GetPadName(), "P60");
    EXPECT_EQ(pads->GetAt(0)->GetOffsetX(), 0.1);
    EXPECT_EQ(pads->GetAt(0)->GetOffsetY(), 0.2);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_FILLCIRCLE&>(*pads->GetAt(0)->GetCamLayerDrawObjs()->GetAt(0)).D, 0.6);
}

// Q20
TEST(PADParser, AnOffsetNeedsExactlyTwoValues) {
    EXPECT_EQ(Pads("(PAD (OFFSET 1 2 3))")->GetAt(0)->GetOffsetX(), 0);
    EXPECT_EQ(Pads("(PAD (OFFSET 1 2 3))")->GetAt(0)->GetOffsetY(), 0);
    const auto pads = Pads("(PAD (OFFSET 1 2) (OFFSET 5))");
    EXPECT_EQ(pads->GetAt(0)->GetOffsetX(), 1);
    EXPECT_EQ(pads->GetAt(0)->GetOffsetY(), 2);
}

TEST(PADParser, KeepsEveryPad) {
    const auto pads = Pads("(PAD (PADNAME A B)) (PAD) (X) (PAD (PADNAME B))");
    ASSERT_EQ(pads->GetSize(), 3);
    EXPECT_EQ(pads->GetAt(0)->GetPadName(), "B");
    EXPECT_EQ(pads->GetAt(1)->GetPadName(), "");
}

TEST(PADParser, UnknownObjectsAreDroppedAndTheOthersKeepTheirOrder) {
    const auto pads = Pads("(PAD (LINE) (NOSUCH) (ARC))");
    const CVEKA_3DObjectArray& objects = *pads->GetAt(0)->GetCamLayerDrawObjs();
    ASSERT_EQ(objects.GetSize(), 2);
    EXPECT_EQ(objects[1]->GetType(), 38);
    const std::unique_ptr<CVEKA_Pad> clone(pads->GetAt(0)->Clone());
    EXPECT_NE(clone->GetCamLayerDrawObjs()->GetAt(0), objects[0]);
}

TEST(PadStackParser, ReadsTheExample) {
    const auto stacks = Stacks(R"(
        (PADSTACK
            (PADSTACKNAME PS1) (TYPE THROUGH) (DRILL (SHAPE ROUND) (PLATING TRUE) (PLATETHICKNESS 0.02))
            (TOP (CON P60) (ANTI A80) (THERM T1) (TD TRUE) (SOLD S70)) (BOTTOM (CON P60) (METL M60)))
        (PADSTACK (PADSTACKNAME PS2) (INNERSIGNAL (CON P60)) (INNERPLANE (UNCON NEW))))");
    const CVEKA_PadStack& stack = *stacks->GetAt(0);
    EXPECT_EQ(stack.GetPadstackName(), "PS1");
    EXPECT_EQ(stack.GetType(), "THROUGH");
    EXPECT_EQ(stack.GetDrill_ShapeName(), "ROUND");
    EXPECT_EQ(stack.GetDrill_Plating(), 1);
    EXPECT_EQ(stack.GetDrill_PlateThickness(), 0.02);
    EXPECT_EQ(stack.GetTop()->GetCon(), "P60");
    EXPECT_EQ(stack.GetTop()->GetAnti(), "A80");
    EXPECT_EQ(stack.GetTop()->GetThermal(), "T1");
    EXPECT_EQ(stack.GetTop()->GetTearDrop(), 1);
    EXPECT_EQ(stack.GetTop()->GetSolder(), "S70");
    EXPECT_EQ(stack.GetBottom()->GetMetal(), "M60");
    EXPECT_EQ(stacks->GetAt(1)->GetInnerSignal()->GetCon(), "P60");
    EXPECT_EQ(stacks->GetAt(1)->GetInnerPlane()->GetUnCon(), "NEW");
    EXPECT_THAT(Names(*stack.GetTop()), ElementsAre("P60", "A80", "T1", "S70"));
    EXPECT_THAT(Names(*stack.GetBottom()), ElementsAre("P60", "M60"));
    EXPECT_THAT(Names(stack), ElementsAre("PS1", "P60", "A80", "T1", "S70", "M60"));
    EXPECT_THAT(Names(*stacks), ElementsAre("PS1", "P60", "A80", "T1", "S70", "M60", "PS2", "NEW"));
}

TEST(PadStackParser, AFieldKeepsItsLastNameAndTheListHasThemAll) {
    const auto layer = Layer("(CON P1 P2)");
    EXPECT_EQ(layer->GetCon(), "P2");
    EXPECT_THAT(Names(*layer), ElementsAre("P1", "P2"));
}

TEST(PadStackParser, ANameIsListedOnceAndItsCaseCounts) {
    EXPECT_THAT(Names(*Layer("(CON A) (UNCON A) (ANTI a)")), ElementsAre("A", "a"));
}

TEST(PadStackParser, AnEmptyNameIsANameAndAFlagIsNone) {
    EXPECT_THAT(Names(*Layer("(CON \"\") (TD TRUE)")), ElementsAre(""));
}

TEST(PadStackParser, APadstackMayLackItsName) {
    const auto stacks = Stacks("(PADSTACK (TOP (CON A))) (X) (PADSTACK (PADSTACKNAME B C))");
    ASSERT_EQ(stacks->GetSize(), 2);
    EXPECT_EQ(stacks->GetAt(0)->GetPadstackName(), "");
    EXPECT_THAT(Names(*stacks->GetAt(0)), ElementsAre("A"));
    EXPECT_EQ(stacks->GetAt(1)->GetPadstackName(), "C");
    EXPECT_THAT(Names(*stacks->GetAt(1)), ElementsAre("B", "C"));
}

TEST(PadStackParser, EqualPadstacksAreKeptAndTheirNameListedOnce) {
    const auto stacks = Stacks("(PADSTACK (PADSTACKNAME A)) (PADSTACK (PADSTACKNAME A))");
    EXPECT_EQ(stacks->GetSize(), 2);
    EXPECT_THAT(Names(*stacks), ElementsAre("A"));
}

// Q22
TEST(PadStackParser, ASecondLayerReplacesTheFirstButNotItsNames) {
    const auto stacks = Stacks("(PADSTACK (TOP (CON A) (ANTI B)) (PADSTACKNAME N) (TOP (CON C)))");
    EXPECT_EQ(stacks->GetAt(0)->GetTop()->GetAnti(), "");
    EXPECT_THAT(Names(*stacks->GetAt(0)->GetTop()), ElementsAre("C"));
    EXPECT_THAT(Names(*stacks->GetAt(0)), ElementsAre("A", "B", "N", "C"));
}

TEST(PadStackParser, TheNamesReachTheModel) {
    const auto parser = Import("(PADSTACKS (PADSTACK (PADSTACKNAME A) (TOP (CON B))))");
    EXPECT_THAT(Names(*parser->GetCVEKA_Manager()->GetPadStackArr()), ElementsAre("A", "B"));
    EXPECT_THAT(Names(*Stacks("")), ElementsAre());
}

TEST(FOOTPRINTParser, ReadsTheExample) {
    const auto footprints = Footprints(R"(
        (FOOTPRINT
            (FOOTPRINTNAME SO8W) (MOUNTHEIGHT 0.1) (OFFSET 1 2 3) (ROTATIONOFFSET 90)
            (USGKEYS (USGTYPE LIB) (USGVALUE X Y))
            (FPINS
                (FPIN 1 VCC (LIBPADSTACK PS1) (PT -2.5 1.9) (ROTATION 45))
                (FPIN 2 GND (LIBPADSTACK PS1) (PT -2.5 0.6)))
            (CAMLAYERS (LAYER (ANO 1) (LNAME TOPSILK) (RECTANGLE (W 5) (H 4) (PT 0 0))))))");
    const CVEKA_FootprintDB& footprint = *footprints->GetAt(0);
    EXPECT_EQ(footprint.GetFootprintName(), "SO8W");
    EXPECT_EQ(footprint.GetMountHeight(), 0.1);
    EXPECT_EQ(footprint.GetOffset()->GetZ(), 3);
    EXPECT_EQ(footprint.GetRotationOffset(), 90);
    ASSERT_EQ(footprint.GetUSGKeys()->GetSize(), 1);
    EXPECT_EQ(footprint.GetUSGKeys()->GetAt(0)->GetType(), "LIB");
    ASSERT_EQ(footprint.GetFPins()->GetSize(), 2);
    const CVEKA_FootprintPin& pin = *footprint.GetFPins()->GetAt(0);
    EXPECT_EQ(pin.GetPinNo(), 0);
    EXPECT_EQ(pin.GetPinName(), "VCC");
    EXPECT_EQ(pin.GetLibPadstackName(), "PS1");
    EXPECT_EQ(pin.GetPoint()->GetX(), -2.5);
    EXPECT_EQ(pin.GetRotation(), 45);
    EXPECT_EQ(footprint.GetFPins()->GetAt(1)->GetPinNo(), 1);
    ASSERT_EQ(footprint.GetCAMLayers()->GetSize(), 1);
    EXPECT_EQ(footprint.GetCAMLayers()->GetAt(0)->GetArtworkLayerNo(), 1);
    EXPECT_EQ(footprint.GetCAMLayers()->GetAt(0)->GetLayerName(), "TOPSILK");
    EXPECT_EQ(footprint.GetCAMLayers()->GetAt(0)->GetCamLayerDrawObjs()->GetSize(), 1);
}

TEST(FOOTPRINTParser, PinsAreCountedFromZero) {
    const auto pins =
        Parse(&CVEK_AsciiParser::FOOTPRINT_FPINSParser,
              "(FPINS (FPIN 1) (FPIN 0) (FPIN word) (FPIN) (FPIN -2147483648) (FPIN 5 N x) (X))");
    const int expected[] = {0, -1, -1, 0, 2147483647, 4};
    ASSERT_EQ(pins->GetSize(), 6);
    for (INT_PTR i = 0; i < 6; ++i) EXPECT_EQ(pins->GetAt(i)->GetPinNo(), expected[i]);
    EXPECT_EQ(pins->GetAt(5)->GetPinName(), "N");
}

TEST(FOOTPRINTParser, AnOffsetTakesAnyNumberOfValuesAndAHeightOne) {
    const auto footprints = Footprints("(FOOTPRINT (OFFSET 5) (MOUNTHEIGHT 1 2))");
    EXPECT_EQ(footprints->GetAt(0)->GetOffset()->GetX(), 5);
    EXPECT_EQ(footprints->GetAt(0)->GetMountHeight(), 2);
}

// Q21
TEST(FOOTPRINTParser, EachKeyLevelIsAKey) {
    const auto footprints = Footprints("(FOOTPRINT (USGKEYS (USGTYPE A)) (USGKEYS (USGKEYS (USGTYPE B))))");
    const CVEKA_USGKeyArray& keys = *footprints->GetAt(0)->GetUSGKeys();
    ASSERT_EQ(keys.GetSize(), 2);
    EXPECT_EQ(keys[0]->GetType(), "A");
    EXPECT_EQ(keys[1]->GetType(), "");
}

TEST(FOOTPRINTParser, CommentsAreSkippedAndSectionsReplaced) {
    const auto footprints = Footprints(
        "(FOOTPRINT (COMMENT (1 a b)) (FPINS (FPIN 1) (FPIN 2)) (FPINS (FPIN 3))) (FOOTPRINT) (X)");
    ASSERT_EQ(footprints->GetSize(), 2);
    EXPECT_EQ(footprints->GetAt(0)->GetComment()->GetSize(), 0);
    EXPECT_EQ(footprints->GetAt(0)->GetFPins()->GetSize(), 1);
}

TEST(NSHAPEParser, ReadsTheExample) {
    const auto shape = Shape(R"(
        (NSHAPE SHAPE1
            (PINBODYSHAPE (LINE)) (PINCONNSHAPE KIND1 0.5 (PT 10 0 0))
            (PROPERTYLABELS (PROPLABEL (PROPERTY PINNAME)))))");
    EXPECT_EQ(shape->GetShapeName(), "SHAPE1");
    EXPECT_EQ(shape->GetPinBodyShape()->GetSize(), 1);
    ASSERT_EQ(shape->GetPinConnShape()->GetSize(), 1);
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(0)->GetSetShapeType(), "KIND1");
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(0)->GetSize(), 0.5);
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(0)->GetPoint()->GetX(), 10);
    EXPECT_EQ(shape->GetPropertyLabels()->GetAt(0)->GetProperty(), "PINNAME");
}

TEST(NSHAPEParser, TheLastNameStands) {
    EXPECT_EQ(Shape("(NSHAPE A B)")->GetShapeName(), "B");
}

TEST(NSHAPEParser, ConnectionsAddUpAndBodiesAreReplaced) {
    const auto shape = Shape(R"(
        (NSHAPE
            (PINCONNSHAPE A) (PINBODYSHAPE (LINE) (LINE)) (PINCONNSHAPE B 1 2 (X) (PT 3) (PT 4))
            (PINBODYSHAPE (ARC) (NOSUCH))))");
    ASSERT_EQ(shape->GetPinConnShape()->GetSize(), 2);
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(0)->GetSize(), 0);
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(0)->GetPoint()->GetX(), 0);
    EXPECT_EQ(shape->GetPinConnShape()->GetAt(1)->GetPoint()->GetX(), 4);
    EXPECT_EQ(shape->GetPinBodyShape()->GetSize(), 1);
}

TEST(PARTITIONParser, ReadsTheExample) {
    const auto partitions = Partitions(R"(
        (PARTITION
            (PARTITION LIBP1)
            (PARTITIONPINS
                (PARTITIONPIN 1 GATE1
                    (LIBPIN SHAPE1) (PT 0 10 0) (ROTATION 90) (PROPERTYLABELS (PROPLABEL (PROPERTY PINNAME)))
                    (COMMENT (1 REV FIRST)) (CIRCLE)))
            (BODYSHAPE (RECTANGLE)) (COMMENT (1 REV FIRST))))");
    const CVEKA_PartitionDB& partition = *partitions->GetAt(0);
    EXPECT_EQ(partition.GetPatitionName(), "LIBP1");
    ASSERT_EQ(partition.GetPins()->GetSize(), 1);
    const CVEKA_PartitionDBPin& pin = *partition.GetPins()->GetAt(0);
    EXPECT_EQ(pin.GetPartitionPinNo(), 0);
    EXPECT_EQ(pin.GetGatePinName(), "GATE1");
    EXPECT_EQ(pin.GetLibPinShapeName(), "SHAPE1");
    EXPECT_EQ(pin.GetPoint()->GetY(), 10);
    EXPECT_EQ(pin.GetPinRotation(), 90);
    EXPECT_EQ(pin.GetPropertyLabels()->GetAt(0)->GetProperty(), "PINNAME");
    EXPECT_EQ(pin.GetComment()->GetAt(0)->GetComment(), "FIRST");
    EXPECT_EQ(pin.GetCAMLayerDrawObjs()->GetSize(), 1);
    EXPECT_EQ(partition.GetBodyShape()->GetSize(), 1);
    EXPECT_EQ(partition.GetComment()->GetSize(), 1);
}

// Q14
TEST(PARTITIONParser, OnlyTheInnerLevelGivesTheName) {
    const auto partitions = Partitions("(PARTITION VALUE) (PARTITION (PARTITION A B)) (X)");
    ASSERT_EQ(partitions->GetSize(), 2);
    EXPECT_EQ(partitions->GetAt(0)->GetPatitionName(), "");
    EXPECT_EQ(partitions->GetAt(1)->GetPatitionName(), "B");
}

TEST(PARTITIONParser, PinsAreCountedFromZero) {
    const auto pins = Pins("(PARTITIONPIN 1) (PARTITIONPIN 0) (PARTITIONPIN word) (PARTITIONPIN) (X)");
    ASSERT_EQ(pins->GetSize(), 4);
    EXPECT_EQ(pins->GetAt(0)->GetPartitionPinNo(), 0);
    EXPECT_EQ(pins->GetAt(1)->GetPartitionPinNo(), -1);
    EXPECT_EQ(pins->GetAt(2)->GetPartitionPinNo(), -1);
    EXPECT_EQ(pins->GetAt(3)->GetPartitionPinNo(), 0);
}

TEST(PARTITIONParser, LastValuesStand) {
    const auto pins = Pins("(PARTITIONPIN 1 (LIBPIN A B) (ROTATION 1 2))");
    EXPECT_EQ(pins->GetAt(0)->GetLibPinShapeName(), "B");
    EXPECT_EQ(pins->GetAt(0)->GetPinRotation(), 2);
}

TEST(PARTITIONParser, ObjectsStandAmongTheOtherChildren) {
    const auto pins = Pins("(PARTITIONPIN 1 (PT 1) (CIRCLE) (NOSUCH) (LIBPIN A) (LINE))");
    ASSERT_EQ(pins->GetAt(0)->GetCAMLayerDrawObjs()->GetSize(), 2);
    EXPECT_EQ(pins->GetAt(0)->GetCAMLayerDrawObjs()->GetAt(0)->GetType(), 39);
}

/// The two forms of a partition pin, side by side on the same text.
TEST(PARTITIONPIN, HasTwoFormsThatDifferInEachOfThesePoints) {
    const std::string text =
        R"(
        (PARTITIONPINS
            (PARTITIONPIN 7 GATE USED
                (LIBPIN SHAPE) (NAMETEXT 3 4) (PROPERTYLABELS (PROPLABEL (PROPERTY P))) (COMMENT (1 a b)) (LINE)
                (NOSUCH))))";
    const auto symbolPins = Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser, text);
    const auto libraryPins = Parse(&CVEK_AsciiParser::PARTITION_PARTITIONPINSParser, text);
    const CVEKA_PartitionPin& symbol = *symbolPins->GetAt(0);
    const CVEKA_PartitionDBPin& library = *libraryPins->GetAt(0);
    // Value 0.
    EXPECT_EQ(symbol.GetPinName(), "7");
    EXPECT_EQ(library.GetPartitionPinNo(), 6);
    // Value 1.
    EXPECT_EQ(symbol.GetGatePinName(), "GATE");
    EXPECT_EQ(library.GetGatePinName(), "GATE");
    // Value 2.
    EXPECT_EQ(symbol.GetUsedPin(), "USED");
    // "LIBPIN".
    EXPECT_EQ(library.GetLibPinShapeName(), "SHAPE");
    // "NAMETEXT".
    EXPECT_EQ(symbol.GetNameSize(), 3);
    EXPECT_EQ(symbol.GetJustification(), 4);
    // "PROPERTYLABELS" and "COMMENT".
    EXPECT_EQ(library.GetPropertyLabels()->GetSize(), 1);
    EXPECT_EQ(library.GetComment()->GetSize(), 1);
    // Objects.
    EXPECT_EQ(symbol.GetDrawObjs()->GetSize(), 1);
    EXPECT_EQ(library.GetCAMLayerDrawObjs()->GetSize(), 1);
    // "BODYSHAPE" of the partition.
    EXPECT_EQ(
        Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITIONParser, "(PARTITION (BODYSHAPE (NOSUCH)))")
            ->GetBodyShape()
            ->GetSize(),
        0);
    EXPECT_EQ(Partitions("(PARTITION (BODYSHAPE (NOSUCH)))")->GetAt(0)->GetBodyShape()->GetSize(), 1);
}

TEST(Parser, GivesTheLibraryOfEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    size_t count = 0;
    for (const test::RealModel& part : test::RealModels()) {
        const auto& path = part.file.path;
        const auto& roots = part.file.read.roots;
        const CVEKA_Manager& model = part.Model();
        std::vector<std::string> fonts, pads, stacks, footprints, pins, layers, shapes, partitions, gates;
        size_t camObjects = 0;
        for (const auto* font : *model.GetLibFonts()) fonts.emplace_back(std::to_string(font->GetFontID()));
        for (const auto* pad : *model.GetPadArr()) pads.emplace_back(pad->GetPadName().View());
        for (const auto* stack : *model.GetPadStackArr())
            stacks.emplace_back(stack->GetPadstackName().View());
        for (const auto* footprint : *model.GetFootprintDBArr()) {
            footprints.emplace_back(footprint->GetFootprintName().View());
            for (const auto* pin : *footprint->GetFPins()) pins.emplace_back(pin->GetPinName().View());
            for (const auto* layer : *footprint->GetCAMLayers()) {
                layers.emplace_back(layer->GetLayerName().View());
                camObjects += static_cast<size_t>(layer->GetCamLayerDrawObjs()->GetSize());
            }
        }
        for (const auto* shape : *model.GetNShapeArr()) shapes.emplace_back(shape->GetShapeName().View());
        for (const auto* partition : *model.GetPartitionDBArr()) {
            partitions.emplace_back(partition->GetPatitionName().View());
            for (const auto* pin : *partition->GetPins()) gates.emplace_back(pin->GetGatePinName().View());
        }
        size_t camLevels = 0;
        for (const auto* layer : test::FindLevels(roots, {"FOOTPRINTS", "FOOTPRINT", "CAMLAYERS", "LAYER"}))
            for (const auto& child : layer->children)
                camLevels += child.name != "ANO" && child.name != "LNAME";
        EXPECT_EQ(fonts, test::Values(roots, {"FONTS", "FONT", "ID"}, -1)) << path;
        EXPECT_EQ(pads, test::Values(roots, {"PADS", "PAD", "PADNAME"}, -1)) << path;
        EXPECT_EQ(stacks, test::Values(roots, {"PADSTACKS", "PADSTACK", "PADSTACKNAME"}, -1)) << path;
        EXPECT_EQ(footprints, test::Values(roots, {"FOOTPRINTS", "FOOTPRINT", "FOOTPRINTNAME"}, -1)) << path;
        EXPECT_EQ(pins, test::Values(roots, {"FOOTPRINTS", "FOOTPRINT", "FPINS", "FPIN"}, 1)) << path;
        EXPECT_EQ(layers, test::Values(roots, {"FOOTPRINTS", "FOOTPRINT", "CAMLAYERS", "LAYER", "LNAME"}, -1))
            << path;
        EXPECT_EQ(camObjects, camLevels) << path;
        EXPECT_EQ(shapes, test::Values(roots, {"NSHAPE"}, -1)) << path;
        EXPECT_EQ(partitions, test::Values(roots, {"PARTITIONS", "PARTITION", "PARTITION"}, -1)) << path;
        EXPECT_EQ(gates, test::Values(roots, {"PARTITIONS", "PARTITION", "PARTITIONPINS", "PARTITIONPIN"}, 1))
            << path;
        count += pads.size() + pins.size() + camObjects;
    }
    EXPECT_GT(count, 5000u);
}

}  // namespace
