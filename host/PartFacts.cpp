#include "host/PartFacts.h"

#include <bit>
#include <cstring>
#include <iterator>

namespace host {

namespace {

std::string Text(const CString& text) {
    return std::string(text.View().substr(0, PartFacts::kLongest));
}

/// Names that an array holds; null elements and empty names are left out.
template <class Array, class Name>
std::vector<std::string> Names(const Array& array, Name name) {
    std::vector<std::string> names;
    for (const auto* element : array) {
        if (names.size() == PartFacts::kMost) break;
        std::string text = element ? Text(name(*element)) : "";
        if (!text.empty()) names.push_back(std::move(text));
    }
    return names;
}

std::vector<std::string> Texts(const CVEKA_PartGeneral& general,
                               void (CVEKA_PartGeneral::*get)(CStringArray&) const) {
    CStringArray array;
    (general.*get)(array);
    std::vector<std::string> texts;
    for (INT_PTR i = 0; i < array.GetSize() && texts.size() < PartFacts::kMost; ++i)
        if (!array.GetAt(i).IsEmpty()) texts.push_back(Text(array.GetAt(i)));
    return texts;
}

}  // namespace

PartFacts FactsOf(const ImportedPart& part) {
    const CVEKA_VEK& vek = *part.Model().GetVEK();
    const CVEKA_PartGeneral& general = *vek.GetPartGeneral();
    PartFacts facts;
    facts.name = part.Name();
    facts.fileName = StoredFileName(part);
    facts.number = Text(general.GetMPN());
    facts.manufacturer = Text(general.GetManufacturer());
    facts.description = Text(general.GetPartDescription());
    facts.functionalType = Text(general.GetFunctionalType());
    facts.packageType = Text(general.GetPackageType());
    facts.companyNumbers = Texts(general, &CVEKA_PartGeneral::GetCPNArr);
    facts.families = Texts(general, &CVEKA_PartGeneral::GetProductFamilyArr);
    facts.packages =
        Names(*vek.GetPackages()->GetPackageArr(), [](const auto& one) { return one.GetName(); });
    facts.footprints =
        Names(*part.Model().GetFootprintDBArr(), [](const auto& one) { return one.GetFootprintName(); });
    facts.symbols =
        Names(*vek.GetLogicSymbols()->GetSymbol(), [](const auto& one) { return one.GetSymbolName(); });
    facts.pins = general.GetNumberOfPins();
    facts.size = part.content.bytes.size();
    facts.hash = ContentHash(part.content.bytes);
    return facts;
}

std::uint64_t ContentHash(std::string_view content) noexcept {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
    const auto mix = [](std::uint64_t& hash, std::uint64_t word) {
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32;
    };
    const auto word = [](const char* bytes, std::size_t count = sizeof(std::uint64_t)) {
        std::uint64_t value = 0;
        if constexpr (std::endian::native == std::endian::little)
            std::memcpy(&value, bytes, count);
        else
            for (std::size_t i = count; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
        return value;
    };
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    // The processor works on several words at once where none waits for the one before.
    std::uint64_t lanes[] = {kFactor ^ content.size(), 1, 2, 3};
    constexpr std::size_t kBlock = sizeof lanes;
    for (; content.size() >= kBlock; content.remove_prefix(kBlock))
        for (std::size_t i = 0; i < std::size(lanes); ++i) mix(lanes[i], word(content.data() + i * kWord));
    std::uint64_t& hash = lanes[0];
    for (std::size_t i = 1; i < std::size(lanes); ++i) mix(hash, lanes[i]);
    for (; content.size() >= kWord; content.remove_prefix(kWord)) mix(hash, word(content.data()));
    if (!content.empty()) mix(hash, word(content.data(), content.size()));
    mix(hash, 0);
    return hash;
}

}  // namespace host
