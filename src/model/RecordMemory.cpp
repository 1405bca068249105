#include "model/RecordMemory.h"

#include <atomic>
#include <cstdint>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__  // as GCC tells it
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(memory, size) ((void)(memory), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(memory, size) ((void)(memory), (void)(size))
#endif

namespace veka {

struct RecordMemory::Page {
    /// Records that live in the page. While it is being filled, those that died count down from this number.
    static constexpr std::size_t kOpen = SIZE_MAX / 2;
    std::atomic<std::size_t> live{kOpen};

    /// Takes records off; the page ends with the last.
    void Release(std::size_t count) noexcept {
        if (live.fetch_sub(count, std::memory_order_acq_rel) == count) ::operator delete(this);
    }
};

namespace {

constexpr std::size_t kPage = std::size_t{32} * 1024;
// A larger record has a block of its own: it may be a fresh result, and its place would be lost.
constexpr std::size_t kLargest = 2048;
// In front of each record stands the page that it is in, or null.
constexpr std::size_t kHeader = sizeof(void*);
// Outside of pages a record has the alignment of any other memory: a host's own class may ask for it.
constexpr std::size_t kOwnHeader = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

thread_local RecordMemory::Import* t_import = nullptr;

}  // namespace

void* RecordMemory::Take(std::size_t size) {
    const std::size_t whole = kHeader + ((size + kHeader - 1) & ~(kHeader - 1));
    Import* import = t_import;
    std::byte* record;
    Page* page = nullptr;
    if (import && size <= kLargest) {
        if (whole > static_cast<std::size_t>(import->m_end - import->m_free)) import->NextPage();
        record = import->m_free + kHeader;
        import->m_free += whole;
        ++import->m_taken;
        page = import->m_page;
        ASAN_UNPOISON_MEMORY_REGION(record - kHeader, kHeader + size);
    } else {
        record = static_cast<std::byte*>(::operator new(kOwnHeader + size)) + kOwnHeader;
    }
    ::new (record - kHeader) Page*(page);
    return record;
}

void RecordMemory::Give(void* memory, std::size_t size) noexcept {
    auto* record = static_cast<std::byte*>(memory);
    Page* page = *std::launder(reinterpret_cast<Page**>(record - kHeader));
    if (page) {
        ASAN_POISON_MEMORY_REGION(record - kHeader, kHeader + size);
        page->Release(1);
    } else {
        ::operator delete(record - kOwnHeader);
    }
}

RecordMemory::Import::Import() noexcept : m_former(t_import) {
    t_import = this;
}

RecordMemory::Import::~Import() {
    LeavePage();
    t_import = m_former;
}

/// Begins a page, which has room for any record.
void RecordMemory::Import::NextPage() {
    static_assert(sizeof(Page) + kHeader + kLargest <= kPage);
    LeavePage();
    auto* memory = static_cast<std::byte*>(::operator new(kPage));
    m_page = ::new (memory) Page;
    m_free = memory + sizeof(Page);
    m_end = memory + kPage;
    ASAN_POISON_MEMORY_REGION(m_free, kPage - sizeof(Page));
}

/// Leaves the page to its records.
void RecordMemory::Import::LeavePage() noexcept {
    if (!m_page) return;
    m_page->Release(Page::kOpen - m_taken);
    m_page = nullptr;
    m_free = m_end = nullptr;
    m_taken = 0;
}

}  // namespace veka
