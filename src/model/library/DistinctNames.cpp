#include "model/library/DistinctNames.h"

#include "platform/SipHash.h"

namespace {

// The largest number of names that is searched without the index: the walk is faster than the hash.
constexpr INT_PTR kShort = 16;

// The key is secret, so that a file cannot hold many names of one hash, which would make each search a walk.
std::uint32_t Hash(std::string_view name) {
    return static_cast<std::uint32_t>(veka::SipHash(veka::ProcessKey(), name));
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
    if (this == &names) return;
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
    // At most half of the slots are in use, so that a search is short.
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
