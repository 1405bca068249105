#pragma once

#include <map>

#include "model/CVEKA_Manager.h"

namespace drawing {

/// The records of a list by a name; of several with one name the first one counts.
template <class Record>
class NameIndex {
public:
    template <class Array, class Getter>
    NameIndex(const Array& records, Getter name) {
        for (const Record* record : records)
            if (record) m_records.try_emplace((record->*name)(), record);
    }
    /// The record of a name, or null. An empty name means none.
    const Record* Find(const CString& name) const {
        if (name.IsEmpty()) return nullptr;
        const auto found = m_records.find(name);
        return found == m_records.end() ? nullptr : found->second;
    }

private:
    /// The order of the bytes: no names make a search slow, as they could with a hash.
    struct Before {
        bool operator()(const CString& a, const CString& b) const noexcept { return a.View() < b.View(); }
    };
    std::map<CString, const Record*, Before> m_records;
};

}  // namespace drawing
