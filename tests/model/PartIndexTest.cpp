#include "model/PartIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Parsing.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using veka::JoinedPin;
using veka::PartIndex;

/// A part, and the index of its names.
struct Indexed {
    explicit Indexed(std::string_view text) : parser(test::Import(text)), index(Part()) {}
    const CVEKA_Manager& Part() const { return *parser->GetCVEKA_Manager(); }

    std::unique_ptr<CVEK_AsciiParser> parser;
    PartIndex index;
};

constexpr const char* kPart = R"(
(VEK
  (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1) (SNAME VCC)) (EPIN (NAME 2) (SNAME GND))))
  (PACKAGES (DEFAULTPACKAGE Q) (PACKAGE (NAME P)) (PACKAGE (NAME Q) (DEFAULTFOOTPRINT G)
    (PKGPINS (PKGPIN 1 (PT 0 0)) (PKGPIN 2 (PT 1 0)))))
  (LOGICSYMBOLS (DEFAULTSYMBOL T) (LOGICPINLIBS (LOGICPIN 2 GND) (LOGICPIN 1 VCC))
    (SYMBOL (SYMBOLNAME S))
    (SYMBOL (SYMBOLNAME T) (PARTITION (PARTITIONNAME A) (LIBPARTITION L 1)
      (PARTITIONPINS (PARTITIONPIN 2 b) (PARTITIONPIN 1 a))))))
(PADS (PAD (PADNAME R)))
(PADSTACKS (PADSTACK (PADSTACKNAME K) (TOP (CON R))))
(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F))
  (FOOTPRINT (FOOTPRINTNAME G) (FPINS (FPIN 1 2 (LIBPADSTACK K)) (FPIN 2 1 (LIBPADSTACK K)))))
(NSHAPE (X) N)
(PARTITIONS (PARTITION (PARTITION L) (PARTITIONPINS (PARTITIONPIN 1 b (LIBPIN N)) (PARTITIONPIN 2 a))))
)";

std::vector<std::string> Names(const std::vector<JoinedPin>& pins) {
    std::vector<std::string> names;
    for (const JoinedPin& pin : pins) names.emplace_back(pin.name.View());
    return names;
}

std::vector<std::string> Dead(std::string_view text) {
    const Indexed part(text);
    std::vector<std::string> dead;
    for (const veka::DeadName& name : veka::FindDeadNames(part.index))
        dead.push_back(std::string(name.field) + " of " + std::string(name.holder.View()) + ": " +
                       std::string(name.name.View()));
    return dead;
}

TEST(PartIndex, FindsEachRecordByItsName) {
    const Indexed part(kPart);
    const PartIndex& index = part.index;
    EXPECT_EQ(&index.Part(), &part.Part());
    EXPECT_EQ(index.Pad("R"), part.Part().GetPadArr()->GetAt(0));
    EXPECT_EQ(index.PadStack("K"), part.Part().GetPadStackArr()->GetAt(0));
    EXPECT_EQ(index.Footprint("G"), part.Part().GetFootprintDBArr()->GetAt(1));
    EXPECT_EQ(index.PinShape("N"), part.Part().GetNShapeArr()->GetAt(0));
    EXPECT_EQ(index.LibraryPartition("L"), part.Part().GetPartitionDBArr()->GetAt(0));
    EXPECT_EQ(index.Package("P"), part.Part().GetVEK()->GetPackages()->GetPackageArr()->GetAt(0));
    EXPECT_EQ(index.Symbol("S"), part.Part().GetVEK()->GetLogicSymbols()->GetSymbol()->GetAt(0));
    EXPECT_EQ(index.ElectricalPin("2"), part.Part().GetVEK()->GetElectrical()->GetElectricalPins()->GetAt(1));
}

TEST(PartIndex, ANameThatLeadsNowhereGivesNull) {
    const Indexed part(kPart);
    for (const char* name : {"", "r", "R ", "nobody"}) {
        EXPECT_EQ(part.index.Pad(name), nullptr) << name;
        EXPECT_EQ(part.index.Footprint(name), nullptr) << name;
        EXPECT_EQ(part.index.Symbol(name), nullptr) << name;
    }
    const CVEKA_Manager nothing;
    EXPECT_EQ(PartIndex(nothing).PadStack("K"), nullptr);
}

TEST(PartIndex, OfRecordsOfOneNameTheFirstIsFound) {
    const Indexed part(
        "(PADS (PAD (PADNAME B)) (PAD (PADNAME A)) (PAD (PADNAME B)) (PAD) (PAD (PADNAME A)))");
    EXPECT_EQ(part.index.Pad("A"), part.Part().GetPadArr()->GetAt(1));
    EXPECT_EQ(part.index.Pad("B"), part.Part().GetPadArr()->GetAt(0));
    EXPECT_EQ(part.index.Pad(""), nullptr) << "an empty text refers to nothing";
}

