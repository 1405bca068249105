#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "support/Parsing.h"
#include "support/RealModels.h"
#include "support/Records.h"

namespace {

using test::Parse;
using testing::ElementsAre;

std::unique_ptr<CVEKA_Electrical> Electrical(const std::string& children) {
    return Parse(&CVEK_AsciiParser::ELECTRICALParser, "(ELECTRICAL " + children + ")");
}
std::unique_ptr<CVEKA_PowerRailArray> Rails(const std::string& children) {
    return Parse(&CVEK_AsciiParser::POWERRAILSParser, "(POWERRAILS " + children + ")");
}
std::unique_ptr<CVEKA_PassiveValue> Passive(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PASSIVEVALUEParser, "(PASSIVEVALUE " + children + ")");
}
std::unique_ptr<CVEKA_ElectricalPinArray> Pins(const std::string& children) {
    return Parse(&CVEK_AsciiParser::ELECTRICALPINSParser, "(ELECTRICALPINS " + children + ")");
}

void ExpectRLC(const CVEKA_RLC* rlc, double r, double l, double c) {
    EXPECT_EQ(rlc->GetResisterValue(), r);
    EXPECT_EQ(rlc->GetInductanceValue(), l);
    EXPECT_EQ(rlc->GetCapacitorValue(), c);
}

TEST(ELECTRICALParser, AnEmptyLevelGivesAnEmptySection) {
    const auto electrical = Electrical("");
    EXPECT_TRUE(test::SameButApart(*electrical, CVEKA_Electrical()));
    EXPECT_EQ(electrical->GetPinMappingMode()->GetMode(), 0);
}

TEST(ELECTRICALParser, ReadsTheExample) {
    const auto electrical = Electrical(R"(
        (DEVICEMODELS (MODEL KIND1 model1.dat) (MODEL KIND2 model2.dat))
        (PINMAPPINGMODE TRUE)
        (PINGROUPS (PINGROUP GROUP1 A1 A2 A3) (PINGROUP GROUP2 B1)))");
    ASSERT_EQ(electrical->GetDeviceModels()->GetSize(), 2);
    EXPECT_EQ(electrical->GetDeviceModels()->GetAt(0)->GetModelType(), "KIND1");
    EXPECT_EQ(electrical->GetDeviceModels()->GetAt(1)->GetFilePath(), "model2.dat");
    EXPECT_EQ(electrical->GetPinMappingMode()->GetMode(), 1);
    ASSERT_EQ(electrical->GetPinGroups()->GetSize(), 2);
    EXPECT_EQ(electrical->GetPinGroups()->GetAt(0)->GetGroupName(), "GROUP1");
    EXPECT_THAT(test::Strings(*electrical->GetPinGroups()->GetAt(0), &CVEKA_PinGroup::GetName),
                ElementsAre("A1", "A2", "A3"));
}

TEST(ELECTRICALParser, OnlyTheExactWordSetsThePinMapping) {
    EXPECT_EQ(Electrical("(PINMAPPINGMODE true)")->GetPinMappingMode()->GetMode(), 0);
    EXPECT_EQ(Electrical("(PINMAPPINGMODE TRUE) (PINMAPPINGMODE FALSE)")->GetPinMappingMode()->GetMode(), 0);
    EXPECT_EQ(Electrical("(PINMAPPINGMODE TRUE) (PINMAPPINGMODE)")->GetPinMappingMode()->GetMode(), 1);
    EXPECT_EQ(Electrical("(PINMAPPINGMODE TRUE FALSE)")->GetPinMappingMode()->GetMode(), 1)
        << "the first value counts";
}

TEST(ELECTRICALParser, AModelMayLackItsPathAndHaveTooMuch) {
    const auto models =
        Parse(&CVEK_AsciiParser::DEVICEMODELSParser, "(DEVICEMODELS (MODEL a) (MODEL b c d) (X) (MODEL))");
    ASSERT_EQ(models->GetSize(), 3);
    EXPECT_EQ(models->GetAt(0)->GetModelType(), "a");
    EXPECT_EQ(models->GetAt(0)->GetFilePath(), "");
    EXPECT_EQ(models->GetAt(1)->GetFilePath(), "c");
}

TEST(ELECTRICALParser, AGroupMayHaveNoPins) {
    const auto groups =
        Parse(&CVEK_AsciiParser::PINGROUPSParser, "(PINGROUPS (PINGROUP a) (PINGROUP) (X b))");
    ASSERT_EQ(groups->GetSize(), 2);
    EXPECT_EQ(groups->GetAt(0)->GetGroupName(), "a");
    EXPECT_THAT(test::Strings(*groups->GetAt(0), &CVEKA_PinGroup::GetName), ElementsAre());
}

