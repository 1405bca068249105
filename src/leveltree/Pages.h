#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/Export.h"

namespace veka {

/// Memory that is taken piece by piece and freed as a whole.
class VEKA_API Pages {
public:
    /// Bytes behind what was taken last that can be written, too, until more is taken.
    static constexpr std::size_t kWritable = 64;

    /// Memory for an object of any type, uninitialised. It lives until `Reset`, or as long as the pages.
    void* Take(std::size_t size) {
        size = (size + kAlignment - 1) & ~(kAlignment - 1);
        if (size > static_cast<std::size_t>(m_end - m_free)) NextPage(size);
        void* memory = m_free;
        m_free += size;
        return memory;
    }
    template <class T>
    T* Take(std::size_t count) {
        static_assert(alignof(T) <= kAlignment);
        return static_cast<T*>(Take(count * sizeof(T)));
    }
    /// Takes all memory back, and keeps it for what comes.
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
