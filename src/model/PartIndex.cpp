#include "model/PartIndex.h"

#include <map>
#include <string>
#include <utility>

namespace veka {

namespace {

/// The first element that is not null, or null.
template <class Record>
const Record* FirstOf(const CExPtrArray<Record*, Record*>& list) {
    const auto found =
        std::find_if(list.begin(), list.end(), [](const Record* record) { return record != nullptr; });
    return found == list.end() ? nullptr : *found;
}

/// Collects the names that lead nowhere.
class DeadNames {
public:
    explicit DeadNames(const PartIndex& index) : m_index(index) {}

    std::vector<DeadName> Find() {
        const CVEKA_VEK& vek = *m_index.Part().GetVEK();
        const CVEKA_Packages& packages = *vek.GetPackages();
        const CString package = packages.GetDefaultPackageName();
        Check(m_index.Package(package), "CVEKA_Packages::DefaultPackageName", "", package);
        ForEach(*packages.GetPackageArr(), [this](const CVEKA_Package& one) { CheckPackage(one); });
        ForEach(*m_index.Part().GetFootprintDBArr(),
                [this](const CVEKA_FootprintDB& footprint) { CheckFootprint(footprint); });
        ForEach(*m_index.Part().GetPadStackArr(),
                [this](const CVEKA_PadStack& stack) { CheckPadStack(stack); });
        const CVEKA_LogicSymbols& logic = *vek.GetLogicSymbols();
        const CString symbol = logic.GetDefaultSymbolName();
        Check(m_index.Symbol(symbol), "CVEKA_LogicSymbols::DefaultSymbolName", "", symbol);
        ForEach(*logic.GetSymbol(), [this](const CVEKA_Symbol& one) { CheckSymbol(one); });
        ForEach(*m_index.Part().GetPartitionDBArr(),
                [this](const CVEKA_PartitionDB& partition) { CheckLibraryPartition(partition); });
        return std::move(m_dead);
    }

private:
    template <class Record, class Visit>
    static void ForEach(const CExPtrArray<Record*, Record*>& list, Visit visit) {
        for (const Record* record : list)
            if (record) visit(*record);
    }
    void Check(const void* record, const char* field, const CString& holder, const CString& name) {
        if (!record && !name.IsEmpty()) m_dead.push_back({field, holder, name});
    }
    void CheckPackage(const CVEKA_Package& package) {
        const CString holder = package.GetName(), footprint = package.GetDefaultFootprintName();
        Check(m_index.Footprint(footprint), "CVEKA_Package::DefaultFootprintName", holder, footprint);
        ForEach(*package.GetFootprints(), [&](const CVEKA_Footprint& reference) {
            const CString name = reference.GetLibraryFootprintName();
            Check(m_index.Footprint(name), "CVEKA_Footprint::LibraryFootprintName", holder, name);
        });
    }
    void CheckFootprint(const CVEKA_FootprintDB& footprint) {
        const CString holder = footprint.GetFootprintName();
        ForEach(*footprint.GetFPins(), [&](const CVEKA_FootprintPin& pin) {
            const CString name = pin.GetLibPadstackName();
            Check(m_index.PadStack(name), "CVEKA_FootprintPin::LibPadstackName", holder, name);
        });
    }
    void CheckPadStack(const CVEKA_PadStack& stack) {
        const CString holder = stack.GetPadstackName();
        const auto check = [&](const char* field, const CString& name) {
            Check(m_index.Pad(name), field, holder, name);
        };
        for (const CVEKA_Padstack_LayerInfo* layer :
             {stack.GetTop(), stack.GetInnerSignal(), stack.GetInnerPlane(), stack.GetBottom()}) {
            check("CVEKA_Padstack_LayerInfo::Con", layer->GetCon());
            check("CVEKA_Padstack_LayerInfo::UnCon", layer->GetUnCon());
            check("CVEKA_Padstack_LayerInfo::Anti", layer->GetAnti());
            check("CVEKA_Padstack_LayerInfo::Thermal", layer->GetThermal());
            check("CVEKA_Padstack_LayerInfo::Solder", layer->GetSolder());
            check("CVEKA_Padstack_LayerInfo::Metal", layer->GetMetal());
        }
    }
    void CheckSymbol(const CVEKA_Symbol& symbol) {
        const CString holder = symbol.GetSymbolName();
        ForEach(*symbol.GetPartitions(), [&](const CVEKA_Partition& partition) {
            const CString name = partition.GetLibPartitionName();
            Check(m_index.LibraryPartition(name), "CVEKA_Partition::LibPartitionName", holder, name);
        });
    }
    void CheckLibraryPartition(const CVEKA_PartitionDB& partition) {
        const CString holder = partition.GetPatitionName();
        ForEach(*partition.GetPins(), [&](const CVEKA_PartitionDBPin& pin) {
            const CString name = pin.GetLibPinShapeName();
            Check(m_index.PinShape(name), "CVEKA_PartitionDBPin::LibPinShapeName", holder, name);
        });
    }

