// The part: its sections and its general data.

#include "parser/CVEK_AsciiParser.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_VEK* CVEK_AsciiParser::VEKParser(CECadClsLvl* level) {
    auto vek = std::make_unique<CVEKA_VEK>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "PARTGENERAL") Take(vek->PartGeneral, PARTGENERALParser(child));
        else if (keyword == "LAYERS") Take(vek->Layers, LAYERSParser(child));
        else if (keyword == "ELECTRICAL") Take(vek->Electrical, ELECTRICALParser(child));
        else if (keyword == "PACKAGES") Take(vek->Packages, PACKAGESParser(child));
        else if (keyword == "MANUFACTURING") Take(vek->Manufacturing, MANUFACTURINGParser(child));
        else if (keyword == "LOGICSYMBOLS") Take(vek->LogicSymbols, LOGICSYMBOLSGParser(child));
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
        else if (keyword == "HISTORY") Take(general->History, HISTORYParser(child));
        else if (keyword == "COMMENT") Take(general->CommentArr, COMMENTParser(child));
        else if (keyword == "REFERENCEURL") Take(general->ReferenceURLArr, REFERENCEURLParser(child));
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

CVEKA_History* CVEK_AsciiParser::HISTORYParser(CECadClsLvl* level) {
    auto history = std::make_unique<CVEKA_History>();
    CVEKA_Date& date = *history->Date;
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "VERSION") {
            for (const CString& value : child->m_aValues) {
                // The minor number is read from as many last bytes as stand before the point, not from what stands
                // behind it. That is required.
                const int point = value.Find('.');
                history->Version->MajorVersion = ToInt(value.Left(point));
                history->Version->MinorVersion = ToInt(value.Right(point));
            }
        }
        else if (keyword == "DATE") {
            bool first = true;
            for (CECadClsLvl* event : Children(child)) {
                const CString& name = event->m_strName;
                // These two count only as the first child. That is required.
                if (name == "CREATED") { if (first) Last(event, date.CreatedDate->Date); }
                else if (name == "MODIFIED") {
                    for (const CString& value : event->m_aValues) {
                        auto modified = std::make_unique<CVEKA_Date_DDMMYYYY>();
                        modified->Date = value;
                        date.ModifiedDate->Add(std::move(modified));
                    }
                }
                else if (name == "APPROVED") { if (first) Last(event, date.ApprovedDate->Date); }
                first = false;
            }
        }
    }
    return history.release();
}

CVEKA_Reference_URLArray* CVEK_AsciiParser::REFERENCEURLParser(CECadClsLvl* level) {
    auto references = std::make_unique<CVEKA_Reference_URLArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "REFERENCE") continue;
        auto reference = std::make_unique<CVEKA_Reference_URL>();
        ByPosition(child, reference->Title, reference->FileName);
        references->Add(std::move(reference));
    }
    return references.release();
}

CVEKA_Layers* CVEK_AsciiParser::LAYERSParser(CECadClsLvl* level) {
    auto layers = std::make_unique<CVEKA_Layers>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "DEFAULT") First(child, layers->DefaultPath);
        else if (keyword == "LAY") Append(*layers->LayerArr, LAYERParser(child));
    }
    return layers.release();
}

CVEKA_Layer* CVEK_AsciiParser::LAYERParser(CECadClsLvl* level) {
    auto layer = std::make_unique<CVEKA_Layer>();
    CVEKA_Color& color = *layer->Color;
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "ARN") First(child, layer->ARNNumber);
        else if (keyword == "NAME") First(child, layer->Name);
        else if (keyword == "ELAYNAME") First(child, layer->ECadLayerName);
        else if (keyword == "VISIBLE") First(child, layer->VisibleType);
        // In place: a later level with fewer values changes only those that it gives.
        else if (keyword == "COLOR") ByPosition(child, color.Red, color.Green, color.Blue);
        else if (keyword == "DEPTH") First(child, layer->Depth);
        else if (keyword == "FILMYPE") First(child, layer->FilmType);
        else if (keyword == "COMMENT") First(child, layer->Comment->Comment);
    }
    return layer.release();
}

CVEKA_Manufacturing* CVEK_AsciiParser::MANUFACTURINGParser(CECadClsLvl* level) {
    auto manufacturing = std::make_unique<CVEKA_Manufacturing>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "MOUNTTYPE") Last(child, manufacturing->MountType);
        else if (keyword == "ROHS_COMPLIANCE") Last(child, manufacturing->ROHS_CompLianceType);
    }
    return manufacturing.release();
}
