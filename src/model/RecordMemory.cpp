#include "model/RecordMemory.h"

#include <atomic>
#include <cstdint>
#include <new>

#include "platform/Watch.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__  // the name that GCC gives it
#endif
#endif
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(memory, size) ((void)(memory), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(memory, size) ((void)(memory), (void)(size))
#endif

namespace veka {

namespace {

constexpr std::size_t kPageSize = std::size_t{32} * 1024;

}  // namespace

struct RecordMemory::Page {
    /// Added to the number of living records while the page is being filled, so that the number cannot reach
    /// 0.
    static constexpr std::size_t kOpen = SIZE_MAX / 2;
    std::atomic<std::size_t> living{kOpen};

    /// Subtracts from the number of living records, and frees the page at 0.
    void Release(std::size_t count) noexcept {
        if (living.fetch_sub(count, std::memory_order_acq_rel) != count) return;
        Watch::Free(kPageSize);
        ::operator delete(this);
    }
};

namespace {

// A larger record gets a block of its own. It is often moved into its parent and deleted soon, and a page
// would keep its memory.
constexpr std::size_t kLargestInPage = 2048;
// The bytes before a record hold the pointer to its page, or null.
constexpr std::size_t kHeader = sizeof(void*);
// Records need this alignment. A class that a host derives from a record may need that of any other memory.
constexpr std::size_t kAlignment = alignof(void*);
constexpr std::size_t kLargestAlignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
// Before a record outside of pages.
constexpr std::size_t kOwnHeader = kLargestAlignment;

thread_local RecordMemory::ImportScope* t_scope = nullptr;

/// The bytes from a free place to the end of a record there: the gap before the record, its header and the
/// record.
std::size_t SpaceFor(const std::byte* free, std::size_t size) noexcept {
    // The size of an object is a multiple of its alignment, so that most sizes show a small alignment.
    const std::size_t alignment = size % kLargestAlignment == 0 ? kLargestAlignment : kAlignment;
    const std::size_t gap = -(reinterpret_cast<std::uintptr_t>(free) + kHeader) & (alignment - 1);
    return gap + kHeader + ((size + kAlignment - 1) & ~(kAlignment - 1));
}

}  // namespace

void* RecordMemory::Allocate(std::size_t size) {
    ImportScope* scope = t_scope;
    std::byte* record;
    Page* page = nullptr;
    if (scope && size <= kLargestInPage) {
        std::size_t space = SpaceFor(scope->m_free, size);
        if (space > static_cast<std::size_t>(scope->m_end - scope->m_free)) {
            scope->BeginPage();
            space = SpaceFor(scope->m_free, size);
        }
        scope->m_free += space;
        record = scope->m_free - ((size + kAlignment - 1) & ~(kAlignment - 1));
        ++scope->m_allocated;
        page = scope->m_page;
        ASAN_UNPOISON_MEMORY_REGION(record - kHeader, kHeader + size);
    } else {
        Watch::Take(kOwnHeader + size);
        record = static_cast<std::byte*>(::operator new(kOwnHeader + size)) + kOwnHeader;
    }
    ::new (record - kHeader) Page*(page);
    return record;
}

void RecordMemory::Free(void* memory, std::size_t size) noexcept {
    auto* record = static_cast<std::byte*>(memory);
    Page* page = *std::launder(reinterpret_cast<Page**>(record - kHeader));
    if (page) {
        ASAN_POISON_MEMORY_REGION(record - kHeader, kHeader + size);
        page->Release(1);
    } else {
        Watch::Free(kOwnHeader + size);
        ::operator delete(record - kOwnHeader);
    }
}

RecordMemory::ImportScope::ImportScope() noexcept : m_outer(t_scope) {
    t_scope = this;
}

RecordMemory::ImportScope::~ImportScope() {
    EndPage();
    t_scope = m_outer;
}

/// Begins a page that has room for any record.
void RecordMemory::ImportScope::BeginPage() {
    static_assert(sizeof(Page) + kLargestAlignment + kHeader + kLargestInPage <= kPageSize);
    EndPage();
    Watch::Take(kPageSize);
    auto* memory = static_cast<std::byte*>(::operator new(kPageSize));
    m_page = ::new (memory) Page;
    m_free = memory + sizeof(Page);
    m_end = memory + kPageSize;
    ASAN_POISON_MEMORY_REGION(m_free, kPageSize - sizeof(Page));
}

/// Leaves the page to its records, the last of which frees it.
void RecordMemory::ImportScope::EndPage() noexcept {
    if (!m_page) return;
    m_page->Release(Page::kOpen - m_allocated);
    m_page = nullptr;
    m_free = m_end = nullptr;
    m_allocated = 0;
}

}  // namespace veka
