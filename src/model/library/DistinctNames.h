#pragma once

#include <memory>
#include <string_view>
#include <unordered_map>

#include "platform/CStringArray.h"

/// A list of names in the order of their first appearance. Adding one costs no walk of a long list.
class VEKA_API DistinctNames {
public:
    DistinctNames() = default;
    DistinctNames(const DistinctNames& other) : m_names(other.m_names) {}
    DistinctNames(DistinctNames&&) noexcept = default;
    DistinctNames& operator=(const DistinctNames& other);
    DistinctNames& operator=(DistinctNames&&) noexcept = default;

    const CStringArray& Names() const noexcept { return m_names; }
    /// Appends a name that is not there yet.
    void Add(const CString& name);
    /// Adds each name of a list, in its order.
    void Add(const DistinctNames& names);
    /// Appends a list as it stands: a name can then be there twice.
    void Append(const DistinctNames& names) { m_names.Append(names.m_names); }
    void RemoveAll() noexcept;

private:
    bool Contains(std::string_view name);

    CStringArray m_names;
    // Positions of the names by their hashes; made, and brought up to date, when a long list is searched.
    std::unique_ptr<std::unordered_multimap<std::size_t, INT_PTR>> m_positions;
};
