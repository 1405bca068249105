#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace veka {

/// Tells whether a string ends at a double quote that stands behind a backslash.
///
/// The rule, for a chunk made of the string's bytes on this line up to and including the quote: delete
/// everything before the chunk's first occurrence in the line, then remove every occurrence of the chunk;
/// the string ends if what is left begins with a close parenthesis. Since the first occurrence may lie
/// before the string, the test can see other bytes than those behind the quote.
///
/// Answering each quote in that way is quadratic in a line full of escaped quotes. Here a string's search
/// goes on from where its last one stood, and when a line has cost too much, an index of the line answers.
class QuoteLookAhead {
public:
    /// Begins a line, whose bytes must stay where they are until the next one.
    void StartLine(std::string_view line) { StartLine(line, 16 * line.size() + 65536); }
    /// As above; the line gets an index after `limit` steps of search.
    void StartLine(std::string_view line, std::size_t limit);
    /// Begins a string whose first byte stands at `begin`.
    void StartString(std::size_t begin);
    /// True if the string ends at the quote at index `quote`. Quotes are asked about from left to right.
    bool EndsAt(std::size_t quote);

private:
    /// The first end of every substring of a line: its suffix automaton.
    class SubstringIndex {
    public:
        explicit SubstringIndex(std::string_view line);
        /// The state of a string one byte longer, which must be a substring.
        std::uint32_t Next(std::uint32_t state, char byte) const;
        /// Index behind the first occurrence of the strings of a state.
        std::size_t FirstEnd(std::uint32_t state) const { return m_states[state].firstEnd; }

    private:
        static constexpr std::uint32_t kNone = UINT32_MAX;
        struct State {
            std::uint32_t length = 0;
            std::uint32_t link = kNone;
            std::uint32_t firstEnd = 0;
            std::uint32_t firstEdge = kNone;
        };
        struct Edge {
            std::uint32_t target;
            std::uint32_t next;
            char byte;
        };

        Edge* Find(std::uint32_t state, char byte);
        void AddEdge(std::uint32_t state, char byte, std::uint32_t target);
        std::uint32_t Clone(std::uint32_t state, std::uint32_t length);

        std::vector<State> m_states;
        std::vector<Edge> m_edges;
    };
    /// How far the bytes from one position on repeat themselves: the Z function, made as far as asked for.
    struct Repeats {
        std::vector<std::size_t> common{0};  // common[d]: bytes that agree at the position and d behind it
        std::size_t left = 0, right = 0;     // the agreeing range that reaches furthest
    };

    std::size_t FirstOccurrence(std::size_t length);
    std::size_t FirstOccurrenceByIndex(std::size_t length);
    std::size_t BehindRepeats(std::size_t position, std::size_t length);
    std::size_t BehindRepeatsByIndex(std::size_t position, std::size_t length);

    std::string_view m_line;
    std::size_t m_limit = 0;  // of m_work
    std::size_t m_work = 0;
    std::size_t m_string = 0;    // where the string begins
    std::size_t m_position = 0;  // of the first occurrence of the chunk
    std::size_t m_matched = 0;   // bytes known to agree there

    std::unique_ptr<SubstringIndex> m_index;
    std::uint32_t m_state = 0;      // of the chunk in the index
    std::size_t m_stateLength = 0;  // of the part of the chunk that has been followed
    std::unordered_map<std::size_t, Repeats> m_repeats;
};

}  // namespace veka
