#pragma once

#include <cstddef>

#include "platform/Export.h"

namespace veka {

/// The memory of records: that of the allocator, or, while an import runs in the thread, of pages.
///
/// An import makes thousands of records, and their owner deletes them all together in the end. In a page they
/// stand side by side and cost next to nothing. A page is freed with the last of its records, in whatever
/// thread; until then the place of a single record is not used again.
class RecordMemory {
public:
    /// Memory for a record, uninitialised; in a page it is aligned as a pointer is, else as any memory.
    /// Raises `std::bad_alloc`.
    VEKA_API static void* Take(std::size_t size);
    /// Takes the memory of a record back, in whatever thread.
    VEKA_API static void Give(void* memory, std::size_t size) noexcept;

    class Import;

private:
    struct Page;
};

/// While it lives, records that its thread makes stand in pages. The latest one in a thread counts.
class RecordMemory::Import {
public:
    Import() noexcept;
    ~Import();
    Import(const Import&) = delete;
    Import& operator=(const Import&) = delete;

private:
    friend class RecordMemory;
    void NextPage();
    void LeavePage() noexcept;

    Page* m_page = nullptr;  // that is being filled
    std::byte* m_free = nullptr;
    std::byte* m_end = nullptr;
    std::size_t m_taken = 0;  // records of the page
    Import* m_former;
};

}  // namespace veka

/// Lets a class and those derived from it live in the memory of records.
#define VEKA_RECORD_MEMORY(Class)                                          \
public:                                                                    \
    static void* operator new(std::size_t size) {                          \
        static_assert(alignof(Class) <= alignof(void*));                   \
        return ::veka::RecordMemory::Take(size);                           \
    }                                                                      \
    static void operator delete(void* record, std::size_t size) noexcept { \
        ::veka::RecordMemory::Give(record, size);                          \
    }                                                                      \
                                                                           \
private:
