#include "report/ImportReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace veka;
using testing::ElementsAre;
using testing::IsEmpty;

/// What the report says on a file of one line: code, columns, severity and sentence of each finding.
std::vector<std::string> Said(std::string_view file) {
    std::vector<std::string> said;
    for (const Finding& finding : ReportImport(file).Findings())
        said.push_back(std::string(Describe(finding.code).id) + ' ' +
                       std::to_string(finding.region.begin.column) + '-' +
                       std::to_string(finding.region.end.column) + ' ' +
                       NameOf(Describe(finding.code).severity) + ": " + finding.sentence);
    return said;
}

TEST(ImportReport, OfACleanFileSaysNothing) {
    EXPECT_THAT(Said(""), ElementsAre());
    EXPECT_THAT(Said("// a comment\n(VEK (PARTGENERAL (MPN A) (NUMBEROFPINS 8)))\n"), ElementsAre());
}

TEST(ImportReport, TellsTheWayToEachFinding) {
    const ImportReport report =
        ReportImport("(VEK (PACKAGES (PACKAGE (NAME SO8)\n (PKGPINS (PKGPIN 3 (ROTATON 90))))))");
    ASSERT_EQ(report.Findings().size(), 1u);
    const Finding& finding = report.Findings()[0];
    EXPECT_EQ(finding.path, "VEK > PACKAGES > PACKAGE \"SO8\" > PKGPINS > PKGPIN \"3\" > ROTATON");
    EXPECT_EQ(finding.text, "ROTATON");
    EXPECT_EQ(ReportLine("a.veka", finding),
              "a.veka:2: warning: nothing reads ROTATON in PKGPIN; probably ROTATION was meant [VEKA-W001]");
}

TEST(ImportReport, WritesNoByteOfTheFileRaw) {
    const ImportReport report = ReportImport("(VEK (\x1B[2J a) (PARTGENERAL (MPN a \x1B[31m)))");
    ASSERT_EQ(report.Findings().size(), 2u);
    for (const Finding& finding : report.Findings()) {
        EXPECT_EQ(ReportLine("a\nb", finding).find_first_of("\x1B\n"), std::string::npos);
        EXPECT_EQ(finding.path.find('\x1B'), std::string::npos);
    }
}

TEST(ImportReport, KeepsTheFirstFindingsOfEachCodeAndCountsTheOthers) {
    std::string file = "(VEK ";
    for (int i = 0; i < 500; ++i) file += "(FOO)(PARTGENERAL (MPN a b))";
    const ImportReport report = ReportImport(file + ")", {10, {}});
    EXPECT_EQ(report.Count(Code::UnknownLevel), 500u);
    EXPECT_EQ(report.Count(Code::LevelReplaced), 499u);
    EXPECT_EQ(report.Count(Code::SurplusValue), 1u);
    EXPECT_EQ(report.Findings().size(), 21u);
    EXPECT_EQ(report.Dropped(), 979u);
    EXPECT_EQ(report.Count(Severity::Warning), 1000u);
}

TEST(ImportReport, HasCodesInTheOrderOfTheirNumbers) {
    const auto& codes = AllCodes();
    for (std::size_t i = 0; i < codes.size(); ++i) EXPECT_EQ(codes[i].code, static_cast<Code>(i));
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end(),
                               [](const auto& a, const auto& b) { return std::string_view(a.id) < b.id; }));
}

TEST(ImportReport, ALevelThatNoRuleReadsIsNamedWithTheKeywordThatIsNear) {
    EXPECT_THAT(
        Said("(VEK (PARTGENRAL (MPN A)))"),
        ElementsAre(
            "VEKA-W007 1-27 note: nothing of VEK is in the model",
            "VEKA-W001 6-26 warning: nothing reads PARTGENRAL in VEK; probably PARTGENERAL was meant"));
}

TEST(ImportReport, AKeywordInLowerCaseIsUnknown) {
    EXPECT_THAT(
        Said("(VEK (partgeneral (MPN A)))"),
        ElementsAre(
            "VEKA-W007 1-28 note: nothing of VEK is in the model",
            "VEKA-W001 6-27 warning: nothing reads partgeneral in VEK; probably PARTGENERAL was meant"));
}

