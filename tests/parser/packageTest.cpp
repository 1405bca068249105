#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "parser/CInvalidAccessException.h"
#include "support/Parsing.h"
#include "support/RealModels.h"
#include "support/Records.h"

namespace {

using test::Parse;

std::unique_ptr<CVEKA_Packages> Packages(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGESParser, "(PACKAGES " + children + ")");
}
std::unique_ptr<CVEKA_Thermal> Thermal(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_THERMALParser, "(THERMAL " + children + ")");
}
std::unique_ptr<CVEKA_ThermalModel> Model(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_THERMAL_MODELParser, "(MODEL " + children + ")");
}
std::unique_ptr<CVEKA_Package> Package(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_PACKAGEParser, "(PACKAGE " + children + ")");
}
std::unique_ptr<CVEKA_PackagePinArray> Pins(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_PKGPINSParser, "(PKGPINS " + children + ")");
}
std::unique_ptr<CVEKA_MechanicalPinArray> MechanicalPins(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_MECHANICALPINSParser,
                 "(MECHANICALPINS " + children + ")");
}
std::unique_ptr<CVEKA_FootprintArray> Footprints(const std::string& children) {
    return Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_FOOTPRINTSParser, "(FOOTPRINTS " + children + ")");
}

TEST(PACKAGESParser, AnEmptyLevelGivesADefaultRecord) {
    EXPECT_TRUE(test::SameButApart(*Packages(""), CVEKA_Packages()));
}

TEST(PACKAGESParser, ReadsTheExample) {
    const auto packages = Packages(R"(
        (DEFAULTPACKAGE SO8)
        (BODYMATERIAL EPOXY)
        (WEIGHT 0.07)
        (DEFAULTPARTHEIGHT 1.5)
        (DEFAULTMOUNTHEIGHT 0.1)
        (THERMAL
            (MAXPOWER 0.5) (OPERATINGTEMPERATURE -40 125) (RADIATIONEMISSIVITY 0.9)
            (MODEL (SIMPLE 35 60) (DELPHI (NODES J C 12.5) (NODES J B 30))))
        (COLOR (BODY 40 41 42) (LEAD 200 201 202) (FLAGPIN 255 254 253) (MECHANICALPIN 128 129 130))
        (FOOTPRINTSPEC (TOE 0.1 0.3) (HEEL 0.2 0.4) (SIDE 0 0.1) (MOUNTHEIGHT 0.05 0.2))
        (PACKAGE (NAME SO8)))");
    EXPECT_EQ(packages->GetDefaultPackageName(), "SO8");
    EXPECT_EQ(packages->GetBodyMaterialName(), "EPOXY");
    EXPECT_EQ(packages->GetWeight(), 0.07);
    EXPECT_EQ(packages->GetDefaultPartHeight(), 1.5);
    EXPECT_EQ(packages->GetDefaultMountHeight(), 0.1);
    const CVEKA_Thermal& thermal = *packages->GetThermal();
    EXPECT_EQ(thermal.GetMaxPower(), 0.5);
    EXPECT_EQ(thermal.GetOperatingTemperature()->FirstValue, -40);
    EXPECT_EQ(thermal.GetOperatingTemperature()->SecondValue, 125);
    EXPECT_EQ(thermal.GetRadiationEmissivity(), 0.9);
    EXPECT_EQ(thermal.GetModel()->GetSimple()->GetJC(), 35);
    EXPECT_EQ(thermal.GetModel()->GetSimple()->GetJB(), 60);
    const CVEKA_NodeArray& nodes = *thermal.GetModel()->GetDelphi()->GetNodes();
    ASSERT_EQ(nodes.GetSize(), 2);
    EXPECT_EQ(nodes[0]->GetFirstNodeName(), "J");
    EXPECT_EQ(nodes[0]->GetSecondNodeName(), "C");
    EXPECT_EQ(nodes[1]->GetThermalResistance(), 30);
    EXPECT_EQ(packages->GetColor()->GetBodyColor()->GetRed(), 40);
    EXPECT_EQ(packages->GetColor()->GetLeadColor()->GetGreen(), 201);
    EXPECT_EQ(packages->GetColor()->GetFlagPinColor()->GetBlue(), 253);
    EXPECT_EQ(packages->GetColor()->GetMechanicalPinColor()->GetRed(), 128);
    EXPECT_EQ(packages->GetFootprintSpec()->GetToe()->GetMin(), 0.1);
    EXPECT_EQ(packages->GetFootprintSpec()->GetHeel()->GetMax(), 0.4);
    EXPECT_EQ(packages->GetFootprintSpec()->GetSide()->GetMax(), 0.1);
    EXPECT_EQ(packages->GetFootprintSpec()->GetMountHeight()->GetMin(), 0.05);
    ASSERT_EQ(packages->GetPackageArr()->GetSize(), 1);
    EXPECT_EQ(packages->GetPackageArr()->GetAt(0)->GetName(), "SO8");
}

