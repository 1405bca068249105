#pragma once

#include <algorithm>
#include <memory>
#include <unordered_set>

#include "platform/CArray.h"

/// Owning array of pointers: its destructor deletes the elements that are not null.
/// Elements are compared as pointers, never by content.
template <class TYPE, class ARG_TYPE>
class CExPtrArray : public CArray<TYPE, ARG_TYPE> {
    using Base = CArray<TYPE, ARG_TYPE>;

public:
    using Element = std::remove_pointer_t<TYPE>;

    CExPtrArray() = default;
    ~CExPtrArray() override { DeleteAll(); }

    bool IsValidIndex(INT_PTR index) const noexcept { return index >= 0 && index < this->m_nSize; }
    /// The element, or null outside the array. Elements of a constant array are constant here and in loops.
    /// The operators of `CArray` give the pointers as they are. They raise `CInvalidArgException` outside the
    /// array.
    TYPE GetAt(INT_PTR index) noexcept { return IsValidIndex(index) ? this->m_pData[index] : nullptr; }
    const Element* GetAt(INT_PTR index) const noexcept {
        return IsValidIndex(index) ? this->m_pData[index] : nullptr;
    }
    /// Stores an element at a valid index. The old element is not deleted. Does nothing at any other index.
    void SetAt(INT_PTR index, ARG_TYPE element) noexcept {
        if (IsValidIndex(index)) this->m_pData[index] = element;
    }
    /// The last element, or null if there is none.
    TYPE GetLastElement() noexcept { return GetAt(this->m_nSize - 1); }
    const Element* GetLastElement() const noexcept { return GetAt(this->m_nSize - 1); }

    TYPE* begin() noexcept { return this->m_pData; }
    TYPE* end() noexcept { return this->m_pData + this->m_nSize; }
    const Element* const* begin() const noexcept { return this->m_pData; }
    const Element* const* end() const noexcept { return this->m_pData + this->m_nSize; }

    bool Exists(ARG_TYPE element) const noexcept { return FindIndex(element) >= 0; }
    /// Index of the first occurrence, or -1.
    INT_PTR FindIndex(ARG_TYPE element) const noexcept {
        const auto* found = std::find(begin(), end(), element);
        return found == end() ? -1 : found - begin();
    }

    /// Appends an element. The array owns it from then on. If there is no memory, the element is deleted.
    INT_PTR Add(std::unique_ptr<Element> element) {
        const INT_PTR index = Base::Add(element.get());
        (void)element.release();
        return index;
    }
    INT_PTR Add(ARG_TYPE element) { return Base::Add(element); }
    /// Appends an element that is not there yet and returns its index; otherwise -1.
    INT_PTR Add_if_only_do_not_exists(ARG_TYPE element) { return Exists(element) ? -1 : Base::Add(element); }

    /// Takes the first occurrence out without deleting it; false if there is none.
    bool Remove(ARG_TYPE element) {
        const INT_PTR index = FindIndex(element);
        if (index < 0) return false;
        this->RemoveAt(index);
        return true;
    }
    /// Takes the last element out without deleting it and returns it; null if there is none.
    TYPE RemoveLastElement() {
        if (this->IsEmpty()) return nullptr;
        TYPE last = GetLastElement();
        this->RemoveAt(this->m_nSize - 1);
        return last;
    }

    /// Takes the first occurrence out and deletes it; false if there is none.
    bool Delete(ARG_TYPE element) {
        const TYPE kept = element;
        if (!Remove(kept)) return false;
        delete kept;
        return true;
    }
    /// `count` times: deletes the element at `index` and closes the gap. An index outside the array
    /// raises `CInvalidArgException`; a count below 1 does nothing.
    void DeleteAt(INT_PTR index, INT_PTR count = 1) {
        for (; count > 0; --count) {
            if (!IsValidIndex(index)) AfxThrowInvalidArgException();
            const TYPE element = this->m_pData[index];
            this->RemoveAt(index);
            delete element;
        }
    }
    /// Deletes the last element and shortens the array; false if there is none.
    bool DeleteLastElement() {
        if (this->IsEmpty()) return false;
        delete RemoveLastElement();
        return true;
    }
    /// Deletes all elements and frees the storage.
    void DeleteAll() {
        for (TYPE element : *this) delete element;
        this->SetSize(0);
    }

    /// Moves the elements `first` to `last` to the end of `target`, in their order, and closes the gap.
    /// False, with nothing done, if `last` is below `first`; a range outside the array raises
    /// `CInvalidArgException`.
    bool MoveElementTo(CExPtrArray& target, INT_PTR first, INT_PTR last) {
        if (last < first) return false;
        if (!IsValidIndex(first) || !IsValidIndex(last)) AfxThrowInvalidArgException();
        if (&target == this) {
            std::rotate(this->m_pData + first, this->m_pData + last + 1, this->m_pData + this->m_nSize);
            return true;
        }
        const INT_PTR count = last - first + 1;
        const INT_PTR old = target.m_nSize;
        target.SetSize(old + count);
        std::copy(this->m_pData + first, this->m_pData + last + 1, target.m_pData + old);
        this->RemoveAt(first, count);
        return true;
    }
    /// `Remove` for each element of the other array, in its order.
    void Subtract(const CExPtrArray& other) {
        if (&other == this) return this->RemoveAll();
        for (INT_PTR i = 0; i < other.m_nSize; ++i) Remove(other.m_pData[i]);
    }
    void Reverse() noexcept { std::reverse(this->begin(), this->end()); }
    /// True if both hold the same pointers in the same order.
    bool IsElementEqual(const CExPtrArray& other) const noexcept {
        return std::equal(this->begin(), this->end(), other.begin(), other.end());
    }

    const CRuntimeClass* GetRuntimeClass() const override {
        static const CRuntimeClass runtimeClass{"CExPtrArray"};
        return &runtimeClass;
    }

    /// Takes every null element out.
    virtual void RemoveNullElement() { this->CutAt(std::remove(this->begin(), this->end(), nullptr)); }
    /// Keeps the first occurrence of each pointer and takes the later ones out, without deleting them.
    virtual void RemoveDuplicatedElements() {
        std::unordered_set<const void*> seen;
        this->CutAt(std::remove_if(this->begin(), this->end(),
                                   [&](TYPE element) { return !seen.insert(element).second; }));
    }
};
