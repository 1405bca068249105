#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/CStringArray.h"

/// A list of distinct names in the order of their first appearance. To add a name takes the same time however
/// long the list is, and whatever names it holds.
class VEKA_API DistinctNames {
public:
    DistinctNames() = default;
    DistinctNames(const DistinctNames& other) : m_names(other.m_names) {}
    DistinctNames(DistinctNames&&) noexcept = default;
    DistinctNames& operator=(const DistinctNames& other);
    DistinctNames& operator=(DistinctNames&&) noexcept = default;

    const CStringArray& Names() const noexcept { return m_names; }
    /// Appends a name, unless the list has the name already.
    void Add(const CString& name);
    /// Adds each name of a list, in its order.
    void Add(const DistinctNames& names);
    /// Appends all names of a list. A name can be in this list twice afterwards.
    void Append(const DistinctNames& names) { m_names.Append(names.m_names); }
    void RemoveAll() noexcept;

private:
    /// The positions of the names in the list, by the hashes of the names: a hash table with linear probing.
    class Index {
    public:
        /// Number of names in the index. They are the first names of the list.
        INT_PTR Count() const noexcept { return m_count; }
        void Add(std::uint32_t hash);
        /// Calls `match` with the position of each name of this hash until `match` returns true. Returns
        /// false if `match` never returns true.
        template <class Match>
        bool Find(std::uint32_t hash, Match match) const {
            for (std::size_t i = hash & Mask(); m_slots[i] != 0; i = (i + 1) & Mask())
                if (m_slots[i] >> 32 == hash && match(static_cast<INT_PTR>(m_slots[i] & UINT32_MAX) - 1))
                    return true;
            return false;
        }

    private:
        std::size_t Mask() const noexcept { return m_slots.size() - 1; }
        void Put(std::uint64_t slot);

        // The hash in the upper half, the position plus 1 in the lower half; 0 where the slot is free.
        std::vector<std::uint64_t> m_slots = std::vector<std::uint64_t>(64);
        INT_PTR m_count = 0;
    };

    bool Contains(std::string_view name);

    CStringArray m_names;
    std::unique_ptr<Index> m_index;  // made and completed when a long list is searched
};
