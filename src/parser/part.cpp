// The part: its sections and its general data.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_VEK* CVEK_AsciiParser::VEKParser(CECadClsLvl* level) {
    auto vek = std::make_unique<CVEKA_VEK>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "PARTGENERAL") Take(vek->PartGeneral, PARTGENERALParser(child));
        else if (keyword == "PACKAGES") Take(vek->Packages, PACKAGESParser(child));
    }
    return vek.release();
}

CVEKA_PartGeneral* CVEK_AsciiParser::PARTGENERALParser(CECadClsLvl* level) {
    auto general = std::make_unique<CVEKA_PartGeneral>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "UNIT") First(child, general->Unit);
        else if (keyword == "MANUFACTURER") First(child, general->Manufacturer);
        else if (keyword == "MPN") First(child, general->MPN);
        else if (keyword == "CPN") List(child, general->CPN);
        else if (keyword == "PREFERENCE") Take(general->Preference, PREFERENCEParser(child));
        else if (keyword == "PRODUCTFAMILY") List(child, general->ProductFamily);
        else if (keyword == "FUNCTIONALTYPE") First(child, general->FunctionalType);
        else if (keyword == "PACKAGETYPE") First(child, general->PackageType);
        else if (keyword == "LAYOUT") Take(general->Layout, LAYOUTParser(child));
        else if (keyword == "NUMBEROFPINS") First(child, general->NumberOfPins);
        else if (keyword == "BOM") Take(general->BOM, BOMParser(child));
        // Alone among the texts it keeps its last value.
        else if (keyword == "PARTDESC") Last(child, general->PartDescription);
        else if (keyword == "COMMENT") Take(general->CommentArr, COMMENTParser(child));
    }
    return general.release();
}

CVEKA_Preference* CVEK_AsciiParser::PREFERENCEParser(CECadClsLvl* level) {
    auto preference = std::make_unique<CVEKA_Preference>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "TEMPCPN") First(child, preference->TempCPN);
        else if (keyword == "STATUS") First(child, preference->Status);
    }
    return preference.release();
}

CVEKA_Layout* CVEK_AsciiParser::LAYOUTParser(CECadClsLvl* level) {
    auto layout = std::make_unique<CVEKA_Layout>();
    for (CECadClsLvl* child : Children(level))
        if (child->m_strName == "UNAMEPREFIX") First(child, layout->Prefix);
    return layout.release();
}

CVEKA_BOM* CVEK_AsciiParser::BOMParser(CECadClsLvl* level) {
    auto bom = std::make_unique<CVEKA_BOM>();
    for (CECadClsLvl* child : Children(level))
        if (child->m_strName == "COST") ByPosition(child, bom->Unit, bom->Cost);
    return bom.release();
}