TEST(PACKAGESParser, LastValuesStand) {
    const auto packages = Packages("(WEIGHT 1 2) (DEFAULTPACKAGE A B) (weight 3)");
    EXPECT_EQ(packages->GetWeight(), 2);
    EXPECT_EQ(packages->GetDefaultPackageName(), "B");
}

TEST(PACKAGESParser, ASecondThermalLevelReplacesTheFirst) {
    const auto packages = Packages("(THERMAL (MAXPOWER 1)) (THERMAL (RADIATIONEMISSIVITY 2))");
    EXPECT_EQ(packages->GetThermal()->GetMaxPower(), 0);
    EXPECT_EQ(packages->GetThermal()->GetRadiationEmissivity(), 2);
}

TEST(PACKAGESParser, PackagesAddUpWhereverTheyStand) {
    EXPECT_EQ(Packages("(PACKAGE) (WEIGHT 1) (PACKAGE) (PACKAGE)")->GetPackageArr()->GetSize(), 3);
}

// Q6, Q11
TEST(THERMALParser, TheTwoTemperaturesAreCrossed) {
    const auto both = Thermal("(OPERATINGTEMPERATURE 10 20)");
    std::string order;
    veka::ForEachField(*both->GetOperatingTemperature(), [&](const auto& field, double value) {
        order += field.name + std::string(" ") + std::to_string(static_cast<int>(value)) + " ";
    });
    EXPECT_EQ(order, "SecondValue 20 FirstValue 10 ");
    const auto one = Thermal("(OPERATINGTEMPERATURE 10)");
    EXPECT_EQ(one->GetOperatingTemperature()->FirstValue, 10);
    EXPECT_EQ(one->GetOperatingTemperature()->SecondValue, 0);
    const auto twice = Thermal("(OPERATINGTEMPERATURE 10 20) (OPERATINGTEMPERATURE 30)");
    EXPECT_EQ(twice->GetOperatingTemperature()->FirstValue, 30);
    EXPECT_EQ(twice->GetOperatingTemperature()->SecondValue, 20);
}

TEST(THERMALParser, ASecondModelReplacesTheFirst) {
    const auto thermal =
        Thermal("(MODEL (DELPHI (NODES A)) (SIMPLE 1)) (MODEL (DELPHI (NODES B) (NODES C)))");
    EXPECT_EQ(thermal->GetModel()->GetDelphi()->GetNodes()->GetSize(), 2);
    EXPECT_EQ(thermal->GetModel()->GetSimple()->GetJC(), 0);
}

TEST(MODELParser, NodesOfSeveralLevelsAddUp) {
    const auto model = Model("(DELPHI (NODES A)) (SIMPLE 1 2) (DELPHI (NODES B) (OTHER C)) (SIMPLE 3)");
    const CVEKA_NodeArray& nodes = *model->GetDelphi()->GetNodes();
    ASSERT_EQ(nodes.GetSize(), 2);
    EXPECT_EQ(nodes[0]->GetFirstNodeName(), "A");
    EXPECT_EQ(nodes[1]->GetFirstNodeName(), "B");
    EXPECT_EQ(model->GetSimple()->GetJC(), 3) << "and both models are kept";
    EXPECT_EQ(model->GetSimple()->GetJB(), 2);
}

