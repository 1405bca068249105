#include "host/PinTable.h"

#include <algorithm>
#include <ostream>
#include <set>
#include <unordered_map>

#include "inspect/Shortest.h"
#include "platform/Printable.h"

namespace host {

namespace {

std::string Text(const CString& text) {
    return std::string(text.View());
}

/// The element of a name, else the first one; null where there is none.
template <class Array, class Name>
auto Find(const Array& array, const CString& wanted, Name name) -> decltype(array.GetAt(0)) {
    for (const auto& element : array)
        if (element && name(*element) == wanted) return element;
    return array.GetSize() > 0 ? array.GetAt(0) : nullptr;
}

/// What the sections of a part say about its pins, by their numbers.
class Pins {
public:
    explicit Pins(const CVEKA_Manager& part) {
        const CVEKA_VEK& vek = *part.GetVEK();
        for (const CVEKA_ElectricalPin* pin : *vek.GetElectrical()->GetElectricalPins())
            if (pin) m_electrical.emplace(Text(pin->GetName()), pin);
    }
    /// A row without a place.
    PinRow Row(const CString& number) const {
        PinRow row{Text(number), "", "", "", "", ""};
        const auto found = m_electrical.find(row[0]);
        if (found == m_electrical.end()) return row;
        row[1] = Text(found->second->GetSignalName());
        row[2] = Text(found->second->GetType());
        return row;
    }

private:
    std::unordered_map<std::string, const CVEKA_ElectricalPin*> m_electrical;
};

void SetPlace(PinRow& row, const CVEKA_Coordinate& point) {
    row[4] = veka::Shortest(point.GetX());
    row[5] = veka::Shortest(point.GetY());
}

/// The number of characters of a printable text.
size_t Width(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// A field of comma-separated values.
std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string field = "\"";
    for (const char c : text) field.append(c == '"' ? 2 : 1, c);
    return field + '"';
}

}  // namespace

std::vector<PinRow> PinTable(const CVEKA_Manager& part) {
    const CVEKA_VEK& vek = *part.GetVEK();
    const Pins pins(part);
    std::vector<PinRow> rows;
    std::set<std::string> known;
    const auto add = [&](PinRow row) {
        known.insert(row[0]);
        rows.push_back(std::move(row));
    };

    const CVEKA_Packages& packages = *vek.GetPackages();
    const CVEKA_Package* package = Find(*packages.GetPackageArr(), packages.GetDefaultPackageName(),
                                        [](const CVEKA_Package& one) { return one.GetName(); });
    const CVEKA_FootprintDB* footprint =
        Find(*part.GetFootprintDBArr(), package ? package->GetDefaultFootprintName() : CString(),
             [](const CVEKA_FootprintDB& one) { return one.GetFootprintName(); });
    if (footprint)
        for (const CVEKA_FootprintPin* pin : *footprint->GetFPins()) {
            if (!pin) continue;
            PinRow row = pins.Row(pin->GetPinName());
            row[3] = Text(pin->GetLibPadstackName());
            SetPlace(row, *pin->GetPoint());
            add(std::move(row));
        }
    if (package)
        for (const CVEKA_PackagePin* pin : *package->GetPKGPins()) {
            if (!pin || known.count(Text(pin->GetPKGPinName()))) continue;
            PinRow row = pins.Row(pin->GetPKGPinName());
            SetPlace(row, *pin->GetPoint());
            add(std::move(row));
        }
    for (const CVEKA_ElectricalPin* pin : *vek.GetElectrical()->GetElectricalPins())
        if (pin && !known.count(Text(pin->GetName()))) add(pins.Row(pin->GetName()));
    return rows;
}

void WritePins(std::ostream& out, const CVEKA_Manager& part) {
    std::vector<PinRow> rows = PinTable(part);
    PinRow names;
    std::copy(kPinColumns.begin(), kPinColumns.end(), names.begin());
    rows.insert(rows.begin(), names);
    std::array<size_t, names.size()> widths{};
    for (PinRow& row : rows)
        for (size_t i = 0; i < row.size(); ++i) {
            row[i] = veka::Printable(row[i]);
            widths[i] = std::max(widths[i], Width(row[i]));
        }
    for (const PinRow& row : rows) {
        std::string line;
        for (size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - Width(row[i]) + 2, ' ');
        line.resize(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

void WritePinsCsv(std::ostream& out, const CVEKA_Manager& part) {
    for (size_t i = 0; i < kPinColumns.size(); ++i) out << (i ? "," : "") << kPinColumns[i];
    out << '\n';
    for (const PinRow& row : PinTable(part)) {
        for (size_t i = 0; i < row.size(); ++i) out << (i ? "," : "") << CsvField(row[i]);
        out << '\n';
    }
}

}  // namespace host
