#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <type_traits>

namespace veka {

/// A stack of elements that are moved as bytes, and whose destructors have nothing to do.
template <class T>
class Stack {
public:
    /// Makes room for one element on top; the caller constructs it.
    T* Push() {
        if (m_top == m_end) Grow();
        return m_top++;
    }
    /// The last elements; `count` of them must be there.
    std::span<T> Last(std::size_t count) const noexcept { return {m_top - count, count}; }
    /// Takes the last elements off.
    void Pop(std::size_t count) noexcept { m_top -= count; }

private:
    void Grow() {
        const auto size = static_cast<std::size_t>(m_top - m_begin);
        const std::size_t capacity = size > 0 ? 2 * size : 64;
        std::unique_ptr<std::byte[]> memory(new std::byte[capacity * sizeof(T)]);
        if (size > 0) std::memcpy(memory.get(), m_memory.get(), size * sizeof(T));
        m_memory = std::move(memory);
        m_begin = reinterpret_cast<T*>(m_memory.get());
        m_top = m_begin + size;
        m_end = m_begin + capacity;
    }

    std::unique_ptr<std::byte[]> m_memory;
    T* m_begin = nullptr;
    T* m_top = nullptr;
    T* m_end = nullptr;
};

}  // namespace veka
