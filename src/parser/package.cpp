// Packages: what they share, and each with its body, mount data and pins.

#include "parser/CVEK_AsciiParser.h"
#include "parser/CInvalidAccessException.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_Packages* CVEK_AsciiParser::PACKAGESParser(CECadClsLvl* level) {
    auto packages = std::make_unique<CVEKA_Packages>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "DEFAULTPACKAGE") Last(child, packages->DefaultPackageName);
        else if (keyword == "BODYMATERIAL") Last(child, packages->BodyMaterialName);
        else if (keyword == "WEIGHT") Last(child, packages->Weight);
        else if (keyword == "DEFAULTPARTHEIGHT") Last(child, packages->DefaultPartHeight);
        else if (keyword == "DEFAULTMOUNTHEIGHT") Last(child, packages->DefaultMountHeight);
        else if (keyword == "THERMAL") Take(packages->Thermal, PACKAGES_THERMALParser(child));
        else if (keyword == "COLOR") Take(packages->Color, PACKAGES_COLORParser(child));
        else if (keyword == "FOOTPRINTSPEC") Take(packages->FootprintSpec, PACKAGES_FOOTPRINTSPECParser(child));
        else if (keyword == "PACKAGE") Append(*packages->PackageArr, PACKAGES_PACKAGEParser(child));
    }
    return packages.release();
}

CVEKA_Thermal* CVEK_AsciiParser::PACKAGES_THERMALParser(CECadClsLvl* level) {
    auto thermal = std::make_unique<CVEKA_Thermal>();
    CVEKA_OperatingTemperature& temperature = *thermal->OperatingTemperature;
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "MAXPOWER") Last(child, thermal->MaxPower);
        else if (keyword == "OPERATINGTEMPERATURE") ByPosition(child, temperature.FirstValue, temperature.SecondValue);
        else if (keyword == "RADIATIONEMISSIVITY") Last(child, thermal->RadiationEmissivity);
        else if (keyword == "MODEL") Take(thermal->Model, PACKAGES_THERMAL_MODELParser(child));
    }
    return thermal.release();
}

CVEKA_ThermalModel* CVEK_AsciiParser::PACKAGES_THERMAL_MODELParser(CECadClsLvl* level) {
    auto model = std::make_unique<CVEKA_ThermalModel>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "SIMPLE") ByPosition(child, model->Simple->JC, model->Simple->JB);
        else if (keyword == "DELPHI") {
            // The plural stands for one node.
            for (CECadClsLvl* nodes : Children(child)) {
                if (nodes->m_strName != "NODES") continue;
                auto node = std::make_unique<CVEKA_Node>();
                ByPosition(nodes, node->FirstNodeName, node->SecondNodeName, node->ThermalResistance);
                model->Delphi->Nodes->Add(std::move(node));
            }
        }
    }
    return model.release();
}

CVEKA_PKG_Color* CVEK_AsciiParser::PACKAGES_COLORParser(CECadClsLvl* level) {
    auto colors = std::make_unique<CVEKA_PKG_Color>();
    // In place: a later level with fewer values changes only those that it gives.
    const auto read = [](CECadClsLvl* child, CVEKA_Color& color) {
        ByPosition(child, color.Red, color.Green, color.Blue);
    };
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "BODY") read(child, *colors->BodyColor);
        else if (keyword == "LEAD") read(child, *colors->LeadColor);
        else if (keyword == "FLAGPIN") read(child, *colors->FlagPinColor);
        else if (keyword == "MECHANICALPIN") read(child, *colors->MechanicalPinColor);
    }
    return colors.release();
}

CVEKA_FootprintSpec* CVEK_AsciiParser::PACKAGES_FOOTPRINTSPECParser(CECadClsLvl* level) {
    auto spec = std::make_unique<CVEKA_FootprintSpec>();
    const auto read = [](CECadClsLvl* child, CVEKA_MinMax& range) { ByPosition(child, range.Min, range.Max); };
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "TOE") read(child, *spec->Toe);
        else if (keyword == "HEEL") read(child, *spec->Heel);
        else if (keyword == "SIDE") read(child, *spec->Side);
        else if (keyword == "MOUNTHEIGHT") read(child, *spec->MountHeight);
    }
    return spec.release();
}

