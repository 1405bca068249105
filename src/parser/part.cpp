// The part: its sections and its general data.

#include "model/part/CVEKA_VEK.h"
#include "parser/Rows.h"

using namespace veka;

namespace {

/// Q4: both numbers of a version have as many bytes as there are before the point: the major number the first, the minor
/// number the last. So the minor number is not what comes after the point.
struct Version {
    CVEKA_Version& field;
    explicit Version(CVEKA_Version& version) : field(version) {}
};
void Convert(const CString& value, Version version) {
    const int point = value.Find('.');
    version.field.SetMajorVersion(ToInt(value.Left(point)));
    version.field.SetMinorVersion(ToInt(value.Right(point)));
}
Loss LossOf(const CString& value, const Version&) {
    if (value.IsEmpty()) return Loss::None;
    const int point = value.Find('.');
    if (point < 0) return Loss::NoPoint;
    const CString minor = value.Mid(point + 1);
    for (const CString& number : {value.Left(point), minor})
        if (const Loss loss = LossOfWhole(number.View()); loss != Loss::None) return loss;
    return ToInt(minor) == ToInt(value.Right(point)) ? Loss::None : Loss::MinorNumber;
}
void PutMark(int mark, const Version& version) {
    version.field.SetMajorVersion(mark);
    version.field.SetMinorVersion(mark);
}

/// One more date in an array of dates.
struct NewDate {
    CVEKA_Date_DDMMYYYYArray& field;
    explicit NewDate(CVEKA_Date_DDMMYYYYArray& dates) : field(dates) {}
};
void Convert(const CString& value, NewDate dates) {
    auto date = std::make_unique<CVEKA_Date_DDMMYYYY>();
    date->SetDate(value);
    dates.field.Add(std::move(date));
}
void PutMark(int mark, const NewDate& dates) {
    Convert(ReadTracer::Text(mark), dates);
}

}  // namespace

CVEKA_VEK* CVEK_AsciiParser::VEKParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_VEK& vek) { return Rows(
        Row("PARTGENERAL", Replace(vek.PartGeneral, &CVEK_AsciiParser::PARTGENERALParser)),
        Row("LAYERS", Replace(vek.Layers, &CVEK_AsciiParser::LAYERSParser)),
        Row("ELECTRICAL", Replace(vek.Electrical, &CVEK_AsciiParser::ELECTRICALParser)),
        Row("PACKAGES", Replace(vek.Packages, &CVEK_AsciiParser::PACKAGESParser)),
        Row("MANUFACTURING", Replace(vek.Manufacturing, &CVEK_AsciiParser::MANUFACTURINGParser)),
        Row("LOGICSYMBOLS", Replace(vek.LogicSymbols, &CVEK_AsciiParser::LOGICSYMBOLSGParser)));
    });
}

CVEKA_PartGeneral* CVEK_AsciiParser::PARTGENERALParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PartGeneral& general) { return Rows(
        Row("UNIT", First(general.Unit)),
        Row("MANUFACTURER", First(general.Manufacturer)),
        Row("MPN", First(general.MPN)),
        Row("CPN", List(general.CPN)),
        Row("PREFERENCE", Replace(general.Preference, &CVEK_AsciiParser::PREFERENCEParser)),
        Row("PRODUCTFAMILY", List(general.ProductFamily)),
        Row("FUNCTIONALTYPE", First(general.FunctionalType)),
        Row("PACKAGETYPE", First(general.PackageType)),
        Row("LAYOUT", Replace(general.Layout, &CVEK_AsciiParser::LAYOUTParser)),
        Row("NUMBEROFPINS", First(general.NumberOfPins)),
        Row("BOM", Replace(general.BOM, &CVEK_AsciiParser::BOMParser)),
        Row("PARTDESC", Last(general.PartDescription)),  // Q3
        Row("HISTORY", Replace(general.History, &CVEK_AsciiParser::HISTORYParser)),
        Row("COMMENT", Replace(general.CommentArr, &CVEK_AsciiParser::COMMENTParser)),
        Row("REFERENCEURL", Replace(general.ReferenceURLArr, &CVEK_AsciiParser::REFERENCEURLParser)));
    });
}

CVEKA_Preference* CVEK_AsciiParser::PREFERENCEParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Preference& preference) { return Rows(
        Row("TEMPCPN", First(preference.TempCPN)),
        Row("STATUS", First(preference.Status)));
    });
}

CVEKA_Layout* CVEK_AsciiParser::LAYOUTParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Layout& layout) { return Rows(
        Row("UNAMEPREFIX", First(layout.Prefix)));
    });
}

CVEKA_BOM* CVEK_AsciiParser::BOMParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_BOM& bom) { return Rows(
        Row("COST", ByPosition(bom.Unit, bom.Cost)));
    });
}

CVEKA_History* CVEK_AsciiParser::HISTORYParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_History& history) { return Rows(
        Row("VERSION", Last(Version(*history.Version))),
        Row("DATE", Within(
            FirstChild("CREATED", Last(history.Date->CreatedDate->Date)),  // Q5
            Row("MODIFIED", Each(NewDate(*history.Date->ModifiedDate))),
            FirstChild("APPROVED", Last(history.Date->ApprovedDate->Date)))));  // Q5
    });
}

CVEKA_Reference_URLArray* CVEK_AsciiParser::REFERENCEURLParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Reference_URLArray& references) { return Rows(
        Row("REFERENCE", Element(references, [](CVEKA_Reference_URL& reference) { return Rows(
            Own(ByPosition(reference.Title, reference.FileName)));
        })));
    });
}

CVEKA_Layers* CVEK_AsciiParser::LAYERSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Layers& layers) { return Rows(
        Row("DEFAULT", First(layers.DefaultPath)),
        Row("LAY", Element(*layers.LayerArr, &CVEK_AsciiParser::LAYERParser)));
    });
}

CVEKA_Layer* CVEK_AsciiParser::LAYERParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Layer& layer) { return Rows(
        Row("ARN", First(layer.ARNNumber)),
        Row("NAME", First(layer.Name)),
        Row("ELAYNAME", First(layer.ECadLayerName)),
        Row("VISIBLE", First(layer.VisibleType)),
        Row("COLOR", ByPosition(layer.Color->Red, layer.Color->Green, layer.Color->Blue)),  // Q6
        Row("DEPTH", First(layer.Depth)),
        Row("FILMYPE", First(layer.FilmType)),  // Q7
        Row("COMMENT", First(layer.Comment->Comment)));
    });
}

CVEKA_Manufacturing* CVEK_AsciiParser::MANUFACTURINGParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Manufacturing& manufacturing) { return Rows(
        Row("MOUNTTYPE", Last(manufacturing.MountType)),
        Row("ROHS_COMPLIANCE", Last(manufacturing.ROHS_CompLianceType)));
    });
}
