#include "export/kicad/Symbol.h"

#include "export/kicad/Exporting.h"

namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kGeneral =
    "(PARTGENERAL (MPN M1) (MANUFACTURER ACME) (CPN C1 C2) (LAYOUT (UNAMEPREFIX IC)) (PARTDESC d)"
    " (REFERENCEURL (REFERENCE Drawing a.pdf) (REFERENCE \"Data sheet\" b.pdf)))";
const std::string kElectrical =
    "(ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (SNAME IN) (TYPE INPUT)) (EPIN (NAME 2) (TYPE OUTPUT))))";
const std::string kPins =
    "(PARTITIONPINS (PARTITIONPIN 1 IN TRUE (NAMETEXT 1 2) (PT -5 0 0) (ROTATION 0))"
    " (PARTITIONPIN 2 OUT TRUE (NAMETEXT 1 2) (PT 5 0 0) (ROTATION 180)))";
const std::string kLibrary =
    "(NSHAPE LEAD (PINBODYSHAPE (LINE (PT 0 0) (PT 2 0) (LW 0.15))))"
    "(PARTITIONS (PARTITION (PARTITION BODY) (PARTITIONPINS (PARTITIONPIN 1 IN (LIBPIN LEAD) (PT -5 0 0) "
    "(ROTATION 0))"
    " (PARTITIONPIN 2 OUT (LIBPIN LEAD) (PT 5 0 0) (ROTATION 180) (COMMENT (1 VISIBILITY HIDDEN))))"
    " (BODYSHAPE (RECTANGLE (W 6) (H 4) (LW 0.25) (PT 0 0)) (LINE (PT 0 0) (PT 1 1) (LW 0.1)) (FILLCIRCLE (D "
    "1) (PT 0 0)))))";

kicad::Exported SymbolOf(const std::string& part) {
    const auto parser = Import(part);
    const kicad::Exported symbol = kicad::ExportSymbol(drawing::Part(*parser->GetCVEKA_Manager()), "LIB");
    ExpectBalanced(symbol.text);
    return symbol;
}
std::string Symbols(const std::string& symbols) {
    return "(LOGICSYMBOLS (DEFAULTSYMBOL S) " + symbols + ")";
}
std::string Symbol(const std::string& name, const std::string& gates) {
    return "(SYMBOL (SYMBOLNAME " + name + ") " + gates + ")";
}
std::string Gate(const std::string& name, const std::string& pins = kPins) {
    return "(PARTITION (PARTITIONNAME " + name + ") (LIBPARTITION BODY 1) " + pins + ")";
}
kicad::Exported OneGate(const std::string& electrical = kElectrical) {
    return SymbolOf("(VEK " + kGeneral + electrical + Symbols(Symbol("S", Gate("A"))) + ")" + kLibrary);
}

TEST(KiCadSymbol, TheEntryHasThePartNumber) {
    const kicad::Exported symbol = OneGate();
    EXPECT_EQ(symbol.name, "M1");
    EXPECT_TRUE(
        symbol.text.starts_with("  (symbol \"M1\" (pin_names (offset 0.508)) (in_bom yes) (on_board yes)\n"))
        << symbol.text;
    EXPECT_THAT(symbol.remarks, IsEmpty());
}

TEST(KiCadSymbol, PropertiesAreThoseOfThePart) {
    std::vector<std::string> properties;
    for (const std::string& line : LinesWith(OneGate().text, "(property"))
        properties.push_back(line.substr(10, line.find(" (id") - 10));
    EXPECT_THAT(properties,
                ElementsAre("\"Reference\" \"IC\"", "\"Value\" \"M1\"", "\"Footprint\" \"\"",
                            "\"Datasheet\" \"b.pdf\"", "\"Manufacturer\" \"ACME\"", "\"MPN\" \"M1\"",
                            "\"CPN\" \"C1\"", "\"CPN 2\" \"C2\"", "\"ki_description\" \"d\""));
}

TEST(KiCadSymbol, TheFootprintIsLinkedByTheNameThatItHasInKiCad) {
    EXPECT_THAT(SymbolOf("(VEK " + kGeneral + ") (FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME A/B)))").text,
                HasSubstr("\"Footprint\" \"LIB:A=2FB\""));
}

TEST(KiCadSymbol, AReferenceIsALetterThatMakesAPart) {
    const auto prefix = [](const std::string& word) {
        const std::string text =
            SymbolOf("(VEK (PARTGENERAL (MPN M) (LAYOUT (UNAMEPREFIX " + word + "))))").text;
        return LinesWith(text, "(property \"Reference\"").at(0).substr(22, 3);
    };
    EXPECT_EQ(prefix("Q12"), "\"Q\"");
    EXPECT_EQ(prefix("#X?"), "\"X\"");
    EXPECT_EQ(prefix("42"), "\"U\"");
}

