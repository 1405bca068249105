#include "leveltree/Pages.h"

#include <algorithm>

namespace veka {

namespace {

// Pages of this size come from the allocator's own store. Larger ones would be fetched from the system each
// time, and fresh memory costs more than reading.
constexpr std::size_t kPage = std::size_t{64} * 1024;

}  // namespace

void Pages::NextPage(std::size_t size) {
    if (m_used == m_pages.size() || m_pages[m_used].size < size) {
        const std::size_t whole = std::max(size, kPage);
        m_pages.insert(m_pages.begin() + static_cast<std::ptrdiff_t>(m_used),
                       {std::make_unique_for_overwrite<std::byte[]>(whole + kWritable), whole});
    }
    const Page& page = m_pages[m_used++];
    m_free = page.memory.get();
    m_end = m_free + page.size;
}

void Pages::Reset() noexcept {
    m_used = 0;
    m_free = m_end = nullptr;
}

}  // namespace veka
