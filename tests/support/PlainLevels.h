#pragma once

#include <string>
#include <vector>

#include "leveltree/CECadCls.h"
#include "support/PlainReader.h"

namespace test {

/// A level of the library's reader as plain data.
inline PlainLevel Plain(const CECadClsLvl& level) {
    PlainLevel plain;
    plain.name = level.m_strName.View();
    plain.depth = level.m_nDepth;
    for (const CString& value : level.m_aValues) plain.values.emplace_back(value.View());
    for (const CECadClsLvl* child : *level.m_pChildren) plain.children.push_back(Plain(*child));
    return plain;
}

/// What the library's reader makes of a file, but for the messages.
inline PlainResult ReadAsPlain(const CString& path, bool stopAtDepthZero = false, int reserved = 0) {
    CECadCls tree;
    tree.m_strFilePath = path;
    tree.m_bStopAtDepthZero = stopAtDepthZero;
    PlainResult out;
    out.result = tree.ReadLevelTree(reserved);
    out.lineCount = tree.m_nLineCount;
    for (const CECadClsLvl* level : *tree.m_pRootLevels) out.roots.push_back(Plain(*level));
    return out;
}

/// The levels at the end of a path of names, in a plainly read tree: what stands in a file, told without the
/// parser.
inline void FindLevels(const std::vector<PlainLevel>& levels, const std::vector<std::string>& path,
                       size_t depth, std::vector<const PlainLevel*>& found) {
    for (const PlainLevel& level : levels) {
        if (level.name != path[depth]) continue;
        if (depth + 1 == path.size())
            found.push_back(&level);
        else
            FindLevels(level.children, path, depth + 1, found);
    }
}
inline std::vector<const PlainLevel*> FindLevels(const std::vector<PlainLevel>& roots,
                                                 const std::vector<std::string>& path) {
    std::vector<const PlainLevel*> found;
    FindLevels(roots, path, 0, found);
    return found;
}

/// Value `index` of each of these levels, -1 being the last; empty where there is none.
inline std::vector<std::string> Values(const std::vector<PlainLevel>& roots,
                                       const std::vector<std::string>& path, int index) {
    std::vector<std::string> values;
    for (const PlainLevel* level : FindLevels(roots, path)) {
        const int at = index < 0 ? static_cast<int>(level->values.size()) - 1 : index;
        values.push_back(at >= 0 && at < static_cast<int>(level->values.size())
                             ? level->values[static_cast<size_t>(at)]
                             : "");
    }
    return values;
}

/// How many of these levels there are.
inline size_t Count(const std::vector<PlainLevel>& roots, const std::vector<std::string>& path) {
    return FindLevels(roots, path).size();
}

}  // namespace test