TEST(KiCadSymbol, APinHasItsTypePlaceLengthNameAndNumber) {
    const std::string text = OneGate().text;
    EXPECT_THAT(LinesWith(text, "(pin "), ElementsAre("(pin input line (at -5 0 0) (length 2)",
                                                      "(pin output line (at 5 0 180) (length 2) hide"));
    EXPECT_THAT(LinesWith(text, "(name"), Contains("(name \"IN\" (effects (font (size 1 1))))"));
    EXPECT_THAT(LinesWith(text, "(number"), Contains("(number \"2\" (effects (font (size 1 1))))"));
}

TEST(KiCadSymbol, TheBodyIsDrawn) {
    const std::string text = OneGate().text;
    EXPECT_THAT(text, HasSubstr("(rectangle (start -3 -2) (end 3 2)\n        (stroke (width 0.25)"));
    EXPECT_THAT(text, HasSubstr("(circle (center 0 0) (radius 0.5)"));
    EXPECT_THAT(text, HasSubstr("(fill (type outline))"));
    EXPECT_THAT(text, HasSubstr("(xy 0 0)\n          (xy 1 1)\n"));
}

TEST(KiCadSymbol, AnAreaOfTwoCornersIsALine) {
    const std::string text =
        SymbolOf("(VEK " + kGeneral + kElectrical + Symbols(Symbol("S", Gate("A"))) +
                 ") (PARTITIONS (PARTITION (PARTITION BODY) (BODYSHAPE (POLYGON (BOUNDARY (LINE (PT 0.5 2) "
                 "(PT 0.5 -2) (LW 0.5)) (LINE (PT 0.5 -2) (PT 0.5 2) (LW 0.5)))))))")
            .text;
    EXPECT_THAT(LinesWith(text, "(xy"), ElementsAre("(xy 0.5 2)", "(xy 0.5 -2)"));
    EXPECT_THAT(text, HasSubstr("(stroke (width 0.5)"));
}

TEST(KiCadSymbol, EachGateIsAUnit) {
    const std::string other =
        "(PARTITIONPINS (PARTITIONPIN 3 X TRUE (NAMETEXT 1 2) (PT 0 0 0) (ROTATION 90)))";
    const kicad::Exported symbol =
        SymbolOf("(VEK " + kGeneral + kElectrical + Symbols(Symbol("S", Gate("A") + Gate("B", other))) + ")" +
                 kLibrary);
    EXPECT_THAT(LinesWith(symbol.text, "(symbol \"M1_"),
                ElementsAre("(symbol \"M1_1_1\"", "(symbol \"M1_2_1\""));
    EXPECT_THAT(symbol.remarks, IsEmpty());
}

TEST(KiCadSymbol, NamesOfGatesThatAreNoLettersAreSaid) {
    EXPECT_THAT(
        SymbolOf("(VEK " + kGeneral + Symbols(Symbol("S", Gate("LOGIC") + Gate("SUPPLY"))) + ")" + kLibrary)
            .remarks,
        Contains(HasSubstr("names of the gates")));
}

TEST(KiCadSymbol, ASecondSymbolWithTheSamePinsIsTheOtherBody) {
    const kicad::Exported symbol = SymbolOf(
        "(VEK " + kGeneral + kElectrical +
        Symbols(Symbol("S", Gate("A")) + Symbol("T", Gate("A")) + Symbol("V", Gate("A"))) + ")" + kLibrary);
    EXPECT_THAT(LinesWith(symbol.text, "(symbol \"M1_"),
                ElementsAre("(symbol \"M1_1_1\"", "(symbol \"M1_1_2\""));
    EXPECT_THAT(symbol.remarks, ElementsAre(HasSubstr("the symbol \"V\" is not exported")));
}

TEST(KiCadSymbol, PinsThatNoGateHasAreAUnit) {
    const kicad::Exported symbol = OneGate(
        "(ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (TYPE INPUT)) (EPIN (NAME 2) (TYPE OUTPUT)) (EPIN (NAME "
        "8) (SNAME VCC) (TYPE POWER))))");
    EXPECT_THAT(LinesWith(symbol.text, "(symbol \"M1_"),
                ElementsAre("(symbol \"M1_1_1\"", "(symbol \"M1_2_1\""));
    EXPECT_THAT(LinesWith(symbol.text, "(pin power_in"),
                ElementsAre("(pin power_in line (at -2.54 0 0) (length 2.54)"));
    EXPECT_THAT(symbol.remarks, Contains(HasSubstr("a unit of their own")));
}

