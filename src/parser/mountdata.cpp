// Mount data: packing, mount check, mounted pins, size and height of the body.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_MountData* CVEK_AsciiParser::PACKAGES_PACKAGE_MOUNTDATAParser(CECadClsLvl* level) {
    auto data = std::make_unique<CVEKA_MountData>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "MOUNTFILENAME") Last(child, data->MountFileName);
        else if (keyword == "PACKING") ReadPacking(child, *data->Packing);
        else if (keyword == "MOUNTCHECKTYPE") {
            // The same keyword again inside gives the type; the level's own values give the flag.
            for (CECadClsLvl* type : Children(child))
                if (type->m_strName == "MOUNTCHECKTYPE") Last(type, data->MountCheckType->Type);
            Last(child, Flag{data->MountCheckType->AllowReverse});
        }
        else if (keyword == "MOUNTPINS") {
            for (CECadClsLvl* values : Children(child)) {
                if (values->m_strName != "MOUNTPIN") continue;
                auto pin = std::make_unique<CVEKA_MountPin>();
                ByPosition(values, pin->No, pin->PinName, pin->Direction, Flag{pin->Skip}, pin->LeadType);
                data->MountPins->Add(std::move(pin));
            }
        }
        else if (keyword == "BODYSIZE") ReadBodySize(child, *data->BodySize);
        else if (keyword == "BODYHEIGHT") {
            ByPosition(child, data->BodyHeight->Height);
            // Set by the one byte of code 1 alone, not by the digit, nor by a word. That is required.
            if (child->m_aValues.GetSize() > 1) data->BodyHeight->Checking = child->m_aValues[1] == "\x01";
        }
    }
    return data.release();
}

/// Every child with values is a flag for the whole size, "MOLD" and "OVERALL" too. Their numbers are read only where
/// they have a child of their own, of any name. Both are required.
void CVEK_AsciiParser::ReadBodySize(CECadClsLvl* level, CVEKA_BodySize& size) {
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_pChildren->GetSize() > 0) {
            if (child->m_strName == "MOLD") ByPosition(child, size.Mold->X, size.Mold->Y);
            else if (child->m_strName == "OVERALL") ByPosition(child, size.OverAll->X, size.OverAll->Y);
        }
        Last(child, Flag{size.Checking});
    }
}

void CVEK_AsciiParser::ReadPacking(CECadClsLvl* level, CVEKA_Packing& packing) {
    CVEKA_Packing_ReelInfo& reel = *packing.Reel->ReelInfo;
    CVEKA_Packing_TrayInfo& tray = *packing.Tray->TrayInfo;
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "DOCUMENT") ByPosition(child, packing.PDFFileName, packing.PageNumber);
        else if (keyword == "PACKINGTYPE") Last(child, packing.PackingType);
        else if (keyword == "REELTYPE") ByPosition(child, packing.Reel->Type, packing.Reel->Angle);
        else if (keyword == "REELPACKINGINFO") {
            for (CECadClsLvl* size : Children(child)) {
                const CString& name = size->m_strName;
                if (name == "TAPETYPE") Last(size, reel.TapeType);
                else if (name == "NOOFPARTS") Last(size, reel.NoofPartsCount);
                else if (name == "P") Last(size, reel.P);
                else if (name == "A") Last(size, reel.A);
                else if (name == "B") Last(size, reel.B);
                else if (name == "W") Last(size, reel.W);
                else if (name == "T1") Last(size, reel.T1);
                else if (name == "T2") Last(size, reel.T2);
            }
        }
        else if (keyword == "TRAYTYPE") ByPosition(child, packing.Tray->Type, packing.Tray->Angle);
        else if (keyword == "TRAYPACKINGINFO") {
            for (CECadClsLvl* size : Children(child)) {
                const CString& name = size->m_strName;
                if (name == "NOOFPARTX") Last(size, tray.NoofPartXCount);
                else if (name == "NOOFPARTY") Last(size, tray.NoofPartYCount);
                else if (name == "A") Last(size, tray.A);
                else if (name == "B") Last(size, tray.B);
                else if (name == "C") Last(size, tray.C);
                else if (name == "D") Last(size, tray.D);
                else if (name == "E") Last(size, tray.E);
                else if (name == "E1") Last(size, tray.E1);
                else if (name == "F") Last(size, tray.F);
                else if (name == "G") Last(size, tray.G);
                else if (name == "GAP") Last(size, tray.Gap);
            }
        }
    }
}