TEST(MODELParser, ANodeMayBeEmpty) {
    const auto model = Model("(DELPHI (NODES))");
    ASSERT_EQ(model->GetDelphi()->GetNodes()->GetSize(), 1);
    EXPECT_EQ(model->GetDelphi()->GetNodes()->GetAt(0)->GetThermalResistance(), 0);
}

TEST(COLORParser, ColoursMayLackAPartAndHaveNoRange) {
    const auto colors = Parse(&CVEK_AsciiParser::PACKAGES_COLORParser,
                              "(COLOR (BODY 300 -1) (LEAD 1 2 3) (LEAD 4) (body 9))");
    EXPECT_EQ(colors->GetBodyColor()->GetRed(), 300);
    EXPECT_EQ(colors->GetBodyColor()->GetGreen(), -1);
    EXPECT_EQ(colors->GetBodyColor()->GetBlue(), 0);
    EXPECT_EQ(colors->GetLeadColor()->GetRed(), 4);
    EXPECT_EQ(colors->GetLeadColor()->GetBlue(), 3) << "read in place";
}

TEST(PACKAGEParser, AnEmptyLevelGivesADefaultRecord) {
    EXPECT_TRUE(test::SameButApart(*Package(""), CVEKA_Package()));
}

TEST(PACKAGEParser, ReadsTheExample) {
    const auto package = Package(R"(
        (NAME SO8)
        (DEFAULTFOOTPRINT SO8W)
        (STEP so8.stp)
        (USGKEYS (USGKEYS (USGTYPE LIB) (USGVALUE X Y)))
        (MOUNTDATA (MOUNTFILENAME so8.mnt))
        (BODYGEOMETRY (STEP body.stp) (BODYSHAPE (CUBOID) (CYLINDER)))
        (MARKINGGEOMETRIES (VISIBLE TRUE) (TEXT))
        (PKGPINS)
        (MECHANICALPINS)
        (FOOTPRINTS))");
    EXPECT_EQ(package->GetName(), "SO8");
    EXPECT_EQ(package->GetDefaultFootprintName(), "SO8W");
    EXPECT_EQ(package->GetStepFileName(), "so8.stp");
    ASSERT_EQ(package->GetUSGKeys()->GetSize(), 1);
    EXPECT_EQ(package->GetUSGKeys()->GetAt(0)->GetType(), "LIB");
    EXPECT_EQ(package->GetMountData()->GetMountFileName(), "so8.mnt");
    EXPECT_EQ(package->GetBodyGeometry()->GetStepFileName(), "body.stp");
    EXPECT_EQ(package->GetBodyGeometry()->Get3DObjects()->GetSize(), 2);
    EXPECT_EQ(package->GetMarkingGeometries()->GetVisible(), 1);
    EXPECT_EQ(package->GetMarkingGeometries()->Get3DObjects()->GetSize(), 1);
}

TEST(PACKAGEParser, ASecondSectionReplacesTheFirst) {
    const auto package = Package(R"(
        (PKGPINS (PKGPIN 1) (PKGPIN 2))
        (PKGPINS (PKGPIN 3))
        (BODYGEOMETRY (STEP a) (BODYSHAPE (CUBOID)))
        (BODYGEOMETRY (BODYSHAPE (SPHERE)) (BODYSHAPE (SPHERE) (NOSUCH))))");
    ASSERT_EQ(package->GetPKGPins()->GetSize(), 1);
    EXPECT_EQ(package->GetPKGPins()->GetAt(0)->GetPKGPinName(), "3");
    EXPECT_EQ(package->GetBodyGeometry()->GetStepFileName(), "");
    EXPECT_EQ(package->GetBodyGeometry()->Get3DObjects()->GetSize(), 2)
        << "the shapes of both levels, no null";
}