CVEKA_Package* CVEK_AsciiParser::PACKAGES_PACKAGEParser(CECadClsLvl* level) {
    auto package = std::make_unique<CVEKA_Package>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "NAME") Last(child, package->Name);
        else if (keyword == "DEFAULTFOOTPRINT") Last(child, package->DefaultFootprintName);
        else if (keyword == "STEP") Last(child, package->StepFileName);
        // The keys stand one level deeper: in a level of the same name.
        else if (keyword == "USGKEYS") Take(package->USGKeys, USGKeysParser(child));
        else if (keyword == "MOUNTDATA") Take(package->MountData, PACKAGES_PACKAGE_MOUNTDATAParser(child));
        else if (keyword == "BODYGEOMETRY") Take(package->BodyGeometry, PACKAGES_PACKAGE_BODYGEOMETRYParser(child));
        else if (keyword == "MARKINGGEOMETRIES") Take(package->MarkingGeometries, PACKAGES_PACKAGE_MARKINGGEOMETRIESParser(child));
        else if (keyword == "PKGPINS") Take(package->PKGPins, PACKAGES_PACKAGE_PKGPINSParser(child));
        else if (keyword == "MECHANICALPINS") Take(package->MechanicalPins, PACKAGES_PACKAGE_MECHANICALPINSParser(child));
        else if (keyword == "FOOTPRINTS") Take(package->Footprints, PACKAGES_PACKAGE_FOOTPRINTSParser(child));
    }
    return package.release();
}

CVEKA_BodyGeometry* CVEK_AsciiParser::PACKAGES_PACKAGE_BODYGEOMETRYParser(CECadClsLvl* level) {
    auto body = std::make_unique<CVEKA_BodyGeometry>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "STEP") Last(child, body->StepFileName);
        else if (keyword == "BODYSHAPE") {
            for (CECadClsLvl* object : Children(child)) Append(*body->Objects3D, ObjectParser(object));
        }
    }
    return body.release();
}

CVEKA_MarkingGeometries* CVEK_AsciiParser::PACKAGES_PACKAGE_MARKINGGEOMETRIESParser(CECadClsLvl* level) {
    auto marking = std::make_unique<CVEKA_MarkingGeometries>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName == "VISIBLE") Last(child, Flag{marking->Visible});
        // Every other child is taken for an object; an unknown one leaves a null that a copy drops.
        else marking->Objects3D->Add(std::unique_ptr<CVEKA_3DObject>(ObjectParser(child)));
    }
    return marking.release();
}

CVEKA_PackagePinArray* CVEK_AsciiParser::PACKAGES_PACKAGE_PKGPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_PackagePinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PKGPIN") continue;
        auto pin = std::make_unique<CVEKA_PackagePin>();
        Last(child, pin->PKGPinName);
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "PT") Point(data, *pin->Point);
            else if (keyword == "ROTATION") Last(data, pin->Rotation);
            // Whatever the level holds, it is the pin's own values that are read. That is required.
            else if (keyword == "STEP") Last(child, pin->StepFileName);
            else if (keyword == "LEAD") Take(pin->Objects3D, ObjectsParser(data));
        }
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_MechanicalPinArray* CVEK_AsciiParser::PACKAGES_PACKAGE_MECHANICALPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_MechanicalPinArray>();
    INT_PTR position = -1;
    for (CECadClsLvl* child : Children(level)) {
        ++position;  // among the children of all names
        if (child->m_strName != "MECHANICALPIN") continue;
        auto pin = std::make_unique<CVEKA_MechanicalPin>();
        Last(child, pin->Name);
        // A pin reads one of its children alone: the one at the pin's own position. That is required.
        if (child->m_pChildren->GetSize() > 0) {
            CECadClsLvl* data = child->m_pChildren->GetAt(position);
            if (!data) throw CInvalidAccessException(child->m_strName, position);
            const CString& keyword = data->m_strName;
            if (keyword == "PT") Point(data, *pin->Point);
            else if (keyword == "ROTATION") Last(data, pin->Rotation);
            else if (keyword == "STEP") Last(data, pin->StepFileName);
            else if (keyword == "LEAD") Take(pin->Lead, ObjectsParser(data));
        }
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_FootprintArray* CVEK_AsciiParser::PACKAGES_PACKAGE_FOOTPRINTSParser(CECadClsLvl* level) {
    auto footprints = std::make_unique<CVEKA_FootprintArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "FOOTPRINT") continue;
        auto footprint = std::make_unique<CVEKA_Footprint>();
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "LIBFOOTPRINTNAME" || keyword == "FOOTPRINTNAME") Last(data, footprint->LibraryFootprintName);
        }
        footprints->Add(std::move(footprint));
    }
    return footprints.release();
}
