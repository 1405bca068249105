#include "model/library/DistinctNames.h"

#include <functional>

namespace {

// Up to here a walk is faster than a search.
constexpr INT_PTR kShort = 16;

std::uint32_t Hash(std::string_view name) {
    const std::size_t hash = std::hash<std::string_view>()(name);
    return static_cast<std::uint32_t>(hash ^ hash >> 16 >> 16);
}

}  // namespace

DistinctNames& DistinctNames::operator=(const DistinctNames& other) {
    if (this == &other) return *this;
    m_names = other.m_names;
    m_index.reset();
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
    m_index.reset();
}

bool DistinctNames::Contains(std::string_view name) {
    if (m_names.GetSize() <= kShort) {
        for (const CString& known : m_names)
            if (known == name) return true;
        return false;
    }
    if (!m_index) m_index = std::make_unique<Index>();
    while (m_index->Count() < m_names.GetSize()) m_index->Add(Hash(m_names[m_index->Count()].View()));
    return m_index->Find(Hash(name), [&](INT_PTR position) { return m_names[position] == name; });
}

void DistinctNames::Index::Add(std::uint32_t hash) {
    // At most half of the slots are taken.
    if (2 * static_cast<std::size_t>(m_count + 1) > m_slots.size()) {
        std::vector<std::uint64_t> former(2 * m_slots.size());
        former.swap(m_slots);
        for (const std::uint64_t slot : former)
            if (slot != 0) Put(slot);
    }
    ++m_count;
    Put(std::uint64_t{hash} << 32 | static_cast<std::uint32_t>(m_count));
}

void DistinctNames::Index::Put(std::uint64_t slot) {
    std::size_t i = slot >> 32 & Mask();
    while (m_slots[i] != 0) i = (i + 1) & Mask();
    m_slots[i] = slot;
}
