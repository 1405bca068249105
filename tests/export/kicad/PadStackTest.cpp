#include "export/kicad/PadStack.h"

#include "export/kicad/Exporting.h"

namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Pads(const kicad::Exported& footprint) {
    ExpectBalanced(footprint.text);
    return LinesWith(footprint.text, "(pad ");
}

TEST(KiCadPadStack, ASurfacePadHasItsLayersAndMargins) {
    EXPECT_THAT(
        Pads(PadOf(
            "(TYPE SMD) (TOP (CON P) (SOLD M) (METL Q))",
            "(PAD (PADNAME M) (FILLRECT (W 2.1) (H 1.1))) (PAD (PADNAME Q) (FILLRECT (W 1.8) (H 0.9)))")),
        ElementsAre("(pad \"1\" smd rect (at 3 -4) (size 2 1) (layers \"F.Cu\" \"F.Mask\" \"F.Paste\") "
                    "(solder_mask_margin 0.05) (solder_paste_margin_ratio -0.05))"));
    EXPECT_THAT(
        Pads(PadOf("(BOTTOM (CON P) (SOLD P) (METL P))")),
        ElementsAre("(pad \"1\" smd rect (at 3 -4) (size 2 1) (layers \"B.Cu\" \"B.Mask\" \"B.Paste\"))"));
    EXPECT_THAT(Pads(PadOf("(TYPE EDGE) (TOP (CON P))")),
                ElementsAre("(pad \"1\" connect rect (at 3 -4) (size 2 1) (layers \"F.Cu\"))"));
}

TEST(KiCadPadStack, AMarginOfTheStencilCanBeALengthAndAShare) {
    EXPECT_THAT(Pads(PadOf("(TOP (CON P) (METL Q))", "(PAD (PADNAME Q) (FILLRECT (W 1.8) (H 0.8)))")),
                ElementsAre(HasSubstr("(layers \"F.Cu\" \"F.Paste\") (solder_paste_margin -0.1)")));
    EXPECT_THAT(Pads(PadOf("(TOP (CON P) (METL Q))", "(PAD (PADNAME Q) (FILLRECT (W 1.76) (H 0.84)))")),
                ElementsAre(HasSubstr("(solder_paste_margin -0.04) (solder_paste_margin_ratio -0.04)")));
}

TEST(KiCadPadStack, AnOutlineOfTheMaskIsTheAreaInsideOfIt) {
    EXPECT_THAT(
        Pads(PadOf("(TOP (CON P) (SOLD M))", "(PAD (PADNAME M) (RECTANGLE (W 2.1) (H 1.1) (LW 0.01)))")),
        ElementsAre(HasSubstr("(layers \"F.Cu\" \"F.Mask\") (solder_mask_margin 0.05)")));
}

TEST(KiCadPadStack, AnOpeningOfAnotherShapeIsAPadByItself) {
    EXPECT_THAT(
        Pads(PadOf(
            "(TOP (CON P) (METL Q))",
            "(PAD (PADNAME Q) (CHAMPEREDRECT (PT 0 0) (W 2) (H 1) (CHAMPEREDVALUE 0.2) (ROTATION 0)))")),
        ElementsAre("(pad \"1\" smd rect (at 3 -4) (size 2 1) (layers \"F.Cu\"))",
                    "(pad \"\" smd roundrect (at 3 -4) (size 2 1) (layers \"F.Paste\") (roundrect_rratio 0) "
                    "(chamfer_ratio 0.2) (chamfer top_left top_right bottom_left bottom_right))"));
}

TEST(KiCadPadStack, APlatedHoleIsOnTheLayersThatItsPadIsOn) {
    EXPECT_THAT(
        Pads(PadOf(
            "(DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON C) (SOLD C)) (INNERSIGNAL (CON C)) (BOTTOM (CON C) "
            "(SOLD C))")),
        ElementsAre("(pad \"1\" thru_hole circle (at 3 -4) (size 1.6 1.6) (drill 0.8) (layers \"*.Cu\" "
                    "\"*.Mask\"))"));
    EXPECT_THAT(Pads(PadOf("(DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON C)) (BOTTOM (CON C))")),
                ElementsAre(HasSubstr("(layers \"F.Cu\" \"B.Cu\")")));
}

