#include "export/kicad/Names.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using kicad::NameFromKiCad;
using kicad::NameInKiCad;

TEST(KiCadNames, OrdinaryNamesStay) {
    for (const char* name :
         {"OPA-2000-D", "SOIC-8_3.9x4.9mm_P1.27mm", "R (0603), 10k#1", "\xCE\xA9-100", "a;b&c'd[1]@~x"})
        EXPECT_EQ(NameInKiCad(name), name);
}

TEST(KiCadNames, WhatKiCadOrAFileSystemDoesNotTakeBecomesDigits) {
    EXPECT_EQ(NameInKiCad("A/B:C"), "A=2FB=3AC");
    EXPECT_EQ(NameInKiCad("1\"\\"), "1=22=5C");
    EXPECT_EQ(NameInKiCad("a=b"), "a=3Db");
    EXPECT_EQ(NameInKiCad("x\ny"), "x=0Ay");
    EXPECT_EQ(NameInKiCad(std::string_view("\0", 1)), "=00");
    EXPECT_EQ(NameInKiCad("\xB5"
                          "C"),
              "=B5C");
    EXPECT_EQ(NameInKiCad(""), "=");
}

TEST(KiCadNames, BlanksAndPointsAtAnEndBecomeDigits) {
    EXPECT_EQ(NameInKiCad(" a b "), "=20a b=20");
    EXPECT_EQ(NameInKiCad(".a.b."), "=2Ea.b=2E");
    EXPECT_EQ(NameInKiCad("."), "=2E");
}

TEST(KiCadNames, NamesOfDevicesLoseTheirFirstLetter) {
    EXPECT_EQ(NameInKiCad("con"), "=63on");
    EXPECT_EQ(NameInKiCad("LPT1.x"), "=4CPT1.x");
    EXPECT_EQ(NameInKiCad("COM"), "COM");
    EXPECT_EQ(NameInKiCad("~"), "=7E");
}

TEST(KiCadNames, CharactersThatNobodySeesBecomeDigits) {
    EXPECT_EQ(NameInKiCad("a\xE2\x80\xAE"
                          "b"),
              "a=E2=80=AEb");
    EXPECT_EQ(NameInKiCad("\xEF\xBB\xBF"), "=EF=BB=BF");
    EXPECT_EQ(NameInKiCad("\xC2\x85"), "=C2=85");
}

TEST(KiCadNames, EveryNameComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    const std::string names[] = {all,
                                 "",
                                 "=",
                                 "==",
                                 "=41",
                                 "con",
                                 " ",
                                 "A/B",
                                 "\xCE\xA9",
                                 "\xCE",
                                 "a=2F",
                                 "\"(x)\"\n",
                                 "....",
                                 std::string(300, '/'),
                                 std::string(300, 'x'),
                                 "nul.a",
                                 "~",
                                 "\xF0\x9F\x98\x80"};
    std::set<std::string> seen;
    for (const std::string& name : names) {
        const std::string inKiCad = NameInKiCad(name);
        EXPECT_EQ(NameFromKiCad(inKiCad), name);
        EXPECT_TRUE(seen.insert(inKiCad).second) << name;
    }
}

TEST(KiCadNames, ANameOfAFileIsCutAndStaysDifferentFromOthers) {
    const std::string first = NameInKiCad(std::string(300, 'x'), kicad::kLongestFootprintName);
    const std::string second = NameInKiCad(std::string(301, 'x'), kicad::kLongestFootprintName);
    EXPECT_EQ(first.size(), kicad::kLongestFootprintName);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, NameInKiCad(std::string(300, 'x'), kicad::kLongestFootprintName));
    EXPECT_EQ(first.substr(first.size() - 18, 2), "==");
    EXPECT_EQ(NameFromKiCad(first), std::nullopt);
}

TEST(KiCadNames, ANameIsNotCutInsideOfACharacter) {
    std::string name(181, 'x');
    for (int i = 0; i < 20; ++i) name += "\xE2\x82\xAC";
    const std::string cut = NameInKiCad(name, 200);
    EXPECT_EQ(cut.substr(0, 181), std::string(181, 'x'));
    EXPECT_EQ(cut.substr(181, 2), "==");
}

TEST(KiCadNames, WhatTheRuleNeverGivesHasNoOriginal) {
    for (const char* name : {"=4", "=G0", "a=", "=41", "=2f", "x/y", ".a", "con"})
        EXPECT_EQ(NameFromKiCad(name), std::nullopt) << name;
}

}  // namespace
