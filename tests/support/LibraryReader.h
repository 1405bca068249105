#pragma once

#include <string>

#include "files/MemoryLines.h"
#include "leveltree/LevelReader.h"
#include "leveltree/Messages.h"
#include "support/LevelData.h"

namespace test {

/// A level of the library's reader as plain data.
inline LevelData ToData(const CECadClsLvl& level) {
    LevelData data;
    data.name = level.m_strName.View();
    data.depth = level.m_nDepth;
    for (const CString& value : level.m_aValues) data.values.emplace_back(value.View());
    for (const CECadClsLvl* child : *level.m_pChildren) data.children.push_back(ToData(*child));
    return data;
}

/// The outcome of the library's reader for a text.
inline ReadResult ReadByLibrary(std::string_view text, bool stopAtDepthZero = false, int reserved = 0) {
    ReadResult out;
    veka::Pages pages;
    const auto take = [&](const CECadClsLvl* level, int line) {
        out.roots.push_back(ToData(*level));
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

}  // namespace test
