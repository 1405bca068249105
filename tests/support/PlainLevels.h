#pragma once

#include <string>
#include <vector>

#include "files/MemoryLines.h"
#include "leveltree/LevelReader.h"
#include "leveltree/Messages.h"
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

/// The outcome of the library's reader for a text.
inline PlainResult ReadAsPlain(std::string_view text, bool stopAtDepthZero = false, int reserved = 0) {
    PlainResult out;
    veka::Pages pages;
    const auto take = [&](const CECadClsLvl* level, int line) {
        out.roots.push_back(Plain(*level));
        out.rootLines.push_back(line);
    };
    veka::LevelReader reader(pages, take, {static_cast<char>(reserved), stopAtDepthZero});
    veka::MemoryLines lines(text);
    const veka::LevelsRead read = reader.Read(lines);
    out.result = read.structure == veka::LevelsRead::Structure::Balanced ? 0 : -1;
    out.lineCount = reader.LineCount();
    if (read.stopped) {
        CString message;
        message.Format(veka::messages::kUnexpectedBrace, read.depth, out.lineCount);
        out.message = message.View();
    }
    for (const auto& level : read.open) out.open.push_back({std::string(level.name.View()), level.line});
    if (read.structure == veka::LevelsRead::Structure::StrayParenthesis) out.strayLine = read.breakLine;
    out.openString = read.openString;
    return out;
}

/// The levels at the end of a path of names, in a tree of the plain reader: the content of a file without the
/// help of the parser.
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