TEST(ELECTRICALParser, ALaterSectionReplacesAnEarlierOne) {
    const auto electrical = Electrical("(DEVICEMODELS (MODEL a) (MODEL b)) (DEVICEMODELS (MODEL c))");
    ASSERT_EQ(electrical->GetDeviceModels()->GetSize(), 1);
    EXPECT_EQ(electrical->GetDeviceModels()->GetAt(0)->GetModelType(), "c");
    EXPECT_EQ(Electrical("(PASSIVEVALUE (POWER 1)) (PASSIVEVALUE)")->GetPassiveValue()->GetPowerValue(), 0);
    EXPECT_EQ(Electrical("(POWERRAILS (PRAIL)) (POWERRAILS)")->GetPowerRails()->GetSize(), 0);
    EXPECT_EQ(Electrical("(ELECTRICALPINS (EPIN)) (ELECTRICALPINS)")->GetElectricalPins()->GetSize(), 0);
}

TEST(ELECTRICALParser, AModelDirectlyUnderItIsSkipped) {
    EXPECT_EQ(Electrical("(MODEL a b)")->GetDeviceModels()->GetSize(), 0);
}

TEST(POWERRAILSParser, ReadsTheExample) {
    const auto rails = Rails(R"(
        (PRAIL
            (SIGNALNAME VDD RLC) (PDSMODEL KIND1 MODEL1) (FREQUECNY 1000 100000 0.05)
            (FREQUECNY 100000 1000000 0.1) (RLC (R 0.01) (L 0.0001) (C 0.000001)) (RL (R 0.02) (L 0.0002))))");
    ASSERT_EQ(rails->GetSize(), 1);
    const CVEKA_PowerRail& rail = *rails->GetAt(0);
    EXPECT_EQ(rail.GetSignalName()->GetStrSignalName(), "VDD");
    EXPECT_EQ(rail.GetSignalName()->GetTargetType(), 1);
    EXPECT_EQ(rail.GetPDSModel()->GetModelType(), "KIND1");
    EXPECT_EQ(rail.GetPDSModel()->GetModelName(), "MODEL1");
    ASSERT_EQ(rail.GetFrequencyArr()->GetSize(), 2);
    EXPECT_EQ(rail.GetFrequencyArr()->GetAt(0)->GetMinTarget(), 1000);
    EXPECT_EQ(rail.GetFrequencyArr()->GetAt(1)->GetMaxTarget(), 1000000);
    EXPECT_EQ(rail.GetFrequencyArr()->GetAt(1)->GetImpedance(), 0.1);
    ExpectRLC(rail.GetRLC(), 0.01, 0.0001, 0.000001);
    ExpectRLC(rail.GetRL(), 0.02, 0.0002, 0);
}

TEST(POWERRAILSParser, LevelsMayBeEmpty) {
    EXPECT_EQ(Rails("")->GetSize(), 0);
    const auto rails = Rails("(X) (PRAIL)");
    ASSERT_EQ(rails->GetSize(), 1);
    EXPECT_TRUE(test::SameButApart(*rails->GetAt(0), CVEKA_PowerRail()));
}

// Q7
TEST(POWERRAILSParser, OnlyTheFormatsOwnSpellingMakesABand) {
    EXPECT_EQ(Rails("(PRAIL (FREQUENCY 1 2 3))")->GetAt(0)->GetFrequencyArr()->GetSize(), 0);
    const auto rails = Rails("(PRAIL (FREQUECNY 1))");
    ASSERT_EQ(rails->GetAt(0)->GetFrequencyArr()->GetSize(), 1);
    EXPECT_EQ(rails->GetAt(0)->GetFrequencyArr()->GetAt(0)->GetMinTarget(), 1);
    EXPECT_EQ(rails->GetAt(0)->GetFrequencyArr()->GetAt(0)->GetMaxTarget(), 0);
    EXPECT_EQ(rails->GetAt(0)->GetFrequencyArr()->GetAt(0)->GetImpedance(), 0);
}

TEST(POWERRAILSParser, TheTargetWordIsExact) {
    const auto type = [](const char* values) {
        return Rails(std::string("(PRAIL (SIGNALNAME ") + values + "))")
            ->GetAt(0)
            ->GetSignalName()
            ->GetTargetType();
    };
    EXPECT_EQ(type("V RLC"), 1);
    EXPECT_EQ(type("V RL"), 2);
    EXPECT_EQ(type("V rlc"), 0);
    EXPECT_EQ(type("V rl"), 0);
    EXPECT_EQ(type("RLC"), 0);
    EXPECT_EQ(type("V X RLC"), 0);
}