// Q14
TEST(PACKAGEParser, KeysStandOneLevelDeeper) {
    EXPECT_EQ(Package("(USGKEYS (USGTYPE A) (USGVALUE B))")->GetUSGKeys()->GetSize(), 0);
    EXPECT_EQ(Package("(USGKEYS (USGKEYS) (USGKEYS)) (USGKEYS (USGKEYS))")->GetUSGKeys()->GetSize(), 1);
}

TEST(PACKAGEParser, AFileNameAndAnObjectShareAWord) {
    const auto body = Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_BODYGEOMETRYParser,
                            "(BODYGEOMETRY (STEP a b) (BODYSHAPE (STEP (PATH c))))");
    EXPECT_EQ(body->GetStepFileName(), "b");
    ASSERT_EQ(body->Get3DObjects()->GetSize(), 1);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_STEP&>(*body->Get3DObjects()->GetAt(0)).PATH, "c");
}

TEST(MARKINGGEOMETRIESParser, OnlyTheLastExactWordMakesItVisible) {
    const auto visible = [](const char* values) {
        return Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_MARKINGGEOMETRIESParser,
                     std::string("(M (VISIBLE ") + values + "))")
            ->GetVisible();
    };
    EXPECT_EQ(visible("TRUE"), 1);
    EXPECT_EQ(visible("true"), 0);
    EXPECT_EQ(visible("1"), 0);
    EXPECT_EQ(visible("TRUE FALSE"), 0);
    EXPECT_EQ(visible("FALSE TRUE"), 1);
}

// Q18
TEST(MARKINGGEOMETRIESParser, AnUnknownObjectIsNullUntilItReachesThePackage) {
    const auto fresh =
        Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_MARKINGGEOMETRIESParser, "(M (TEXT) (NOSUCH) (LINE))");
    ASSERT_EQ(fresh->Get3DObjects()->GetSize(), 3);
    EXPECT_EQ(fresh->Get3DObjects()->GetAt(1), nullptr);
    EXPECT_EQ(Package("(MARKINGGEOMETRIES (TEXT) (NOSUCH) (LINE))")
                  ->GetMarkingGeometries()
                  ->Get3DObjects()
                  ->GetSize(),
              2);
}

// Q17
TEST(PACKAGESParser, EveryMountPinOfAFinishedModelIsBlank) {
    const auto packages =
        Packages("(PACKAGE (MOUNTDATA (MOUNTPINS (MOUNTPIN 1 A 2 TRUE B) (MOUNTPIN 2) (MOUNTPIN 3))))");
    const CVEKA_MountPinArray& pins = *packages->GetPackageArr()->GetAt(0)->GetMountData()->GetMountPins();
    ASSERT_EQ(pins.GetSize(), 3);
    for (const CVEKA_MountPin* pin : pins) {
        EXPECT_EQ(pin->GetNo(), 0);
        EXPECT_EQ(pin->GetPinName(), "");
        EXPECT_EQ(pin->GetDirection(), 0);
        EXPECT_EQ(pin->GetSkip(), 0);
        EXPECT_EQ(pin->GetLeadType(), "");
    }
}

// Q17
TEST(PACKAGESParser, BothTapeThicknessesOfAFinishedModelAreTheSecond) {
    const auto info = [](const char* children) {
        const auto packages =
            Packages(std::string("(PACKAGE (MOUNTDATA (PACKING (REELPACKINGINFO ") + children + "))))");
        return CVEKA_Packing_ReelInfo(
            *packages->GetPackageArr()->GetAt(0)->GetMountData()->GetPacking()->GetReel()->GetReelInfo());
    };
    EXPECT_EQ(info("(T1 1.5) (T2 2.5)").GetT1(), 2.5);
    EXPECT_EQ(info("(T1 1.5) (T2 2.5)").GetT2(), 2.5);
    EXPECT_EQ(info("(T1 1.5)").GetT1(), 0);
}