    const PartIndex& m_index;
    std::vector<DeadName> m_dead;
};

/// The pins of all views, while they are joined.
class PinJoin {
public:
    explicit PinJoin(const PartIndex& index) : m_index(index) {}

    void AddElectricalAndLogic() {
        const CVEKA_ElectricalPinArray& pins = *m_index.Part().GetVEK()->GetElectrical()->GetElectricalPins();
        std::vector<std::size_t> places;  // of the electrical pins in the result
        for (const CVEKA_ElectricalPin* pin : pins) {
            places.push_back(m_joined.size());
            if (pin) AddTo(pin->GetName(), &JoinedPin::electrical, pin);
        }
        for (const CVEKA_LogicPin* pin : *m_index.Part().GetVEK()->GetLogicSymbols()->GetLogicPinLibs()) {
            // The file counts the electrical pins from 1.
            if (!pin || pin->GetLogicPinNo() < 1 || pin->GetLogicPinNo() > pins.GetSize()) continue;
            const auto place = static_cast<std::size_t>(pin->GetLogicPinNo() - 1);
            if (!pins.GetAt(pin->GetLogicPinNo() - 1)) continue;
            JoinedPin& joined = m_joined[places[place]];
            if (!joined.logic) joined.logic = pin;
        }
    }
    void Add(const CVEKA_Package& package) {
        for (const CVEKA_PackagePin* pin : *package.GetPKGPins())
            if (pin) AddTo(pin->GetPKGPinName(), &JoinedPin::package, pin);
    }
    void Add(const CVEKA_FootprintDB& footprint) {
        for (const CVEKA_FootprintPin* pin : *footprint.GetFPins())
            if (pin) m_joined[PlaceOf(pin->GetPinName())].footprint.push_back(pin);
    }
    void Add(const CVEKA_Symbol& symbol) {
        for (const CVEKA_Partition* partition : *symbol.GetPartitions()) {
            if (!partition) continue;
            const CVEKA_PartitionPinArray& pins = *partition->GetPins();
            for (INT_PTR i = 0; i < pins.GetSize(); ++i)
                if (const CVEKA_PartitionPin* pin = pins.GetAt(i))
                    m_joined[PlaceOf(pin->GetPinName())].symbol.push_back(
                        {partition, pin, m_index.DrawnPin(*partition, i)});
        }
    }
    std::vector<JoinedPin> Release() { return std::move(m_joined); }

private:
    std::size_t AddNew(const CString& name) {
        m_joined.emplace_back().name = name;
        return m_joined.size() - 1;
    }
    /// The place in the result of the pin of a name. A name that is new, or empty, gets a new place.
    std::size_t PlaceOf(const CString& name) {
        if (name.IsEmpty()) return AddNew(name);
        const auto [found, isNew] = m_places.try_emplace(name, m_joined.size());
        return isNew ? AddNew(name) : found->second;
    }
    template <class Pin>
    void AddTo(const CString& name, const Pin* JoinedPin::*view, const Pin* pin) {
        std::size_t place = PlaceOf(name);
        if (m_joined[place].*view) place = AddNew(name);
        m_joined[place].*view = pin;
    }

