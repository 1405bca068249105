// Writes what the type checkers of Python know about the module: veka_python_stubs TEMPLATE OUTPUT
// The classes of records and arrays are made from their descriptions. They follow the template.

#include <fstream>
#include <iostream>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

#include "python/Names.h"

namespace {

using veka::FieldDescription;
using veka::FieldKind;
using veka::RecordDescription;
using veka::python::AttributeNames;
using veka::python::ClassName;
using veka::python::TypeName;

/// The type of an attribute: what it is read as, and what can be written to it.
std::string AttributeType(const FieldDescription& field) {
    const std::string type = TypeName(field);
    if (field.kind == FieldKind::Array)
        return "_Array[" + type + ", " + ClassName(*field.content->element) + "]";
    return type == "TextList" ? "_Texts" : type;
}

/// The type that the constructor takes for a field.
std::string ArgumentType(const FieldDescription& field) {
    if (field.kind == FieldKind::Array) return "Iterable[" + ClassName(*field.content->element) + "]";
    const std::string type = TypeName(field);
    return type == "TextList" ? "Iterable[str]" : type;
}

void WriteRecord(std::ostream& out, const RecordDescription& description) {
    out << "\nclass " << ClassName(description) << '('
        << (description.base ? ClassName(*description.base) : "Record") << "):\n";
    const std::vector<std::string> names = AttributeNames(description);
    for (std::size_t i = description.inherited; i < names.size(); ++i)
        out << "    " << names[i] << ": " << AttributeType(description.fields[i]) << '\n';
    out << "    def __init__(self, *";
    for (std::size_t i = 0; i < names.size(); ++i)
        out << ", " << names[i] << ": " << ArgumentType(description.fields[i]) << " = ...";
    out << ") -> None: ...\n";
}

void WriteArray(std::ostream& out, const RecordDescription& description) {
    out << "\nclass " << ClassName(description) << "(RecordArray[" << ClassName(*description.element)
        << "]): ...\n";
}

/// Writes the classes, each after its base.
void Write(std::ostream& out) {
    std::unordered_set<const RecordDescription*> written;
    for (const RecordDescription* description : veka::AllDescriptions()) {
        std::vector<const RecordDescription*> bases;
        for (const RecordDescription* base = description; base && written.insert(base).second;
             base = base->base)
            bases.push_back(base);
        for (auto base = bases.rbegin(); base != bases.rend(); ++base)
            (*base)->IsArray() ? WriteArray(out, **base) : WriteRecord(out, **base);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: veka_python_stubs TEMPLATE OUTPUT\n";
        return 2;
    }
    std::ifstream from(argv[1], std::ios::binary);
    std::ofstream to(argv[2], std::ios::binary);
    to << from.rdbuf();
    Write(to);
    to.close();
    if (from && to) return 0;
    std::cerr << "veka_python_stubs: " << argv[2] << " could not be written\n";
    return 1;
}
