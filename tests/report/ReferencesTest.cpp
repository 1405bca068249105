#include "report/References.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "inspect/Description.h"
#include "report/ImportReport.h"
#include "support/Files.h"

namespace {

using namespace veka;
using testing::ElementsAre;

bool HasField(std::string_view record, std::string_view name) {
    for (const RecordDescription* description : AllDescriptions())
        if (record == description->name)
            for (const FieldDescription& field : description->fields)
                if (name == field.name) return true;
    return false;
}

/// The sentences of the findings on names and numbers.
std::vector<std::string> Said(std::string_view file) {
    std::vector<std::string> said;
    for (const Finding& finding : ReportImport(file).Findings()) {
        const FindingKind kind = Describe(finding.code).kind;
        if (kind == FindingKind::Reference || kind == FindingKind::Disagreement)
            said.push_back(finding.sentence);
    }
    return said;
}

TEST(References, AreFieldsOfRecords) {
    for (const NamedRecord& named : AllNamedRecords())
        EXPECT_TRUE(HasField(named.record, named.field)) << named.record;
    for (const FileReference& file : AllFileReferences())
        EXPECT_TRUE(HasField(file.record, file.field)) << file.record;
    for (const Reference& reference : AllReferences()) {
        EXPECT_TRUE(HasField(reference.record, reference.field))
            << reference.record << "::" << reference.field;
        ASSERT_NE(reference.target, nullptr);
    }
}

TEST(References, AreOnThePageOfNames) {
    const std::string page = test::ReadFile(test::ProjectFolder("docs") / "names.md");
    for (const Reference& reference : AllReferences()) {
        EXPECT_NE(page.find(reference.record), std::string::npos) << reference.record;
        EXPECT_NE(page.find(reference.field), std::string::npos) << reference.field;
        EXPECT_NE(page.find(std::string(reference.target->record) + "::"), std::string::npos)
            << reference.target->record;
    }
}

TEST(References, ThatLeadSomewhereAreNoFindings) {
    EXPECT_THAT(Said("(PADS (PAD (PADNAME P)))(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P) (UNCON P))))"
                     "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 1 (LIBPADSTACK S)))))"
                     "(VEK (PACKAGES (DEFAULTPACKAGE K) (PACKAGE (NAME K) (DEFAULTFOOTPRINT F))))"),
                ElementsAre());
}

TEST(References, ThatAreNotInTheFileAreNoFindings) {
    EXPECT_THAT(Said("(VEK (PACKAGES (DEFAULTPACKAGE \"\") (PACKAGE (NAME K) (DEFAULTFOOTPRINT \"\"))))"),
                ElementsAre());
    EXPECT_THAT(Said("(NSHAPE N (PINBODYSHAPE (TEXT (VALUE A))))"), ElementsAre());
    EXPECT_THAT(Said("(NSHAPE N (PINBODYSHAPE (TEXT (FID 0) (VALUE A))))"),
                ElementsAre("there is no font \"0\""));
}

TEST(References, ByNumberFollowTheNumber) {
    EXPECT_THAT(Said("(FONTS (FONT (ID 2)))(NSHAPE N (PINBODYSHAPE (TEXT (FID 02)) (TEXT (FID 3))))"),
                ElementsAre("there is no font \"3\""));
}

TEST(References, OfAListAreFollowedOneByOne) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1)) (EPIN (NAME 2))) (PINGROUPS (PINGROUP "
                     "G 1 3 2 4))))"),
                ElementsAre("there is no electrical pin \"3\"", "there is no electrical pin \"4\""));
}

TEST(References, NamesAreDistinctWithinTheirListAlone) {
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (NAME A) (PKGPINS (PKGPIN 1) (PKGPIN 2))) (PACKAGE (NAME B) "
                     "(PKGPINS (PKGPIN 1)))))"),
                ElementsAre());
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (NAME A) (PKGPINS (PKGPIN 1) (PKGPIN 1)))))"),
                ElementsAre("there are two package pins \"1\": the other one is in line 1"));
}

TEST(References, APartOfManyViewsHasThePinsInAllOfThem) {
    EXPECT_THAT(Said("(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1)) (EPIN (NAME 3))))"
                     " (PACKAGES (PACKAGE (NAME A) (PKGPINS (PKGPIN 1) (PKGPIN 2)))))"),
                ElementsAre("there is no package pin \"3\"", "there is no electrical pin \"2\""));
    EXPECT_THAT(Said("(VEK (PACKAGES (PACKAGE (NAME A) (PKGPINS (PKGPIN 1)))))"), ElementsAre());
}

TEST(Disagreements, PadsThatTouchOrBelongToOnePinDoNotOverlap) {
    const std::string library =
        "(PADS (PAD (PADNAME P) (FILLRECT (W 2) (H 1))))(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON "
        "P))))";
    const auto pins = [&](const char* two) {
        return library + "(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 1 (LIBPADSTACK S)) (FPIN 2 " + two + "))))";
    };
    EXPECT_THAT(Said(pins("2 (LIBPADSTACK S) (PT 2 0)")), ElementsAre());
    EXPECT_THAT(Said(pins("1 (LIBPADSTACK S) (PT 1 0)")), ElementsAre());
    EXPECT_THAT(Said(pins("\"\" (LIBPADSTACK S) (PT 1 0)")), ElementsAre());
    EXPECT_THAT(Said(pins("2 (LIBPADSTACK S) (PT 1.9 0)")),
                ElementsAre("the pads of the pins \"1\" and \"2\" overlap on the top layer"));
    EXPECT_THAT(Said(pins("2 (LIBPADSTACK S) (PT 1.6 0) (ROTATION 90)")), ElementsAre());
    EXPECT_THAT(Said(pins("2 (LIBPADSTACK S) (PT 1e308 nan) (ROTATION 1e308)")), ElementsAre());
}

TEST(Disagreements, AnImportThatFailsIsCheckedAsFarAsItCame) {
    EXPECT_THAT(Said("(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P))))"
                     "(VEK (PACKAGES (DEFAULTPACKAGE X) (PACKAGE (MECHANICALPINS (MECHANICALPIN A) "
                     "(MECHANICALPIN B (PT 1 2))))))"),
                ElementsAre("there is no pad \"P\""));
}

}  // namespace
