#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kicad {

/// A footprint or a symbol in the format of KiCad.
struct Exported {
    std::string name;  ///< in KiCad
    std::string text;
    /// What KiCad cannot hold, and what the part does not have, one sentence each.
    std::vector<std::string> remarks;
};

/// The most bytes that an exported footprint or symbol has. A larger one raises `drawing::TooLarge`.
inline constexpr std::size_t kMostBytes = 100'000'000;

/// Sentences, each of them once.
class Remarks {
public:
    void Add(const std::string& sentence);
    std::vector<std::string> Take() { return std::move(m_sentences); }

private:
    std::vector<std::string> m_sentences;
};

/// Raises `drawing::TooLarge` where a text has become too long.
void RequireRoom(std::size_t bytes);

/// The beginning of a name in quotes, for a sentence.
std::string QuotedName(std::string_view name);

}  // namespace kicad