TEST(KiCadPadStack, ASlotTurnsWithItsPad) {
    EXPECT_THAT(
        Pads(PadOf("(DRILL (SHAPE S) (PLATING TRUE)) (TOP (CON P))", "", "(PT 3 4) (ROTATION 30)")),
        ElementsAre(
            "(pad \"1\" thru_hole rect (at 3 -4 30) (size 2 1) (drill oval 1 0.5) (layers \"F.Cu\"))"));
    // A slot that is upright in a pad that is not.
    EXPECT_THAT(Pads(PadOf("(DRILL (SHAPE V) (PLATING TRUE)) (TOP (CON P))",
                           "(PAD (PADNAME V) (OBLONG (W 1) (H 0.5) (ROTATION 90)))")),
                ElementsAre(HasSubstr("(drill oval 0.5 1)")));
}

TEST(KiCadPadStack, ASlotThatIsTurnedInItsPadIsSaid) {
    const kicad::Exported pad = PadOf("(DRILL (SHAPE V) (PLATING TRUE)) (TOP (CON P))",
                                      "(PAD (PADNAME V) (OBLONG (W 1) (H 0.5) (ROTATION 30)))");
    EXPECT_THAT(pad.remarks, Contains(HasSubstr("slot at another angle")));
    // A round pad takes the angle of its slot.
    const kicad::Exported round = PadOf("(DRILL (SHAPE V) (PLATING TRUE)) (TOP (CON C))",
                                        "(PAD (PADNAME V) (OBLONG (W 1) (H 0.5) (ROTATION 30)))");
    EXPECT_THAT(Pads(round), ElementsAre(HasSubstr("circle (at 3 -4 30) (size 1.6 1.6) (drill oval 1 0.5)")));
    EXPECT_THAT(round.remarks, IsEmpty());
}

TEST(KiCadPadStack, AHoleWithoutCopperKeepsCopperAwayOnAllLayers) {
    EXPECT_THAT(Pads(PadOf("(DRILL (SHAPE D) (PLATING FALSE)) (TOP (SOLD M)) (BOTTOM (SOLD M))",
                           "(PAD (PADNAME M) (CIRCLE (D 0.9) (LW 0.01)))")),
                ElementsAre("(pad \"1\" np_thru_hole circle (at 3 -4) (size 0.8 0.8) (drill 0.8) "
                            "(layers \"*.Cu\" \"*.Mask\") (solder_mask_margin 0.05))"));
}

TEST(KiCadPadStack, AnOffsetIsThatOfTheShapeFromTheHole) {
    EXPECT_THAT(
        Pads(PadOf("(DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON O))",
                   "(PAD (PADNAME O) (OFFSET 0.5 0.25) (FILLRECT (W 2) (H 1)))", "(PT 3 4) (ROTATION 90)")),
        ElementsAre(HasSubstr("(at 3 -4 90) (size 2 1) (drill 0.8 (offset 0.5 -0.25))")));
    EXPECT_THAT(Pads(PadOf("(TOP (CON O))", "(PAD (PADNAME O) (OFFSET 0.5 0.25) (FILLRECT (W 2) (H 1)))")),
                ElementsAre(HasSubstr("(at 3 -4) (size 2 1) (drill (offset 0.5 -0.25))")));
    // The pad stands where the hole is.
    EXPECT_THAT(Pads(PadOf("(DRILL (SHAPE O) (PLATING TRUE)) (TOP (CON P))",
                           "(PAD (PADNAME O) (OFFSET 0.5 0) (FILLCIRCLE (D 0.4)))")),
                ElementsAre(HasSubstr("(at 3.5 -4) (size 2 1) (drill 0.4 (offset -0.5 0))")));
}

TEST(KiCadPadStack, AShapeThatIsTurnedInItsPadTurnsThePad) {
    EXPECT_THAT(Pads(PadOf("(TOP (CON T))", "(PAD (PADNAME T) (FILLRECT (W 2) (H 1) (PT 0 0) (ROTATION 30)))",
                           "(PT 3 4) (ROTATION 15)")),
                ElementsAre("(pad \"1\" smd rect (at 3 -4 45) (size 2 1) (layers \"F.Cu\"))"));
}

TEST(KiCadPadStack, EachShapeOfKiCadIsFound) {
    const auto pad = [](const std::string& object) {
        return Pads(PadOf("(TOP (CON T))", "(PAD (PADNAME T) " + object + ")")).at(0);
    };
    EXPECT_THAT(pad("(ROUNDEDRECTANGLE (W 2) (H 1) (R 0.25))"),
                HasSubstr("roundrect (at 3 -4) (size 2 1) (layers \"F.Cu\") (roundrect_rratio 0.25)"));
    EXPECT_THAT(pad("(OBLONG (W 2) (H 1))"), HasSubstr("smd oval (at 3 -4) (size 2 1)"));
    EXPECT_THAT(pad("(TAPERED (SWIDTH 1.5) (PT -1 0) (EWIDTH 0.5) (PT 1 0) (DIRECTION X))"),
                HasSubstr("smd trapezoid (at 3 -4) (size 2 1) (layers \"F.Cu\") (rect_delta 0.5 0)"));
}

