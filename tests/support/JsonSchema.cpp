#include "support/JsonSchema.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <stdexcept>

namespace test {

namespace {

using Type = JsonValue::Type;

/// Reads one JSON text from its start to its end.
class JsonReader {
public:
    explicit JsonReader(std::string_view text) : m_rest(text) {}

    JsonValue Whole() {
        JsonValue value = Value();
        SkipSpace();
        if (!m_rest.empty()) Fail();
        return value;
    }

private:
    JsonValue Value() {
        SkipSpace();
        if (m_rest.starts_with('{')) return Object();
        if (m_rest.starts_with('[')) return List();
        if (m_rest.starts_with('"')) return {Type::Text, Text(), {}, {}};
        const std::size_t length = std::min(m_rest.find_first_of(",]} \n\t\r"), m_rest.size());
        const std::string word(m_rest.substr(0, length));
        m_rest.remove_prefix(length);
        if (word == "null") return {};
        if (word == "true" || word == "false") return {Type::Boolean, word, {}, {}};
        double number = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        // `from_chars` reads names of numbers, too. JSON has none.
        if (error != std::errc() || end != word.data() + word.size() ||
            word.find_first_of("nN") != std::string::npos)
            Fail();
        return {Type::Number, word, {}, {}};
    }
    JsonValue Object() {
        JsonValue object{Type::Object, {}, {}, {}};
        for (Skip('{'); !At('}');) {
            if (!object.names.empty()) Skip(',');
            SkipSpace();
            object.names.push_back(Text());
            Skip(':');
            object.elements.push_back(Value());
        }
        Skip('}');
        return object;
    }
    JsonValue List() {
        JsonValue list{Type::List, {}, {}, {}};
        for (Skip('['); !At(']');) {
            if (!list.elements.empty()) Skip(',');
            list.elements.push_back(Value());
        }
        Skip(']');
        return list;
    }
    /// A text between quotation marks. An escaped character stays escaped.
    std::string Text() {
        Skip('"');
        std::size_t end = 0;
        while (end < m_rest.size() && m_rest[end] != '"') end += m_rest[end] == '\\' ? 2 : 1;
        if (end >= m_rest.size()) Fail();
        std::string text(m_rest.substr(0, end));
        m_rest.remove_prefix(end + 1);
        return text;
    }
    void SkipSpace() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \n\t\r"), m_rest.size())); }
    bool At(char c) {
        SkipSpace();
        return m_rest.starts_with(c);
    }
    void Skip(char c) {
        if (!At(c)) Fail();
        m_rest.remove_prefix(1);
    }
    [[noreturn]] void Fail() const {
        throw std::runtime_error("no JSON from here on: " + std::string(m_rest.substr(0, 40)));
    }

    std::string_view m_rest;
};

/// Compares values with the parts of one schema.
class Checker {
public:
    explicit Checker(const JsonValue& root) : m_root(root) {}

    std::string Check(const JsonValue& schema, const JsonValue& value, const std::string& path) const {
        for (std::size_t i = 0; i < schema.names.size(); ++i) {
            const auto check = kChecks.find(schema.names[i]);
            if (check == kChecks.end()) throw std::runtime_error("unknown in a schema: " + schema.names[i]);
            if (!check->second) continue;
            std::string error = (this->*check->second)(schema, schema.elements[i], value, path);
            if (!error.empty()) return error;
        }
        return "";
    }

private:
    using Method = std::string (Checker::*)(const JsonValue& schema, const JsonValue& argument,
                                            const JsonValue& value, const std::string& path) const;