TEST(ImportReport, AKnownKeywordAtAnotherPlaceIsNamedWithItsPlace) {
    EXPECT_THAT(
        Said("(VEK (MPN A))"),
        ElementsAre("VEKA-W007 1-14 note: nothing of VEK is in the model",
                    "VEKA-W001 6-13 warning: nothing reads MPN in VEK; it is a keyword in PARTGENERAL"));
}

TEST(ImportReport, OnlyTheFirstValueCountsWhereTheKeywordTakesTheFirst) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (MPN A B)))"),
        ElementsAre("VEKA-W005 26-27 warning: the value \"B\" of MPN is not read: the first value counts"));
}

TEST(ImportReport, Q2_EveryPinShapeCounts) {
    EXPECT_THAT(Said("(NSHAPE A) (NSHAPE B)"), IsEmpty());
    EXPECT_THAT(
        Said("(NSHAPE A) (NSHAPE A)"),
        ElementsAre("VEKA-W051 20-21 warning: there are two pin shapes \"A\": the other one is in line 1"));
}

TEST(ImportReport, Q3_OnlyTheLastValueOfThePartDescriptionCounts) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (PARTDESC A B)))"),
        ElementsAre(
            "VEKA-W005 29-30 warning: the value \"A\" of PARTDESC is not read: the last value counts"));
}

TEST(ImportReport, ALaterValueOfOneFieldReplacesTheEarlierOne) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (MPN A) (MPN B)))"),
        ElementsAre(
            "VEKA-W020 19-26 warning: the value of MPN is read and then replaced by that of MPN in line 1"));
}

TEST(ImportReport, Q1_ALaterSectionReplacesTheEarlierOne) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (MPN A))) (VEK (PARTGENERAL (MPN B)))"),
        ElementsAre("VEKA-W021 1-28 warning: VEK is read and then replaced by the later VEK of line 1"));
}

TEST(ImportReport, AnEmptyLevelThatReplacesAnotherOneCounts) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (MPN A)) (PARTGENERAL))"),
                ElementsAre("VEKA-W021 6-27 warning: PARTGENERAL is read and then replaced by the later "
                            "PARTGENERAL of line 1"));
}

TEST(ImportReport, Q1_OnlyTheFirstFontsCount) {
    EXPECT_THAT(Said("(FONTS (FONT (ID 1))) (FONTS (FONT (ID 2)))"),
                ElementsAre("VEKA-W008 23-44 warning: the section FONTS is not read: only the first one "
                            "counts, that of line 1"));
}

TEST(ImportReport, AnEmptyFirstFontsLevelHidesTheNextOne) {
    EXPECT_THAT(Said("(FONTS) (FONTS (FONT (ID 2)))"),
                ElementsAre("VEKA-W008 9-30 warning: the section FONTS is not read: only the first one "
                            "counts, that of line 1"));
}

TEST(ImportReport, Q4_AMinorNumberThatIsNotBehindThePointIsTold) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (HISTORY (VERSION 12.345))))"),
                ElementsAre("VEKA-W037 37-43 warning: the minor number of the version \"12.345\" becomes 45: "
                            "it is read from the end, with as many digits as the major number has"));
}

TEST(ImportReport, Q4_AVersionThatBeginsWithItsPointLosesItsMinorNumber) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (HISTORY (VERSION .5))))"),
                ElementsAre("VEKA-W037 37-39 warning: the minor number of the version \".5\" becomes 0: "
                            "it is read from the end, with as many digits as the major number has"));
}

TEST(ImportReport, AVersionWithoutAPointHasNoNumbers) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (HISTORY (VERSION 12))))"),
        ElementsAre(
            "VEKA-W037 37-39 warning: the version \"12\" has no point, so both of its numbers are 0"));
}

TEST(ImportReport, Q5_ADateThatIsNotTheFirstChildIsNotRead) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (HISTORY (DATE (CREATED 1) (APPROVED 2)))))"),
                ElementsAre("VEKA-W004 46-58 warning: APPROVED is read only as child number 1 of DATE; this "
                            "is child number 2"));
}

