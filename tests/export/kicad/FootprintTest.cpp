#include "export/kicad/Footprint.h"

#include <sstream>

#include "drawing/FootprintScene.h"
#include "drawing/SceneBuilder.h"
#include "export/kicad/Exporting.h"

namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

kicad::Exported Footprint(const std::string& content, const std::string& general = "",
                          const std::string& model = "") {
    const kicad::Exported footprint = FootprintOf(
        "(FONTS (FONT (ID 1) (CHARWIDTH 0.9) (CHARHEIGHT 1.1) (PENWIDTH 0.12)))"
        "(VEK (PARTGENERAL " +
            general +
            ")) (PADS (PAD (PADNAME P) (FILLRECT (W 2) (H 1))) (PAD (PADNAME D) (FILLCIRCLE (D 1))))"
            "(PADSTACKS (PADSTACK (PADSTACKNAME SMD) (TOP (CON P))) (PADSTACK (PADSTACKNAME TH) (DRILL "
            "(SHAPE D) (PLATING TRUE)) (TOP (CON P))))"
            "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) " +
            content + "))",
        model);
    ExpectBalanced(footprint.text);
    return footprint;
}

/// The lines that objects of a layer become.
std::vector<std::string> Drawn(const std::string& layer, const std::string& objects,
                               const std::string& begin = "(fp_") {
    std::vector<std::string> lines;
    for (const std::string& line : LinesWith(
             Footprint("(CAMLAYERS (LAYER (ANO 1) (LNAME " + layer + ") " + objects + "))").text, begin))
        if (line.find("fp_text reference") == line.npos && line.find("fp_text value") == line.npos)
            lines.push_back(line);
    return lines;
}

TEST(KiCadFootprint, AnEmptyFootprintHasItsNameAndTheTextsThatKiCadNeeds) {
    EXPECT_EQ(Footprint("").text,
              "(footprint \"F\" (version 20211014) (generator veka)\n"
              "  (layer \"F.Cu\")\n"
              "  (fp_text reference \"REF**\" (at 0 0) (layer \"F.SilkS\") hide\n"
              "    (effects (font (size 1 1) (thickness 0.15)))\n"
              "  )\n"
              "  (fp_text value \"F\" (at 0 0) (layer \"F.Fab\") hide\n"
              "    (effects (font (size 1 1) (thickness 0.15)))\n"
              "  )\n"
              ")\n");
}

TEST(KiCadFootprint, WhatIsDrawnIsOnTheLayerOfItsRoleAndSide) {
    EXPECT_THAT(Drawn("F.SilkS", "(LINE (PT 1 2) (PT 3 4) (LW 0.12))"),
                ElementsAre("(fp_line (start 1 -2) (end 3 -4) (layer \"F.SilkS\") (width 0.12))"));
    EXPECT_THAT(
        Drawn("SILKBOTTOM", "(CIRCLE (PT 1 2) (D 3) (LW 0.1))"),
        ElementsAre("(fp_circle (center 1 -2) (end 2.5 -2) (layer \"B.SilkS\") (width 0.1) (fill none))"));
    EXPECT_THAT(
        Drawn("\"Top Assembly\"", "(FILLCIRCLE (PT 1 2) (D 3))"),
        ElementsAre("(fp_circle (center 1 -2) (end 2.5 -2) (layer \"F.Fab\") (width 0) (fill solid))"));
    EXPECT_THAT(
        Drawn("COURTYARD", "(RECTANGLE (W 4) (H 2) (LW 0.05) (PT 1 1) (ROTATION 0))"),
        ElementsAre("(fp_rect (start -1 0) (end 3 -2) (layer \"F.CrtYd\") (width 0.05) (fill none))"));
    EXPECT_THAT(Drawn("Eco1.User", "(ARC (PT 1 0) (PT 0 1) (PT 0 0) (R 1) (LW 0.1) (DIR CCW))"),
                ElementsAre(HasSubstr(
                    "(fp_arc (start 0 -1) (mid 0.707107 -0.707107) (end 1 0) (layer \"Eco1.User\")")));
}

