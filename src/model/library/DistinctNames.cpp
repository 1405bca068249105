#include "model/library/DistinctNames.h"

#include <functional>

namespace {

// Up to here a walk is faster than a search.
constexpr INT_PTR kShort = 16;

}  // namespace

DistinctNames& DistinctNames::operator=(const DistinctNames& other) {
    if (this == &other) return *this;
    m_names = other.m_names;
    m_positions.reset();
    return *this;
}

void DistinctNames::Add(const CString& name) {
    if (!Contains(name.View())) m_names.Add(name);
}

void DistinctNames::Add(const DistinctNames& names) {
    if (this == &names) return;  // nothing of it is new
    for (const CString& name : names.m_names) Add(name);
}

void DistinctNames::RemoveAll() noexcept {
    m_names.RemoveAll();
    m_positions.reset();
}

bool DistinctNames::Contains(std::string_view name) {
    if (m_names.GetSize() <= kShort) {
        for (const CString& known : m_names)
            if (known == name) return true;
        return false;
    }
    const std::hash<std::string_view> hash;
    if (!m_positions) m_positions = std::make_unique<std::unordered_multimap<std::size_t, INT_PTR>>();
    for (auto next = static_cast<INT_PTR>(m_positions->size()); next < m_names.GetSize(); ++next)
        m_positions->emplace(hash(m_names[next].View()), next);
    const auto [begin, end] = m_positions->equal_range(hash(name));
    for (auto found = begin; found != end; ++found)
        if (m_names[found->second] == name) return true;
    return false;
}
