#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace test {

/// A value of a JSON text.
struct JsonValue {
    enum class Type { Null, Boolean, Number, Text, List, Object };

    Type type = Type::Null;
    std::string text;                 ///< a text, or a boolean or a number as it is written
    std::vector<std::string> names;   ///< of the members of an object
    std::vector<JsonValue> elements;  ///< of a list, or the values of the members of an object

    /// A member of an object, or null.
    const JsonValue* Find(std::string_view name) const;
    bool operator==(const JsonValue&) const = default;
};

/// Reads a JSON text. Raises `std::runtime_error` where it is none.
JsonValue ReadJson(std::string_view text);

/// Where and why a value does not match a schema; empty where it matches. Raises `std::runtime_error` for a
/// word of the schema language that it does not know.
std::string SchemaError(const JsonValue& schema, const JsonValue& value);

}  // namespace test