TEST(POWERRAILSParser, TheLastValueOfANumberStands) {
    ExpectRLC(Rails("(PRAIL (RLC (R 1 2)))")->GetAt(0)->GetRLC(), 2, 0, 0);
}

TEST(POWERRAILSParser, ACapacitanceIsReadInOneOfItsTwoPlaces) {
    const auto rails = Rails("(PRAIL (RLC (C 1)) (RL (C 2) (R 3)))");
    ExpectRLC(rails->GetAt(0)->GetRLC(), 0, 0, 1);
    ExpectRLC(rails->GetAt(0)->GetRL(), 3, 0, 0);
}

// Q8
TEST(POWERRAILSParser, ValuesDirectlyOnALumpedTargetAreNotRead) {
    ExpectRLC(Rails("(PRAIL (RLC 1 2 3) (RL 4 5))")->GetAt(0)->GetRLC(), 0, 0, 0);
}

TEST(POWERRAILSParser, BandsAddUpWhileASecondSignalReplacesTheFirst) {
    const auto rails = Rails(R"(
        (PRAIL
            (FREQUECNY) (FREQUECNY) (SIGNALNAME A RLC) (SIGNALNAME B) (PDSMODEL C D) (PDSMODEL E)
            (RLC (R 1) (L 2)) (RLC (R 3))))");
    EXPECT_EQ(rails->GetAt(0)->GetFrequencyArr()->GetSize(), 2);
    EXPECT_EQ(rails->GetAt(0)->GetSignalName()->GetStrSignalName(), "B");
    EXPECT_EQ(rails->GetAt(0)->GetSignalName()->GetTargetType(), 0);
    EXPECT_EQ(rails->GetAt(0)->GetPDSModel()->GetModelName(), "");
    ExpectRLC(rails->GetAt(0)->GetRLC(), 3, 2, 0);
}

TEST(ELECTRICALParser, ASecondLevelOfPinGroupsReplacesTheFirst) {
    const auto electrical = Electrical("(PINGROUPS (PINGROUP A) (PINGROUP B)) (PINGROUPS (PINGROUP C))");
    ASSERT_EQ(electrical->GetPinGroups()->GetSize(), 1);
    EXPECT_EQ(electrical->GetPinGroups()->GetAt(0)->GetGroupName(), "C");
}

TEST(PASSIVEVALUEParser, AnEmptyLevelGivesADefaultRecord) {
    EXPECT_TRUE(test::SameButApart(*Passive(""), CVEKA_PassiveValue()));
}

TEST(PASSIVEVALUEParser, ReadsTheExample) {
    const auto value = Passive(R"(
        (NOMINALVALUE 10K)
        (KIND1 10000)
        (SPICEMODEL MODEL1)
        (CURRENT 0.5)
        (VOLTAGE 50)
        (POWER 0.25)
        (MODELS RLC (RLC (R 10000) (L 0.000001) (C 0.0000000001)) (SPICE model1.lib) (SPARAMETER model1.dat))
        (PINPAIRS (PAIR 1 2) (PAIR 3 4)))");
    EXPECT_EQ(value->GetNominalValue(), "10K");
    EXPECT_EQ(value->GetType()->Name, "KIND1");
    EXPECT_EQ(value->GetType()->Value1, 10000);
    EXPECT_EQ(value->GetType()->Value2, 10000);
    EXPECT_EQ(value->GetSpiceModel(), "MODEL1");
    EXPECT_EQ(value->GetCurrentValue(), 0.5);
    EXPECT_EQ(value->GetVoltageValue(), 50);
    EXPECT_EQ(value->GetPowerValue(), 0.25);
    EXPECT_EQ(value->GetModels()->GetCurrentModelType(), "RLC");
    ExpectRLC(value->GetModels()->GetRLC(), 10000, 0.000001, 0.0000000001);
    EXPECT_EQ(value->GetModels()->GetSpiceFileName(), "model1.lib");
    EXPECT_EQ(value->GetModels()->GetSParameterFileName(), "model1.dat");
    ASSERT_EQ(value->GetPinPairArr()->GetSize(), 2);
    EXPECT_EQ(value->GetPinPairArr()->GetAt(1)->GetPinPairFirst(), "3");
    EXPECT_EQ(value->GetPinPairArr()->GetAt(1)->GetPinPairSecond(), "4");
}