TEST(KiCadPadStack, APadOfSeveralShapesHasPrimitivesAroundItsFirstOne) {
    const kicad::Exported footprint = PadOf("(TOP (CON T))",
                                            "(PAD (PADNAME T) (FILLRECT (W 1) (H 1)) (LINE (PT 0 0) (PT 2 0) "
                                            "(LW 0.3)) (CIRCLE (PT 0 1) (D 1) (LW 0.1))"
                                            " (POLYGON (BOUNDARY (LINE (PT 0 0) (PT 1 0) (LW 0)) (LINE (PT 1 "
                                            "0) (PT 0 1) (LW 0)) (LINE (PT 0 1) (PT 0 0) (LW 0)))))");
    EXPECT_THAT(Pads(footprint),
                ElementsAre(HasSubstr("smd custom (at 3 -4) (size 1 1) (layers \"F.Cu\") (options (clearance "
                                      "outline) (anchor rect)) (primitives")));
    EXPECT_THAT(LinesWith(footprint.text, "(gr_"),
                ElementsAre("(gr_line (start 0 0) (end 2 0) (width 0.3))",
                            "(gr_circle (center 0 -1) (end 0.5 -1) (width 0.1) (fill none))",
                            "(gr_poly (pts (xy 0 0) (xy 1 0) (xy 0 -1)) (width 0) (fill yes))"));
}

TEST(KiCadPadStack, TheMiddleOfAPolygonIsInsideOfIt) {
    const kicad::Exported footprint =
        PadOf("(TOP (CON T))",
              "(PAD (PADNAME T) (POLYGON (BOUNDARY (LINE (PT 5 5) (PT 9 5) (LW 0)) (LINE (PT 9 5) "
              "(PT 5 9) (LW 0)) (LINE (PT 5 9) (PT 5 5) (LW 0)))))");
    const std::string pad = Pads(footprint).at(0);
    EXPECT_THAT(pad, HasSubstr("(anchor circle)"));
    EXPECT_THAT(pad, testing::Not(HasSubstr("(at 3 -4)")));
}

TEST(KiCadPadStack, ABottomThatDiffersIsAPadOfItsOwn) {
    const kicad::Exported pad = PadOf("(DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON C)) (BOTTOM (CON P))");
    EXPECT_THAT(
        Pads(pad),
        ElementsAre("(pad \"1\" thru_hole circle (at 3 -4) (size 1.6 1.6) (drill 0.8) (layers \"F.Cu\"))",
                    "(pad \"1\" smd rect (at 3 -4) (size 2 1) (layers \"B.Cu\"))"));
    EXPECT_THAT(pad.remarks, Contains(HasSubstr("another pad on the bottom")));
}

TEST(KiCadPadStack, InnerLayersThatDifferAreSaid) {
    const kicad::Exported pad =
        PadOf("(DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON C)) (INNERSIGNAL (CON P)) (BOTTOM (CON C))");
    EXPECT_THAT(Pads(pad), ElementsAre(HasSubstr("(layers \"*.Cu\")")));
    EXPECT_THAT(pad.remarks, Contains(HasSubstr("one shape for all layers")));
}

TEST(KiCadPadStack, WhatKiCadMakesByItselfIsSaid) {
    EXPECT_THAT(
        PadOf("(TOP (CON P) (UNCON C) (ANTI C) (THERM C) (TD TRUE))").remarks,
        Contains(HasSubstr("antipads, thermal reliefs, teardrops, other pads where a pin is not connected")));
    EXPECT_THAT(PadOf("(TOP (CON P) (UNCON P))").remarks, IsEmpty());
}

TEST(KiCadPadStack, ANameThatLeadsNowhereIsSaid) {
    const kicad::Exported lost = PadOf("(TOP (CON NOPAD))");
    EXPECT_THAT(Pads(lost), IsEmpty());
    EXPECT_THAT(lost.remarks, Contains(HasSubstr("\"NOPAD\", which is not there")));
    EXPECT_THAT(
        PadOf("(DRILL (SHAPE Z) (PLATING TRUE)) (TOP (CON P))", "(PAD (PADNAME Z) (FILLRECT (W 1) (H 0.5)))")
            .remarks,
        Contains(HasSubstr("neither round nor a slot")));
}

}  // namespace
