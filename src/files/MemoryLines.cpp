#include "files/MemoryLines.h"

#include <algorithm>

namespace veka {

namespace {

// A reader of lines looks at the lines twice, so a block is to stay in the processor's cache.
constexpr std::size_t kBlock = std::size_t{64} * 1024;

}  // namespace

bool MemoryLines::ReadLines(std::string_view& lines) {
    if (m_rest.empty()) return false;
    if (m_rest.size() > kReadable) {
        // After each line up to here the text itself has enough bytes.
        const std::string_view head = m_rest.substr(0, m_rest.size() - kReadable);
        std::size_t feed = head.rfind('\n', kBlock - 1);
        if (feed == std::string_view::npos) feed = head.find('\n', kBlock);
        if (feed != std::string_view::npos) {
            lines = m_rest.substr(0, feed + 1);
            m_rest.remove_prefix(feed + 1);
            return true;
        }
    }
    constexpr std::string_view lineEnd = "\r\n";
    const std::size_t size = m_rest.size() + lineEnd.size() + kReadable;
    m_watched.Replace(size);
    m_tail = std::make_unique_for_overwrite<char[]>(size);
    char* end = std::ranges::copy(m_rest, m_tail.get()).out;
    if (end[-1] != '\n') end = std::ranges::copy(lineEnd, end).out;
    std::fill_n(end, kReadable, '\0');
    lines = {m_tail.get(), end};
    m_rest = {};
    return true;
}

}  // namespace veka