TEST(KiCadFootprint, APolygonWithAHoleIsOneOutlineAndItsLines) {
    const std::string square =
        "(BOUNDARY (LINE (PT -2 -2) (PT 2 -2) (LW W)) (LINE (PT 2 -2) (PT 2 2) (LW W)) (LINE (PT 2 2) "
        "(PT -2 2) (LW W)) (LINE (PT -2 2) (PT -2 -2) (LW W)))";
    const auto polygon = [&](std::string width) {
        std::string boundary = square;
        for (std::size_t at = boundary.find('W', 12); at != boundary.npos; at = boundary.find("W)", at + 1))
            if (boundary[at + 1] == ')') boundary.replace(at, 1, width);
        for (std::size_t at = boundary.find(" W)"); at != boundary.npos; at = boundary.find(" W)"))
            boundary.replace(at + 1, 1, width);
        return Drawn("F.SilkS", "(POLYGON " + boundary + " (VOID (CIRCLE (D 1) (PT 0 0))))");
    };
    EXPECT_EQ(polygon("0").size(), 1u);
    const std::vector<std::string> lines = polygon("0.1");
    EXPECT_THAT(lines, Contains(HasSubstr("(fp_poly")));
    EXPECT_THAT(lines, Contains("(fp_line (start -2 2) (end 2 2) (layer \"F.SilkS\") (width 0.1))"));
    EXPECT_THAT(lines, Contains(HasSubstr("(fp_arc")));
}

TEST(KiCadFootprint, AnAreaOfTwoCornersIsALine) {
    const std::string boundary =
        "(POLYGON (BOUNDARY (LINE (PT 0 0) (PT 2 0) (LW W)) (LINE (PT 2 0) (PT 0 0) (LW W))))";
    const auto withPen = [&](const std::string& width) {
        std::string text = boundary;
        for (std::size_t at = text.find("W))"); at != text.npos; at = text.find("W))"))
            text.replace(at, 1, width);
        return Drawn("F.SilkS", text);
    };
    EXPECT_THAT(withPen("0.2"),
                ElementsAre("(fp_line (start 0 0) (end 2 0) (layer \"F.SilkS\") (width 0.2))"));
    EXPECT_THAT(withPen("0"), IsEmpty());
}

TEST(KiCadFootprint, APointIsNoAreaOfACourtyard) {
    EXPECT_THAT(Drawn("F.CrtYd", "(PINPOINT (TYPE 1) (D 0.05) (PT 1 2))"),
                ElementsAre("(fp_line (start 1 -2) (end 1 -2) (layer \"F.CrtYd\") (width 0.05))"));
    EXPECT_THAT(Drawn("F.CrtYd", "(FILLCIRCLE (D 2) (PT 0 0))"), ElementsAre(HasSubstr("(fp_circle")));
}

TEST(KiCadFootprint, ALayerThatKiCadDoesNotHaveIsSaid) {
    const kicad::Exported footprint =
        Footprint("(CAMLAYERS (LAYER (ANO 77) (LNAME GLUEDOTS) (LINE (PT 0 0) (PT 1 0) (LW 0.1))))");
    EXPECT_THAT(LinesWith(footprint.text, "(fp_line"), ElementsAre(HasSubstr("(layer \"Dwgs.User\")")));
    EXPECT_THAT(footprint.remarks, Contains(HasSubstr("KiCad has no layer for \"GLUEDOTS\"")));
}

TEST(KiCadFootprint, AKeepOutIsARuleArea) {
    const kicad::Exported footprint = Footprint(
        "(CAMLAYERS (LAYER (ANO 60) (LNAME KEEPOUT) (FILLRECT (W 2) (H 2) (PT 0 0)) (LINE (PT 0 0) (PT 1 1) "
        "(LW 0.1))))");
    EXPECT_THAT(LinesWith(footprint.text, "(zone"), ElementsAre(HasSubstr("(layers \"*.Cu\")")));
    EXPECT_THAT(
        LinesWith(footprint.text, "(keepout"),
        ElementsAre(
            "(keepout (tracks not_allowed) (vias not_allowed) (copperpour not_allowed) (pads allowed) "
            "(footprints allowed))"));
    EXPECT_THAT(LinesWith(footprint.text, "(xy"),
                ElementsAre("(xy -1 1)", "(xy 1 1)", "(xy 1 -1)", "(xy -1 -1)"));
    EXPECT_THAT(footprint.remarks, Contains(HasSubstr("keep-out that is no area")));
}