    const PartIndex& m_index;
    std::vector<JoinedPin> m_joined;
    std::map<CString, std::size_t> m_places;
};

}  // namespace

PartIndex::PartIndex(const CVEKA_Manager& part)
    : m_part(part),
      m_pads(*part.GetPadArr(), [](const CVEKA_Pad& pad) { return pad.GetPadName(); }),
      m_padStacks(*part.GetPadStackArr(),
                  [](const CVEKA_PadStack& stack) { return stack.GetPadstackName(); }),
      m_footprints(*part.GetFootprintDBArr(),
                   [](const CVEKA_FootprintDB& footprint) { return footprint.GetFootprintName(); }),
      m_pinShapes(*part.GetNShapeArr(), [](const CVEKA_NSHAPE& shape) { return shape.GetShapeName(); }),
      m_partitions(*part.GetPartitionDBArr(),
                   [](const CVEKA_PartitionDB& partition) { return partition.GetPatitionName(); }),
      m_packages(*part.GetVEK()->GetPackages()->GetPackageArr(),
                 [](const CVEKA_Package& package) { return package.GetName(); }),
      m_symbols(*part.GetVEK()->GetLogicSymbols()->GetSymbol(),
                [](const CVEKA_Symbol& symbol) { return symbol.GetSymbolName(); }),
      m_pins(*part.GetVEK()->GetElectrical()->GetElectricalPins(),
             [](const CVEKA_ElectricalPin& pin) { return pin.GetName(); }) {}

const CVEKA_Package* PartIndex::DefaultPackage() const {
    const CVEKA_Packages& packages = *m_part.GetVEK()->GetPackages();
    const CString name = packages.GetDefaultPackageName();
    const CVEKA_Package* package = Package(name);
    return package ? package : FirstOf(*packages.GetPackageArr());
}

const CVEKA_FootprintDB* PartIndex::DefaultFootprint(const CVEKA_Package* package) const {
    const CString name = package ? package->GetDefaultFootprintName() : CString();
    const CVEKA_FootprintDB* footprint = Footprint(name);
    return footprint ? footprint : FirstOf(*m_part.GetFootprintDBArr());
}

const CVEKA_Symbol* PartIndex::DefaultSymbol() const {
    const CVEKA_LogicSymbols& logic = *m_part.GetVEK()->GetLogicSymbols();
    const CString name = logic.GetDefaultSymbolName();
    const CVEKA_Symbol* symbol = Symbol(name);
    return symbol ? symbol : FirstOf(*logic.GetSymbol());
}

const CVEKA_PartitionDBPin* PartIndex::DrawnPin(const CVEKA_Partition& partition, INT_PTR place) const {
    const CString name = partition.GetLibPartitionName();
    const CVEKA_PartitionDB* drawn = LibraryPartition(name);
    return drawn ? drawn->GetPins()->GetAt(place) : nullptr;
}

std::vector<DeadName> FindDeadNames(const PartIndex& index) {
    return DeadNames(index).Find();
}

std::vector<JoinedPin> JoinPins(const PartIndex& index, const CVEKA_Package* package,
                                const CVEKA_FootprintDB* footprint, const CVEKA_Symbol* symbol) {
    PinJoin join(index);
    join.AddElectricalAndLogic();
    if (package) join.Add(*package);
    if (footprint) join.Add(*footprint);
    if (symbol) join.Add(*symbol);
    return join.Release();
}

std::vector<JoinedPin> JoinPins(const PartIndex& index) {
    const CVEKA_Package* package = index.DefaultPackage();
    return JoinPins(index, package, index.DefaultFootprint(package), index.DefaultSymbol());
}

}  // namespace veka