TEST(ImportReport, Q7_TheUsualSpellingOfAnOddKeywordIsUnknown) {
    EXPECT_THAT(
        Said("(VEK (LAYERS (LAY (FILMTYPE 1))))"),
        ElementsAre("VEKA-W001 19-31 warning: nothing reads FILMTYPE in LAY; probably FILMYPE was meant"));
}

TEST(ImportReport, Q6_ASecondColourReplacesOnlyTheValuesThatItHas) {
    EXPECT_THAT(Said("(VEK (LAYERS (LAY (COLOR 1 2 3) (COLOR 9))))"),
                ElementsAre("VEKA-W020 26-27 warning: the value \"1\" of COLOR is read and then replaced by "
                            "COLOR in line 1"));
}

TEST(ImportReport, Q8_AnRlcInTheFormOfAnotherPlaceIsNotRead) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (RLC (R 1))))))"),
                ElementsAre("VEKA-W007 49-60 note: nothing of RLC is in the model",
                            "VEKA-W001 54-59 warning: nothing reads R in RLC; it is a keyword in 3DARC, "
                            "3DSHAPE, ARC and others"));
    EXPECT_THAT(Said("(VEK (ELECTRICAL (POWERRAILS (PRAIL (RLC 1 2 3)))))"),
                ElementsAre("VEKA-W007 37-48 note: nothing of RLC is in the model",
                            "VEKA-W005 42-47 warning: 3 values of RLC from \"1\" on are not read: the level "
                            "takes no values of its own"));
}

TEST(ImportReport, Q9_OfATypeTheLastValueCounts) {
    EXPECT_THAT(
        Said("(VEK (ELECTRICAL (PASSIVEVALUE (TOLERANCE 1 5))))"),
        ElementsAre(
            "VEKA-W005 43-44 warning: the value \"1\" of TOLERANCE is not read: the last value counts"));
}

TEST(ImportReport, Q9_AMisspeltKeywordReplacesTheType) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (PASSIVEVALUE (TOLERANCE 5) (POWR 2))))"),
                ElementsAre("VEKA-W020 32-45 warning: the value of TOLERANCE is read and then replaced by "
                            "that of POWR in line 1"));
}

TEST(ImportReport, Q10_CommentsOfAnElectricalPinAreNotRead) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (COMMENT (1 A B))))))"),
                ElementsAre("VEKA-W001 49-66 warning: nothing reads COMMENT in EPIN; it is a keyword in LAY, "
                            "PARTGENERAL, PARTITION and others"));
}

TEST(ImportReport, Q11_OfASecondOperatingTemperatureOnlyTheFirstValueReplaces) {
    EXPECT_THAT(Said("(VEK (PACKAGES (THERMAL (OPERATINGTEMPERATURE -40 125) (OPERATINGTEMPERATURE -55))))"),
                ElementsAre("VEKA-W020 47-50 warning: the value \"-40\" of OPERATINGTEMPERATURE is read and "
                            "then replaced by OPERATINGTEMPERATURE in line 1"));
    EXPECT_THAT(Said("(VEK (PACKAGES (THERMAL (OPERATINGTEMPERATURE -40 125 150))))"),
                ElementsAre("VEKA-W005 55-58 warning: the value \"150\" of OPERATINGTEMPERATURE is not read: "
                            "the level has more values than there are fields"));
}

TEST(ImportReport, AFlagOfAnotherWordIsCleared) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (PINMAPPINGMODE true)))"),
                ElementsAre("VEKA-W034 34-38 warning: \"true\" in PINMAPPINGMODE is neither TRUE nor FALSE "
                            "and clears the flag"));
}

TEST(ImportReport, AnUnknownTargetOfAPowerRailIsTold) {
    EXPECT_THAT(
        Said("(VEK (ELECTRICAL (POWERRAILS (PRAIL (SIGNALNAME VCC RCL)))))"),
        ElementsAre(
            "VEKA-W050 49-52 warning: there is no signal \"VCC\"",
            "VEKA-W036 53-56 warning: \"RCL\" in SIGNALNAME is neither RLC nor RL and counts as no target"));
}