TEST(KiCadFootprint, AnAreaInTheStencilIsAPadWithoutANumber) {
    EXPECT_THAT(Drawn("F.Paste", "(FILLRECT (W 2) (H 1) (PT 3 4) (ROTATION 30))", "(pad"),
                ElementsAre("(pad \"\" smd rect (at 3 -4 30) (size 2 1) (layers \"F.Paste\"))"));
    EXPECT_THAT(
        Drawn("F.Mask",
              "(COMPOSITE (NAME X) (PT 1 0) (ROTATION 0) (FILLRECT (W 1) (H 1)) (FILLCIRCLE (PT 1 0) (D 1)))",
              "(pad"),
        ElementsAre(HasSubstr("(pad \"\" smd custom (at 1 0) (size 1 1) (layers \"F.Mask\")")));
    EXPECT_THAT(Drawn("F.Mask", "(LINE (PT 0 0) (PT 1 0) (LW 0.1))"),
                ElementsAre(HasSubstr("(layer \"F.Mask\")")));
}

TEST(KiCadFootprint, TextsShowTheReferenceTheValueOrThemselves) {
    const std::string text = "(FID 1) (JUSTIFY 5) (ROTATION 90) (MIRROR N) (PT 1 2)";
    const std::vector<std::string> texts = LinesWith(
        Footprint("(CAMLAYERS (LAYER (ANO 1) (LNAME F.Fab) (PTEXT " + text +
                  " (VALUE REF) (NAME REFDES) (VISIBLE TRUE)) (PTEXT " + text +
                  " (VALUE F) (NAME PARTNUMBER) (VISIBLE FALSE))) (LAYER (ANO 2) (LNAME F.SilkS) (PTEXT " +
                  text +
                  " (VALUE REF) (NAME REFDES) (VISIBLE TRUE)) (TEXT (FID 1) (JUSTIFY 1) (ROTATION 0) (MIRROR "
                  "Y) (PT 1 2) (VALUE \"a b\"))))")
            .text,
        "(fp_text");
    EXPECT_THAT(texts, ElementsAre("(fp_text reference \"REF**\" (at 1 -2 90) (layer \"F.SilkS\")",
                                   "(fp_text value \"F\" (at 1 -2 90) (layer \"F.Fab\") hide",
                                   "(fp_text user \"${REFERENCE}\" (at 1 -2 90) (layer \"F.Fab\")",
                                   "(fp_text user \"a b\" (at 1 -2) (layer \"F.SilkS\")"));
}

TEST(KiCadFootprint, ATextHasTheSizeOfItsFont) {
    const kicad::Exported footprint = Footprint(
        "(CAMLAYERS (LAYER (ANO 2) (LNAME F.SilkS) (TEXT (FID 1) (JUSTIFY 1) (ROTATION 0) (MIRROR Y) (PT 1 "
        "2) (VALUE x))))");
    EXPECT_THAT(LinesWith(footprint.text, "(effects"),
                Contains("(effects (font (size 1.1 0.9) (thickness 0.12)) (justify left bottom mirror))"));
}

TEST(KiCadFootprint, LengthsAreThoseOfTheUnit) {
    const kicad::Exported footprint = Footprint(
        "(FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 100 50))) (CAMLAYERS (LAYER (ANO 1) (LNAME F.SilkS) (LINE "
        "(PT 0 0) (PT 100 0) (LW 10))))",
        "(UNIT MIL)");
    EXPECT_THAT(LinesWith(footprint.text, "(pad"),
                ElementsAre(HasSubstr("(at 2.54 -1.27) (size 0.0508 0.0254)")));
    EXPECT_THAT(LinesWith(footprint.text, "(fp_line"),
                ElementsAre(HasSubstr("(end 2.54 0) (layer \"F.SilkS\") (width 0.254)")));
}

