#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/CString.h"
#include "platform/Exceptions.h"

/// The toolkit's type for sizes and indices of arrays.
using INT_PTR = std::ptrdiff_t;

/// Growable array of byte strings. An index outside the array raises `CInvalidArgException`.
class CStringArray {
public:
    INT_PTR GetSize() const noexcept { return static_cast<INT_PTR>(m_strings.size()); }
    INT_PTR GetCount() const noexcept { return GetSize(); }
    INT_PTR GetUpperBound() const noexcept { return GetSize() - 1; }
    bool IsEmpty() const noexcept { return m_strings.empty(); }

    const CString& GetAt(INT_PTR index) const { return m_strings[Checked(index)]; }
    CString& ElementAt(INT_PTR index) { return m_strings[Checked(index)]; }
    const CString& operator[](INT_PTR index) const { return GetAt(index); }
    CString& operator[](INT_PTR index) { return ElementAt(index); }
    void SetAt(INT_PTR index, CString text) { m_strings[Checked(index)] = std::move(text); }

    /// Stores at any index from 0 on; the array grows by empty strings up to there.
    void SetAtGrow(INT_PTR index, CString text) {
        if (index < 0) AfxThrowInvalidArgException();
        if (index >= GetSize()) SetSize(index + 1);
        m_strings[static_cast<size_t>(index)] = std::move(text);
    }

    /// Cuts the array off, or lets it grow by empty strings. A negative size is an invalid argument.
    void SetSize(INT_PTR size) {
        if (size < 0) AfxThrowInvalidArgException();
        m_strings.resize(static_cast<size_t>(size));
    }

    /// Appends a string and returns its index.
    INT_PTR Add(CString text) {
        m_strings.push_back(std::move(text));
        return GetUpperBound();
    }
    /// Appends copies of all strings of the other array, which may be this one; returns the old size.
    INT_PTR Append(const CStringArray& other) {
        const size_t old = m_strings.size();
        const size_t count = other.m_strings.size();
        m_strings.reserve(old + count);
        for (size_t i = 0; i < count; ++i) m_strings.push_back(other.m_strings[i]);
        return static_cast<INT_PTR>(old);
    }
    /// Replaces the content by copies of the other array's strings.
    void Copy(const CStringArray& other) { m_strings = other.m_strings; }

    void InsertAt(INT_PTR index, CString text) {
        if (index < 0) AfxThrowInvalidArgException();
        if (index >= GetSize()) return SetAtGrow(index, std::move(text));
        m_strings.insert(m_strings.begin() + index, std::move(text));
    }
    void RemoveAt(INT_PTR index, INT_PTR count = 1) {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
            AfxThrowInvalidArgException();
        m_strings.erase(m_strings.begin() + index, m_strings.begin() + index + count);
    }
    void RemoveAll() noexcept { m_strings.clear(); }

    auto begin() const noexcept { return m_strings.begin(); }
    auto end() const noexcept { return m_strings.end(); }

    friend bool operator==(const CStringArray&, const CStringArray&) = default;

private:
    size_t Checked(INT_PTR index) const {
        if (index < 0 || index >= GetSize()) AfxThrowInvalidArgException();
        return static_cast<size_t>(index);
    }

    std::vector<CString> m_strings;
};
