#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/Export.h"

namespace veka {

/// Memory that is allocated piece by piece and freed as a whole.
class VEKA_API Pages {
public:
    /// Bytes after the last piece that can be written too, until the next piece is allocated.
    static constexpr std::size_t kWritable = 64;

    /// Memory for an object of any type, uninitialised. It lives until `Reset`, or as long as the pages.
    void* Allocate(std::size_t size) {
        size = (size + kAlignment - 1) & ~(kAlignment - 1);
        if (size > static_cast<std::size_t>(m_end - m_free)) NextPage(size);
        void* memory = m_free;
        m_free += size;
        return memory;
    }
    template <class T>
    T* Allocate(std::size_t count) {
        static_assert(alignof(T) <= kAlignment);
        return static_cast<T*>(Allocate(count * sizeof(T)));
    }
    /// Frees all pieces, and keeps the memory for the next ones.
    void Reset() noexcept;

private:
    static constexpr std::size_t kAlignment = 8;

    void NextPage(std::size_t size);

    struct Page {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };
    std::vector<Page> m_pages;
    std::size_t m_used = 0;       // pages in use; behind them stand those that are kept
    std::byte* m_free = nullptr;  // in the last page in use
    std::byte* m_end = nullptr;
};

}  // namespace veka
