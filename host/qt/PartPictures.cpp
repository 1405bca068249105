#include "host/qt/PartPictures.h"

#include <algorithm>

#include "drawing/Drawing.h"
#include "host/qt/Elided.h"

namespace host {

namespace {

/// The address that a shape has for a record.
template <class Record>
const void* AddressOf(const Record& record) {
    return drawing::Source::Of(record).record;
}

/// The records of a list; the one that the part uses by default comes first.
template <class List, class Record>
std::vector<const Record*> DefaultFirst(const List& list, const Record* byDefault) {
    std::vector<const Record*> records;
    if (byDefault) records.push_back(byDefault);
    for (const Record* record : list)
        if (record && record != byDefault) records.push_back(record);
    return records;
}

QString NameOr(const CString& name, const char* other) {
    return name.IsEmpty() ? QString(other) : Elided(name);
}

}  // namespace

PartPictures::PartPictures() {
    setObjectName("pictures");
    m_footprint = AddPictures("footprint", "&Footprint", true);
    m_symbol = AddPictures("symbol", "&Symbol", false);
    m_package = AddPictures("package", "Pac&kage", false);
}

PictureView* PartPictures::AddPictures(const char* name, const char* title, bool sides) {
    auto* view = new PictureView(name, sides);
    view->SetPictures({}, "Open a part to see it.");
    view->View().onPick = [this](const drawing::Source& source) {
        if (onPick) onPick(source.record);
    };
    view->View().onPointer = [this](std::optional<drawing::Point> point) {
        if (onPointer) onPointer(point ? PlaceText(*point) : QString());
    };
    addTab(view, title);
    return view;
}

void PartPictures::ShowPart(const CVEKA_Manager& part) {
    for (PictureView* view : {m_footprint, m_symbol, m_package}) view->SetPictures({}, "");
    m_joined = false;
    m_pins.clear();
    m_pinOf.clear();
    m_part = std::make_unique<const drawing::Part>(part);
    m_footprint->SetPictures(Footprints(), "The part has no footprint.");
    m_symbol->SetPictures(Symbols(), "The part has no symbol.");
    m_package->SetPictures(Packages(), "The part has no package.");
}

std::vector<Picture> PartPictures::Footprints() const {
    std::vector<Picture> pictures;
    const drawing::Part& part = *m_part;
    for (const CVEKA_FootprintDB* footprint :
         DefaultFirst(*part.Manager().GetFootprintDBArr(), part.DefaultFootprint()))
        pictures.push_back({NameOr(footprint->GetFootprintName(), "Footprint"), AddressOf(*footprint),
                            [&part, footprint] { return FootprintScene(part, *footprint); }});
    return pictures;
}

std::vector<Picture> PartPictures::Symbols() const {
    std::vector<Picture> pictures;
    const drawing::Part& part = *m_part;
    for (const CVEKA_Symbol* symbol :
         DefaultFirst(*part.Vek().GetLogicSymbols()->GetSymbol(), part.DefaultSymbol())) {
        const QString name = NameOr(symbol->GetSymbolName(), "Symbol");
        pictures.push_back(
            {name, AddressOf(*symbol), [&part, symbol] { return SymbolScene(part, *symbol); }});
        int number = 0;
        if (symbol->GetPartitions()->GetSize() > 1)
            for (const CVEKA_Partition* gate : *symbol->GetPartitions()) {
                ++number;
                if (gate)
                    pictures.push_back({name + ", gate " + QString::number(number), AddressOf(*gate),
                                        [&part, gate] { return GateScene(part, *gate); }});
            }
    }
    return pictures;
}

std::vector<Picture> PartPictures::Packages() const {
    constexpr std::pair<const char*, drawing::Looking> kWays[] = {
        {" from above", drawing::Looking::FromAbove},
        {" from the front", drawing::Looking::FromFront},
        {" from the side", drawing::Looking::FromSide},
    };
    std::vector<Picture> pictures;
    const drawing::Part& part = *m_part;
    for (const CVEKA_Package* package :
         DefaultFirst(*part.Vek().GetPackages()->GetPackageArr(), part.DefaultPackage()))
        for (const auto& way : kWays)
            pictures.push_back(
                {NameOr(package->GetName(), "Package") + way.first, AddressOf(*package),
                 [&part, package, looking = way.second] { return PackageScene(part, *package, looking); }});
    return pictures;
}

void PartPictures::JoinPins() {
    if (m_joined || !m_part) return;
    m_joined = true;
    for (const veka::JoinedPin& pin : veka::JoinPins(m_part->records)) {
        std::vector<const void*> records;
        const auto add = [&](const auto* record) {
            if (record) records.push_back(AddressOf(*record));
        };
        add(pin.electrical);
        add(pin.logic);
        add(pin.package);
        for (const CVEKA_FootprintPin* pad : pin.footprint) add(pad);
        for (const veka::JoinedPin::InSymbol& symbol : pin.symbol) add(symbol.pin);
        for (const void* record : records) m_pinOf.emplace(record, m_pins.size());
        m_pins.push_back({pin.name, std::move(records)});
    }
}

void PartPictures::Highlight(Ranks records) {
    JoinPins();
    std::unordered_map<std::size_t, int> pins;  // the lowest rank of each pin
    for (const auto& [record, rank] : records) {
        const auto pin = m_pinOf.find(record);
        if (pin == m_pinOf.end()) continue;
        int& lowest = pins.try_emplace(pin->second, rank).first->second;
        lowest = std::min(lowest, rank);
    }
    for (const auto& [pin, rank] : pins)
        for (const void* same : m_pins[pin].records) {
            int& lowest = records.try_emplace(same, rank).first->second;
            lowest = std::min(lowest, rank);
        }
    for (PictureView* view : {m_footprint, m_symbol, m_package}) view->Highlight(records);
}

void PartPictures::HighlightPin(const CString& name) {
    JoinPins();
    Ranks records;
    for (const Pin& pin : m_pins)
        if (!name.IsEmpty() && pin.name == name)
            for (const void* record : pin.records) records.emplace(record, 0);
    Highlight(std::move(records));
}

CString PartPictures::PinOf(const void* record) {
    JoinPins();
    const auto found = m_pinOf.find(record);
    return found == m_pinOf.end() ? CString() : m_pins[found->second].name;
}

}  // namespace host
