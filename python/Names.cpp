#include "python/Names.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

namespace veka::python {

namespace {

bool IsSmall(char letter) {
    return letter >= 'a' && letter <= 'z';
}
bool IsCapital(char letter) {
    return letter >= 'A' && letter <= 'Z';
}

/// The keywords of Python that are written in small letters, and the attribute that all records have.
constexpr std::array<std::string_view, 33> kReserved{
    "and",    "as",      "assert", "async",  "await",    "break", "class", "continue", "def",
    "del",    "elif",    "else",   "except", "finally",  "for",   "from",  "global",   "if",
    "import", "in",      "is",     "lambda", "nonlocal", "not",   "or",    "pass",     "raise",
    "return", "to_dict", "try",    "while",  "with",     "yield"};

std::string InSmallLetters(std::string_view name) {
    std::string result;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char letter = name[i];
        if (i > 0 && IsCapital(letter)) {
            const char before = name[i - 1];
            const bool smallFollows = i + 1 < name.size() && IsSmall(name[i + 1]);
            if (IsSmall(before) || (IsCapital(before) && smallFollows)) result += '_';
        }
        result += IsCapital(letter) ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return result;
}

}  // namespace

std::string ClassName(const RecordDescription& description) {
    std::string_view name = description.name;
    for (const std::string_view prefix : {"CVEKA_3DOJ_", "CVEKA_"})
        if (name.starts_with(prefix)) {
            name.remove_prefix(prefix.size());
            break;
        }
    std::string ending;
    if (description.IsArray() && name.ends_with("Array")) {
        ending = "Array";
        name.remove_suffix(ending.size());
    }
    if (name.starts_with("3D")) {
        ending = "3D" + ending;
        name.remove_prefix(2);
    }
    return std::string(name) + ending;
}

std::vector<std::string> AttributeNames(const RecordDescription& description) {
    std::vector<std::string> names;
    names.reserve(description.fields.size());  // the names stay where they are: the set refers to them
    std::set<std::string_view> taken(kReserved.begin(), kReserved.end());
    for (const FieldDescription& field : description.fields) {
        std::string name = InSmallLetters(field.name);
        while (taken.contains(name)) name += '_';
        names.push_back(std::move(name));
        taken.insert(names.back());
    }
    return names;
}

std::string TypeName(const FieldDescription& field) {
    switch (field.kind) {
        case FieldKind::Whole:
            return "int";
        case FieldKind::Flag:
            return "bool";
        case FieldKind::Real:
            return "float";
        case FieldKind::Text:
            return "str";
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            return "TextList";
        case FieldKind::Record:
        case FieldKind::Array:
            break;
    }
    return ClassName(*field.content);
}

}  // namespace veka::python
