#pragma once

#include <cstddef>

#include "platform/Export.h"

namespace veka {

/// The memory of records. It comes from the allocator, or from pages while the thread runs an import.
///
/// An import makes thousands of records, and most of them are deleted together. To allocate a record in a
/// page costs almost nothing. A page is freed with its last record, by any thread. Until then the memory of a
/// deleted record is not used again.
class RecordMemory {
public:
    /// Uninitialised memory for a record. Raises `std::bad_alloc`. Outside an import the memory has the
    /// alignment of any other memory; in a page it has the alignment that an object of this size can need.
    VEKA_API static void* Allocate(std::size_t size);
    /// Frees the memory of a record, in any thread.
    VEKA_API static void Free(void* memory, std::size_t size) noexcept;

    class ImportScope;

private:
    struct Page;
};

/// While it lives, the records that its thread makes are allocated in pages. Scopes can be nested: the
/// innermost one has the current page.
class RecordMemory::ImportScope {
public:
    ImportScope() noexcept;
    ~ImportScope();
    ImportScope(const ImportScope&) = delete;
    ImportScope& operator=(const ImportScope&) = delete;

private:
    friend class RecordMemory;
    void BeginPage();
    void EndPage() noexcept;

    Page* m_page = nullptr;  // the page that is being filled
    std::byte* m_free = nullptr;
    std::byte* m_end = nullptr;
    std::size_t m_allocated = 0;  // records in the page
    ImportScope* m_outer;
};

}  // namespace veka

/// Allocates the objects of a class, and of the classes derived from it, in the memory of records.
#define VEKA_RECORD_MEMORY(Class)                                          \
public:                                                                    \
    static void* operator new(std::size_t size) {                          \
        static_assert(alignof(Class) <= alignof(void*));                   \
        return ::veka::RecordMemory::Allocate(size);                       \
    }                                                                      \
    static void operator delete(void* record, std::size_t size) noexcept { \
        ::veka::RecordMemory::Free(record, size);                          \
    }                                                                      \
                                                                           \
private:
