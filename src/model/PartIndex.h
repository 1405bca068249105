#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "model/CVEKA_Manager.h"

namespace veka {

/// The records of one list, found by their names. Nulls and empty names are left out. Of several records of
/// one name the first one is found.
template <class Record>
class NameIndex {
public:
    template <class Name>
    NameIndex(const CExPtrArray<Record*, Record*>& list, Name name) {
        m_entries.reserve(static_cast<std::size_t>(list.GetSize()));
        for (const Record* record : list)
            if (record) Add(name(*record), record);
        std::stable_sort(m_entries.begin(), m_entries.end(), Less);
        const auto same = [](const Entry& a, const Entry& b) { return a.name == b.name; };
        m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), same), m_entries.end());
    }
    /// The record of a name, or null.
    const Record* Find(std::string_view name) const {
        const auto found =
            std::lower_bound(m_entries.begin(), m_entries.end(), name,
                             [](const Entry& a, std::string_view b) { return a.name.View() < b; });
        return found != m_entries.end() && found->name.View() == name ? found->record : nullptr;
    }

private:
    struct Entry {
        CString name;
        const Record* record;
    };
    static bool Less(const Entry& a, const Entry& b) { return a.name < b.name; }
    void Add(CString name, const Record* record) {
        if (!name.IsEmpty()) m_entries.push_back({std::move(name), record});
    }

    std::vector<Entry> m_entries;  // in the order of their names
};

/// Finds the records of a part by the names that other records have for them. To make the index costs a time
/// of n log n, and a search log n, whatever the names are.
///
/// The index is valid as long as the part, and until the part changes.
class VEKA_API PartIndex {
public:
    explicit PartIndex(const CVEKA_Manager& part);

    const CVEKA_Manager& Part() const noexcept { return m_part; }

    // The record of a name; null where the name leads nowhere.
    const CVEKA_Pad* Pad(std::string_view name) const { return m_pads.Find(name); }
    const CVEKA_PadStack* PadStack(std::string_view name) const { return m_padStacks.Find(name); }
    const CVEKA_FootprintDB* Footprint(std::string_view name) const { return m_footprints.Find(name); }
    const CVEKA_NSHAPE* PinShape(std::string_view name) const { return m_pinShapes.Find(name); }
    const CVEKA_PartitionDB* LibraryPartition(std::string_view name) const { return m_partitions.Find(name); }
    const CVEKA_Package* Package(std::string_view name) const { return m_packages.Find(name); }
    const CVEKA_Symbol* Symbol(std::string_view name) const { return m_symbols.Find(name); }
    const CVEKA_ElectricalPin* ElectricalPin(std::string_view name) const { return m_pins.Find(name); }

    /// The package to use by default: the one that the part names, or else its first one. Null if it has
    /// none.
    const CVEKA_Package* DefaultPackage() const;
    /// The footprint to use by default: the one that a package names, or else the first one. Null if there is
    /// none. The package may be null.
    const CVEKA_FootprintDB* DefaultFootprint(const CVEKA_Package* package) const;
    /// The symbol to use by default: the one that the part names, or else its first one. Null if it has none.
    const CVEKA_Symbol* DefaultSymbol() const;

    /// The pin of a partition's library partition that draws a pin of the partition: they have the same place
    /// in their lists. Null where there is none.
    const CVEKA_PartitionDBPin* DrawnPin(const CVEKA_Partition& partition, INT_PTR place) const;

private:
    const CVEKA_Manager& m_part;
    NameIndex<CVEKA_Pad> m_pads;
    NameIndex<CVEKA_PadStack> m_padStacks;
    NameIndex<CVEKA_FootprintDB> m_footprints;
    NameIndex<CVEKA_NSHAPE> m_pinShapes;
    NameIndex<CVEKA_PartitionDB> m_partitions;
    NameIndex<CVEKA_Package> m_packages;
    NameIndex<CVEKA_Symbol> m_symbols;
    NameIndex<CVEKA_ElectricalPin> m_pins;
};

/// A name that a record has for another one, and that leads nowhere.
struct DeadName {
    const char* field;  ///< that holds the name, with its class
    CString holder;     ///< name of the record that has the field; empty for a record without a name
    CString name;
};

/// The names of packages, footprints, padstacks, pads, symbols, library partitions and pin shapes that lead
/// nowhere, in the order of the records. Empty names refer to nothing and are left out.
VEKA_API std::vector<DeadName> FindDeadNames(const PartIndex& index);

/// What the views of a part say about one pin. A view that does not have the pin is null or empty.
struct JoinedPin {
    /// A pin of a symbol.
    struct InSymbol {
        const CVEKA_Partition* partition;
        const CVEKA_PartitionPin* pin;
        const CVEKA_PartitionDBPin* drawn;  ///< the pin of the library partition, or null
    };

    CString name;
    const CVEKA_ElectricalPin* electrical = nullptr;
    const CVEKA_LogicPin* logic = nullptr;
    const CVEKA_PackagePin* package = nullptr;
    std::vector<const CVEKA_FootprintPin*> footprint;  ///< several where one pin has several pads
    std::vector<InSymbol> symbol;
};

/// Joins the pins of all views of a part by their names: electrical pins, the pins of a package, of a
/// footprint and of a symbol, each of which may be null, and the logic pins, which count the electrical ones.
///
/// The result has each pin of each view once. First come the electrical pins in their order, then the pins
/// that only the package has, then those of the footprint, then those of the symbol. A pin without a name is
/// joined with none, and so is a further electrical pin or package pin of a name that has one already.
VEKA_API std::vector<JoinedPin> JoinPins(const PartIndex& index, const CVEKA_Package* package,
                                         const CVEKA_FootprintDB* footprint, const CVEKA_Symbol* symbol);
/// As above, for the default package, its default footprint and the default symbol.
VEKA_API std::vector<JoinedPin> JoinPins(const PartIndex& index);

}  // namespace veka
