#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "support/Parsing.h"
#include "support/RealModels.h"

namespace {

using test::Parse;
using testing::ElementsAre;

std::unique_ptr<CVEKA_PartGeneral> General(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PARTGENERALParser, "(PARTGENERAL " + children + ")");
}

TEST(VEKParser, AnEmptyPartHasAllItsSections) {
    const auto vek = Parse(&CVEK_AsciiParser::VEKParser, "(VEK)");
    ASSERT_NE(vek->GetPartGeneral(), nullptr);
    EXPECT_EQ(vek->GetPartGeneral()->GetMPN(), "");
}

TEST(VEKParser, ASecondSectionReplacesTheFirstAsAWhole) {
    const auto vek = Parse(&CVEK_AsciiParser::VEKParser,
                           "(VEK value (PARTGENERAL (MPN A) (UNIT MM)) (OTHER) (PARTGENERAL (MPN B)))");
    EXPECT_EQ(vek->GetPartGeneral()->GetMPN(), "B");
    EXPECT_EQ(vek->GetPartGeneral()->GetUnit(), "");
}

TEST(PARTGENERALParser, ReadsEveryField) {
    const auto general = General(R"(
        (UNIT MM)
        (MANUFACTURER M)
        (MPN N)
        (CPN C)
        (PREFERENCE (TEMPCPN T) (STATUS S))
        (PRODUCTFAMILY P)
        (FUNCTIONALTYPE F)
        (PACKAGETYPE K)
        (LAYOUT (UNAMEPREFIX U))
        (NUMBEROFPINS 8)
        (BOM (COST EUR 2.5))
        (PARTDESC D)
        (COMMENT (1 a b)))");
    EXPECT_EQ(general->GetUnit(), "MM");
    EXPECT_EQ(general->GetManufacturer(), "M");
    EXPECT_EQ(general->GetMPN(), "N");
    EXPECT_THAT(test::Strings(*general, &CVEKA_PartGeneral::GetCPNArr), ElementsAre("C"));
    EXPECT_EQ(general->GetPreference()->GetTempCPN(), "T");
    EXPECT_EQ(general->GetPreference()->GetStatus(), "S");
    EXPECT_THAT(test::Strings(*general, &CVEKA_PartGeneral::GetProductFamilyArr), ElementsAre("P"));
    EXPECT_EQ(general->GetFunctionalType(), "F");
    EXPECT_EQ(general->GetPackageType(), "K");
    EXPECT_EQ(general->GetLayout()->GetPrefix(), "U");
    EXPECT_EQ(general->GetNumberOfPins(), 8);
    EXPECT_EQ(general->GetBOM()->GetUnit(), "EUR");
    EXPECT_EQ(general->GetBOM()->GetCost(), 2.5);
    EXPECT_EQ(general->GetPartDescription(), "D");
    EXPECT_EQ(general->GetCommentArr()->GetSize(), 1);
}

// Q3
TEST(PARTGENERALParser, TheDescriptionAloneKeepsItsLastValue) {
    const auto general = General("(MPN A B) (PARTDESC A B)");
    EXPECT_EQ(general->GetMPN(), "A");
    EXPECT_EQ(general->GetPartDescription(), "B");
}

TEST(PARTGENERALParser, ARepeatedListAccumulatesWhileARepeatedTextOverwrites) {
    const auto general = General("(CPN A B) (MPN A) (CPN C) (MPN B) (PRODUCTFAMILY A) (PRODUCTFAMILY B)");
    EXPECT_THAT(test::Strings(*general, &CVEKA_PartGeneral::GetCPNArr), ElementsAre("A", "B", "C"));
    EXPECT_THAT(test::Strings(*general, &CVEKA_PartGeneral::GetProductFamilyArr), ElementsAre("A", "B"));
    EXPECT_EQ(general->GetMPN(), "B");
}

TEST(PARTGENERALParser, ANumberStopsAtItsUnit) {
    EXPECT_EQ(General("(NUMBEROFPINS 8x)")->GetNumberOfPins(), 8);
}

TEST(PARTGENERALParser, UnknownKeywordsAreSkipped) {
    const auto general = General("(mpn A) (OTHER (MPN B)) value");
    EXPECT_EQ(general->GetMPN(), "");
}

TEST(CVEKA_PartGeneral, ItsListsCanBeAppendedTo) {
    CVEKA_PartGeneral general;
    general.SetCPN("A");
    general.SetCPN("B");
    general.SetProductFamily("C");
    EXPECT_THAT(test::Strings(general, &CVEKA_PartGeneral::GetCPNArr), ElementsAre("A", "B"));
    EXPECT_THAT(test::Strings(general, &CVEKA_PartGeneral::GetProductFamilyArr), ElementsAre("C"));
}

TEST(BOMParser, ASingleValueIsAlwaysTheUnit) {
    const auto bom = Parse(&CVEK_AsciiParser::BOMParser, "(BOM (COST 1.25))");
    EXPECT_EQ(bom->GetUnit(), "1.25");
    EXPECT_EQ(bom->GetCost(), 0);
}

