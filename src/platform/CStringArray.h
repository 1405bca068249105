#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "platform/Assert.h"
#include "platform/CString.h"
#include "platform/Exceptions.h"

/// The toolkit's type for sizes and indices of arrays.
using INT_PTR = std::ptrdiff_t;

/// Growable array of byte strings. An index outside the array raises `CInvalidArgException`, a size that does
/// not fit into 31 bits `std::length_error`.
///
/// The strings of an array can be in memory that belongs to something else. The array moves them to memory of
/// its own when it grows.
class VEKA_API CStringArray {
public:
    CStringArray() noexcept = default;
    CStringArray(const CStringArray& other) : CStringArray() { Append(other); }
    /// Takes over the strings. The result has memory of its own; the program ends if there is no memory for
    /// that.
    CStringArray(CStringArray&& other) noexcept {
        if (other.m_size > other.m_capacity) other.Reserve(other.m_size);
        Swap(other);
    }
    ~CStringArray() { Free(); }
    CStringArray& operator=(const CStringArray& other);
    CStringArray& operator=(CStringArray&& other) noexcept {
        CStringArray taken(std::move(other));
        Swap(taken);
        return *this;
    }

    /// An array that takes over strings, but not their memory, which must live as long as the strings are
    /// there. `size` is below 2^31.
    static CStringArray InMemoryOf(CString* strings, std::uint32_t size) noexcept {
        VEKA_ASSERT(size <= kLargestSize && (strings || size == 0));
        return CStringArray(strings, size);
    }

    /// True if the array or one of its strings has memory that the destructor frees.
    bool OwnsMemory() const noexcept {
        if (m_capacity > 0) return true;
        for (const CString& text : *this)
            if (text.OwnsMemory()) return true;
        return false;
    }

    INT_PTR GetSize() const noexcept { return m_size; }
    INT_PTR GetCount() const noexcept { return GetSize(); }
    INT_PTR GetUpperBound() const noexcept { return GetSize() - 1; }
    bool IsEmpty() const noexcept { return m_size == 0; }

    const CString& GetAt(INT_PTR index) const { return m_strings[Checked(index)]; }
    CString& ElementAt(INT_PTR index) { return m_strings[Checked(index)]; }
    const CString& operator[](INT_PTR index) const { return GetAt(index); }
    CString& operator[](INT_PTR index) { return ElementAt(index); }
    void SetAt(INT_PTR index, CString text) { ElementAt(index) = std::move(text); }

    /// Stores a string at an index, which may be after the end. Then the array grows, and the new strings
    /// before the index are empty.
    void SetAtGrow(INT_PTR index, CString text) {
        if (index < 0) AfxThrowInvalidArgException();
        if (index >= GetSize()) SetSize(std::min(index, kLargestSize) + 1);
        ElementAt(index) = std::move(text);
    }

    /// Shortens the array, or appends empty strings. A negative size is an invalid argument.
    void SetSize(INT_PTR size);

    /// Appends a string and returns its index.
    INT_PTR Add(CString text) {
        if (m_size >= m_capacity) Grow(INT_PTR{m_size} + 1);
        std::construct_at(m_strings + m_size, std::move(text));
        return m_size++;
    }
    /// Appends copies of all strings of the other array, which may be this one; returns the old size.
    INT_PTR Append(const CStringArray& other);
    /// Replaces the content by copies of the other array's strings.
    void Copy(const CStringArray& other) { *this = other; }

    void InsertAt(INT_PTR index, CString text);
    void RemoveAt(INT_PTR index, INT_PTR count = 1);
    void RemoveAll() { SetSize(0); }

    const CString* begin() const noexcept { return m_strings; }
    const CString* end() const noexcept { return m_strings + m_size; }

    friend bool operator==(const CStringArray& a, const CStringArray& b) noexcept {
        return a.m_size == b.m_size && std::equal(a.begin(), a.end(), b.begin());
    }

private:
    static constexpr INT_PTR kLargestSize = INT32_MAX;

    CStringArray(CString* strings, std::uint32_t size) noexcept : m_strings(strings), m_size(size) {}

    size_t Checked(INT_PTR index) const {
        if (index < 0 || index >= GetSize()) AfxThrowInvalidArgException();
        return static_cast<size_t>(index);
    }
    void Swap(CStringArray& other) noexcept {
        std::swap(m_strings, other.m_strings);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }
    /// Makes room for a size, and for more: an array that grows will grow again.
    void Grow(INT_PTR size);
    void Reserve(INT_PTR capacity);
    void Free() noexcept;

    CString* m_strings = nullptr;
    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = 0;  // 0 where the strings are in memory that is not the array's
};