TEST(ImportReport, AWordThatTheFormatKnowsIsNotTold) {
    const auto expectSilence = [](std::string_view before, std::initializer_list<const char*> words,
                                  std::string_view after) {
        for (const std::string word : words) {
            EXPECT_THAT(Said(std::string(before) + word + std::string(after)), IsEmpty()) << word;
        }
    };
    expectSilence("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (SNAME V))) (POWERRAILS (PRAIL (SIGNALNAME V ",
                  {"RLC", "RL", "\"\""}, ")))))");
    expectSilence("(VEK (PACKAGES (PACKAGE (MOUNTDATA (BODYHEIGHT 2 ", {"\x01", "FALSE", "0", "\"\""},
                  ")))))");
    expectSilence("(VEK (PACKAGES (PACKAGE (PKGPINS (PKGPIN 1 (LEAD (BAR (CLINCH ", {"0", "1", "01", "\"\""},
                  "))))))))");
    expectSilence("(NSHAPE N (PINBODYSHAPE (PTEXT (VISIBLE ", {"TRUE", "FALSE", "\"\""}, "))))");
}

TEST(ImportReport, Q12_TheFileNameOfAPackagePinIsNotRead) {
    EXPECT_THAT(
        Said("(VEK (PACKAGES (PACKAGE (PKGPINS (PKGPIN A1 (STEP pin.step))))))"),
        ElementsAre(
            "VEKA-W005 51-59 warning: the value \"pin.step\" of STEP is not read: the last value counts"));
}

TEST(ImportReport, Q13_AMechanicalPinReadsOneChildAlone) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (MECHANICALPINS (MECHANICALPIN M1 (PT 1 2) (ROTATION 90)) "
                     "(MECHANICALPIN M2 (PT 3 4) (ROTATION 90))))))"),
                ElementsAre("VEKA-W004 68-81 warning: ROTATION is not read: as MECHANICALPIN is child number "
                            "1 of its parent, only its own child number 1 is read",
                            "VEKA-W004 101-109 warning: PT is not read: as MECHANICALPIN is child number 2 "
                            "of its parent, only its own child number 2 is read"));
}

TEST(ImportReport, Q13_AnImportThatFailsIsAnError) {
    EXPECT_THAT(
        Said("(PADS) (VEK (PACKAGES (PACKAGE (MECHANICALPINS (MECHANICALPIN M1 (PT 1 2)) (MECHANICALPIN M2 "
             "(PT 3 4)))))) (PADS (PAD (PADNAME P))) (FONTS (FONT (ID 2)))"),
        ElementsAre(
            "VEKA-W007 1-7 note: PADS is empty and changes nothing",
            "VEKA-W010 8-107 warning: the section VEK is lost, since the import fails in it",
            "VEKA-W009 76-103 error: the import ends here with an exception: MECHANICALPIN is read by the "
            "child at its own place alone, which is number 2, and it has children but none there",
            "VEKA-W010 108-132 warning: the section PADS is not read, since the import has failed before"));
}

TEST(ImportReport, Q14_WhatIsOneLevelTooHighIsNotRead) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (NAME P) (USGKEYS (USGTYPE T)))))"),
                ElementsAre("VEKA-W007 34-55 note: nothing of USGKEYS is in the model",
                            "VEKA-W001 43-54 warning: nothing reads USGTYPE in USGKEYS; it is a keyword in "
                            "another USGKEYS"));
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (NAME P) (MOUNTDATA (MOUNTCHECKTYPE TRUE FALSE)))))"),
                ElementsAre("VEKA-W005 61-65 warning: the value \"TRUE\" of MOUNTCHECKTYPE is not read: the "
                            "last value counts"));
    EXPECT_THAT(Said("(PARTITIONS (PARTITION A (PARTITION B)))"),
                ElementsAre("VEKA-W005 24-25 warning: the value \"A\" of PARTITION is not read: the level "
                            "takes no values of its own"));
}

TEST(ImportReport, Q15_AChildOfTheBodySizeCountsByItsPresence) {
    EXPECT_THAT(
        Said("(VEK (PACKAGES (PACKAGE (MOUNTDATA (BODYSIZE (MOLD 1 2) (OVERALL 3 4 (X)) (CHECK TRUE))))))"),
        ElementsAre("VEKA-W020 46-56 warning: the value of MOLD is read and then replaced by that of OVERALL "
                    "in line 1"));
}

