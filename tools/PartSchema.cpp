#include "tools/PartSchema.h"

#include <string>
#include <utility>
#include <vector>

#include "inspect/Description.h"
#include "inspect/Json.h"
#include "model/CVEKA_Manager.h"

namespace {

using veka::FieldDescription;
using veka::FieldKind;
using veka::JsonString;
using veka::RecordDescription;

std::string Reference(const std::string& definition) {
    return "{\"$ref\":" + JsonString("#/$defs/" + definition) + '}';
}

/// Joins the texts with commas.
std::string Joined(const std::vector<std::string>& texts, const std::string& separator = ",") {
    std::string joined;
    for (const std::string& text : texts) joined += (joined.empty() ? "" : separator) + text;
    return joined;
}

/// The members of the schema of a field's value.
std::string SchemaOf(const FieldDescription& field) {
    switch (field.kind) {
        case FieldKind::Whole:
            return R"("$ref":"#/$defs/)" + std::string(field.size == sizeof(int) ? "int32" : "int64") + '"';
        case FieldKind::Flag:
            return R"("enum":[0,1])";
        case FieldKind::Real:
            return R"("$ref":"#/$defs/real")";
        case FieldKind::Text:
            return R"("type":"string")";
        case FieldKind::TextList:
        case FieldKind::DistinctNames:
            return R"("type":"array","items":{"type":"string"})";
        case FieldKind::Record:
        case FieldKind::Array:
            break;
    }
    return "\"$ref\":" + JsonString(std::string("#/$defs/") + field.content->name);
}

std::string SchemaOfArray(const RecordDescription& array) {
    return R"({"type":"array","items":)" + Reference(array.element->kind ? "object" : array.element->name) +
           '}';
}

std::string SchemaOfRecord(const RecordDescription& record) {
    std::vector<std::string> properties, names;
    if (record.kind) {
        properties.push_back("\"kind\":{\"const\":" + JsonString(record.kind) + '}');
        names.push_back("\"kind\"");
    }
    for (const FieldDescription& field : record.fields) {
        names.push_back(JsonString(field.name));
        properties.push_back(names.back() + ":{\"description\":" + JsonString(field.doc) + ',' +
                             SchemaOf(field) + '}');
    }
    return "{\n   \"type\":\"object\",\n   \"properties\":{\n    " + Joined(properties, ",\n    ") +
           "\n   },\n   \"required\":[" + Joined(names) + "],\n   \"additionalProperties\":false\n  }";
}

}  // namespace

void WritePartSchema(std::ostream& out) {
    std::vector<std::string> definitions{
        R"("int32":{"type":"integer","minimum":-2147483648,"maximum":2147483647})",
        R"("int64":{"type":"integer","minimum":-9223372036854775808,"maximum":9223372036854775807})",
        R"("real":{"description":"a number, or the name of a number that JSON does not have",)"
        R"("anyOf":[{"type":"number"},{"enum":["inf","-inf","nan"]}]})"};
    std::vector<std::string> kinds{R"({"type":"null"})"};
    for (const RecordDescription* record : veka::AllDescriptions()) {
        definitions.push_back(JsonString(record->name) + ':' +
                              (record->IsArray() ? SchemaOfArray(*record) : SchemaOfRecord(*record)));
        if (record->kind) kinds.push_back(Reference(record->name));
    }
    definitions.push_back(
        R"("object":{"description":"something that is drawn; null for a level of an unknown kind","anyOf":[)" +
        Joined(kinds) + "]}");
    out << "{\n \"$schema\":\"https://json-schema.org/draft/2020-12/schema\",\n"
           " \"title\":\"part\",\n"
           " \"description\":\"an imported part, as veka-host FILE --print json writes it\",\n"
           " \"$ref\":"
        << JsonString(std::string("#/$defs/") + veka::Describe(typeid(CVEKA_Manager)).name)
        << ",\n \"$defs\":{\n  " << Joined(definitions, ",\n  ") << "\n }\n}\n";
}
