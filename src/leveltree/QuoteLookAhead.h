#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "leveltree/ChunkIndex.h"

namespace veka {

/// Tells whether a string ends at a double quote that follows a backslash.
///
/// The rule, for a chunk made of the string's bytes on this line up to and including the quote: delete
/// everything before the chunk's first occurrence in the line, then remove every occurrence of the chunk.
/// The string ends if what is left begins with a close parenthesis. Q29: the first occurrence can be
/// to the left of the string, so the test does not always look at the bytes after the quote.
///
/// The rule costs the square of the line's length if each quote is tested from scratch. Here the search for
/// the chunk of a string continues where the search for the string's last chunk ended. After too many steps
/// of such searches in one line, an index of the line gives the answers.
class QuoteLookAhead {
public:
    /// Begins a line. Its bytes must stay where they are until the next line begins.
    void StartLine(std::string_view line) { StartLine(line, 16 * line.size() + 4096); }
    /// Begins a line that gets an index after `limit` steps of search.
    void StartLine(std::string_view line, std::size_t limit);
    /// Begins a string whose first byte on this line is at `begin`. Strings begin from left to right.
    void StartString(std::size_t begin);
    /// True if the string ends at the quote at `quote`, which follows a backslash or is the first byte of the
    /// line. The quotes of a string are tested from left to right.
    bool EndsAt(std::size_t quote);

private:
    std::size_t AfterFirstRun(std::size_t quote);
    void FindFirst(std::size_t length);
    std::size_t AfterRepeats(std::size_t length);
    void Step(std::size_t steps);

    std::string_view m_line;
    std::size_t m_limit = 0;  // of m_steps
    std::size_t m_steps = 0;
    std::size_t m_string = 0;    // where the string begins
    std::size_t m_position = 0;  // the first occurrence of the chunk is here or to the right
    std::size_t m_matched = 0;   // number of bytes at m_position that are known to equal the chunk's
    std::unique_ptr<ChunkIndex> m_index;
};

}  // namespace veka
