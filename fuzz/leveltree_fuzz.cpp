// Any bytes through the level reader; every level of the tree is then looked at.

#include "CostLimit.h"
#include "InputFile.h"
#include "files/MemoryLines.h"
#include "leveltree/CECadCls.h"
#include "support/ScriptedUserInterface.h"

namespace {

/// Sums up what a tree holds, so that every byte of it is read.
std::size_t Visit(const CECadClsLvlArray& levels) {
    std::size_t sum = 0;
    for (const CECadClsLvl* level : levels) {
        sum += level->m_strName.View().size() + static_cast<std::size_t>(level->m_nDepth);
        for (const CString& value : level->m_aValues)
            for (const char byte : value.View()) sum += static_cast<unsigned char>(byte);
        sum += Visit(*level->m_pChildren);
    }
    return sum;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::CostLimit limit(size);
    test::ScriptedUserInterface user;
    CECadCls tree;
    veka::MemoryLines lines(fuzz::View(data, size));
    const int result = tree.ReadLevelTreeFrom(lines, 0);
    volatile std::size_t sum = Visit(*tree.m_pRootLevels);
    (void)sum;
    return result == 0 || result == -1 ? 0 : -1;
}