TEST(ImportReport, Q16_NoWordSetsTheFlagOfTheBodyHeight) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (MOUNTDATA (BODYHEIGHT 1 TRUE)))))"),
                ElementsAre("VEKA-W035 50-54 warning: \"TRUE\" in BODYHEIGHT clears the flag, which only the "
                            "one byte of code 1 sets"));
}

TEST(ImportReport, Q17_WhatMountedPinsAndReelsLoseIsTold) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (MOUNTDATA (PACKING (REELPACKINGINFO (T1 0.5) (T2 0.6))) "
                     "(MOUNTPINS (MOUNTPIN 1 A))))))"),
                ElementsAre("VEKA-W011 62-70 note: the value of T1 is read and then lost, since the record "
                            "keeps no such value when it is copied into the model",
                            "VEKA-W011 103-106 note: 2 values of MOUNTPIN from \"1\" on are read and then "
                            "lost, since the record keeps no such value when it is copied into the model"));
}

TEST(ImportReport, UnknownObjectsAreNamedWithTheKindThatIsNear) {
    EXPECT_THAT(
        Said("(VEK (PACKAGES (PACKAGE (BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 4)) (TORUS) (CUBIOD))))))"),
        ElementsAre("VEKA-W002 69-76 warning: there is no object TORUS",
                    "VEKA-W002 77-85 warning: there is no object CUBIOD; probably CUBOID was meant"));
}

TEST(ImportReport, Q18_AnUnknownObjectIsTold) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (MARKINGGEOMETRIES (TORUS)))))"),
                ElementsAre("VEKA-W007 25-52 note: nothing of MARKINGGEOMETRIES is in the model",
                            "VEKA-W002 44-51 warning: there is no object TORUS"));
}

TEST(ImportReport, AMisspeltKeywordAmongObjectsIsNamed) {
    EXPECT_THAT(Said("(PARTITIONS (PARTITION (PARTITIONPINS (PARTITIONPIN 1 A (LIBPIN B) (LIPIN B)))))"),
                ElementsAre("VEKA-W050 65-66 warning: there is no pin shape \"B\"",
                            "VEKA-W002 68-77 warning: there is no object LIPIN; probably LIBPIN was meant"));
}

TEST(ImportReport, Q19_APinShapeInASymbolIsKnownAndNotRead) {
    EXPECT_THAT(Said("(VEK (LOGICSYMBOLS (SYMBOL (PARTITION (PARTITIONPINS (PARTITIONPIN A (LIBPIN B)))))))"),
                ElementsAre("VEKA-W003 70-80 note: LIBPIN is known here, and nothing of it is read"));
}

TEST(ImportReport, Q20_Q24_AnOffsetOfThreeValuesAndAPointAtAnotherPlaceAreNotRead) {
    EXPECT_THAT(Said("(PADS (PAD (PADNAME P) (OFFSET 1 2 3) (LINE (LW 1) (PT 1 2) (PT 3 4))))"),
                ElementsAre("VEKA-W006 24-38 warning: the values of OFFSET are not read: they are read only "
                            "where there are exactly as many as there are fields",
                            "VEKA-W004 61-69 warning: PT is read only as child number 1 or number 2 of LINE; "
                            "this is child number 3"));
}

TEST(ImportReport, NumbersThatAreNoneOrOnlyInPartAreTold) {
    EXPECT_THAT(
        Said("(PADS (PAD (PADNAME P) (RECTANGLE (W 12mm) (H 1,5) (LW 0x10) (ROTATION north))))"),
        ElementsAre("VEKA-W031 38-42 warning: of \"12mm\" in W only the number at the beginning is read",
                    "VEKA-W031 47-50 warning: of \"1,5\" in H only the number at the beginning is read; a "
                    "decimal point is a point",
                    "VEKA-W031 56-60 warning: of \"0x10\" in LW only the number at the beginning is read; "
                    "there are no hexadecimal numbers",
                    "VEKA-W030 72-77 warning: \"north\" in ROTATION is no number and counts as 0"));
}