TEST(KiCadFootprint, DescriptionKeywordsAndAttributesComeFromThePart) {
    const std::string general = "(PARTDESC \"a \\\"b\\\"\")";
    const std::string text = Footprint(
                                 "(USGKEYS (USGTYPE KEYWORD) (USGVALUE so soic)) (USGKEYS (USGTYPE MOUNT) "
                                 "(USGVALUE smd exclude_from_bom other))",
                                 general)
                                 .text;
    EXPECT_THAT(text, HasSubstr("(tags \"so soic\")"));
    EXPECT_THAT(text, HasSubstr("(attr smd exclude_from_bom)"));
    EXPECT_THAT(text, HasSubstr("(descr "));
    EXPECT_THAT(Footprint("(FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 0 0)))").text, HasSubstr("(attr smd)"));
    EXPECT_THAT(
        Footprint("(FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 0 0)) (FPIN 2 B (LIBPADSTACK TH) (PT 0 0)))").text,
        HasSubstr("(attr through_hole)"));
}

TEST(KiCadFootprint, TheModelHasThePlaceOfThePackage) {
    const std::string text = Footprint("(OFFSET 1 2 3) (ROTATIONOFFSET 90)", "", "${KIPRJMOD}/x.step").text;
    EXPECT_THAT(text, HasSubstr("(model \"${KIPRJMOD}/x.step\"\n    (offset (xyz 1 2 3))\n    (scale (xyz 1 "
                                "1 1))\n    (rotate (xyz 0 0 270))"));
    EXPECT_THAT(Footprint("").text, Not(HasSubstr("(model")));
}

/// The numbers behind a word of a list.
std::vector<double> NumbersIn(const std::string& text, const std::string& list) {
    std::vector<double> numbers;
    const std::size_t begin = text.find('(' + list + ' ');
    if (begin == text.npos) return numbers;
    std::istringstream stream(text.substr(begin + list.size() + 2));
    for (double number = 0; stream >> number;) numbers.push_back(number);
    return numbers;
}

TEST(KiCadFootprint, PadsTurnAndMoveAsTheyAreDrawn) {
    // A shape that is turned and moved inside of a pad that is moved, under a pin that is turned.
    for (const char* turns : {"30", "90", "200", "-45"}) {
        const auto parser = Import(
            "(PADS (PAD (PADNAME P) (OFFSET 0.5 0.25) (FILLRECT (W 3) (H 1) (PT 1 2) (ROTATION 10)))"
            " (PAD (PADNAME D) (FILLCIRCLE (D 0.8))))"
            "(PADSTACKS (PADSTACK (PADSTACKNAME SMD) (TOP (CON P))) (PADSTACK (PADSTACKNAME TH) (DRILL "
            "(SHAPE "
            "D) (PLATING TRUE)) (TOP (CON P))))"
            "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 5 7) "
            "(ROTATION " +
            std::string(turns) + ")) (FPIN 2 B (LIBPADSTACK TH) (PT -5 7) (ROTATION " + turns + ")))))");
        const drawing::Part part(*parser->GetCVEKA_Manager());
        const CVEKA_FootprintDB& footprint = *part.DefaultFootprint();
        const std::vector<std::string> pads = LinesWith(kicad::ExportFootprint(part, footprint).text, "(pad");
        ASSERT_EQ(pads.size(), 2u);
        const drawing::Scene scene = drawing::FootprintScene(part, footprint);
        for (std::size_t i = 0; i < pads.size(); ++i) {
            const std::vector<double> at = NumbersIn(pads[i], "at"), size = NumbersIn(pads[i], "size");
            std::vector<double> offset = NumbersIn(pads[i], "offset");
            ASSERT_GE(at.size(), 2u);
            ASSERT_EQ(size.size(), 2u);
            offset.resize(2);
            // KiCad's Y points down, and its angles are counter-clockwise.
            const drawing::Place place({at[0], -at[1]}, at.size() > 2 ? at[2] : 0);
            for (const double x : {-0.5, 0.5})
                for (const double y : {-0.5, 0.5}) {
                    const drawing::Point corner = place({offset[0] + x * size[0], -offset[1] + y * size[1]});
                    // Just inside of the corner is metal, just outside is none.
                    const drawing::Point middle = place({offset[0], -offset[1]});
                    double inside = 1e9, outside = 1e9;
                    for (const drawing::Shape& shape : scene.Shapes()) {
                        if (shape.role != drawing::Role::Copper) continue;
                        inside = std::min(inside, scene.Distance(shape, corner + (middle - corner) * 0.01));
                        outside = std::min(outside, scene.Distance(shape, corner - (middle - corner) * 0.01));
                    }
                    EXPECT_EQ(inside, 0) << pads[i];
                    EXPECT_GT(outside, 0) << pads[i];
                }
        }
    }
}

