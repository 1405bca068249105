// simdjson's On-Demand by a parser that is kept, straight into the records.

#include <simdjson.h>

#include "Peers.h"
#include "ReadRecords.h"

namespace bench {

namespace {

namespace ondemand = simdjson::ondemand;

/// A number is read where it stands, unless it is written as JSON writes none.
struct JsonValue {
    mutable ondemand::value value;
    void To(double& field) const {
        if (value.get_double_in_string().get(field))
            TextValue{std::string_view(value.get_string())}.To(field);
    }
    void To(int& field) const {
        std::int64_t number = 0;
        if (value.get_int64_in_string().get(number))
            TextValue{std::string_view(value.get_string())}.To(field);
        else
            field = static_cast<int>(number);
    }
    void To(std::string& field) const { field = std::string_view(value.get_string()); }
    bool Is(std::string_view word) const { return std::string_view(value.get_string()) == word; }
};

/// A level is a list of its name, its values and its children.
class OnDemandLevel {
public:
    explicit OnDemandLevel(ondemand::value level) : m_next(ondemand::array(level.get_array()).begin()) {
        // No name of a level has an escaped character, so the name is what is between the quotes.
        ondemand::value name = *m_next;
        const std::string_view token = name.raw_json_token();
        m_name = token.substr(1, token.rfind('"') - 1);
        ++m_next;
    }
    std::string_view Name() const { return m_name; }
    template <class OnValue, class OnChild>
    void Read(OnValue onValue, OnChild onChild) {
        for (ondemand::value value : ondemand::array((*m_next).get_array())) onValue(JsonValue{value});
        ++m_next;
        for (ondemand::value child : ondemand::array((*m_next).get_array())) {
            OnDemandLevel level(child);
            onChild(level);
        }
    }

private:
    simdjson::simdjson_result<ondemand::array_iterator> m_next;
    std::string_view m_name;
};

template <bool kFromFile>
class SimdJsonOnDemandRecords : public RecordReader {
public:
    explicit SimdJsonOnDemandRecords(const std::string& input) : m_path(input) {
        if constexpr (!kFromFile) m_text = simdjson::padded_string(input);
    }
    void Read() override {
        if constexpr (kFromFile) Require(!simdjson::padded_string::load(m_path).get(m_text), "simdjson");
        ondemand::document document = m_parser.iterate(m_text);
        m_part.emplace();
        for (ondemand::value section : ondemand::array(document.get_array())) {
            OnDemandLevel level(section);
            ReadSection(level, *m_part);
        }
    }

private:
    const std::string& m_path;
    simdjson::padded_string m_text;
    ondemand::parser m_parser;
};

}  // namespace

std::unique_ptr<Reader> MakeSimdJsonOnDemandRecords(const std::string& text) {
    return std::make_unique<SimdJsonOnDemandRecords<false>>(text);
}
std::unique_ptr<Reader> MakeSimdJsonOnDemandRecordsFromFile(const std::string& path) {
    return std::make_unique<SimdJsonOnDemandRecords<true>>(path);
}

}  // namespace bench