TEST(PKGPINSParser, ReadsTheExample) {
    const auto pins = Pins("(PKGPIN 1 (PT -2.5 1.9 0) (ROTATION 90) (LEAD (GULLWING))) (OTHER)");
    ASSERT_EQ(pins->GetSize(), 1);
    const CVEKA_PackagePin& pin = *pins->GetAt(0);
    EXPECT_EQ(pin.GetPKGPinName(), "1");
    EXPECT_EQ(pin.GetPoint()->GetX(), -2.5);
    EXPECT_EQ(pin.GetPoint()->GetY(), 1.9);
    EXPECT_EQ(pin.GetRotation(), 90);
    EXPECT_EQ(pin.GetStepFileName(), "");
    EXPECT_EQ(pin.Get3DObjects()->GetSize(), 1);
}

// Q12
TEST(PKGPINSParser, AStepLevelGivesThePinItsOwnName) {
    EXPECT_EQ(Pins("(PKGPIN 1 (STEP abc))")->GetAt(0)->GetStepFileName(), "1");
    EXPECT_EQ(Pins("(PKGPIN (STEP abc))")->GetAt(0)->GetStepFileName(), "");
}

TEST(PKGPINSParser, TheLastValueIsTheName) {
    EXPECT_EQ(Pins("(PKGPIN 1 2)")->GetAt(0)->GetPKGPinName(), "2");
}

TEST(PKGPINSParser, ASecondLeadReplacesTheFirst) {
    EXPECT_EQ(Pins("(PKGPIN 1 (LEAD (BALL) (BALL)) (LEAD (WIRE)))")->GetAt(0)->Get3DObjects()->GetSize(), 1);
}

TEST(MECHANICALPINSParser, ReadsTheExample) {
    const auto pins = MechanicalPins(R"(
        (MECHANICALPIN M1 (PT 0 0 0) (ROTATION 15))
        (MECHANICALPIN M2 (PT 1 1 0) (ROTATION 45) (STEP tab.stp)))");
    ASSERT_EQ(pins->GetSize(), 2);
    EXPECT_EQ(pins->GetAt(0)->GetName(), "M1");
    EXPECT_EQ(pins->GetAt(0)->GetRotation(), 0);
    EXPECT_EQ(pins->GetAt(1)->GetPoint()->GetX(), 0);
    EXPECT_EQ(pins->GetAt(1)->GetRotation(), 45);
    EXPECT_EQ(pins->GetAt(1)->GetStepFileName(), "");
}

// Q13
TEST(MECHANICALPINSParser, TheFirstPinReadsItsFirstChildAlone) {
    const auto point = MechanicalPins("(MECHANICALPIN M (PT 1 2 3) (ROTATION 4))");
    EXPECT_EQ(point->GetAt(0)->GetPoint()->GetZ(), 3);
    EXPECT_EQ(point->GetAt(0)->GetRotation(), 0);
    const auto rotation = MechanicalPins("(MECHANICALPIN M (ROTATION 4) (PT 1 2 3))");
    EXPECT_EQ(rotation->GetAt(0)->GetPoint()->GetX(), 0);
    EXPECT_EQ(rotation->GetAt(0)->GetRotation(), 4);
}

// Q13
TEST(MECHANICALPINSParser, TheSecondPinReadsItsSecondChildAlone) {
    const auto pins = MechanicalPins("(MECHANICALPIN) (MECHANICALPIN M (PT 1 2 3) (ROTATION 4))");
    EXPECT_EQ(pins->GetAt(1)->GetPoint()->GetX(), 0);
    EXPECT_EQ(pins->GetAt(1)->GetRotation(), 4);
}

// Q13
TEST(MECHANICALPINSParser, AnAbsentChildEndsTheImport) {
    try {
        MechanicalPins("(MECHANICALPIN) (MECHANICALPIN) (MECHANICALPIN M (PT 1) (ROTATION 4))");
        FAIL();
    } catch (const CInvalidAccessException& error) {
        EXPECT_STREQ(error.what(), "The level \"MECHANICALPIN\" has no child at position 2.");
    }
}

