#include "leveltree/Pages.h"

#include <algorithm>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

#include "platform/Watch.h"

namespace veka {

namespace {

// The allocator keeps memory for pages of the first size. It would fetch larger pages from the system for
// each small file. The later a page is allocated, the larger it is.
constexpr std::size_t kPage = std::size_t{64} * 1024;
constexpr std::size_t kLargestPage = std::size_t{1024} * 1024;

/// Asks the system for new memory at once. That costs a quarter less than a page fault for each 4 KB.
void Fetch([[maybe_unused]] std::byte* memory, [[maybe_unused]] std::size_t size) {
#ifdef MADV_POPULATE_WRITE
    static const auto systemPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t ahead = -reinterpret_cast<std::uintptr_t>(memory) & (systemPage - 1);
    memory += ahead;
    size = (size - ahead) & ~(systemPage - 1);
    // Memory that was in use before is there already. To ask for all of it would cost a fifth of the reading.
    unsigned char there = 0;
    if (mincore(memory + size - systemPage, systemPage, &there) == 0 && (there & 1) == 0)
        (void)madvise(memory, size, MADV_POPULATE_WRITE);
#endif
}

}  // namespace

void Pages::NextPage(std::size_t size) {
    if (m_used == m_pages.size() || m_pages[m_used].size < size) {
        const std::size_t next = std::clamp(m_pages.size() / 8 * kPage, kPage, kLargestPage);
        const std::size_t whole = std::max(size, next);
        Watch::Take(whole);
        m_pages.insert(m_pages.begin() + static_cast<std::ptrdiff_t>(m_used),
                       {std::make_unique_for_overwrite<std::byte[]>(whole + kWritable), whole});
        if (next > kPage) Fetch(m_pages[m_used].memory.get(), next);
    }
    const Page& page = m_pages[m_used++];
    m_free = page.memory.get();
    m_end = m_free + page.size;
}

void Pages::Reset() noexcept {
    m_used = 0;
    m_free = m_end = nullptr;
    m_users = 1;
}

}  // namespace veka
