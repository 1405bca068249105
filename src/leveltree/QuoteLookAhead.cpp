#include "leveltree/QuoteLookAhead.h"

#include <cstring>

#include "platform/Assert.h"
#include "platform/Watch.h"

namespace veka {

namespace {

// A search or a comparison by the C library takes at least as long as this many steps over one byte.
constexpr std::size_t kStepsOfCall = 8;

}  // namespace

void QuoteLookAhead::StartLine(std::string_view line, std::size_t limit) {
    m_line = line;
    m_limit = limit;
    m_steps = 0;
    m_index.reset();
}

void QuoteLookAhead::StartString(std::size_t begin) {
    VEKA_ASSERT(begin <= m_line.size());
    m_string = begin;
    m_position = m_matched = 0;
}

bool QuoteLookAhead::EndsAt(std::size_t quote) {
    VEKA_ASSERT(quote >= m_string && quote < m_line.size() && m_line[quote] == '"');
    VEKA_ASSERT(quote == 0 || m_line[quote - 1] == '\\');
    const std::size_t after = AfterFirstRun(quote);
    return after < m_line.size() && m_line[after] == ')';
}

/// The position after the first occurrence of the chunk and after the repeats that directly follow there.
std::size_t QuoteLookAhead::AfterFirstRun(std::size_t quote) {
    const std::size_t length = quote + 1 - m_string;
    if (length == 1) return m_line.find_first_not_of('"', m_line.find('"'));
    if (m_steps < m_limit) FindFirst(length);
    if (m_steps < m_limit) return AfterRepeats(length);
    if (!m_index) m_index = ChunkIndex::Make(m_line);
    return m_index->AfterFirstRun(quote, length);
}

/// Moves m_position to the first occurrence of the chunk, or as far as the steps reach.
void QuoteLookAhead::FindFirst(std::size_t length) {
    // The first occurrence never moves left while the chunk grows.
    const char* chunk = m_line.data() + m_string;
    while (m_position < m_string && m_steps < m_limit) {
        const char* candidate = m_line.data() + m_position;
        const std::size_t before = m_matched;
        while (m_matched < length && candidate[m_matched] == chunk[m_matched]) ++m_matched;
        if (m_matched == length) return;
        const void* next = std::memchr(candidate + 1, chunk[0], m_string - m_position - 1);
        const std::size_t position =
            next ? static_cast<std::size_t>(static_cast<const char*>(next) - m_line.data()) : m_string;
        Step(kStepsOfCall + m_matched - before + position - m_position);
        m_position = position;
        m_matched = 0;
    }
}

/// Counts steps of search.
void QuoteLookAhead::Step(std::size_t steps) {
    constexpr std::size_t kSteps = std::size_t{1} << 20;
    if (m_steps / kSteps != (m_steps + steps) / kSteps) Watch::Tick();
    m_steps += steps;
}

std::size_t QuoteLookAhead::AfterRepeats(std::size_t length) {
    const std::string_view chunk = m_line.substr(m_position, length);
    std::size_t after = m_position + length;
    while (after < m_line.size() && m_line[after] == chunk[0]) {
        Step(kStepsOfCall + length / 8);
        if (m_line.compare(after, length, chunk) != 0) break;
        after += length;
    }
    return after;
}

}  // namespace veka