TEST(PartIndex, PassesOverNulls) {
    CVEKA_Manager part;
    part.GetPadArr()->Add(nullptr);
    part.GetPadArr()->Add(std::make_unique<CVEKA_Pad>());
    part.GetPadArr()->GetAt(1)->SetPadName("P");
    part.GetFootprintDBArr()->Add(nullptr);
    part.GetVEK()->GetElectrical()->GetElectricalPins()->Add(nullptr);
    part.GetVEK()->GetPackages()->GetPackageArr()->Add(nullptr);
    part.GetVEK()->GetLogicSymbols()->GetSymbol()->Add(nullptr);
    part.GetVEK()->GetLogicSymbols()->GetLogicPinLibs()->Add(nullptr);
    const PartIndex index(part);
    EXPECT_EQ(index.Pad("P"), part.GetPadArr()->GetAt(1));
    EXPECT_EQ(index.DefaultPackage(), nullptr);
    EXPECT_EQ(index.DefaultFootprint(nullptr), nullptr);
    EXPECT_EQ(index.DefaultSymbol(), nullptr);
    EXPECT_THAT(veka::FindDeadNames(index), IsEmpty());
    EXPECT_THAT(veka::JoinPins(index), IsEmpty());
}

TEST(PartIndex, KnowsWhatIsUsedByDefault) {
    const Indexed part(kPart);
    EXPECT_EQ(part.index.DefaultPackage(), part.index.Package("Q"));
    EXPECT_EQ(part.index.DefaultFootprint(part.index.DefaultPackage()), part.index.Footprint("G"));
    EXPECT_EQ(part.index.DefaultFootprint(part.index.Package("P")), part.index.Footprint("F"));
    EXPECT_EQ(part.index.DefaultSymbol(), part.index.Symbol("T"));
    const Indexed none("(VEK (PACKAGES (DEFAULTPACKAGE X) (PACKAGE (NAME P))))");
    EXPECT_EQ(none.index.DefaultPackage(), none.index.Package("P"));
}

TEST(PartIndex, FindsManyRecordsWhateverTheirNamesAre) {
    std::string text = "(PADS ";
    for (int i = 0; i < 20'000; ++i)
        text += "(PAD (PADNAME a_rather_long_name_of_a_pad_" + std::to_string(i * 7919 % 20'000) + "))";
    const Indexed part(text + ")");
    for (int i = 0; i < 20'000; i += 37) {
        const std::string name = "a_rather_long_name_of_a_pad_" + std::to_string(i);
        ASSERT_NE(part.index.Pad(name), nullptr) << name;
        EXPECT_EQ(part.index.Pad(name)->GetPadName(), std::string_view(name));
    }
}

TEST(DeadNames, AreThoseThatLeadNowhere) {
    EXPECT_THAT(Dead(kPart), IsEmpty());
    EXPECT_THAT(
        Dead(
            "(VEK (PACKAGES (DEFAULTPACKAGE a) (PACKAGE (NAME P) (DEFAULTFOOTPRINT b) (FOOTPRINTS (FOOTPRINT "
            "(LIBFOOTPRINTNAME c))))) (LOGICSYMBOLS (DEFAULTSYMBOL d) (SYMBOL (SYMBOLNAME S) (PARTITION "
            "(LIBPARTITION e)))))"
            "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 1 (LIBPADSTACK f)) (FPIN 2 2))))"
            "(PADSTACKS (PADSTACK (PADSTACKNAME K) (TOP (CON g)) (BOTTOM (METL h))))"
            "(PARTITIONS (PARTITION (PARTITION L) (PARTITIONPINS (PARTITIONPIN 1 a (LIBPIN i)))))"),
        ElementsAre(
            "CVEKA_Packages::DefaultPackageName of : a", "CVEKA_Package::DefaultFootprintName of P: b",
            "CVEKA_Footprint::LibraryFootprintName of P: c", "CVEKA_FootprintPin::LibPadstackName of F: f",
            "CVEKA_Padstack_LayerInfo::Con of K: g", "CVEKA_Padstack_LayerInfo::Metal of K: h",
            "CVEKA_LogicSymbols::DefaultSymbolName of : d", "CVEKA_Partition::LibPartitionName of S: e",
            "CVEKA_PartitionDBPin::LibPinShapeName of L: i"));
}

TEST(JoinPins, JoinsAllViewsByTheNamesOfThePins) {
    const Indexed part(kPart);
    const std::vector<JoinedPin> pins = veka::JoinPins(part.index);
    ASSERT_THAT(Names(pins), ElementsAre("1", "2"));
    for (const JoinedPin& pin : pins) {
        ASSERT_NE(pin.electrical, nullptr);
        ASSERT_NE(pin.logic, nullptr);
        ASSERT_NE(pin.package, nullptr);
        ASSERT_THAT(pin.footprint, SizeIs(1));
        ASSERT_THAT(pin.symbol, SizeIs(1));
        EXPECT_EQ(pin.electrical->GetName(), pin.name);
        EXPECT_EQ(pin.logic->GetLogicPinName(), pin.electrical->GetSignalName());
        EXPECT_EQ(pin.package->GetPKGPinName(), pin.name);
        EXPECT_EQ(pin.footprint[0]->GetPinName(), pin.name);
        EXPECT_EQ(pin.symbol[0].pin->GetPinName(), pin.name);
        EXPECT_EQ(pin.symbol[0].partition->GetPatitionName(), "A");
        ASSERT_NE(pin.symbol[0].drawn, nullptr);
    }
    EXPECT_EQ(pins[0].symbol[0].drawn->GetGatePinName(), "a") << "the second pin of the partition";
    EXPECT_EQ(pins[1].symbol[0].drawn->GetGatePinName(), "b");
}

TEST(JoinPins, HasThePinsThatOnlyOneViewHas) {
    const Indexed part(R"(
(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME e))))
  (PACKAGES (PACKAGE (PKGPINS (PKGPIN p (PT 0 0)))))
  (LOGICSYMBOLS (SYMBOL (PARTITION (PARTITIONPINS (PARTITIONPIN s g))))))
