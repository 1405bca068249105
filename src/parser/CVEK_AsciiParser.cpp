#include "parser/CVEK_AsciiParser.h"

#include "leveltree/CECadCls.h"
#include "parser/ReadingForms.h"

using namespace veka;

CVEK_AsciiParser::CVEK_AsciiParser() : CVEKA_Manager(new ::CVEKA_Manager) {}

CVEK_AsciiParser::CVEK_AsciiParser(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser& CVEK_AsciiParser::operator=(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser::~CVEK_AsciiParser() {
    delete CVEKA_Manager;
}

int CVEK_AsciiParser::Parser() {
    CECadCls tree;
    tree.m_strFilePath = VEKAsciiFilePath;
    tree.ReadLevelTree(0);  // unbalanced levels are no reason to drop what did close
    // The fonts come first, wherever they stand, and only their first level counts.
    for (CECadClsLvl* level : *tree.m_pRootLevels) {
        if (level->m_strName != "FONTS") continue;
        Take(CVEKA_Manager->LibFonts, FontLibParser(level));
        break;
    }
    for (CECadClsLvl* level : *tree.m_pRootLevels) ParseSection(level);
    return 1;
}

void CVEK_AsciiParser::ParseSection(CECadClsLvl* level) {
    const CString& keyword = level->m_strName;
    if (keyword == "VEK") Take(CVEKA_Manager->VEK, VEKParser(level));
    else if (keyword == "COLORTABLE") Take(CVEKA_Manager->ColorTable, COLORTABLEParser(level));
    else if (keyword == "PADS") Take(CVEKA_Manager->PadArr, PADParser(level));
    else if (keyword == "PADSTACKS") Take(CVEKA_Manager->PadStackArr, PadStackParser(level));
    else if (keyword == "FOOTPRINTS") Take(CVEKA_Manager->FootprintDBArr, FOOTPRINTParser(level));
    // One level a shape: all are kept.
    else if (keyword == "NSHAPE") Append(*CVEKA_Manager->NShapeArr, NSHAPEParser(level));
    else if (keyword == "PARTITIONS") Take(CVEKA_Manager->PartitionDBArr, PARTITIONParser(level));
}