TEST(BOMParser, WithoutACostItIsEmpty) {
    const auto bom = Parse(&CVEK_AsciiParser::BOMParser, "(BOM (PRICE 1))");
    EXPECT_EQ(bom->GetUnit(), "");
    EXPECT_EQ(bom->GetCost(), 0);
}

TEST(BOMParser, ASecondCostWithOneValueLeavesTheEarlierAmount) {
    const auto bom = Parse(&CVEK_AsciiParser::BOMParser, "(BOM (COST USD 1.25 9) (COST EUR))");
    EXPECT_EQ(bom->GetUnit(), "EUR");
    EXPECT_EQ(bom->GetCost(), 1.25);
}

TEST(PREFERENCEParser, ReadsFirstValues) {
    const auto preference =
        Parse(&CVEK_AsciiParser::PREFERENCEParser, "(PREFERENCE (STATUS A B) (TEMPCPN C D) (X E))");
    EXPECT_EQ(preference->GetStatus(), "A");
    EXPECT_EQ(preference->GetTempCPN(), "C");
}

TEST(LAYOUTParser, ReadsTheFirstValue) {
    EXPECT_EQ(Parse(&CVEK_AsciiParser::LAYOUTParser, "(LAYOUT (UNAMEPREFIX A B) (X C))")->GetPrefix(), "A");
}

std::unique_ptr<CVEKA_History> History(const std::string& children) {
    return Parse(&CVEK_AsciiParser::HISTORYParser, "(HISTORY " + children + ")");
}

std::pair<int, int> Version(const char* values) {
    const auto history = History(std::string("(VERSION ") + values + ")");
    return {history->GetVersion()->GetMajorVersion(), history->GetVersion()->GetMinorVersion()};
}

// Q4
TEST(HISTORYParser, TheMinorVersionIsReadFromAsManyLastBytesAsStandBeforeThePoint) {
    EXPECT_EQ(Version("2.1"), std::pair(2, 1));
    EXPECT_EQ(Version("12.34"), std::pair(12, 34));
    EXPECT_EQ(Version("10.2"), std::pair(10, 0));
    EXPECT_EQ(Version("1.25"), std::pair(1, 5));
    EXPECT_EQ(Version("123.4"), std::pair(123, 3)) << "from 3.4";
}

TEST(HISTORYParser, WithoutBytesBeforeThePointBothNumbersAreZero) {
    EXPECT_EQ(Version("3"), std::pair(0, 0));
    EXPECT_EQ(Version(".5"), std::pair(0, 0));
    EXPECT_EQ(Version("\"\""), std::pair(0, 0));
}

TEST(HISTORYParser, TheLastVersionStands) {
    EXPECT_EQ(Version("1.0 2.5"), std::pair(2, 5));
    EXPECT_EQ(Version(""), std::pair(0, 0));
}

/// Created, modified and approved dates, joined.
std::string Dates(const std::string& children) {
    const auto history = History(children);
    const CVEKA_Date& date = *history->GetDate();
    std::string text(date.GetCreatedDate()->GetDate().View());
    text += "|";
    for (const auto* modified : *date.GetModifiedDate())
        text += std::string(modified->GetDate().View()) + ",";
    return text + "|" + std::string(date.GetApprovedDate()->GetDate().View());
}

// Q5
TEST(HISTORYParser, CreatedAndApprovedCountOnlyAsTheFirstChild) {
    EXPECT_EQ(Dates("(DATE (CREATED a) (MODIFIED b c) (APPROVED d))"), "a|b,c,|");
    EXPECT_EQ(Dates("(DATE (APPROVED d) (CREATED a))"), "||d");
    EXPECT_EQ(Dates("(DATE (X) (CREATED a))"), "||");
}

TEST(HISTORYParser, TheLastValueOfAFirstChildStands) {
    EXPECT_EQ(Dates("(DATE (CREATED a b))"), "b||");
}

TEST(HISTORYParser, ARepeatedDateAppendsAndOverwrites) {
    EXPECT_EQ(Dates("(DATE (CREATED a) (MODIFIED b)) (DATE (CREATED c) (MODIFIED d)) (DATE (APPROVED e))"),
              "c|b,d,|e");
}

TEST(CVEKA_Date, ClonesInLowerCase) {
    CVEKA_Date date;
    date.GetCreatedDate()->SetDate("a");
    const std::unique_ptr<CVEKA_Date> clone(date.clone());
    EXPECT_EQ(clone->GetCreatedDate()->GetDate(), "a");
}

TEST(REFERENCEURLParser, OnlyReferencesCount) {
    const auto references = Parse(&CVEK_AsciiParser::REFERENCEURLParser,
                                  "(R (REFERENCE a b c) (OTHER d) (REFERENCE) (REFERENCE e))");
    ASSERT_EQ(references->GetSize(), 3);
    EXPECT_EQ(references->GetAt(0)->GetTitle(), "a");
    EXPECT_EQ(references->GetAt(0)->GetFileName(), "b");
    EXPECT_EQ(references->GetAt(1)->GetTitle(), "");
    EXPECT_EQ(references->GetAt(1)->GetFileName(), "");
    EXPECT_EQ(references->GetAt(2)->GetTitle(), "e");
}

