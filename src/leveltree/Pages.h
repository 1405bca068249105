#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include "platform/Assert.h"
#include "platform/Export.h"

namespace veka {

/// Memory that is allocated piece by piece and freed as a whole.
///
/// Pages can be shared: made with `new`, they are deleted when their last user ends.
class VEKA_API Pages {
public:
    Pages() = default;
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    /// Adds users to the first one, who made the pages.
    void AddUsers(std::size_t count) noexcept { m_users.fetch_add(count, std::memory_order_relaxed); }
    /// Ends users, in any thread. Without users the pages delete themselves.
    void EndUsers(std::size_t count) noexcept {
        VEKA_ASSERT(count > 0 && count <= m_users);
        if (m_users.fetch_sub(count, std::memory_order_acq_rel) == count) delete this;
    }
    /// The deleter of a pointer that is a user.
    struct EndUser {
        void operator()(Pages* pages) const noexcept { pages->EndUsers(1); }
    };

    /// Number of bytes after the last piece that can be written, until the next piece is allocated.
    static constexpr std::size_t kWritable = 64;

    /// Uninitialised memory for an object of any type. It is valid until `Reset`, or as long as the pages.
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
    /// Frees all pieces, and keeps the memory for the next ones. Only the first user is left.
    void Reset() noexcept;

private:
    static constexpr std::size_t kAlignment = 8;

    void NextPage(std::size_t size);

    struct Page {
        std::unique_ptr<std::byte[]> memory;
        std::size_t size;
    };
    std::vector<Page> m_pages;
    std::size_t m_used = 0;       // pages in use; the pages after them are kept for later
    std::byte* m_free = nullptr;  // in the last page in use
    std::byte* m_end = nullptr;
    std::atomic<std::size_t> m_users{1};
};

}  // namespace veka