    std::string Ref(const JsonValue&, const JsonValue& name, const JsonValue& value,
                    const std::string& path) const {
        const std::string prefix = "#/$defs/";
        const JsonValue* target = m_root.Find("$defs")->Find(name.text.substr(prefix.size()));
        if (!name.text.starts_with(prefix) || !target)
            throw std::runtime_error("no such definition: " + name.text);
        return Check(*target, value, path);
    }
    std::string Type(const JsonValue&, const JsonValue& name, const JsonValue& value,
                     const std::string& path) const {
        static const std::map<std::string, JsonValue::Type> types{
            {"null", Type::Null},   {"number", Type::Number}, {"integer", Type::Number},
            {"string", Type::Text}, {"array", Type::List},    {"object", Type::Object}};
        const bool fraction = value.text.find_first_of(".e") != std::string::npos;
        const bool right = types.at(name.text) == value.type && (name.text != "integer" || !fraction);
        return right ? "" : path + " is no " + name.text;
    }
    std::string Minimum(const JsonValue&, const JsonValue& least, const JsonValue& value,
                        const std::string& path) const {
        return Whole(value) >= Whole(least) ? "" : path + " is too small";
    }
    std::string Maximum(const JsonValue&, const JsonValue& most, const JsonValue& value,
                        const std::string& path) const {
        return Whole(value) <= Whole(most) ? "" : path + " is too great";
    }
    std::string Const(const JsonValue&, const JsonValue& only, const JsonValue& value,
                      const std::string& path) const {
        return value == only ? "" : path + " is not " + only.text;
    }
    std::string Enum(const JsonValue&, const JsonValue& all, const JsonValue& value,
                     const std::string& path) const {
        const bool found = std::find(all.elements.begin(), all.elements.end(), value) != all.elements.end();
        return found ? "" : path + " is none of the allowed values";
    }
    std::string AnyOf(const JsonValue&, const JsonValue& schemas, const JsonValue& value,
                      const std::string& path) const {
        std::string errors;
        for (const JsonValue& schema : schemas.elements) {
            const std::string error = Check(schema, value, path);
            if (error.empty()) return "";
            errors += (errors.empty() ? "" : ", and ") + error;
        }
        return errors;
    }
    std::string Items(const JsonValue&, const JsonValue& schema, const JsonValue& value,
                      const std::string& path) const {
        for (std::size_t i = 0; i < value.elements.size(); ++i)
            if (std::string error = Check(schema, value.elements[i], path + '/' + std::to_string(i));
                !error.empty())
                return error;
        return "";
    }
    std::string Required(const JsonValue&, const JsonValue& names, const JsonValue& value,
                         const std::string& path) const {
        for (const JsonValue& name : names.elements)
            if (!value.Find(name.text)) return path + " has no " + name.text;
        return "";
    }
    std::string Properties(const JsonValue&, const JsonValue& schemas, const JsonValue& value,
                           const std::string& path) const {
        for (std::size_t i = 0; i < schemas.names.size(); ++i) {
            const JsonValue* member = value.Find(schemas.names[i]);
            if (!member) continue;
            if (std::string error = Check(schemas.elements[i], *member, path + '/' + schemas.names[i]);
                !error.empty())
                return error;
        }
        return "";
    }
    std::string AdditionalProperties(const JsonValue& schema, const JsonValue& allowed,
                                     const JsonValue& value, const std::string& path) const {
        if (allowed.text != "false") throw std::runtime_error("additionalProperties is not false");
        const std::set<std::string> known(schema.Find("properties")->names.begin(),
                                          schema.Find("properties")->names.end());
        for (const std::string& name : value.names)
            if (known.count(name) == 0) return path + " has an unknown " + name;
        return "";
    }
    static long long Whole(const JsonValue& number) {
        long long whole = 0;
        const auto [end, error] =
            std::from_chars(number.text.data(), number.text.data() + number.text.size(), whole);
        if (error != std::errc()) throw std::runtime_error("no whole number: " + number.text);
        return whole;
    }

    static const std::map<std::string, Method> kChecks;
    const JsonValue& m_root;
};

const std::map<std::string, Checker::Method> Checker::kChecks{
    {"$schema", nullptr},
    {"title", nullptr},
    {"description", nullptr},
    {"$defs", nullptr},
    {"$ref", &Checker::Ref},
    {"type", &Checker::Type},
    {"minimum", &Checker::Minimum},
    {"maximum", &Checker::Maximum},
    {"const", &Checker::Const},
    {"enum", &Checker::Enum},
    {"anyOf", &Checker::AnyOf},
    {"items", &Checker::Items},
    {"required", &Checker::Required},
    {"properties", &Checker::Properties},
    {"additionalProperties", &Checker::AdditionalProperties}};

}  // namespace

const JsonValue* JsonValue::Find(std::string_view name) const {
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? nullptr : &elements[static_cast<std::size_t>(found - names.begin())];
}

JsonValue ReadJson(std::string_view text) {
    return JsonReader(text).Whole();
}

std::string SchemaError(const JsonValue& schema, const JsonValue& value) {
    return Checker(schema).Check(schema, value, "");
}

}  // namespace test
