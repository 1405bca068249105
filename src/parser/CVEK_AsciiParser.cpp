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
    for (CECadClsLvl* level : *tree.m_pRootLevels) ParseSection(level);
    return 1;
}

void CVEK_AsciiParser::ParseSection(CECadClsLvl* level) {
    const CString& keyword = level->m_strName;
    if (keyword == "VEK") Take(CVEKA_Manager->VEK, VEKParser(level));
}
