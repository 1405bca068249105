#include "parser/CVEK_AsciiParser.h"

#include "leveltree/CECadCls.h"
#include "model/CVEKA_Manager.h"
#include "model/RecordMemory.h"
#include "parser/Sections.h"

CVEK_AsciiParser::CVEK_AsciiParser() : CVEKA_Manager(new ::CVEKA_Manager) {}

CVEK_AsciiParser::CVEK_AsciiParser(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser& CVEK_AsciiParser::operator=(const CVEK_AsciiParser& other) = default;

CVEK_AsciiParser::~CVEK_AsciiParser() {
    delete CVEKA_Manager;
}

int CVEK_AsciiParser::Parser() {
    CECadCls tree;
    tree.m_strFilePath = VEKAsciiFilePath;
    const veka::RecordMemory::ImportScope import;
    veka::Sections sections(*this);
    // Unbalanced levels are no reason to drop what did close.
    // The parser methods take levels that are not constant, but change none.
    tree.ReadTopLevels(0, [&](const CECadClsLvl* level) { sections.Read(const_cast<CECadClsLvl*>(level)); });
    sections.MoveIntoModel();
    return 1;
}
