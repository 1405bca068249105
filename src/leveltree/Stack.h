#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <utility>

#include "platform/Assert.h"

#include "platform/Watch.h"

namespace veka {

/// A stack of elements that are moved as bytes, and that are never destroyed.
template <class T>
class Stack {
public:
    /// Number of elements after the top that can be read. Their values do not matter.
    static constexpr std::size_t kReadable = 3;
    /// A place on the stack, in bytes above its bottom. Unlike a pointer it stays valid when the stack grows.
    enum class Height : std::size_t {};

    Stack() { m_top = Grow(nullptr); }

    /// The place after the last element, where the next element is constructed. There is always room for it.
    T* Top() const noexcept { return m_top; }
    void SetTop(T* top) noexcept {
        VEKA_ASSERT(top >= m_begin && top < m_end);
        m_top = top;
    }
    /// Takes the element that was constructed there.
    void Push() { m_top = Pushed(m_top); }
    /// As `Push`, for a caller that keeps the top in a variable of its own. Returns the new top.
    T* Pushed(T* top) {
        VEKA_ASSERT(top >= m_begin && top < m_end);
        return ++top == m_end ? Grow(top) : top;
    }
    /// The last elements; `count` of them must be there.
    std::span<T> Last(std::size_t count) const noexcept {
        VEKA_ASSERT(count <= Size());
        return {m_top - count, count};
    }
    /// Takes the last elements off; `count` of them must be there.
    void Pop(std::size_t count) noexcept {
        VEKA_ASSERT(count <= Size());
        m_top -= count;
    }

    /// Takes the last elements off and puts another one there; `count` of them must be there.
    void Replace(std::size_t count, T element) {
        VEKA_ASSERT(count <= Size());
        T* const top = m_top - count;
        new (top) T(element);
        m_top = Pushed(top);
    }

    /// The height of a place, and the place of a height.
    Height HeightOf(T* place) const noexcept { return Height(Bytes(place) - Bytes(m_begin)); }
    T* At(Height height) const noexcept {
        return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(m_begin) + static_cast<std::size_t>(height));
    }

private:
    std::size_t Size() const noexcept { return static_cast<std::size_t>(m_top - m_begin); }
    T* Grow(T* top) {
        const auto size = static_cast<std::size_t>(top - m_begin);
        const std::size_t capacity = size > 0 ? 2 * size : 64;
        m_watched.Replace((capacity + kReadable) * sizeof(T));
        std::unique_ptr<std::byte[]> memory(new std::byte[(capacity + kReadable) * sizeof(T)]);
        if (size > 0) std::memcpy(memory.get(), m_memory.get(), size * sizeof(T));
        m_memory = std::move(memory);
        m_begin = reinterpret_cast<T*>(m_memory.get());
        m_end = m_begin + capacity;
        return m_begin + size;
    }
    static std::size_t Bytes(T* place) noexcept { return reinterpret_cast<std::size_t>(place); }

    WatchedMemory m_watched;
    std::unique_ptr<std::byte[]> m_memory;
    T* m_begin = nullptr;
    T* m_top = nullptr;
    T* m_end = nullptr;
};

}  // namespace veka