TEST(PASSIVEVALUEParser, TheFirstValueOfARatingStands) {
    EXPECT_EQ(Passive("(CURRENT 2.5 9)")->GetCurrentValue(), 2.5);
}

TEST(PASSIVEVALUEParser, EveryRatingIsItsFirstValue) {
    const auto value = Passive("(CURRENT 1 2) (VOLTAGE 3 4) (POWER 5 6) (NOMINALVALUE a b) (SPICEMODEL c d)");
    EXPECT_EQ(value->GetCurrentValue(), 1);
    EXPECT_EQ(value->GetVoltageValue(), 3);
    EXPECT_EQ(value->GetPowerValue(), 5);
    EXPECT_EQ(value->GetNominalValue(), "a");
    EXPECT_EQ(value->GetSpiceModel(), "c");
}

// Q9
TEST(PASSIVEVALUEParser, AnUnknownNameIsTheTypeAndItsLastValueBothNumbers) {
    const auto value = Passive("(OHMS 1 2)");
    EXPECT_EQ(value->GetType()->Name, "OHMS");
    EXPECT_EQ(value->GetType()->Value1, 2);
    EXPECT_EQ(value->GetType()->Value2, 2);
    const auto later = Passive("(OHMS 1 2) (FARADS)");
    EXPECT_EQ(later->GetType()->Name, "FARADS");
    EXPECT_EQ(later->GetType()->Value1, 2);
}

TEST(PASSIVEVALUEParser, PinPairsAddUp) {
    const auto value = Passive("(PINPAIRS (PAIR 1 2)) (PINPAIRS (X) (PAIR 3 4 5) (PAIR))");
    ASSERT_EQ(value->GetPinPairArr()->GetSize(), 3);
    EXPECT_EQ(value->GetPinPairArr()->GetAt(1)->GetPinPairSecond(), "4");
    EXPECT_EQ(value->GetPinPairArr()->GetAt(2)->GetPinPairFirst(), "");
}

TEST(PASSIVEVALUEParser, KnownWordsInTheWrongPlaceAreTypes) {
    EXPECT_EQ(Passive("(PAIR 1 2)")->GetType()->Name, "PAIR");
    EXPECT_EQ(Passive("(RLC (R 1))")->GetType()->Name, "RLC");
}

// Q8
TEST(PASSIVEVALUEParser, TheModelsValuesStandInChildLevels) {
    ExpectRLC(Passive("(MODELS (RLC (R 1 2)))")->GetModels()->GetRLC(), 2, 0, 0);
    ExpectRLC(Passive("(MODELS (RLC 1 2 3))")->GetModels()->GetRLC(), 0, 0, 0);
}

TEST(ELECTRICALPINSParser, ReadsTheExample) {
    const auto pins = Pins(R"(
        (EPIN
            (NAME 1) (SNAME VCC) (TYPE KIND1) (PUPD SIG1 SIG2) (INVERTER 2) (DEVICEMODELTYPE KIND2)
            (DNAME MODEL1) (DRMODEL DRIVER1 DRIVER2) (PKGPINMODELTYPE KIND3) (PNAME MODEL2) (RCMODEL MODEL3)
            (RLC 0.1 0.2 0.3) (STUP NAME1) (PORT IN1 OUT1)))");
    ASSERT_EQ(pins->GetSize(), 1);
    const CVEKA_ElectricalPin& pin = *pins->GetAt(0);
    EXPECT_EQ(pin.GetName(), "1");
    EXPECT_EQ(pin.GetSignalName(), "VCC");
    EXPECT_EQ(pin.GetType(), "KIND1");
    EXPECT_EQ(pin.GetSignalPU(), "SIG1");
    EXPECT_EQ(pin.GetSignalPD(), "SIG2");
    EXPECT_EQ(pin.GetInverterPinName(), "2");
    EXPECT_EQ(pin.GetDeviceModelType(), "KIND2");
    EXPECT_EQ(pin.GetDName(), "MODEL1");
    EXPECT_THAT(test::Strings(pin, &CVEKA_ElectricalPin::GetDriverModelName),
                ElementsAre("DRIVER1", "DRIVER2"));
    EXPECT_EQ(pin.GetReceiverModelName(), "") << "filled by no keyword";
    EXPECT_EQ(pin.GetPKGPinModelType(), "KIND3");
    EXPECT_EQ(pin.GetPName(), "MODEL2");
    EXPECT_EQ(pin.GetRCModelName(), "MODEL3");
    ExpectRLC(pin.GetRLC(), 0.1, 0.2, 0.3);
    EXPECT_EQ(pin.GetSTUPName(), "NAME1");
    EXPECT_EQ(pin.GetINPort(), "IN1");
    EXPECT_EQ(pin.GetOUTPort(), "OUT1");
}

