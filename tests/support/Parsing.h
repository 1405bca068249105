#pragma once

#include <memory>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <vector>

#include "files/MemoryLines.h"
#include "leveltree/CECadCls.h"
#include "parser/CVEK_AsciiParser.h"
#include "support/Files.h"

namespace test {

/// The level tree of a text; its levels are valid as long as the tree.
inline std::unique_ptr<CECadCls> ReadTree(std::string_view text) {
    auto tree = std::make_unique<CECadCls>();
    veka::MemoryLines lines(text);
    tree->ReadLevelTreeFrom(lines, 0);
    return tree;
}

/// The fresh result of one parser method on the first level of a text.
template <class Result>
std::unique_ptr<Result> Parse(Result* (CVEK_AsciiParser::*method)(CECadClsLvl*), std::string_view text) {
    const auto tree = ReadTree(text);
    if (tree->m_pRootLevels->IsEmpty()) throw std::logic_error("the text holds no level");
    CVEK_AsciiParser parser;
    return std::unique_ptr<Result>((parser.*method)(tree->m_pRootLevels->GetAt(0)));
}

/// The parser after the import of a whole file.
inline std::unique_ptr<CVEK_AsciiParser> Import(std::string_view text) {
    const TemporaryDirectory directory;
    auto parser = std::make_unique<CVEK_AsciiParser>();
    parser->SetVEKAsciiFilePath(directory.Write("part.veka", text));
    if (parser->Parser() != 1) throw std::logic_error("the import did not return 1");
    return parser;
}

/// The strings of a list.
inline std::vector<std::string> Strings(const CStringArray& list) {
    std::vector<std::string> strings;
    for (const CString& text : list) strings.emplace_back(text.View());
    return strings;
}

/// The strings that a list accessor of a record fills in.
template <class Record, class Class>
std::vector<std::string> Strings(const Record& record, void (Class::*getter)(CStringArray&) const) {
    CStringArray list;
    (record.*getter)(list);
    return Strings(list);
}

}  // namespace test
