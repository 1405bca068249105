#pragma once

#include "parser/Rows.h"
#include "support/Parsing.h"

namespace test {

/// Reads the first level of a text by rows, as a parser method does.
template <class... Row>
void ReadBy(std::string_view text, const Row&... rows) {
    const auto tree = ReadTree(text);
    CVEK_AsciiParser parser;
    veka::FieldReader(parser).Level(veka::Source{tree->m_pRootLevels->GetAt(0), nullptr, 0},
                                    veka::Rows(rows...));
}

}  // namespace test
