// Packages: what they share, and each with its body, mount data and pins.

#include "model/package/CVEKA_Packages.h"
#include "parser/Rows.h"

using namespace veka;

CVEKA_Packages* CVEK_AsciiParser::PACKAGESParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Packages& packages) { return Rows(
        Row("DEFAULTPACKAGE", Last(packages.DefaultPackageName)),
        Row("BODYMATERIAL", Last(packages.BodyMaterialName)),
        Row("WEIGHT", Last(packages.Weight)),
        Row("DEFAULTPARTHEIGHT", Last(packages.DefaultPartHeight)),
        Row("DEFAULTMOUNTHEIGHT", Last(packages.DefaultMountHeight)),
        Row("THERMAL", Replace(packages.Thermal, &CVEK_AsciiParser::PACKAGES_THERMALParser)),
        Row("COLOR", Replace(packages.Color, &CVEK_AsciiParser::PACKAGES_COLORParser)),
        Row("FOOTPRINTSPEC", Replace(packages.FootprintSpec, &CVEK_AsciiParser::PACKAGES_FOOTPRINTSPECParser)),
        Row("PACKAGE", Element(*packages.PackageArr, &CVEK_AsciiParser::PACKAGES_PACKAGEParser)));
    });
}

CVEKA_Thermal* CVEK_AsciiParser::PACKAGES_THERMALParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Thermal& thermal) { return Rows(
        Row("MAXPOWER", Last(thermal.MaxPower)),
        Row("OPERATINGTEMPERATURE", ByPosition(thermal.OperatingTemperature->FirstValue, thermal.OperatingTemperature->SecondValue)),  // Q6
        Row("RADIATIONEMISSIVITY", Last(thermal.RadiationEmissivity)),
        Row("MODEL", Replace(thermal.Model, &CVEK_AsciiParser::PACKAGES_THERMAL_MODELParser)));
    });
}

CVEKA_ThermalModel* CVEK_AsciiParser::PACKAGES_THERMAL_MODELParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_ThermalModel& model) { return Rows(
        Row("SIMPLE", ByPosition(model.Simple->JC, model.Simple->JB)),
        Row("DELPHI", Within(
            // Each level is one node, although its name is a plural.
            Row("NODES", Element(*model.Delphi->Nodes, [](CVEKA_Node& node) { return Rows(
                Own(ByPosition(node.FirstNodeName, node.SecondNodeName, node.ThermalResistance)));
            })))));
    });
}

CVEKA_PKG_Color* CVEK_AsciiParser::PACKAGES_COLORParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PKG_Color& color) {
        const auto inPlace = [](CVEKA_Color& one) { return ByPosition(one.Red, one.Green, one.Blue); };  // Q6
        return Rows(
            Row("BODY", inPlace(*color.BodyColor)),
            Row("LEAD", inPlace(*color.LeadColor)),
            Row("FLAGPIN", inPlace(*color.FlagPinColor)),
            Row("MECHANICALPIN", inPlace(*color.MechanicalPinColor)));
    });
}

CVEKA_FootprintSpec* CVEK_AsciiParser::PACKAGES_FOOTPRINTSPECParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_FootprintSpec& spec) { return Rows(
        Row("TOE", ByPosition(spec.Toe->Min, spec.Toe->Max)),
        Row("HEEL", ByPosition(spec.Heel->Min, spec.Heel->Max)),
        Row("SIDE", ByPosition(spec.Side->Min, spec.Side->Max)),
        Row("MOUNTHEIGHT", ByPosition(spec.MountHeight->Min, spec.MountHeight->Max)));
    });
}

CVEKA_Package* CVEK_AsciiParser::PACKAGES_PACKAGEParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Package& package) { return Rows(
        Row("NAME", Last(package.Name)),
        Row("DEFAULTFOOTPRINT", Last(package.DefaultFootprintName)),
        Row("STEP", Last(package.StepFileName)),
        // Q14: the keys are one level deeper, in levels of the same name.
        Row("USGKEYS", Replace(package.USGKeys, &CVEK_AsciiParser::USGKeysParser)),
        Row("MOUNTDATA", Replace(package.MountData, &CVEK_AsciiParser::PACKAGES_PACKAGE_MOUNTDATAParser)),
        Row("BODYGEOMETRY", Replace(package.BodyGeometry, &CVEK_AsciiParser::PACKAGES_PACKAGE_BODYGEOMETRYParser)),
        Row("MARKINGGEOMETRIES", Replace(package.MarkingGeometries, &CVEK_AsciiParser::PACKAGES_PACKAGE_MARKINGGEOMETRIESParser)),
        Row("PKGPINS", Replace(package.PKGPins, &CVEK_AsciiParser::PACKAGES_PACKAGE_PKGPINSParser)),
        Row("MECHANICALPINS", Replace(package.MechanicalPins, &CVEK_AsciiParser::PACKAGES_PACKAGE_MECHANICALPINSParser)),
        Row("FOOTPRINTS", Replace(package.Footprints, &CVEK_AsciiParser::PACKAGES_PACKAGE_FOOTPRINTSParser)));
    });
}

CVEKA_BodyGeometry* CVEK_AsciiParser::PACKAGES_PACKAGE_BODYGEOMETRYParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_BodyGeometry& body) { return Rows(
        Row("STEP", Last(body.StepFileName)),
        Row("BODYSHAPE", Within(
            Any(Element(*body.Objects3D, &CVEK_AsciiParser::ObjectParser)))));
    });
}

CVEKA_MarkingGeometries* CVEK_AsciiParser::PACKAGES_PACKAGE_MARKINGGEOMETRIESParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_MarkingGeometries& marking) { return Rows(
        Row("VISIBLE", Last(Flag(marking.Visible))),
        Any(ElementOrNull(*marking.Objects3D, &CVEK_AsciiParser::ObjectParser)));  // Q18
    });
}

CVEKA_PackagePinArray* CVEK_AsciiParser::PACKAGES_PACKAGE_PKGPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PackagePinArray& pins) { return Rows(
        Row("PKGPIN", Element(pins, [](CVEKA_PackagePin& pin) { return Rows(
            Own(Last(pin.PKGPinName)),
            Row("PT", Point(*pin.Point)),
            Row("ROTATION", Last(pin.Rotation)),
            Row("STEP", Parent(Last(pin.StepFileName))),  // Q12
            Row("LEAD", Replace(pin.Objects3D, &CVEK_AsciiParser::ObjectsParser)));
        })));
    });
}

CVEKA_MechanicalPinArray* CVEK_AsciiParser::PACKAGES_PACKAGE_MECHANICALPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_MechanicalPinArray& pins) { return Rows(
        Row("MECHANICALPIN", ElementByPlace(pins, [](CVEKA_MechanicalPin& pin) { return Rows(  // Q13
            Own(Last(pin.Name)),
            Row("PT", Point(*pin.Point)),
            Row("ROTATION", Last(pin.Rotation)),
            Row("STEP", Last(pin.StepFileName)),
            Row("LEAD", Replace(pin.Lead, &CVEK_AsciiParser::ObjectsParser)));
        })));
    });
}

CVEKA_FootprintArray* CVEK_AsciiParser::PACKAGES_PACKAGE_FOOTPRINTSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_FootprintArray& footprints) { return Rows(
        Row("FOOTPRINT", Element(footprints, [](CVEKA_Footprint& footprint) { return Rows(
            Row("LIBFOOTPRINTNAME", Last(footprint.LibraryFootprintName)),
            Row("FOOTPRINTNAME", Last(footprint.LibraryFootprintName)));
        })));
    });
}