TEST(KiCadSymbol, APartWithoutASymbolIsABox) {
    const kicad::Exported symbol = SymbolOf("(VEK " + kGeneral + kElectrical + ")");
    EXPECT_THAT(LinesWith(symbol.text, "(symbol \"M1_"), ElementsAre("(symbol \"M1_1_1\""));
    EXPECT_EQ(LinesWith(symbol.text, "(pin ").size(), 2u);
    EXPECT_THAT(symbol.remarks, Contains(HasSubstr("no symbol")));
}

TEST(KiCadSymbol, LengthsAreThoseOfTheUnitAndOfTheScale) {
    std::string part =
        "(VEK (PARTGENERAL (MPN M) (UNIT MIL))" + kElectrical +
        Symbols(Symbol("S", "(PARTITION (PARTITIONNAME A) (LIBPARTITION BODY 100) " + kPins + ")")) + ")" +
        kLibrary;
    EXPECT_THAT(LinesWith(SymbolOf(part).text, "(pin input"),
                ElementsAre("(pin input line (at -12.7 0 0) (length 5.08)"));
}

TEST(KiCadSymbol, ATurnThatKiCadDoesNotHaveIsSaid) {
    const std::string pins =
        "(PARTITIONPINS (PARTITIONPIN 1 IN TRUE (NAMETEXT 1 2) (PT 0 0 0) (ROTATION 30)))";
    EXPECT_THAT(SymbolOf("(VEK " + kGeneral + Symbols(Symbol("S", Gate("A", pins))) + ")" + kLibrary).remarks,
                Contains(HasSubstr("right angles")));
}

TEST(KiCadSymbol, TheCircleOfAnInvertedPinIsDrawnOnce) {
    const std::string library =
        "(NSHAPE NOT (PINBODYSHAPE (LINE (PT 0 0) (PT 1 0) (LW 0.15)) (CIRCLE (PT 1.5 0) (D 1) (LW 0.15))))"
        "(PARTITIONS (PARTITION (PARTITION BODY) (PARTITIONPINS (PARTITIONPIN 1 IN (LIBPIN NOT) (PT 5 0 0) "
        "(ROTATION 180) (PINPOINT (D 0.3) (PT 5 0))))))";
    const std::string pins =
        "(PARTITIONPINS (PARTITIONPIN 1 IN TRUE (NAMETEXT 1 2) (PT 5 0 0) (ROTATION 180) (CIRCLE (PT 3.5 0) "
        "(D 1) (LW 0.15)) (CIRCLE (PT 9 9) (D 1) (LW 0.15))))";
    const std::string text =
        SymbolOf("(VEK " + kGeneral + Symbols(Symbol("S", Gate("A", pins))) + ")" + library).text;
    EXPECT_THAT(LinesWith(text, "(pin "), ElementsAre("(pin unspecified inverted (at 5 0 180) (length 2)"));
    EXPECT_THAT(LinesWith(text, "(circle"), ElementsAre("(circle (center 9 9) (radius 0.5)"));
}

TEST(KiCadSymbol, WhatIsMissingIsSaid) {
    const kicad::Exported symbol = SymbolOf("(VEK " + kGeneral + Symbols(Symbol("S", Gate("A"))) + ")");
    EXPECT_THAT(symbol.remarks, Contains("there is no library partition \"BODY\""));
    EXPECT_THAT(OneGate("(ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (TYPE QUANTUM))))").remarks,
                Contains(HasSubstr("the type \"QUANTUM\"")));
}

TEST(KiCadSymbol, AnArcOfMoreThanHalfACircleIsTwo) {
    const std::string library =
        "(PARTITIONS (PARTITION (PARTITION BODY) (BODYSHAPE (ARC (PT 1 0) (PT 0 -1) (PT 0 0) (R 1) (LW 0.1) "
        "(DIR CCW)))))";
    const std::string text =
        SymbolOf("(VEK " + kGeneral + Symbols(Symbol("S", Gate("A"))) + ")" + library).text;
    EXPECT_THAT(LinesWith(text, "(arc"),
                ElementsAre("(arc (start 1 0) (mid 0.382683 0.92388) (end -0.707107 0.707107)",
                            "(arc (start -0.707107 0.707107) (mid -0.92388 -0.382683) (end 0 -1)"));
}

TEST(KiCadSymbol, ANameWithSignsOfTheFormatIsEscaped) {
    const kicad::Exported symbol =
        SymbolOf("(VEK (PARTGENERAL (MPN \"a(b)/c\") (MANUFACTURER \"x\\\"y)\")))");
    EXPECT_EQ(symbol.name, "a(b)=2Fc");
    EXPECT_THAT(symbol.text, HasSubstr("\"MPN\" \"a(b)/c\""));
    EXPECT_EQ(kicad::NameFromKiCad(symbol.name), "a(b)/c");
}

}  // namespace
