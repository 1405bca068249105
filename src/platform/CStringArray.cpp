#include "platform/CStringArray.h"

#include <algorithm>
#include <stdexcept>

CStringArray& CStringArray::operator=(const CStringArray& other) {
    if (this == &other) return *this;
    if (other.m_size > m_capacity) return *this = CStringArray(other);
    const CString* last = std::copy_n(other.m_strings, std::min(m_size, other.m_size), m_strings);
    if (m_size > other.m_size)
        std::destroy(m_strings + other.m_size, m_strings + m_size);
    else
        std::uninitialized_copy(other.begin() + (last - m_strings), other.end(), m_strings + m_size);
    m_size = other.m_size;
    return *this;
}

void CStringArray::SetSize(INT_PTR size) {
    if (size < 0) AfxThrowInvalidArgException();
    if (size > m_capacity && size > m_size) Reserve(size);
    const auto number = static_cast<std::uint32_t>(size);
    if (number > m_size)
        std::uninitialized_value_construct(m_strings + m_size, m_strings + number);
    else
        std::destroy(m_strings + number, m_strings + m_size);
    m_size = number;
}

INT_PTR CStringArray::Append(const CStringArray& other) {
    const std::uint32_t old = m_size, count = other.m_size;
    if (count == 0) return old;
    if (INT_PTR{old} + count > m_capacity) old == 0 ? Reserve(count) : Grow(INT_PTR{old} + count);
    std::uninitialized_copy_n(other.m_strings, count, m_strings + old);
    m_size += count;
    return old;
}

void CStringArray::InsertAt(INT_PTR index, CString text) {
    if (index < 0) AfxThrowInvalidArgException();
    if (index >= GetSize()) return SetAtGrow(index, std::move(text));
    Add(std::move(text));
    std::rotate(m_strings + index, m_strings + m_size - 1, m_strings + m_size);
}

void CStringArray::RemoveAt(INT_PTR index, INT_PTR count) {
    if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
        AfxThrowInvalidArgException();
    std::move(m_strings + index + count, m_strings + m_size, m_strings + index);
    SetSize(m_size - count);
}

void CStringArray::Grow(INT_PTR size) {
    Reserve(std::max<INT_PTR>({size, 2 * INT_PTR{m_capacity}, 4}));
}

void CStringArray::Reserve(INT_PTR capacity) {
    if (capacity > kLargestSize) throw std::length_error("an array of more than 2^31 - 1 texts");
    auto* strings = static_cast<CString*>(::operator new(static_cast<size_t>(capacity) * sizeof(CString)));
    std::uninitialized_move(m_strings, m_strings + m_size, strings);  // moving a string does not throw
    Free();
    m_strings = strings;
    m_capacity = static_cast<std::uint32_t>(capacity);
}

/// Ends the strings and frees their memory. The members stay as they are.
void CStringArray::Free() noexcept {
    std::destroy(m_strings, m_strings + m_size);
    if (m_capacity > 0) ::operator delete(m_strings);
}
