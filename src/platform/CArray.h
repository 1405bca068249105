#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <ostream>
#include <type_traits>
#include <utility>

#include "platform/Assert.h"
#include "platform/CObject.h"
#include "platform/CStringArray.h"
#include "platform/Exceptions.h"

/// The toolkit's growable array, for plain elements such as numbers and pointers.
///
/// Without a grow step the capacity grows by an eighth of the size, at least 4 and at most 1024
/// elements.
///
/// The elements of an array can be in memory that belongs to something else. The array moves them to memory
/// of its own when it grows. An array has at most 2^31 - 1 elements.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
    static_assert(std::is_trivially_copyable_v<TYPE>, "elements are moved as bytes");

public:
    CArray() = default;
    ~CArray() override { FreeBlock(); }

    INT_PTR GetSize() const noexcept { return m_nSize; }
    INT_PTR GetCount() const noexcept { return m_nSize; }
    INT_PTR GetUpperBound() const noexcept { return m_nSize - 1; }
    bool IsEmpty() const noexcept { return m_nSize == 0; }

    /// Sets the size. New elements are zero. A grow step of 0 or more is kept for later growth.
    /// A negative size is an invalid argument. Size 0 frees the storage.
    void SetSize(INT_PTR size, INT_PTR growBy = -1) {
        if (size < 0) AfxThrowInvalidArgException();
        if (growBy >= 0) m_nGrowBy = static_cast<std::int32_t>(std::min(growBy, kLargestSize));
        if (size == 0) {
            FreeBlock();
            m_pData = nullptr;
            m_nSize = m_nMaxSize = 0;
            return;
        }
        if (size > m_nSize) {
            if (size > m_nMaxSize) Reallocate(std::max(size, m_nMaxSize + GrowStep()), size);
            std::fill(m_pData + m_nSize, m_pData + size, TYPE{});
        }
        m_nSize = static_cast<std::int32_t>(size);
    }
    /// Frees storage that is not in use.
    void FreeExtra() {
        if (m_nSize == 0)
            SetSize(0);
        else if (m_nSize < m_nMaxSize)
            Reallocate(m_nSize, m_nSize);
    }
    void RemoveAll() { SetSize(0); }

    /// The element at an index. An index outside the array raises `CInvalidArgException`.
    const TYPE& GetAt(INT_PTR index) const { return m_pData[Checked(index)]; }
    TYPE& ElementAt(INT_PTR index) { return m_pData[Checked(index)]; }
    void SetAt(INT_PTR index, ARG_TYPE element) { m_pData[Checked(index)] = element; }
    const TYPE& operator[](INT_PTR index) const { return m_pData[Checked(index)]; }
    TYPE& operator[](INT_PTR index) { return m_pData[Checked(index)]; }
    /// The elements, one after another in memory. Null as long as there is no storage.
    const TYPE* GetData() const noexcept { return m_pData; }
    TYPE* GetData() noexcept { return m_pData; }

    /// Stores an element at an index, which may be after the end. Then the array grows, and the new elements
    /// before the index are zero.
    void SetAtGrow(INT_PTR index, ARG_TYPE element) {
        if (index < 0) AfxThrowInvalidArgException();
        const TYPE kept = element;  // the argument may be an element, and the elements may move
        if (index >= m_nSize) SetSize(Sum(index, 1));
        m_pData[index] = kept;
    }
    /// Appends an element and returns its index.
    INT_PTR Add(ARG_TYPE element) {
        SetAtGrow(m_nSize, element);
        return m_nSize - 1;
    }
    /// Inserts `count` copies of an element before an index. If the index is after the end, the elements
    /// between are zero.
    void InsertAt(INT_PTR index, ARG_TYPE element, INT_PTR count = 1) {
        if (index < 0 || count < 1) AfxThrowInvalidArgException();
        const TYPE kept = element;
        const INT_PTR old = m_nSize;
        SetSize(Sum(std::max(index, old), count));
        if (index < old) std::copy_backward(m_pData + index, m_pData + old, m_pData + old + count);
        std::fill(m_pData + index, m_pData + index + count, kept);
    }
    /// Takes `count` elements out and closes the gap. A range outside the array raises
    /// `CInvalidArgException`.
    void RemoveAt(INT_PTR index, INT_PTR count = 1) {
        if (index < 0 || count < 0 || index > m_nSize || count > m_nSize - index)
            AfxThrowInvalidArgException();
        std::copy(m_pData + index + count, m_pData + m_nSize, m_pData + index);
        m_nSize -= static_cast<std::int32_t>(count);
    }

    TYPE* begin() noexcept { return m_pData; }
    TYPE* end() noexcept { return m_pData + m_nSize; }
    const TYPE* begin() const noexcept { return m_pData; }
    const TYPE* end() const noexcept { return m_pData + m_nSize; }

    const CRuntimeClass* GetRuntimeClass() const override {
        static const CRuntimeClass runtimeClass{"CArray"};
        return &runtimeClass;
    }
    void AssertValid() const override {
        if (m_nSize < 0 || (m_nMaxSize > 0 && m_nSize > m_nMaxSize) || (m_nSize > 0 && !m_pData))
            AfxThrowInvalidArgException();
    }
    void Dump(std::ostream& out) const override {
        out << GetRuntimeClass()->m_lpszClassName << " with " << m_nSize << " elements\n";
    }

