#pragma once

#include <utility>

/// A sub-record that lives inside its owner and is used as a pointer that is never null.
///
/// A copy copies the content, so two owners never share a sub-record. The sub-record of a constant owner can
/// be changed, as with a pointer.
template <class T>
class Owned {
public:
    T* get() const noexcept { return &m_value; }
    T* operator->() const noexcept { return &m_value; }
    T& operator*() const noexcept { return m_value; }
    operator T*() const noexcept { return &m_value; }

private:
    mutable T m_value{};
};
