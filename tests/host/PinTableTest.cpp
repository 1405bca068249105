#include "host/PinTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "host/ImportedPart.h"

namespace {

using testing::ElementsAre;

std::shared_ptr<CVEKA_Manager> Read(const std::string& text) {
    std::istringstream in(text);
    return host::ReadPart(in).model;
}

std::string Csv(const std::string& text) {
    std::ostringstream out;
    host::WritePinsCsv(out, *Read(text));
    return out.str().substr(out.str().find('\n') + 1);
}

const std::string kElectrical =
    "(ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (SNAME VCC) (TYPE POWER)) (EPIN (NAME 9))))";

TEST(PinTable, JoinsElectricalPackageAndFootprintPinsByTheirNumbers) {
    EXPECT_EQ(
        Csv("(VEK " + kElectrical +
            "(PACKAGES (PACKAGE (NAME P) (DEFAULTFOOTPRINT F) (PKGPINS (PKGPIN 1 (PT 5 6)) (PKGPIN 2 (PT 7 "
            "8))))))"
            "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 1 (LIBPADSTACK S) (PT 1.5 -2)))))"),
        "1,VCC,POWER,S,1.5,-2\n"
        "2,,,,7,8\n"
        "9,,,,,\n");
}

TEST(PinTable, AFootprintMayUseANumberTwice) {
    EXPECT_EQ(Csv("(VEK " + kElectrical +
                  ")(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 1 (PT 1 1)) (FPIN 2 1 (PT 2 2)))))"),
              "1,VCC,POWER,,1,1\n"
              "1,VCC,POWER,,2,2\n"
              "9,,,,,\n");
}

TEST(PinTable, TheDefaultPackageAndFootprintCount) {
    EXPECT_EQ(Csv("(VEK (PACKAGES (DEFAULTPACKAGE Q) (PACKAGE (NAME P) (DEFAULTFOOTPRINT F)) (PACKAGE (NAME "
                  "Q) (DEFAULTFOOTPRINT G))))"
                  "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 f (PT 0 0))))"
                  "            (FOOTPRINT (FOOTPRINTNAME G) (FPINS (FPIN 1 g (PT 0 0)))))"),
              "g,,,,0,0\n");
}

TEST(PinTable, OfNothingIsEmpty) {
    EXPECT_TRUE(host::PinTable(CVEKA_Manager()).empty());
}

TEST(PinTable, CommaSeparatedValuesQuoteWhatNeedsIt) {
    EXPECT_EQ(Csv("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME \"a,b\")) (EPIN (NAME \"c\nd\")))))"),
              "\"a,b\",,,,,\n\"c\nd\",,,,,\n");
    CVEKA_Manager part;
    auto pin = std::make_unique<CVEKA_ElectricalPin>();
    pin->SetName("a\"b");
    part.GetVEK()->GetElectrical()->GetElectricalPins()->Add(std::move(pin));
    std::ostringstream out;
    host::WritePinsCsv(out, part);
    EXPECT_THAT(out.str(), testing::EndsWith("\"a\"\"b\",,,,,\n"));
}

TEST(PinTable, CommaSeparatedValuesDoNotControlATerminal) {
    EXPECT_EQ(Csv("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME \"a\x1B\x9B\r\xC2\x9B\n\xC3\x84\")))))"),
              "\"a\\x1B\\x9B\\x0D\\xC2\\x9B\n\xC3\x84\",,,,,\n");
}

TEST(PinTable, OnATerminalColumnsAreAligned) {
    std::ostringstream out;
    host::WritePins(out, *Read("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (SNAME \xC3\x84) (TYPE IN)) "
                               "(EPIN (NAME 22) (SNAME B\x1B) (TYPE IO)))))"));
    EXPECT_EQ(out.str(),
              "Number  Name   Type  Padstack  X  Y\n"
              "1       \xC3\x84      IN\n"
              "22      B\\x1B  IO\n");
}

}  // namespace
