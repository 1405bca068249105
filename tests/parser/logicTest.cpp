#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "parser/CInvalidAccessException.h"
#include "support/Parsing.h"
#include "support/RealModels.h"
#include "support/Records.h"

namespace {

using test::Parse;
using testing::ElementsAre;

std::unique_ptr<CVEKA_LogicSymbols> Symbols(const std::string& children) {
    return Parse(&CVEK_AsciiParser::LOGICSYMBOLSGParser, "(LOGICSYMBOLS " + children + ")");
}
std::unique_ptr<CVEKA_Partition> Partition(const std::string& children) {
    return Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITIONParser, "(PARTITION " + children + ")");
}
std::unique_ptr<CVEKA_PartitionPinArray> Pins(const std::string& children) {
    return Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser,
                 "(PARTITIONPINS " + children + ")");
}
std::unique_ptr<CVEKA_PropertyLabelArray> Labels(const std::string& children) {
    return Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser,
                 "(PROPERTYLABELS " + children + ")");
}

TEST(LOGICSYMBOLSGParser, AnEmptyLevelGivesAnEmptyRecord) {
    EXPECT_TRUE(test::SameButApart(*Symbols(""), CVEKA_LogicSymbols()));
}

TEST(LOGICSYMBOLSGParser, ReadsTheExample) {
    const auto symbols = Symbols(R"(
        (DEFAULTSYMBOL SYM1)
        (LOGICPINLIBS (LOGICPIN 1 A TRUE) (LOGICPIN 2 Y FALSE))
        (SYMBOL (SYMBOLNAME SYM1) (USGKEYS (USGKEYS (USGTYPE KEY1) (USGVALUE V1 V2))) (COMMENT (1 REV FIRST))))");
    EXPECT_EQ(symbols->GetDefaultSymbolName(), "SYM1");
    ASSERT_EQ(symbols->GetLogicPinLibs()->GetSize(), 2);
    EXPECT_EQ(symbols->GetLogicPinLibs()->GetAt(0)->GetLogicPinNo(), 1);
    EXPECT_EQ(symbols->GetLogicPinLibs()->GetAt(0)->GetLogicPinName(), "A");
    EXPECT_EQ(symbols->GetLogicPinLibs()->GetAt(0)->GetUsedPin(), 1);
    EXPECT_EQ(symbols->GetLogicPinLibs()->GetAt(1)->GetUsedPin(), 0);
    ASSERT_EQ(symbols->GetSymbol()->GetSize(), 1);
    const CVEKA_Symbol& symbol = *symbols->GetSymbol()->GetAt(0);
    EXPECT_EQ(symbol.GetSymbolName(), "SYM1");
    ASSERT_EQ(symbol.GetUSGKeys()->GetSize(), 1);
    EXPECT_EQ(symbol.GetUSGKeys()->GetAt(0)->GetType(), "KEY1");
    EXPECT_EQ(symbol.GetCommentArr()->GetAt(0)->GetComment(), "FIRST");
}

TEST(LOGICSYMBOLSGParser, TheLastDefaultStands) {
    EXPECT_EQ(Symbols("(DEFAULTSYMBOL A B)")->GetDefaultSymbolName(), "B");
}

TEST(LOGICSYMBOLSGParser, APinIsReadByPosition) {
    const auto pins =
        Parse(&CVEK_AsciiParser::LOGICSYMBOLS_LOGICPINLIBSParser,
              "(LOGICPINLIBS (LOGICPIN 3 A TRUE x) (LOGICPIN 4 B) (LOGICPIN c D true) (X) (LOGICPIN))");
    ASSERT_EQ(pins->GetSize(), 4);
    EXPECT_EQ(pins->GetAt(0)->GetLogicPinNo(), 3);
    EXPECT_EQ(pins->GetAt(0)->GetUsedPin(), 1);
    EXPECT_EQ(pins->GetAt(1)->GetUsedPin(), 0);
    EXPECT_EQ(pins->GetAt(2)->GetLogicPinNo(), 0);
    EXPECT_EQ(pins->GetAt(2)->GetUsedPin(), 0);
}

TEST(LOGICSYMBOLSGParser, PinsAreReplacedWhileSymbolsAddUp) {
    const auto symbols =
        Symbols("(LOGICPINLIBS (LOGICPIN 1) (LOGICPIN 2)) (SYMBOL) (LOGICPINLIBS (LOGICPIN 3)) (SYMBOL)");
    EXPECT_EQ(symbols->GetLogicPinLibs()->GetSize(), 1);
    ASSERT_EQ(symbols->GetSymbol()->GetSize(), 2);
    EXPECT_EQ(symbols->GetSymbol()->GetAt(1)->GetSymbolName(), "") << "an empty symbol is kept";
}

TEST(LOGICSYMBOLSGParser, APartitionDirectlyUnderItIsSkipped) {
    EXPECT_TRUE(test::SameButApart(*Symbols("(PARTITION (PARTITIONNAME P))"), CVEKA_LogicSymbols()));
}