(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 f)))))");
    const std::vector<JoinedPin> pins = veka::JoinPins(part.index);
    ASSERT_THAT(Names(pins), ElementsAre("e", "p", "f", "s"));
    EXPECT_NE(pins[1].package, nullptr);
    EXPECT_EQ(pins[1].electrical, nullptr);
    EXPECT_THAT(pins[2].footprint, SizeIs(1));
    EXPECT_EQ(pins[3].symbol[0].drawn, nullptr) << "a partition that nothing draws";
    EXPECT_THAT(Names(veka::JoinPins(part.index, nullptr, nullptr, nullptr)), ElementsAre("e"));
}

TEST(JoinPins, AFootprintPinOfANameMayBeThereTwiceAndOneWithoutANameIsByItself) {
    const Indexed part(
        "(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1)) (EPIN))))"
        "(FOOTPRINTS (FOOTPRINT (FPINS (FPIN 1 1) (FPIN 2 \"\") (FPIN 3 1) (FPIN 4 \"\"))))");
    const std::vector<JoinedPin> pins = veka::JoinPins(part.index);
    ASSERT_THAT(Names(pins), ElementsAre("1", "", "", ""));
    EXPECT_THAT(pins[0].footprint, SizeIs(2));
    EXPECT_NE(pins[1].electrical, nullptr);
    EXPECT_THAT(pins[1].footprint, IsEmpty());
    EXPECT_EQ(pins[3].footprint[0]->GetPinNo(), 3);
}

TEST(JoinPins, FurtherPinsOfANameAreByThemselves) {
    const Indexed part(
        "(VEK (ELECTRICAL (ELECTRICALPINS (EPIN (NAME 1)) (EPIN (NAME 1) (SNAME A))))"
        "(PACKAGES (PACKAGE (PKGPINS (PKGPIN 1 (PT 0 0)) (PKGPIN 1 (PT 0 0)))))"
        "(LOGICSYMBOLS (LOGICPINLIBS (LOGICPIN 2 A) (LOGICPIN 0 X) (LOGICPIN 3 X) (LOGICPIN -5 X))))");
    const std::vector<JoinedPin> pins = veka::JoinPins(part.index);
    ASSERT_THAT(Names(pins), ElementsAre("1", "1", "1"));
    EXPECT_NE(pins[0].package, nullptr);
    EXPECT_NE(pins[1].electrical, nullptr);
    EXPECT_EQ(pins[1].package, nullptr);
    ASSERT_NE(pins[1].logic, nullptr);
    EXPECT_EQ(pins[1].logic->GetLogicPinName(), "A");
    EXPECT_EQ(pins[0].logic, nullptr);
    EXPECT_NE(pins[2].package, nullptr);
}

TEST(JoinPins, RealPartsHaveEachElectricalPinInEveryViewAndNoDeadName) {
    VEKA_NEEDS_CORPUS();
    for (const auto& path : test::CorpusFiles()) {
        SCOPED_TRACE(path);
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(veka::FromPath(path));
        parser.Parser();
        const CVEKA_Manager& part = *parser.GetCVEKA_Manager();
        const PartIndex index(part);
        for (const veka::DeadName& dead : veka::FindDeadNames(index))
            ADD_FAILURE() << dead.field << " of " << dead.holder << " names " << dead.name;
        for (const JoinedPin& pin : veka::JoinPins(index)) {
            if (!pin.electrical) {
                // A mounting pad, or the pad of a pin that is no pin of the circuit.
                EXPECT_EQ(pin.package, nullptr) << pin.name;
                EXPECT_THAT(pin.symbol, IsEmpty()) << pin.name;
                continue;
            }
            EXPECT_NE(pin.logic, nullptr) << pin.name;
            EXPECT_NE(pin.package, nullptr) << pin.name;
            EXPECT_THAT(pin.footprint, testing::Not(IsEmpty())) << pin.name;
            EXPECT_THAT(pin.symbol, SizeIs(1)) << pin.name;
            for (const JoinedPin::InSymbol& place : pin.symbol) {
                ASSERT_NE(place.drawn, nullptr) << pin.name;
                EXPECT_EQ(place.drawn->GetGatePinName(), place.pin->GetGatePinName());
            }
        }
    }
}

}  // namespace