TEST(KiCadFootprint, AModelTurnsThatWayRoundThatPinsDo) {
    const std::string text = Footprint(
                                 "(ROTATIONOFFSET 30) (FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 0 0) (ROTATION "
                                 "30)))",
                                 "", "x.step")
                                 .text;
    // KiCad turns pads counter-clockwise and models clockwise.
    EXPECT_THAT(LinesWith(text, "(pad"), ElementsAre(HasSubstr("(at 0 0 30)")));
    EXPECT_THAT(LinesWith(text, "(rotate"), ElementsAre("(rotate (xyz 0 0 330))"));
}

TEST(KiCadFootprint, ANameThatKiCadDoesNotTakeIsKeptAsAProperty) {
    const kicad::Exported footprint = FootprintOf("(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME A/B:C)))");
    EXPECT_EQ(footprint.name, "A=2FB=3AC");
    EXPECT_THAT(footprint.text, HasSubstr("(footprint \"A=2FB=3AC\""));
    EXPECT_THAT(footprint.text, HasSubstr("(property \"VEKA name\" \"A/B:C\")"));
    EXPECT_THAT(footprint.text, HasSubstr("(fp_text value \"A/B:C\""));
}

TEST(KiCadFootprint, APinWithoutAPadstackIsSaid) {
    EXPECT_THAT(Footprint("(FPINS (FPIN 1 A (LIBPADSTACK NONE) (PT 0 0)))").remarks,
                Contains("the pin \"A\" has no pad: there is no padstack \"NONE\""));
}

TEST(KiCadFootprint, WhatABoardCannotHoldIsLeftOut) {
    const kicad::Exported footprint = Footprint(
        "(FPINS (FPIN 1 A (LIBPADSTACK SMD) (PT 3000 0)) (FPIN 2 B (LIBPADSTACK SMD) (PT nan 0) (ROTATION "
        "nan)))"
        "(CAMLAYERS (LAYER (ANO 1) (LNAME F.SilkS) (LINE (PT 0 0) (PT 5000 0) (LW 1)) (LINE (PT 0 0) (PT "
        "1e300 0) (LW 1))))");
    EXPECT_THAT(LinesWith(footprint.text, "(fp_line"), IsEmpty());
    EXPECT_THAT(footprint.remarks, Contains(HasSubstr("2,000 mm")));
}

TEST(KiCadFootprint, AnUnknownUnitIsSaid) {
    EXPECT_THAT(Footprint("", "(UNIT FURLONG)").remarks, Contains(HasSubstr("\"FURLONG\" is not known")));
}

TEST(KiCadFootprint, ALayerOfABoardIsFoundByItsNameOrItsRole) {
    using drawing::Role;
    using drawing::Side;
    EXPECT_EQ(kicad::BoardLayer("Edge.Cuts", Role::Other, Side::Both), "Edge.Cuts");
    EXPECT_EQ(kicad::BoardLayer("x", Role::Paste, Side::Bottom), "B.Paste");
    EXPECT_EQ(kicad::BoardLayer("x", Role::Copper, Side::Both), "F.Cu");
    EXPECT_EQ(kicad::BoardLayer("x", Role::Copper, Side::Inner), "");
    EXPECT_EQ(kicad::BoardLayer("x", Role::Drill, Side::Both), "");
}

}  // namespace