protected:
    /// Exchanges elements and storage with another array.
    void Swap(CArray& other) noexcept {
        std::swap(m_pData, other.m_pData);
        std::swap(m_nSize, other.m_nSize);
        std::swap(m_nMaxSize, other.m_nMaxSize);
        std::swap(m_nGrowBy, other.m_nGrowBy);
    }
    /// Gives elements to an array that is empty, in memory that the array does not free.
    void Borrow(TYPE* elements, std::int32_t count) noexcept {
        VEKA_ASSERT(!m_pData && m_nSize == 0 && count >= 0 && (elements || count == 0));
        m_pData = elements;
        m_nSize = count;
    }
    /// True if the array has memory that the destructor frees.
    bool OwnsMemory() const noexcept { return m_nMaxSize > 0; }
    /// Shortens the array to the elements before one of its places.
    void CutAt(const TYPE* end) noexcept {
        VEKA_ASSERT(end >= m_pData && end <= m_pData + m_nSize);
        m_nSize = static_cast<std::int32_t>(end - m_pData);
    }

    // Sizes of 32 bits: a record has many arrays, and most of them are empty.
    TYPE* m_pData = nullptr;
    std::int32_t m_nSize = 0;
    std::int32_t m_nMaxSize = 0;  // 0 where the elements are in memory that is not the array's
    std::int32_t m_nGrowBy = 0;

private:
    static constexpr INT_PTR kLargestSize = std::numeric_limits<std::int32_t>::max();

    /// The sum of two numbers of elements, neither of which is negative.
    static INT_PTR Sum(INT_PTR a, INT_PTR b) {
        if (a > kLargestSize || b > kLargestSize) throw std::bad_array_new_length();
        return a + b;
    }
    INT_PTR GrowStep() const { return m_nGrowBy > 0 ? m_nGrowBy : std::clamp<INT_PTR>(m_nSize / 8, 4, 1024); }
    INT_PTR Checked(INT_PTR index) const {
        if (index < 0 || index >= m_nSize) AfxThrowInvalidArgException();
        return index;
    }
    /// The number of elements that a block of a capacity has room for: a power of two. Each step of the
    /// capacity may copy all elements, and the steps are small. With blocks of their size the cost would not
    /// be linear.
    static INT_PTR Room(INT_PTR capacity) {
        return static_cast<INT_PTR>(std::bit_ceil(static_cast<size_t>(capacity)));
    }
    /// Makes room for a capacity, or for the size that is needed where the capacity is too large.
    void Reallocate(INT_PTR capacity, INT_PTR needed) {
        if (needed > kLargestSize) throw std::bad_array_new_length();
        capacity = std::min(capacity, kLargestSize);
        if (m_nMaxSize == 0 || Room(capacity) != Room(m_nMaxSize)) {
            void* const own = m_nMaxSize > 0 ? m_pData : nullptr;
            void* block = std::realloc(own, static_cast<size_t>(Room(capacity)) * sizeof(TYPE));
            if (!block) throw std::bad_alloc();
            auto* elements = static_cast<TYPE*>(block);
            if (m_nMaxSize == 0) std::copy_n(m_pData, m_nSize, elements);
            m_pData = elements;
        }
        m_nMaxSize = static_cast<std::int32_t>(capacity);
    }
    void FreeBlock() noexcept {
        if (m_nMaxSize > 0) std::free(m_pData);
    }
};

/// Array of 32-bit integers.
using CArrayN = CArray<int>;
