#include <gtest/gtest.h>

#include "model/package/CVEKA_MountData.h"
#include "support/Parsing.h"

namespace {

std::unique_ptr<CVEKA_MountData> Mount(const std::string& children) {
    return test::Parse(&CVEK_AsciiParser::PACKAGES_PACKAGE_MOUNTDATAParser, "(MOUNTDATA " + children + ")");
}

const CVEKA_Packing& Packing(const std::unique_ptr<CVEKA_MountData>& data) {
    return *data->GetPacking();
}

TEST(MOUNTDATAParser, ReadsTheExample) {
    const auto data = Mount(R"(
        (MOUNTFILENAME so8.mnt)
        (MOUNTCHECKTYPE TRUE (MOUNTCHECKTYPE 2))
        (MOUNTPINS (MOUNTPIN 1 A1 0 FALSE GULLWING) (MOUNTPIN 2 A2 1 TRUE GULLWING))
        (BODYSIZE (MOLD 5 4 (CHILD)) (OVERALL 6 4 (CHILD)) (CHECK TRUE))
        (BODYHEIGHT 1.75))");
    EXPECT_EQ(data->GetMountFileName(), "so8.mnt");
    EXPECT_EQ(data->GetMountCheckType()->GetType(), 2);
    EXPECT_EQ(data->GetMountCheckType()->GetAllowReverse(), 1);
    ASSERT_EQ(data->GetMountPins()->GetSize(), 2);
    const CVEKA_MountPin& pin = *data->GetMountPins()->GetAt(1);
    EXPECT_EQ(pin.GetNo(), 2);
    EXPECT_EQ(pin.GetPinName(), "A2");
    EXPECT_EQ(pin.GetDirection(), 1);
    EXPECT_EQ(pin.GetSkip(), 1);
    EXPECT_EQ(pin.GetLeadType(), "GULLWING");
    EXPECT_EQ(data->GetBodySize()->GetMold()->GetX(), 5);
    EXPECT_EQ(data->GetBodySize()->GetMold()->GetY(), 4);
    EXPECT_EQ(data->GetBodySize()->GetOverAll()->GetX(), 6);
    EXPECT_EQ(data->GetBodySize()->GetOverAll()->GetY(), 4);
    EXPECT_EQ(data->GetBodySize()->GetChecking(), 1);
    EXPECT_EQ(data->GetBodyHeight()->GetHeight(), 1.75);
    EXPECT_EQ(data->GetBodyHeight()->GetChecking(), 0);
}

// Q16
TEST(MOUNTDATAParser, TheCheckOfAHeightIsTheByteOfCodeOneAlone) {
    for (const char* value : {"1", "TRUE", "\"\"", "\x02", "\"\x01\x01\""}) {
        const auto data = Mount(std::string("(BODYHEIGHT 2.5 ") + value + ")");
        EXPECT_EQ(data->GetBodyHeight()->GetHeight(), 2.5);
        EXPECT_EQ(data->GetBodyHeight()->GetChecking(), 0) << value;
    }
    EXPECT_EQ(Mount("(BODYHEIGHT 2.5 \x01)")->GetBodyHeight()->GetChecking(), 1);
    EXPECT_EQ(Mount("(BODYHEIGHT 2.5 \x01) (BODYHEIGHT 3)")->GetBodyHeight()->GetChecking(), 1);
}

// Q15
TEST(MOUNTDATAParser, AMoldNeedsAChildForItsNumbers) {
    const auto without = Mount("(BODYSIZE (MOLD 3 4))");
    EXPECT_EQ(without->GetBodySize()->GetMold()->GetX(), 0);
    EXPECT_EQ(without->GetBodySize()->GetMold()->GetY(), 0);
    const auto with = Mount("(BODYSIZE (MOLD 3 4 ()))");
    EXPECT_EQ(with->GetBodySize()->GetMold()->GetX(), 3);
    EXPECT_EQ(with->GetBodySize()->GetMold()->GetY(), 4);
}

TEST(MOUNTDATAParser, AThirdValueOfAMoldIsIgnored) {
    const auto data = Mount("(BODYSIZE (MOLD 3 4 5 (X)) (OTHER 6 7 (X)))");
    EXPECT_EQ(data->GetBodySize()->GetMold()->GetY(), 4);
    EXPECT_EQ(data->GetBodySize()->GetMold()->GetZ(), 0);
    EXPECT_EQ(data->GetBodySize()->GetOverAll()->GetX(), 0);
}

TEST(MOUNTDATAParser, AFlatBodySizeStoresNothing) {
    const auto data = Mount("(BODYSIZE TRUE (MOLD 3 4) (OVERALL 5 6))");
    EXPECT_EQ(data->GetBodySize()->GetMold()->GetX(), 0);
    EXPECT_EQ(data->GetBodySize()->GetOverAll()->GetX(), 0);
    EXPECT_EQ(data->GetBodySize()->GetChecking(), 0);
}

// Q15
TEST(MOUNTDATAParser, TheLastChildWithValuesDecidesTheCheckOfASize) {
    EXPECT_EQ(Mount("(BODYSIZE (MOLD 3 4 (X)) (ANY TRUE))")->GetBodySize()->GetChecking(), 1);
    EXPECT_EQ(Mount("(BODYSIZE (ANY TRUE) (MOLD 3 4 (X)))")->GetBodySize()->GetChecking(), 0);
    EXPECT_EQ(Mount("(BODYSIZE (ANY TRUE) (MOLD (X)))")->GetBodySize()->GetChecking(), 1);
}

TEST(MOUNTDATAParser, APinWithOneValueHasItsNumberAlone) {
    const auto data = Mount("(MOUNTPINS (MOUNTPIN 7) (OTHER 8) (MOUNTPIN))");
    ASSERT_EQ(data->GetMountPins()->GetSize(), 2);
    EXPECT_EQ(data->GetMountPins()->GetAt(0)->GetNo(), 7);
    EXPECT_EQ(data->GetMountPins()->GetAt(0)->GetPinName(), "");
    EXPECT_EQ(data->GetMountPins()->GetAt(1)->GetNo(), 0);
}

TEST(MOUNTDATAParser, PinsOfSeveralLevelsAddUp) {
    EXPECT_EQ(Mount("(MOUNTPINS (MOUNTPIN 1)) (MOUNTPINS (MOUNTPIN 2))")->GetMountPins()->GetSize(), 2);
}

// Q14
TEST(MOUNTDATAParser, ACheckTypeInsideGivesTheTypeByItsLastValue) {
    EXPECT_EQ(Mount("(MOUNTCHECKTYPE (MOUNTCHECKTYPE 1 2) (OTHER 3))")->GetMountCheckType()->GetType(), 2);
}

TEST(MOUNTDATAParser, AFlatCheckTypeWithANumberGivesNoType) {
    const auto data = Mount("(MOUNTCHECKTYPE TRUE (MOUNTCHECKTYPE 5)) (MOUNTCHECKTYPE 2)");
    EXPECT_EQ(data->GetMountCheckType()->GetType(), 5);
    EXPECT_EQ(data->GetMountCheckType()->GetAllowReverse(), 0);
}

TEST(PACKING, ReadsTheExample) {
    const auto data = Mount(R"(
        (PACKING
            (DOCUMENT pack.pdf 12) (PACKINGTYPE 0) (REELTYPE 1 90)
            (REELPACKINGINFO
                (TAPETYPE EMBOSSED) (NOOFPARTS 2500) (P 8) (A 6.4) (B 5.2) (W 12) (T1 0.3) (T2 2.1))
            (TRAYTYPE 3 45)
            (TRAYPACKINGINFO
                (NOOFPARTX 10) (NOOFPARTY 5) (A 1) (B 2) (C 3) (D 4) (E 5) (E1 6) (F 7) (G 8) (GAP 0.5))))");
    const CVEKA_Packing& packing = Packing(data);
    EXPECT_EQ(packing.GetPDFFileName(), "pack.pdf");
    EXPECT_EQ(packing.GetPageNumber(), 12);
    EXPECT_EQ(packing.GetPackingType(), 0);
    EXPECT_EQ(packing.GetReel()->GetType(), 1);
    EXPECT_EQ(packing.GetReel()->GetAngle(), 90);
    const CVEKA_Packing_ReelInfo& reel = *packing.GetReel()->GetReelInfo();
    EXPECT_EQ(reel.GetTapeType(), "EMBOSSED");
    EXPECT_EQ(reel.GetNoofPartsCount(), 2500);
    EXPECT_EQ(reel.GetP(), 8);
    EXPECT_EQ(reel.GetA(), 6.4);
    EXPECT_EQ(reel.GetB(), 5.2);
    EXPECT_EQ(reel.GetW(), 12);
    EXPECT_EQ(reel.GetT1(), 0.3) << "the fresh record still has it";
    EXPECT_EQ(reel.GetT2(), 2.1);
    EXPECT_EQ(packing.GetTray()->GetType(), 3);
    EXPECT_EQ(packing.GetTray()->GetAngle(), 45);
    const CVEKA_Packing_TrayInfo& tray = *packing.GetTray()->GetTrayInfo();
    EXPECT_EQ(tray.GetNoofPartXCount(), 10);
    EXPECT_EQ(tray.GetNoofPartYCount(), 5);
    double expected = 0;
    for (double value : {tray.GetA(), tray.GetB(), tray.GetC(), tray.GetD(), tray.GetE(), tray.GetE1(),
                         tray.GetF(), tray.GetG()})
        EXPECT_EQ(value, ++expected);
    EXPECT_EQ(tray.GetGap(), 0.5);
}

TEST(PACKING, WithoutATypeItIsMinusOne) {
    EXPECT_EQ(Packing(Mount("(PACKING (DOCUMENT a))")).GetPackingType(), -1);
    EXPECT_EQ(Packing(Mount("")).GetPackingType(), -1);
}

TEST(PACKING, ADocumentMayLackItsPageAndHaveTooMuch) {
    const auto one = Mount("(PACKING (DOCUMENT a))"), three = Mount("(PACKING (DOCUMENT a 2 3))");
    EXPECT_EQ(Packing(one).GetPageNumber(), 0);
    EXPECT_EQ(Packing(three).GetPDFFileName(), "a");
    EXPECT_EQ(Packing(three).GetPageNumber(), 2);
}

TEST(PACKING, TheLastCountOfPartsStands) {
    const auto data = Mount("(PACKING (REELPACKINGINFO (NOOFPARTS 100 200)))");
    EXPECT_EQ(Packing(data).GetReel()->GetReelInfo()->GetNoofPartsCount(), 200);
}

TEST(PACKING, TraysOverlay) {
    const auto data = Mount("(PACKING (TRAYPACKINGINFO (A 1) (B 2)) (TRAYPACKINGINFO (B 3)))");
    EXPECT_EQ(Packing(data).GetTray()->GetTrayInfo()->GetA(), 1);
    EXPECT_EQ(Packing(data).GetTray()->GetTrayInfo()->GetB(), 3);
}

TEST(PACKING, E1IsNotE) {
    const auto data = Mount("(PACKING (TRAYPACKINGINFO (E1 1)))");
    EXPECT_EQ(Packing(data).GetTray()->GetTrayInfo()->GetE(), 0);
    EXPECT_EQ(Packing(data).GetTray()->GetTrayInfo()->GetE1(), 1);
}

}  // namespace
