#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Parsing.h"

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
    const auto general = General(
        "(UNIT MM) (MANUFACTURER M) (MPN N) (CPN C) (PREFERENCE (TEMPCPN T) (STATUS S)) (PRODUCTFAMILY P)"
        "(FUNCTIONALTYPE F) (PACKAGETYPE K) (LAYOUT (UNAMEPREFIX U)) (NUMBEROFPINS 8) (BOM (COST EUR 2.5))"
        "(PARTDESC D) (COMMENT (1 a b))");
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

}  // namespace
