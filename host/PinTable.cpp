#include "host/PinTable.h"

#include <algorithm>
#include <iterator>
#include <ostream>

#include "inspect/Shortest.h"
#include "model/PartIndex.h"
#include "platform/Printable.h"

namespace host {

namespace {

std::string Text(const CString& text) {
    return std::string(text.View());
}

/// A row without a place. `electrical` may be null.
PinRow RowOf(const CString& number, const CVEKA_ElectricalPin* electrical) {
    if (!electrical) return {Text(number), "", "", "", "", ""};
    return {Text(number), Text(electrical->GetSignalName()), Text(electrical->GetType()), "", "", ""};
}

void SetPlace(PinRow& row, const CVEKA_Coordinate& point) {
    row[4] = veka::Shortest(point.GetX());
    row[5] = veka::Shortest(point.GetY());
}

/// The number of characters of a printable text.
size_t Width(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// A field of comma-separated values. It can have several lines, each printable: the values may go to a
/// terminal, and all programs can read them as UTF-8.
std::string CsvField(const std::string& raw) {
    std::string text;
    for (std::size_t begin = 0;;) {
        const std::size_t end = raw.find('\n', begin);
        text += veka::Printable(std::string_view(raw).substr(begin, end - begin));
        if (end == std::string::npos) break;
        text += '\n';
        begin = end + 1;
    }
    if (text.find_first_of(",\"\n") == std::string::npos) return text;
    std::string field = "\"";
    for (const char c : text) field.append(c == '"' ? 2 : 1, c);
    return field + '"';
}

}  // namespace

std::vector<PinRow> PinTable(const CVEKA_Manager& part) {
    const veka::PartIndex index(part);
    std::vector<PinRow> rows;
    const CVEKA_Package* package = index.DefaultPackage();
    const CVEKA_FootprintDB* footprint = index.DefaultFootprint(package);
    if (footprint)
        for (const CVEKA_FootprintPin* pin : *footprint->GetFPins()) {
            if (!pin) continue;
            const CString number = pin->GetPinName();
            PinRow& row = rows.emplace_back(RowOf(number, index.ElectricalPin(number)));
            row[3] = Text(pin->GetLibPadstackName());
            SetPlace(row, *pin->GetPoint());
        }
    std::vector<PinRow> others[2];  // pins of the package, and those that have no place at all
    for (const veka::JoinedPin& pin : veka::JoinPins(index, package, footprint, nullptr)) {
        if (!pin.footprint.empty()) continue;
        PinRow& row = others[pin.package ? 0 : 1].emplace_back(RowOf(pin.name, pin.electrical));
        if (pin.package) SetPlace(row, *pin.package->GetPoint());
    }
    for (std::vector<PinRow>& other : others) std::move(other.begin(), other.end(), std::back_inserter(rows));
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
