#include "host/Summary.h"

#include <ostream>
#include <string>

#include "platform/Printable.h"

namespace host {

namespace {

/// A text for one line of a terminal, without the end of a long text.
std::string Cut(std::string_view text) {
    constexpr size_t kWidth = 100;
    if (text.size() <= kWidth) return veka::Printable(text);
    size_t length = kWidth;
    while (length > 0 && (text[length] & 0xC0) == 0x80) --length;  // inside a character
    return veka::Printable(text.substr(0, length)) + "...";
}

class Lines {
public:
    explicit Lines(std::ostream& out) : m_out(out) {}

    void Write(std::string label, const std::string& value) {
        if (value.empty()) return;
        label.resize(14, ' ');
        m_out << label << value << '\n';
    }
    void Write(const char* label, const CString& value) { Write(label, Cut(value.View())); }

private:
    std::ostream& m_out;
};

/// A number of things, followed by their names as far as they fit into a line.
template <class Array, class Name>
std::string Names(const Array& array, Name name) {
    constexpr size_t kWidth = 60;
    const INT_PTR size = array.GetSize();
    if (size == 0) return "";
    std::string text = std::to_string(size);
    for (INT_PTR i = 0; i < size; ++i) {
        const std::string next = array.GetAt(i) ? veka::Printable(name(*array.GetAt(i)).View()) : "";
        if (next.empty()) continue;
        if (text.size() + next.size() > kWidth) return text + ", ...";
        text += (text.find(':') == std::string::npos ? ": " : ", ") + next;
    }
    return text;
}

}  // namespace

void WriteSummary(std::ostream& out, const CVEKA_Manager& part) {
    const CVEKA_VEK& vek = *part.GetVEK();
    const CVEKA_PartGeneral& general = *vek.GetPartGeneral();
    Lines lines(out);
    lines.Write("Part", general.GetMPN().IsEmpty() ? CString("(no part number)") : general.GetMPN());
    lines.Write("Manufacturer", general.GetManufacturer());
    lines.Write("Description", general.GetPartDescription());
    lines.Write("Unit", general.GetUnit());
    lines.Write("Pins", std::to_string(general.GetNumberOfPins()));
    lines.Write("Packages",
                Names(*vek.GetPackages()->GetPackageArr(), [](const auto& one) { return one.GetName(); }));
    lines.Write("Footprints",
                Names(*part.GetFootprintDBArr(), [](const auto& one) { return one.GetFootprintName(); }));
    lines.Write("Padstacks",
                Names(*part.GetPadStackArr(), [](const auto& one) { return one.GetPadstackName(); }));
    lines.Write("Symbols", Names(*vek.GetLogicSymbols()->GetSymbol(),
                                 [](const auto& one) { return one.GetSymbolName(); }));
}

}  // namespace host