TEST(PARTITION, ReadsTheExample) {
    const auto partition = Partition(R"(
        (PARTITIONNAME P1)
        (LIBPARTITION LIBP1 1.5)
        (PARTITIONPINS (PARTITIONPIN A GATE1 TRUE (NAMETEXT 1.5 3) (PT 0 10 0) (ROTATION 90) (CIRCLE)))
        (PROPERTYLABELS (PROPLABEL (PROPERTY REFDES)))
        (COMMENT (1 REV FIRST))
        (BODYSHAPE (RECTANGLE)))");
    EXPECT_EQ(partition->GetPatitionName(), "P1");
    EXPECT_EQ(partition->GetLibPartitionName(), "LIBP1");
    EXPECT_EQ(partition->GetLibPartitionScale(), 1.5);
    ASSERT_EQ(partition->GetPins()->GetSize(), 1);
    const CVEKA_PartitionPin& pin = *partition->GetPins()->GetAt(0);
    EXPECT_EQ(pin.GetPinName(), "A");
    EXPECT_EQ(pin.GetGatePinName(), "GATE1");
    EXPECT_EQ(pin.GetUsedPin(), "TRUE");
    EXPECT_EQ(pin.GetNameSize(), 1.5);
    EXPECT_EQ(pin.GetJustification(), 3);
    EXPECT_EQ(pin.GetPoint()->GetY(), 10);
    EXPECT_EQ(pin.GetPinRotation(), 90);
    EXPECT_EQ(pin.GetDrawObjs()->GetSize(), 1);
    EXPECT_EQ(pin.GetPartionPinNo(), 0);
    EXPECT_EQ(pin.GetLogicPinNo(), 0);
    EXPECT_EQ(partition->GetPropertyLabels()->GetAt(0)->GetProperty(), "REFDES");
    EXPECT_EQ(partition->GetCommentArr()->GetSize(), 1);
    EXPECT_EQ(partition->GetBodyShape()->GetSize(), 1);
}

TEST(PARTITION, AScaleMayBeMissing) {
    EXPECT_EQ(Partition("(LIBPARTITION A)")->GetLibPartitionScale(), 0);
}

TEST(PARTITION, BodiesAddUpWithoutNulls) {
    EXPECT_EQ(Partition("(BODYSHAPE (LINE) (NOSUCH)) (BODYSHAPE (ARC))")->GetBodyShape()->GetSize(), 2);
}

TEST(PARTITION, ACloneKeepsItsObjects) {
    const auto partition = Partition("(BODYSHAPE (LINE)) (PARTITIONPINS (PARTITIONPIN A (PT 1 2) (LINE)))");
    const std::unique_ptr<CVEKA_Partition> clone(partition->Clone());
    EXPECT_EQ(clone->GetBodyShape()->GetSize(), 1);
    EXPECT_EQ(clone->GetPins()->GetAt(0)->GetPoint()->GetY(), 2);
    EXPECT_EQ(clone->GetPins()->GetAt(0)->GetDrawObjs()->GetSize(), 1);
}

TEST(PARTITIONPINS, APinWithoutChildrenKeepsItsDefaults) {
    const auto pins = Pins("(PARTITIONPIN A) (X) (PARTITIONPIN)");
    ASSERT_EQ(pins->GetSize(), 2);
    EXPECT_EQ(pins->GetAt(0)->GetNameSize(), 1.0);
    EXPECT_EQ(pins->GetAt(0)->GetJustification(), 6);
}

TEST(PARTITIONPINS, ANameTextWithOneValueKeepsTheJustification) {
    const auto pins = Pins("(PARTITIONPIN A (NAMETEXT 2))");
    EXPECT_EQ(pins->GetAt(0)->GetNameSize(), 2);
    EXPECT_EQ(pins->GetAt(0)->GetJustification(), 6);
}

// Q19
TEST(PARTITIONPINS, ALibraryPinChangesNothing) {
    EXPECT_TRUE(
        test::SameButApart(*Pins("(PARTITIONPIN (LIBPIN A B (LINE)))")->GetAt(0), CVEKA_PartitionPin()));
}

TEST(PARTITIONPINS, AnythingElseIsAnObjectOrDropped) {
    const auto pins = Pins("(PARTITIONPIN A (LINE) (BODYSHAPE (LINE)) (PROPERTYLABELS) (COMMENT) (ARC))");
    ASSERT_EQ(pins->GetAt(0)->GetDrawObjs()->GetSize(), 2);
    EXPECT_EQ(pins->GetAt(0)->GetDrawObjs()->GetAt(1)->GetType(), 38);
}

// Q13
TEST(PROPERTYLABELS, EachLabelReadsTheChildAtItsOwnPosition) {
    const auto labels = Labels("(PROPLABEL (PROPERTY A) (PT 1 2)) (PROPLABEL (PROPERTY B) (PT 3 4))");
    ASSERT_EQ(labels->GetSize(), 2);
    EXPECT_EQ(labels->GetAt(0)->GetProperty(), "A");
    EXPECT_EQ(labels->GetAt(0)->GetPoint()->GetX(), 0);
    EXPECT_EQ(labels->GetAt(1)->GetProperty(), "");
    EXPECT_EQ(labels->GetAt(1)->GetPoint()->GetX(), 3);
}

