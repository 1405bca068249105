#include "export/kicad/PinGraphic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing/Objects.h"
#include "support/Parsing.h"

namespace {

using kicad::PinGraphic;
using testing::ElementsAre;
using testing::IsEmpty;

PinGraphic Read(const std::string& objects) {
    const auto array = test::Parse(&CVEK_AsciiParser::ObjectsParser, "(X " + objects + ")");
    CVEKA_FontArray none;
    const drawing::Fonts fonts(none);
    drawing::SceneBuilder builder("test");
    builder.pen.layer = builder.Layer("layer", drawing::Role::Pin, drawing::Side::Both, 0);
    drawing::ObjectDrawer(builder, fonts).Draw(*array, {});
    return kicad::ReadPinGraphic(builder.Finish());
}

TEST(KiCadPinGraphic, ALineFromTheOriginIsThePin) {
    const PinGraphic pin = Read("(LINE (PT 0 0) (PT 2.54 0) (LW 0.15))");
    EXPECT_EQ(pin.length, 2.54);
    EXPECT_FALSE(pin.backwards);
    EXPECT_EQ(pin.style, "line");
    EXPECT_THAT(pin.rest, IsEmpty());
    EXPECT_TRUE(Read("(LINE (PT -3 0) (PT 0 0) (LW 0.15))").backwards);
    EXPECT_EQ(Read("(LINE (PT -3 0) (PT 0 0) (LW 0.15))").length, 3);
}

TEST(KiCadPinGraphic, ACircleAtTheEndInverts) {
    const PinGraphic pin =
        Read("(LINE (PT 0 0) (PT 1.27 0) (LW 0.15)) (CIRCLE (PT 1.905 0) (D 1.27) (LW 0.15))");
    EXPECT_EQ(pin.length, 2.54);
    EXPECT_EQ(pin.bubble, 0.635);
    EXPECT_EQ(pin.style, "inverted");
}

TEST(KiCadPinGraphic, MarksAreFoundByTheirLines) {
    const std::string line = "(LINE (PT 0 0) (PT 2 0) (LW 0.1))";
    const std::string clock = "(LINE (PT 2 0.7) (PT 3 0) (LW 0.1)) (LINE (PT 3 0) (PT 2 -0.7) (LW 0.1))";
    const std::string low = "(LINE (PT 1 0) (PT 1 1) (LW 0.1)) (LINE (PT 1 1) (PT 2 0) (LW 0.1))";
    EXPECT_EQ(Read(line + clock).style, "clock");
    EXPECT_EQ(Read(line + low).style, "input_low");
    EXPECT_EQ(Read(line + clock + low).style, "clock_low");
    EXPECT_EQ(Read(line + "(LINE (PT 1 0) (PT 2 1) (LW 0.1))").style, "output_low");
    EXPECT_EQ(
        Read(line + "(LINE (PT 1.4 -0.6) (PT 2.6 0.6) (LW 0.1)) (LINE (PT 1.4 0.6) (PT 2.6 -0.6) (LW 0.1))")
            .style,
        "non_logic");
    EXPECT_EQ(Read("(LINE (PT 0 0) (PT 1 0) (LW 0.1)) (CIRCLE (PT 1.5 0) (D 1) (LW 0.1))" + clock).style,
              "inverted_clock");
}

TEST(KiCadPinGraphic, OtherShapesAreTheRest) {
    const PinGraphic pin =
        Read("(FILLRECT (W 1) (H 1)) (LINE (PT 0 0) (PT 2 0) (LW 0.1)) (LINE (PT 0 1) (PT 2 1) (LW 0.1))");
    EXPECT_EQ(pin.length, 2);
    EXPECT_THAT(pin.rest, ElementsAre(0u, 2u));
    EXPECT_EQ(Read("").length, 0);
}

TEST(KiCadPinGraphic, TheWordsOfFilesHaveTypes) {
    EXPECT_EQ(kicad::ElectricalType("INPUT"), "input");
    EXPECT_EQ(kicad::ElectricalType("Tri_State"), "tri_state");
    EXPECT_EQ(kicad::ElectricalType("POWER"), "power_in");
    EXPECT_EQ(kicad::ElectricalType("openDrain"), "open_collector");
    EXPECT_EQ(kicad::ElectricalType("NC"), "no_connect");
    EXPECT_EQ(kicad::ElectricalType("QUANTUM"), "");
}

}  // namespace
