// Logic symbols: their pins, partitions and property labels.

#include "parser/CVEK_AsciiParser.h"
#include "parser/CInvalidAccessException.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEKA_LogicSymbols* CVEK_AsciiParser::LOGICSYMBOLSGParser(CECadClsLvl* level) {
    auto symbols = std::make_unique<CVEKA_LogicSymbols>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "DEFAULTSYMBOL") Last(child, symbols->DefaultSymbolName);
        else if (keyword == "LOGICPINLIBS") Take(symbols->LogicPinLibs, LOGICSYMBOLS_LOGICPINLIBSParser(child));
        else if (keyword == "SYMBOL") Append(*symbols->Symbol, LOGICSYMBOLS_SYMBOLParser(child));
    }
    return symbols.release();
}

CVEKA_LogicPinArray* CVEK_AsciiParser::LOGICSYMBOLS_LOGICPINLIBSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_LogicPinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "LOGICPIN") continue;
        auto pin = std::make_unique<CVEKA_LogicPin>();
        ByPosition(child, pin->LogicPinNo, pin->LogicPinName, Flag{pin->UsedPin});
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_Symbol* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOLParser(CECadClsLvl* level) {
    auto symbol = std::make_unique<CVEKA_Symbol>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "SYMBOLNAME") Last(child, symbol->SymbolName);
        // The keys stand one level deeper: in levels of the same name.
        else if (keyword == "USGKEYS") Take(symbol->USGKeys, USGKeysParser(child));
        else if (keyword == "PARTITION") Append(*symbol->Partitions, LOGICSYMBOLS_SYMBOL_PARTITIONParser(child));
        else if (keyword == "COMMENT") Take(symbol->CommentArr, COMMENTParser(child));
    }
    return symbol.release();
}

CVEKA_Partition* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITIONParser(CECadClsLvl* level) {
    auto partition = std::make_unique<CVEKA_Partition>();
    for (CECadClsLvl* child : Children(level)) {
        const CString& keyword = child->m_strName;
        if (keyword == "PARTITIONNAME") Last(child, partition->PatitionName);
        else if (keyword == "LIBPARTITION") ByPosition(child, partition->LibPartitionName, partition->LibPartitionScale);
        else if (keyword == "PARTITIONPINS") Take(partition->Pins, LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser(child));
        else if (keyword == "PROPERTYLABELS") Take(partition->PropertyLabels, LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(child));
        else if (keyword == "COMMENT") Take(partition->CommentArr, COMMENTParser(child));
        else if (keyword == "BODYSHAPE") {
            for (CECadClsLvl* object : Children(child)) Append(*partition->BodyShape, ObjectParser(object));
        }
    }
    return partition.release();
}

CVEKA_PartitionPinArray* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser(CECadClsLvl* level) {
    auto pins = std::make_unique<CVEKA_PartitionPinArray>();
    for (CECadClsLvl* child : Children(level)) {
        if (child->m_strName != "PARTITIONPIN") continue;
        auto pin = std::make_unique<CVEKA_PartitionPin>();
        ByPosition(child, pin->PinName, pin->GatePinName, pin->UsedPin);
        for (CECadClsLvl* data : Children(child)) {
            const CString& keyword = data->m_strName;
            if (keyword == "NAMETEXT") ByPosition(data, pin->NameSize, pin->Justification);
            else if (keyword == "LIBPIN") continue;  // known, and dropped
            else if (keyword == "PT") Point(data, *pin->Point);
            else if (keyword == "ROTATION") Last(data, pin->PinRotation);
            // Everything else is taken for an object.
            else Append(*pin->DrawObjs, ObjectParser(data));
        }
        pins->Add(std::move(pin));
    }
    return pins.release();
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(CECadClsLvl* level) {
    auto labels = std::make_unique<CVEKA_PropertyLabelArray>();
    INT_PTR position = -1;
    for (CECadClsLvl* child : Children(level)) {
        ++position;  // among the children of all names
        if (child->m_strName != "PROPLABEL") continue;
        auto label = std::make_unique<CVEKA_PropertyLabel>();
        // A label reads one of its children alone: the one at the label's own position. That is required.
        if (child->m_pChildren->GetSize() > 0) {
            CECadClsLvl* data = child->m_pChildren->GetAt(position);
            if (!data) throw CInvalidAccessException(child->m_strName, position);
            const CString& keyword = data->m_strName;
            if (keyword == "PROPERTY") First(data, label->Property);
            else if (keyword == "PT") Point(data, *label->Point);
            else if (keyword == "VISIBLE") First(data, Flag{label->Visible});
            else if (keyword == "ROTATION") First(data, label->Rotation);
            else if (keyword == "FID") First(data, label->FID);
            else if (keyword == "JUSTIFY") First(data, label->Justify);
            else if (keyword == "MIRROR") First(data, label->Mirror);
        }
        labels->Add(std::move(label));
    }
    return labels.release();
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::NSHAPE_PROPERTYLABELSParser(CECadClsLvl* level) {
    return LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(level);
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::PARTITION_PARTITIONPINS_PROPERTYLABELSParser(CECadClsLvl* level) {
    return LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(level);
}