TEST(PROPERTYLABELS, ReadFirstValues) {
    const std::string all =
        R"(
        (PROPERTY A B)
        (PT 1 2 3)
        (VISIBLE TRUE FALSE)
        (ROTATION 4 5)
        (FID 6 7)
        (JUSTIFY 8 9)
        (MIRROR C D)
        (X))";
    std::string text;
    for (int i = 0; i < 8; ++i) text += "(PROPLABEL " + all + ")";
    const auto labels = Labels(text);
    EXPECT_EQ(labels->GetAt(0)->GetProperty(), "A");
    EXPECT_EQ(labels->GetAt(1)->GetPoint()->GetZ(), 3);
    EXPECT_EQ(labels->GetAt(2)->GetVisible(), 1);
    EXPECT_EQ(labels->GetAt(3)->GetRotation(), 4);
    EXPECT_EQ(labels->GetAt(4)->GetFID(), 6);
    EXPECT_EQ(labels->GetAt(5)->GetJustify(), 8);
    EXPECT_EQ(labels->GetAt(6)->GetMirror(), "C");
    EXPECT_TRUE(test::SameButApart(*labels->GetAt(7), CVEKA_PropertyLabel()));
}

TEST(PROPERTYLABELS, AChildOfAnotherNameMovesThePosition) {
    EXPECT_EQ(Labels("(NOTE) (PROPLABEL (PROPERTY A) (FID 7))")->GetAt(0)->GetFID(), 7);
}

// Q13
TEST(PROPERTYLABELS, AnAbsentChildEndsTheImport) {
    try {
        Labels("(PROPLABEL (PROPERTY A)) (PROPLABEL (PROPERTY B)) (PROPLABEL (PROPERTY C))");
        FAIL();
    } catch (const CInvalidAccessException& error) {
        EXPECT_STREQ(error.what(), "The level \"PROPLABEL\" has no child at position 1.");
    }
}

TEST(PROPERTYLABELS, ALabelWithoutChildrenHasItsDefaults) {
    const auto labels = Labels("(X) (X) (PROPLABEL value)");
    EXPECT_TRUE(test::SameButApart(*labels->GetAt(0), CVEKA_PropertyLabel()));
}

TEST(PROPERTYLABELS, AreReadAlikeUnderTheirThreeNames) {
    const char* text = "(PROPERTYLABELS (PROPLABEL (PROPERTY A) (PT 1)) (PROPLABEL (PROPERTY A) (PT 1)))";
    const auto one = Parse(&CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser, text);
    const auto two = Parse(&CVEK_AsciiParser::NSHAPE_PROPERTYLABELSParser, text);
    const auto three = Parse(&CVEK_AsciiParser::PARTITION_PARTITIONPINS_PROPERTYLABELSParser, text);
    EXPECT_TRUE(test::SameButApart(*one, *two));
    EXPECT_TRUE(test::SameButApart(*one, *three));
}

TEST(LOGICSYMBOLSGParser, GivesTheSymbolsPinsAndPartitionsOfEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    size_t count = 0;
    for (const test::RealModel& part : test::RealModels()) {
        const auto& path = part.file.path;
        const auto& roots = part.file.read.roots;
        const CVEKA_LogicSymbols& logic = *part.Model().GetVEK()->GetLogicSymbols();
        std::vector<std::string> pins, symbols, partitions, partitionPins;
        size_t labels = 0;
        for (const auto* pin : *logic.GetLogicPinLibs()) pins.emplace_back(pin->GetLogicPinName().View());
        for (const auto* symbol : *logic.GetSymbol()) {
            symbols.emplace_back(symbol->GetSymbolName().View());
            for (const auto* partition : *symbol->GetPartitions()) {
                partitions.emplace_back(partition->GetPatitionName().View());
                labels += static_cast<size_t>(partition->GetPropertyLabels()->GetSize());
                for (const auto* pin : *partition->GetPins())
                    partitionPins.emplace_back(pin->GetPinName().View());
            }
        }
        EXPECT_EQ(pins, test::Values(roots, {"VEK", "LOGICSYMBOLS", "LOGICPINLIBS", "LOGICPIN"}, 1)) << path;
        EXPECT_EQ(symbols, test::Values(roots, {"VEK", "LOGICSYMBOLS", "SYMBOL", "SYMBOLNAME"}, -1)) << path;
        EXPECT_EQ(partitions,
                  test::Values(roots, {"VEK", "LOGICSYMBOLS", "SYMBOL", "PARTITION", "PARTITIONNAME"}, -1))
            << path;
        EXPECT_EQ(labels, test::Count(roots, {"VEK", "LOGICSYMBOLS", "SYMBOL", "PARTITION", "PROPERTYLABELS",
                                              "PROPLABEL"}))
            << path;
        EXPECT_EQ(
            partitionPins,
            test::Values(roots,
                         {"VEK", "LOGICSYMBOLS", "SYMBOL", "PARTITION", "PARTITIONPINS", "PARTITIONPIN"}, 0))
            << path;
        count += pins.size() + partitions.size();
    }
    EXPECT_GT(count, 1000u);
}

}  // namespace