TEST(ELECTRICALPINSParser, LevelsMayBeEmpty) {
    EXPECT_EQ(Pins("")->GetSize(), 0);
    const auto pins = Pins("(EPIN)");
    ASSERT_EQ(pins->GetSize(), 1);
    EXPECT_TRUE(test::SameButApart(*pins->GetAt(0), CVEKA_ElectricalPin()));
}

TEST(ELECTRICALPINSParser, NamesKeepTheirLastValueAndPairsTheirFirstTwo) {
    const auto pins = Pins("(EPIN (NAME a b) (PUPD c d e) (PUPD f) (PORT g h i))");
    EXPECT_EQ(pins->GetAt(0)->GetName(), "b");
    EXPECT_EQ(pins->GetAt(0)->GetSignalPU(), "f");
    EXPECT_EQ(pins->GetAt(0)->GetSignalPD(), "d");
    EXPECT_EQ(pins->GetAt(0)->GetOUTPort(), "h");
}

// Q8
TEST(ELECTRICALPINSParser, TheLumpedValuesArePositionalAndReplacedAsAWhole) {
    ExpectRLC(Pins("(EPIN (RLC 5))")->GetAt(0)->GetRLC(), 5, 0, 0);
    ExpectRLC(Pins("(EPIN (RLC 1 2 3) (RLC 4))")->GetAt(0)->GetRLC(), 4, 0, 0);
    ExpectRLC(Pins("(EPIN (RLC (R 1)))")->GetAt(0)->GetRLC(), 0, 0, 0);
}

TEST(ELECTRICALPINSParser, DriversAreReplaced) {
    EXPECT_THAT(test::Strings(*Pins("(EPIN (DRMODEL a b) (DRMODEL c))")->GetAt(0),
                              &CVEKA_ElectricalPin::GetDriverModelName),
                ElementsAre("c"));
    EXPECT_THAT(test::Strings(*Pins("(EPIN (DRMODEL a b) (DRMODEL))")->GetAt(0),
                              &CVEKA_ElectricalPin::GetDriverModelName),
                ElementsAre());
}

// Q10
TEST(ELECTRICALPINSParser, CommentsOfAPinAreDropped) {
    EXPECT_EQ(Pins("(EPIN (COMMENT (1 a b)))")->GetAt(0)->GetCommentArr()->GetSize(), 0);
}

TEST(ELECTRICALPINSParser, AKeywordOfAPinOutsideOfOneIsSkipped) {
    EXPECT_EQ(Pins("(NAME a) (COMMENT (1 a b))")->GetSize(), 0);
}

TEST(CVEKA_ElectricalPin, GivesItsDriversAsCopies) {
    CVEKA_ElectricalPin pin;
    CStringArray list;
    list.Add("a");
    pin.SetDriverModelName(list);
    pin.GetDriverModelName(list);
    list[0] = "changed";
    EXPECT_THAT(test::Strings(pin, &CVEKA_ElectricalPin::GetDriverModelName), ElementsAre("a"));
}

TEST(ELECTRICALParser, GivesThePinsRailsAndGroupsOfEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    size_t count = 0;
    for (const test::RealModel& part : test::RealModels()) {
        const auto& path = part.file.path;
        const auto& roots = part.file.read.roots;
        const CVEKA_Electrical& electrical = *part.Model().GetVEK()->GetElectrical();
        std::vector<std::string> pins, rails, groups;
        for (const auto* pin : *electrical.GetElectricalPins()) pins.emplace_back(pin->GetName().View());
        for (const auto* rail : *electrical.GetPowerRails())
            rails.emplace_back(rail->GetSignalName()->GetStrSignalName().View());
        for (const auto* group : *electrical.GetPinGroups())
            groups.emplace_back(group->GetGroupName().View());
        EXPECT_EQ(pins, test::Values(roots, {"VEK", "ELECTRICAL", "ELECTRICALPINS", "EPIN", "NAME"}, -1))
            << path;
        EXPECT_EQ(rails, test::Values(roots, {"VEK", "ELECTRICAL", "POWERRAILS", "PRAIL", "SIGNALNAME"}, 0))
            << path;
        EXPECT_EQ(groups, test::Values(roots, {"VEK", "ELECTRICAL", "PINGROUPS", "PINGROUP"}, 0)) << path;
        count += pins.size() + rails.size() + groups.size();
    }
    EXPECT_GT(count, 2000u);
}

}  // namespace
