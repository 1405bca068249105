#include "export/kicad/Words.h"

namespace kicad {

namespace {

std::vector<std::string> ValuesOf(const CVEKA_USGKey& key) {
    CStringArray values;
    key.GetValue(values);
    return Elements(values);
}

}  // namespace

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::vector<std::string> Elements(const CStringArray& list) {
    std::vector<std::string> elements;
    for (INT_PTR i = 0; i < list.GetSize(); ++i) elements.emplace_back(list.GetAt(i).View());
    return elements;
}

std::vector<std::string> KeysOfType(const CVEKA_USGKeyArray& keys, std::string_view type) {
    std::vector<std::string> values;
    for (const CVEKA_USGKey* key : keys)
        if (key && Upper(key->GetType().View()) == type)
            for (std::string& value : ValuesOf(*key)) values.push_back(std::move(value));
    return values;
}

std::string KeysBesides(const CVEKA_USGKeyArray& keys, std::string_view type) {
    std::string words;
    for (const CVEKA_USGKey* key : keys)
        if (key && Upper(key->GetType().View()) != type)
            for (const std::string& value : ValuesOf(*key)) words += (words.empty() ? "" : " ") + value;
    return words;
}

}  // namespace kicad