TEST(ImportReport, Q21_TheKeysOfAFootprintAreNotOneLevelDeeper) {
    EXPECT_THAT(Said("(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (USGKEYS (USGTYPE T) (USGVALUE V))))"),
                IsEmpty());
    EXPECT_THAT(Said("(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (USGKEYS (USGKEYS (USGTYPE T)))))"),
                ElementsAre("VEKA-W001 51-72 warning: nothing reads USGKEYS in USGKEYS; it is a keyword in "
                            "FOOTPRINT, PACKAGE, SYMBOL and others"));
}

TEST(ImportReport, Q22_AReplacedPadstackLayerKeepsItsPadNames) {
    EXPECT_THAT(
        Said("(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON A) (TD TRUE)) (TOP (CON B))))"),
        ElementsAre(
            "VEKA-W020 52-61 warning: the value of TD is read and then replaced by that of TOP in line 1",
            "VEKA-W050 73-74 warning: there is no pad \"B\""));
}

TEST(ImportReport, Q23_AWrapAroundLeadLosesItsThickness) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (PKGPINS (PKGPIN 1 (LEAD (WRAPAROUND (W 1) (H 1) (T 4))))))))"),
                ElementsAre("VEKA-W011 74-79 note: the value of T is read and then lost, since the record "
                            "keeps no such value when it is copied into the model"));
}

TEST(ImportReport, Q25_AnObjectIsNamedByItsLevelAndNotByItsNumber) {
    EXPECT_THAT(
        Said("(VEK (PACKAGES (PACKAGE (BODYGEOMETRY (BODYSHAPE (3DSHAPE (WIDTH 1)) (CUBOID (WIDTH 1)) "
             "(STEP (WIDTH 1)))))))"),
        ElementsAre("VEKA-W001 59-68 warning: nothing reads WIDTH in 3DSHAPE; it is a keyword in "
                    "CUBOID, ELLIPSE, HOLECUBOID and others",
                    "VEKA-W001 95-104 warning: nothing reads WIDTH in STEP; it is a keyword in "
                    "CUBOID, ELLIPSE, HOLECUBOID and others"));
}

TEST(ImportReport, Q26_NoWordSetsAClinchedEnd) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (PKGPINS (PKGPIN 1 (LEAD (BAR (CLINCH TRUE))))))))"),
                ElementsAre("VEKA-W030 63-67 warning: \"TRUE\" in CLINCH is no number and counts as 0"));
}

TEST(ImportReport, Q26_NoWordSetsTheVisibilityOfAText) {
    EXPECT_THAT(Said("(NSHAPE N (PINBODYSHAPE (PTEXT (VISIBLE TRUE) (VALUE A)) (PTEXT (VISIBLE YES))))"),
                ElementsAre("VEKA-W035 74-77 warning: \"YES\" in VISIBLE does nothing: only FALSE clears the "
                            "flag, and no word sets it"));
}

TEST(ImportReport, Q27_ARotationReplacesTheFront) {
    EXPECT_THAT(
        Said("(VEK (PACKAGES (PACKAGE (BODYGEOMETRY (BODYSHAPE (CUBOID (FRONT 1 0 0) (ROTATE 0 0 90)))))))"),
        ElementsAre("VEKA-W020 58-71 warning: the value of FRONT is read and then replaced by that of ROTATE "
                    "in line 1"));
}

TEST(ImportReport, NumbersThatDoNotFitAreTold) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (NUMBEROFPINS 1e12)) (LAYERS (LAY (ARN 4294967297))) (PACKAGES (WEIGHT "
             "1e999)))"),
        ElementsAre(
            "VEKA-W031 33-37 warning: of \"1e12\" in NUMBEROFPINS only the number at the beginning is read",
            "VEKA-W032 58-68 warning: \"4294967297\" in ARN does not fit into 32 bits and becomes 1",
            "VEKA-W033 90-95 warning: \"1e999\" in WEIGHT is too large and becomes infinite"));
}

TEST(ImportReport, TextBehindANumberIsTold) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (NUMBEROFPINS 12abc)))"),
                ElementsAre("VEKA-W031 33-38 warning: of \"12abc\" in NUMBEROFPINS only the number at the "
                            "beginning is read"));
}