TEST(MECHANICALPINSParser, AnAbsentChildLeavesTheModelAsTheLastFinishedSectionLeftIt) {
    const test::TemporaryDirectory directory;
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(
        directory.Write("f",
                        "(VEK (PARTGENERAL (MPN A)))\n(VEK (PARTGENERAL (MPN B)) (PACKAGES (PACKAGE "
                        "(MECHANICALPINS (X) (MECHANICALPIN M (PT))))))"));
    EXPECT_THROW(parser.Parser(), CInvalidAccessException);
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN(), "A");
}

TEST(MECHANICALPINSParser, APinWithoutChildrenHasItsNameAlone) {
    const auto pins = MechanicalPins("(X) (X) (X) (MECHANICALPIN A B)");
    ASSERT_EQ(pins->GetSize(), 1);
    EXPECT_EQ(pins->GetAt(0)->GetName(), "B");
}

TEST(MECHANICALPINSParser, AChildOfAnotherNameMovesThePosition) {
    const auto pins = MechanicalPins("(X) (MECHANICALPIN M (ROTATION 1) (ROTATION 2))");
    EXPECT_EQ(pins->GetAt(0)->GetRotation(), 2);
}

TEST(MECHANICALPINSParser, AFileNameAndALeadAreReadToo) {
    const auto pins =
        MechanicalPins("(MECHANICALPIN A (STEP b c)) (MECHANICALPIN B () (LEAD (BALL) (NOSUCH)))");
    EXPECT_EQ(pins->GetAt(0)->GetStepFileName(), "c");
    EXPECT_EQ(pins->GetAt(1)->GetLead()->GetSize(), 1);
}

TEST(FOOTPRINTSParser, TheLaterOfItsTwoWordsStands) {
    const auto footprints = Footprints(R"(
        (FOOTPRINT x (LIBFOOTPRINTNAME A) (FOOTPRINTNAME B))
        (OTHER)
        (FOOTPRINT (FOOTPRINTNAME B) (LIBFOOTPRINTNAME A))
        (FOOTPRINT))");
    ASSERT_EQ(footprints->GetSize(), 3);
    EXPECT_EQ(footprints->GetAt(0)->GetLibraryFootprintName(), "B");
    EXPECT_EQ(footprints->GetAt(1)->GetLibraryFootprintName(), "A");
    EXPECT_EQ(footprints->GetAt(2)->GetLibraryFootprintName(), "");
}

TEST(PACKAGESParser, GivesThePackagesPinsAndFootprintsOfEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    size_t pinCount = 0;
    for (const test::RealModel& part : test::RealModels()) {
        const auto& path = part.file.path;
        const auto& roots = part.file.read.roots;
        std::vector<std::string> names, pins, footprints, mechanical;
        for (const CVEKA_Package* package : *part.Model().GetVEK()->GetPackages()->GetPackageArr()) {
            names.emplace_back(package->GetName().View());
            for (const auto* pin : *package->GetPKGPins()) pins.emplace_back(pin->GetPKGPinName().View());
            for (const auto* pin : *package->GetMechanicalPins())
                mechanical.emplace_back(pin->GetName().View());
            for (const auto* footprint : *package->GetFootprints())
                footprints.emplace_back(footprint->GetLibraryFootprintName().View());
        }
        EXPECT_FALSE(names.empty()) << path;
        EXPECT_EQ(names, test::Values(roots, {"VEK", "PACKAGES", "PACKAGE", "NAME"}, -1)) << path;
        EXPECT_EQ(pins, test::Values(roots, {"VEK", "PACKAGES", "PACKAGE", "PKGPINS", "PKGPIN"}, -1)) << path;
        EXPECT_EQ(mechanical,
                  test::Values(roots, {"VEK", "PACKAGES", "PACKAGE", "MECHANICALPINS", "MECHANICALPIN"}, -1))
            << path;
        EXPECT_EQ(footprints.size(),
                  test::Count(roots, {"VEK", "PACKAGES", "PACKAGE", "FOOTPRINTS", "FOOTPRINT"}))
            << path;
        pinCount += pins.size();
    }
    EXPECT_GT(pinCount, 1760u);
}

}  // namespace
