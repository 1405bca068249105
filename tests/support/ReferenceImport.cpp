#include "support/ReferenceImport.h"

#include "leveltree/CECadCls.h"
#include "model/CVEKA_Manager.h"

namespace test {

void ImportByReference(const CString& path, CVEK_AsciiParser& parser) {
    CECadCls tree;
    tree.m_strFilePath = path;
    tree.ReadLevelTree(0);
    CVEKA_Manager& model = *parser.GetCVEKA_Manager();
    const auto take = [](auto* field, auto* fresh) {
        *field = *fresh;
        delete fresh;
    };
    for (CECadClsLvl* level : *tree.m_pRootLevels) {
        if (level->m_strName != "FONTS") continue;
        take(model.GetLibFonts(), parser.FontLibParser(level));
        break;
    }
    for (CECadClsLvl* level : *tree.m_pRootLevels) {
        const CString& keyword = level->m_strName;
        if (keyword == "VEK") take(model.GetVEK(), parser.VEKParser(level));
        if (keyword == "COLORTABLE") take(model.GetColorTable(), parser.COLORTABLEParser(level));
        if (keyword == "PADS") take(model.GetPadArr(), parser.PADParser(level));
        if (keyword == "PADSTACKS") take(model.GetPadStackArr(), parser.PadStackParser(level));
        if (keyword == "FOOTPRINTS") take(model.GetFootprintDBArr(), parser.FOOTPRINTParser(level));
        if (keyword == "NSHAPE") model.GetNShapeArr()->Add(parser.NSHAPEParser(level));
        if (keyword == "PARTITIONS") take(model.GetPartitionDBArr(), parser.PARTITIONParser(level));
    }
}

}  // namespace test