std::unique_ptr<CVEKA_Layer> Layer(const std::string& children) {
    return Parse(&CVEK_AsciiParser::LAYERParser, "(LAY " + children + ")");
}

TEST(LAYERSParser, KeepsLayersInFileOrderEmptyOnesToo) {
    const auto layers = Parse(&CVEK_AsciiParser::LAYERSParser,
                              "(LAYERS (LAY (NAME a)) (DEFAULT p q) (X) (LAY) (LAY (NAME b)))");
    EXPECT_EQ(layers->GetDefaultPath(), "p");
    ASSERT_EQ(layers->GetLayerArr()->GetSize(), 3);
    EXPECT_EQ(layers->GetLayerArr()->GetAt(0)->GetName(), "a");
    EXPECT_EQ(layers->GetLayerArr()->GetAt(1)->GetName(), "");
    EXPECT_EQ(layers->GetLayerArr()->GetAt(2)->GetName(), "b");
}

TEST(LAYERParser, ReadsEveryField) {
    const auto layer = Layer(R"(
        (ARN 1 2)
        (NAME n o)
        (ELAYNAME e)
        (VISIBLE TRUE)
        (COLOR 3 4 5 6)
        (DEPTH -7)
        (FILMYPE 8)
        (COMMENT top x))");
    EXPECT_EQ(layer->GetARNNumber(), 1);
    EXPECT_EQ(layer->GetName(), "n");
    EXPECT_EQ(layer->GetECadLayerName(), "e");
    EXPECT_EQ(layer->GetVisibleType(), "TRUE") << "a text, no flag";
    EXPECT_EQ(layer->GetColor()->GetRed(), 3);
    EXPECT_EQ(layer->GetColor()->GetGreen(), 4);
    EXPECT_EQ(layer->GetColor()->GetBlue(), 5);
    EXPECT_EQ(layer->GetDepth(), -7);
    EXPECT_EQ(layer->GetFilmType(), 8);
}

// Q6
TEST(LAYERParser, AColourIsReadInPlace) {
    const auto layer = Layer("(COLOR 255 128) (COLOR 1)");
    EXPECT_EQ(layer->GetColor()->GetRed(), 1);
    EXPECT_EQ(layer->GetColor()->GetGreen(), 128);
    EXPECT_EQ(layer->GetColor()->GetBlue(), 0);
}

// Q7
TEST(LAYERParser, TheOrdinarySpellingOfTheFilmTypeIsUnknown) {
    EXPECT_EQ(Layer("(FILMTYPE 3)")->GetFilmType(), 0);
}

TEST(LAYERParser, ACommentIsATextAlone) {
    const auto layer = Layer("(COMMENT \"top\" x (1 a b))");
    EXPECT_EQ(layer->GetComment()->GetComment(), "top");
    EXPECT_EQ(layer->GetComment()->GetIndex(), 0);
    EXPECT_EQ(layer->GetComment()->GetProperty(), "");
}

std::unique_ptr<CVEKA_Manufacturing> Manufacturing(const std::string& children) {
    return Parse(&CVEK_AsciiParser::MANUFACTURINGParser, "(MANUFACTURING " + children + ")");
}

TEST(MANUFACTURINGParser, LastValuesStandWhateverTheySay) {
    const auto manufacturing = Manufacturing("(MOUNTTYPE SMD THT) (ROHS_COMPLIANCE no \"any word\") (X y)");
    EXPECT_EQ(manufacturing->GetMountType(), "THT");
    EXPECT_EQ(manufacturing->GetROHS_CompLianceType(), "any word");
}

TEST(MANUFACTURINGParser, ALevelWithoutValuesLeavesTheFieldEmpty) {
    EXPECT_EQ(Manufacturing("(MOUNTTYPE)")->GetMountType(), "");
}

TEST(VEKParser, GivesTheLayersAndReferencesOfEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    for (const test::RealModel& part : test::RealModels()) {
        const auto& path = part.file.path;
        const auto& roots = part.file.read.roots;
        const CVEKA_VEK& vek = *part.Model().GetVEK();
        std::vector<std::string> layers, titles;
        for (const auto* layer : *vek.GetLayers()->GetLayerArr())
            layers.emplace_back(layer->GetName().View());
        for (const auto* reference : *vek.GetPartGeneral()->GetReferenceURLArr())
            titles.emplace_back(reference->GetTitle().View());
        EXPECT_FALSE(layers.empty()) << path;
        EXPECT_EQ(layers, test::Values(roots, {"VEK", "LAYERS", "LAY", "NAME"}, 0)) << path;
        EXPECT_EQ(titles, test::Values(roots, {"VEK", "PARTGENERAL", "REFERENCEURL", "REFERENCE"}, 0))
            << path;
        EXPECT_EQ(std::vector<std::string>{std::string(vek.GetManufacturing()->GetMountType().View())},
                  test::Values(roots, {"VEK", "MANUFACTURING", "MOUNTTYPE"}, -1))
            << path;
    }
}

}  // namespace