TEST(ImportReport, AStrayParenthesisEndsTheReading) {
    EXPECT_THAT(Said("(FONTS (FONT (ID 1)))) (VEK)"),
                ElementsAre("VEKA-W040 22-23 error: a close parenthesis closes no level; the next open "
                            "parenthesis ends the reading",
                            "VEKA-W041 24-29 error: the rest of the file is not read, since a close "
                            "parenthesis before it closed no level"));
}

TEST(ImportReport, ALevelThatIsNotClosedIsLost) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (MPN A))"),
                ElementsAre("VEKA-W042 1-27 error: the level \"VEK\" is not closed, and all in it is lost"));
}

TEST(ImportReport, AStringThatNeverEndsTakesTheRestOfTheFile) {
    EXPECT_THAT(
        Said("(VEK (PARTGENERAL (MPN \"A)))"),
        ElementsAre("VEKA-W042 1-29 error: the level \"VEK\" is not closed, and all in it is lost",
                    "VEKA-W042 6-29 error: the level \"PARTGENERAL\" is not closed, and all in it is lost",
                    "VEKA-W042 19-29 error: the level \"MPN\" is not closed, and all in it is lost",
                    "VEKA-W043 24-29 error: the string never ends, and all behind the quote is lost"));
}

TEST(ImportReport, ATokenBeforeAQuoteIsLost) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (CPN lost\"a\"b)))"),
                ElementsAre("VEKA-W045 24-28 warning: the text \"lost\" is dropped, since a quote follows it "
                            "directly; put a blank between them"));
}

TEST(ImportReport, ACommentThatDoesNotBeginItsLineIsText) {
    EXPECT_THAT(Said(" // (VEK (PARTGENERAL (MPN A) (CPN // B)))"),
                ElementsAre("VEKA-W044 2-4 warning: the text \"//\" stands outside of all levels and is not "
                            "read; a comment begins at the first byte of a line"));
}

TEST(ImportReport, EmptyLevelsAndLevelsOfNothingElseAreNotes) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (PREFERENCE) (LAYOUT x)))"),
                ElementsAre("VEKA-W007 1-44 note: nothing of VEK is in the model",
                            "VEKA-W007 6-43 note: nothing of PARTGENERAL is in the model",
                            "VEKA-W007 19-31 note: PREFERENCE is empty and changes nothing",
                            "VEKA-W007 32-42 note: nothing of LAYOUT is in the model",
                            "VEKA-W005 40-41 warning: the value \"x\" of LAYOUT is not read: the level takes "
                            "no values of its own"));
}

TEST(ImportReport, ANameThatIsToBeANumberIsTold) {
    EXPECT_THAT(
        Said("(COLORTABLE (red 1 2 3 4))"),
        ElementsAre("VEKA-W030 14-17 warning: \"red\" in the name of the level is no number and counts as 0",
                    "VEKA-W005 24-25 warning: the value \"4\" of red is not read: the level has more values "
                    "than there are fields"));
}

TEST(ImportReport, SurplusValuesOfACommentAreTold) {
    EXPECT_THAT(Said("(VEK (PARTGENERAL (COMMENT (3 REVIEW checked twice))))"),
                ElementsAre("VEKA-W005 46-51 warning: the value \"twice\" of 3 is not read: the level has "
                            "more values than there are fields"));
}

TEST(ImportReport, AnEmptyColourChangesNothing) {
    EXPECT_THAT(Said("(VEK (PACKAGES (COLOR (BODY 1 2 3) (BODY))))"),
                ElementsAre("VEKA-W007 36-42 note: BODY is empty and changes nothing"));
}

TEST(ImportReport, AnEmptyListReplacesTheEarlierOne) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (DRMODEL a b) (DRMODEL)))))"),
                ElementsAre("VEKA-W020 40-53 warning: the value of DRMODEL is read and then replaced by that "
                            "of DRMODEL in line 1"));
}

TEST(ImportReport, ALevelWithoutANameIsNotRead) {
    EXPECT_THAT(Said("(VEK () (PARTGENERAL (MPN \"\")))"),
                ElementsAre("VEKA-W001 6-8 warning: nothing reads the level without a name in VEK"));
}

}  // namespace
