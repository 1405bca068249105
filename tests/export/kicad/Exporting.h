#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "export/kicad/KiCad.h"
#include "support/Parsing.h"

namespace test {

/// The first footprint of a part.
inline kicad::Exported FootprintOf(const std::string& part, const std::string& model = "") {
    const auto parser = Import(part);
    const drawing::Part drawn(*parser->GetCVEKA_Manager());
    return kicad::ExportFootprint(drawn, *drawn.DefaultFootprint(), model);
}

/// A footprint with one pin "1" whose padstack has some content. `pads` are more pads than P, D and S.
inline kicad::Exported PadOf(const std::string& padstack, const std::string& pads = "",
                             const std::string& place = "(PT 3 4)") {
    return FootprintOf(
        "(PADS (PAD (PADNAME P) (FILLRECT (W 2) (H 1) (PT 0 0))) (PAD (PADNAME C) (FILLCIRCLE (D 1.6)))"
        " (PAD (PADNAME D) (FILLCIRCLE (D 0.8))) (PAD (PADNAME S) (OBLONG (W 1) (H 0.5)))" +
        pads + ") (PADSTACKS (PADSTACK (PADSTACKNAME X) " + padstack +
        ")) (FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 1 (LIBPADSTACK X) " + place + "))))");
}

/// The lines of a text that begin with some words after their blanks, without these blanks.
inline std::vector<std::string> LinesWith(const std::string& text, const std::string& begin) {
    std::vector<std::string> found;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find('\n', at);
        const std::string line = text.substr(at, end - at);
        const std::size_t first = line.find_first_not_of(' ');
        if (first != line.npos && line.compare(first, begin.size(), begin) == 0)
            found.push_back(line.substr(first));
        if (end == text.npos) break;
        at = end + 1;
    }
    return found;
}

/// Expects that each parenthesis outside of texts has its other one.
inline void ExpectBalanced(const std::string& text) {
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (quoted && text[i] == '\\') {
            ++i;
        } else if (text[i] == '"') {
            quoted = !quoted;
        } else if (!quoted) {
            depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
            ASSERT_GE(depth, 0);
        }
    }
    EXPECT_EQ(depth, 0);
    EXPECT_FALSE(quoted);
}

}  // namespace test
