// Mount data: packing, mount check, mounted pins, size and height of the body.

#include "model/package/CVEKA_MountData.h"
#include "parser/Rows.h"

using namespace veka;

namespace {

/// Q16: a flag that the one byte of code 1 sets. The digit 1 and the word "TRUE" do not set the flag.
struct ByteOne {
    int& field;
    explicit ByteOne(int& number) : field(number) {}
};
void Convert(const CString& value, ByteOne flag) {
    flag.field = value == "\x01";
}
Loss LossOf(const CString& value, const ByteOne&) noexcept {
    return value == "\x01" || value == "FALSE" || value == "0" || value.IsEmpty() ? Loss::None : Loss::NotByteOne;
}

}  // namespace

inline auto CVEK_AsciiParser::PackingRows(CVEKA_Packing& packing) {
    CVEKA_Packing_ReelInfo& reel = *packing.Reel->ReelInfo;
    CVEKA_Packing_TrayInfo& tray = *packing.Tray->TrayInfo;
    return Rows(
        Row("DOCUMENT", ByPosition(packing.PDFFileName, packing.PageNumber)),
        Row("PACKINGTYPE", Last(packing.PackingType)),
        Row("REELTYPE", ByPosition(packing.Reel->Type, packing.Reel->Angle)),
        Row("REELPACKINGINFO", Within(
            Row("TAPETYPE", Last(reel.TapeType)),
            Row("NOOFPARTS", Last(reel.NoofPartsCount)),
            Row("P", Last(reel.P)),
            Row("A", Last(reel.A)),
            Row("B", Last(reel.B)),
            Row("W", Last(reel.W)),
            Row("T1", Last(reel.T1)),
            Row("T2", Last(reel.T2)))),
        Row("TRAYTYPE", ByPosition(packing.Tray->Type, packing.Tray->Angle)),
        Row("TRAYPACKINGINFO", Within(
            Row("NOOFPARTX", Last(tray.NoofPartXCount)),
            Row("NOOFPARTY", Last(tray.NoofPartYCount)),
            Row("A", Last(tray.A)),
            Row("B", Last(tray.B)),
            Row("C", Last(tray.C)),
            Row("D", Last(tray.D)),
            Row("E", Last(tray.E)),
            Row("E1", Last(tray.E1)),
            Row("F", Last(tray.F)),
            Row("G", Last(tray.G)),
            Row("GAP", Last(tray.Gap)))));
}

CVEKA_MountData* CVEK_AsciiParser::PACKAGES_PACKAGE_MOUNTDATAParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_MountData& data) { return Rows(
        Row("MOUNTFILENAME", Last(data.MountFileName)),
        Row("PACKING", Within(PackingRows(*data.Packing))),
        // Q14: the inner level of the same name gives the type, the outer level's own value the flag.
        Row("MOUNTCHECKTYPE", Within(
            Own(Last(Flag(data.MountCheckType->AllowReverse))),
            Row("MOUNTCHECKTYPE", Last(data.MountCheckType->Type)))),
        Row("MOUNTPINS", Within(
            Row("MOUNTPIN", Element(*data.MountPins, [](CVEKA_MountPin& pin) { return Rows(
                Own(ByPosition(pin.No, pin.PinName, pin.Direction, Flag(pin.Skip), pin.LeadType)));
            })))),
        Row("BODYSIZE", Within(
            // Q15: the last child that has values sets the flag. The sizes are read only where their level has a child.
            Every(Last(Flag(data.BodySize->Checking))),
            Row("MOLD", IfItHasChildren(ByPosition(data.BodySize->Mold->X, data.BodySize->Mold->Y))),
            Row("OVERALL", IfItHasChildren(ByPosition(data.BodySize->OverAll->X, data.BodySize->OverAll->Y))))),
        Row("BODYHEIGHT", ByPosition(data.BodyHeight->Height, ByteOne(data.BodyHeight->Checking))));
    });
}
