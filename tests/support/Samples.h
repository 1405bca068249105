#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Grammar.h"
#include "support/Files.h"

namespace test {

/// Numbers that are the same in every run.
class Random {
public:
    explicit Random(std::uint32_t seed) : m_state(seed * 2654435761u + 1) {}
    unsigned operator()() {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 17;
        m_state ^= m_state << 5;
        return m_state;
    }

private:
    std::uint32_t m_state;
};

/// Files of the right shape with odd values, missing levels and levels too many.
inline std::vector<std::string> GeneratedFiles(unsigned count) {
    const fuzz::Grammar grammar({veka::FromPath(ProjectFolder("tests") / "data" / "complete.veka")});
    std::vector<std::string> files;
    for (unsigned i = 0; i < count; ++i) {
        Random random(i + 1);
        std::string choices;
        for (unsigned size = 20 + random() % 1500; size > 0; --size)
            choices += static_cast<char>(random() % 256);
        files.push_back(grammar.Make(choices));
    }
    return files;
}

/// The files in the page of the format.
inline std::vector<std::string> FilesOfThePage() {
    std::vector<std::string> files;
    const std::string page = ReadFile(ProjectFolder("docs") / "format.md");
    for (std::size_t at = 0; (at = page.find("```veka\n", at)) != std::string::npos;) {
        at += 8;
        files.push_back(page.substr(at, page.find("```", at) - at));
    }
    return files;
}

}  // namespace test
