#include "leveltree/QuoteLookAhead.h"

#include <algorithm>
#include <cstring>

namespace veka {

namespace {

// Above this the states of an index could not be numbered.
constexpr std::size_t kMaximumIndexed = UINT32_MAX / 4;

}  // namespace

void QuoteLookAhead::StartLine(std::string_view line, std::size_t limit) {
    m_line = line;
    m_limit = line.size() > kMaximumIndexed ? SIZE_MAX : limit;
    m_work = 0;
    if (m_index) {
        m_index.reset();
        m_repeats.clear();
    }
}

void QuoteLookAhead::StartString(std::size_t begin) {
    m_string = begin;
    m_position = m_matched = 0;
    m_state = 0;
    m_stateLength = 0;
}

bool QuoteLookAhead::EndsAt(std::size_t quote) {
    const std::size_t length = quote + 1 - m_string;
    if (!m_index && m_work >= m_limit) m_index = std::make_unique<SubstringIndex>(m_line);
    const std::size_t first = FirstOccurrence(length);
    const std::size_t behind = BehindRepeats(first, length);
    return behind < m_line.size() && m_line[behind] == ')';
}

std::size_t QuoteLookAhead::FirstOccurrence(std::size_t length) {
    if (m_index) return FirstOccurrenceByIndex(length);
    // The first occurrence never moves left while the chunk grows.
    const char* chunk = m_line.data() + m_string;
    while (m_position < m_string) {
        const char* candidate = m_line.data() + m_position;
        const std::size_t before = m_matched;
        while (m_matched < length && candidate[m_matched] == chunk[m_matched]) ++m_matched;
        if (m_matched == length) return m_position;
        const void* next = std::memchr(candidate + 1, chunk[0], m_string - m_position - 1);
        const std::size_t position =
            next ? static_cast<std::size_t>(static_cast<const char*>(next) - m_line.data()) : m_string;
        m_work += m_matched - before + position - m_position;
        m_position = position;
        m_matched = 0;
        if (m_work >= m_limit) {
            m_index = std::make_unique<SubstringIndex>(m_line);
            return FirstOccurrenceByIndex(length);
        }
    }
    return m_position;
}

std::size_t QuoteLookAhead::FirstOccurrenceByIndex(std::size_t length) {
    for (; m_stateLength < length; ++m_stateLength)
        m_state = m_index->Next(m_state, m_line[m_string + m_stateLength]);
    return m_index->FirstEnd(m_state) - length;
}

std::size_t QuoteLookAhead::BehindRepeats(std::size_t position, std::size_t length) {
    if (m_index) return BehindRepeatsByIndex(position, length);
    const std::string_view chunk = m_line.substr(position, length);
    std::size_t behind = position + length;
    while (behind < m_line.size() && m_line[behind] == chunk[0] &&
           m_line.compare(behind, length, chunk) == 0) {
        behind += length;
        m_work += length;
    }
    return behind;
}

std::size_t QuoteLookAhead::BehindRepeatsByIndex(std::size_t position, std::size_t length) {
    const std::string_view text = m_line.substr(position);
    if (length >= text.size() || text[length] != text[0]) return position + length;
    Repeats& repeats = m_repeats[position];
    for (std::size_t d = repeats.common.size(); d <= length; ++d) {
        std::size_t common =
            d < repeats.right ? std::min(repeats.right - d, repeats.common[d - repeats.left]) : 0;
        while (d + common < text.size() && text[common] == text[d + common]) ++common;
        if (d + common > repeats.right) {
            repeats.left = d;
            repeats.right = d + common;
        }
        repeats.common.push_back(common);
    }
    return position + length * (1 + repeats.common[length] / length);
}

QuoteLookAhead::SubstringIndex::SubstringIndex(std::string_view line) {
    m_states.reserve(2 * line.size() + 1);
    m_states.emplace_back();
    std::uint32_t last = 0;
    for (const char byte : line) {
        const auto current = static_cast<std::uint32_t>(m_states.size());
        m_states.emplace_back();
        m_states[current].length = m_states[last].length + 1;
        m_states[current].firstEnd = m_states[current].length;
        std::uint32_t p = last;
        for (; p != kNone && !Find(p, byte); p = m_states[p].link) AddEdge(p, byte, current);
        if (p == kNone) {
            m_states[current].link = 0;
        } else {
            const std::uint32_t q = Find(p, byte)->target;
            if (m_states[q].length == m_states[p].length + 1) {
                m_states[current].link = q;
            } else {
                const std::uint32_t clone = Clone(q, m_states[p].length + 1);
                for (; p != kNone; p = m_states[p].link) {
                    Edge* edge = Find(p, byte);
                    if (!edge || edge->target != q) break;
                    edge->target = clone;
                }
                m_states[q].link = clone;
                m_states[current].link = clone;
            }
        }
        last = current;
    }
}

std::uint32_t QuoteLookAhead::SubstringIndex::Next(std::uint32_t state, char byte) const {
    std::uint32_t edge = m_states[state].firstEdge;
    while (m_edges[edge].byte != byte) edge = m_edges[edge].next;
    return m_edges[edge].target;
}

QuoteLookAhead::SubstringIndex::Edge* QuoteLookAhead::SubstringIndex::Find(std::uint32_t state, char byte) {
    for (std::uint32_t edge = m_states[state].firstEdge; edge != kNone; edge = m_edges[edge].next)
        if (m_edges[edge].byte == byte) return &m_edges[edge];
    return nullptr;
}

void QuoteLookAhead::SubstringIndex::AddEdge(std::uint32_t state, char byte, std::uint32_t target) {
    m_edges.push_back({target, m_states[state].firstEdge, byte});
    m_states[state].firstEdge = static_cast<std::uint32_t>(m_edges.size() - 1);
}

std::uint32_t QuoteLookAhead::SubstringIndex::Clone(std::uint32_t state, std::uint32_t length) {
    const auto clone = static_cast<std::uint32_t>(m_states.size());
    m_states.push_back({length, m_states[state].link, m_states[state].firstEnd, kNone});
    for (std::uint32_t edge = m_states[state].firstEdge; edge != kNone; edge = m_edges[edge].next) {
        const Edge copied = m_edges[edge];
        AddEdge(clone, copied.byte, copied.target);
    }
    return clone;
}

}  // namespace veka
