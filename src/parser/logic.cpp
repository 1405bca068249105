// Logic symbols: their pins, partitions and property labels.

#include "model/logic/CVEKA_LogicSymbols.h"
#include "parser/Rows.h"

using namespace veka;

CVEKA_LogicSymbols* CVEK_AsciiParser::LOGICSYMBOLSGParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_LogicSymbols& symbols) { return Rows(
        Row("DEFAULTSYMBOL", Last(symbols.DefaultSymbolName)),
        Row("LOGICPINLIBS", Replace(symbols.LogicPinLibs, &CVEK_AsciiParser::LOGICSYMBOLS_LOGICPINLIBSParser)),
        Row("SYMBOL", Element(*symbols.Symbol, &CVEK_AsciiParser::LOGICSYMBOLS_SYMBOLParser)));
    });
}

CVEKA_LogicPinArray* CVEK_AsciiParser::LOGICSYMBOLS_LOGICPINLIBSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_LogicPinArray& pins) { return Rows(
        Row("LOGICPIN", Element(pins, [](CVEKA_LogicPin& pin) { return Rows(
            Own(ByPosition(pin.LogicPinNo, pin.LogicPinName, Flag(pin.UsedPin))));
        })));
    });
}

CVEKA_Symbol* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOLParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Symbol& symbol) { return Rows(
        Row("SYMBOLNAME", Last(symbol.SymbolName)),
        // Q14: the keys are one level deeper, in levels of the same name.
        Row("USGKEYS", Replace(symbol.USGKeys, &CVEK_AsciiParser::USGKeysParser)),
        Row("PARTITION", Element(*symbol.Partitions, &CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITIONParser)),
        Row("COMMENT", Replace(symbol.CommentArr, &CVEK_AsciiParser::COMMENTParser)));
    });
}

CVEKA_Partition* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITIONParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_Partition& partition) { return Rows(
        Row("PARTITIONNAME", Last(partition.PatitionName)),
        Row("LIBPARTITION", ByPosition(partition.LibPartitionName, partition.LibPartitionScale)),
        Row("PARTITIONPINS", Replace(partition.Pins, &CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser)),
        Row("PROPERTYLABELS", Replace(partition.PropertyLabels, &CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser)),
        Row("COMMENT", Replace(partition.CommentArr, &CVEK_AsciiParser::COMMENTParser)),
        Row("BODYSHAPE", Within(
            Any(Element(*partition.BodyShape, &CVEK_AsciiParser::ObjectParser)))));
    });
}

CVEKA_PartitionPinArray* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PARTITIONPINSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PartitionPinArray& pins) { return Rows(
        Row("PARTITIONPIN", Element(pins, [](CVEKA_PartitionPin& pin) { return Rows(
            Own(ByPosition(pin.PinName, pin.GatePinName, pin.UsedPin)),
            Row("NAMETEXT", ByPosition(pin.NameSize, pin.Justification)),
            Known("LIBPIN"),  // Q19
            Row("PT", Point(*pin.Point)),
            Row("ROTATION", Last(pin.PinRotation)),
            Any(Element(*pin.DrawObjs, &CVEK_AsciiParser::ObjectParser)));
        })));
    });
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(CECadClsLvl* level) {
    return Read(*this, level, [](CVEKA_PropertyLabelArray& labels) { return Rows(
        Row("PROPLABEL", ElementByPlace(labels, [](CVEKA_PropertyLabel& label) { return Rows(  // Q13
            Row("PROPERTY", First(label.Property)),
            Row("PT", Point(*label.Point)),
            Row("VISIBLE", First(Flag(label.Visible))),
            Row("ROTATION", First(label.Rotation)),
            Row("FID", First(label.FID)),
            Row("JUSTIFY", First(label.Justify)),
            Row("MIRROR", First(label.Mirror)));
        })));
    });
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::NSHAPE_PROPERTYLABELSParser(CECadClsLvl* level) {
    return LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(level);
}

CVEKA_PropertyLabelArray* CVEK_AsciiParser::PARTITION_PARTITIONPINS_PROPERTYLABELSParser(CECadClsLvl* level) {
    return LOGICSYMBOLS_SYMBOL_PARTITION_PROPERTYLABELSParser(level);
}
