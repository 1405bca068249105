// simdjson's tree by a parser that is kept, and then the records.

#include <simdjson.h>

#include "Peers.h"
#include "ReadRecords.h"

namespace bench {

namespace {

namespace dom = simdjson::dom;

/// A level is a list of its name, its values and its children.
class DomLevel {
public:
    explicit DomLevel(dom::array level) : m_next(level.begin()), m_name(std::string_view(*m_next)) {
        ++m_next;
    }
    std::string_view Name() const { return m_name; }
    template <class OnValue, class OnChild>
    void Read(OnValue onValue, OnChild onChild) {
        for (const dom::element value : dom::array(*m_next)) onValue(TextValue{std::string_view(value)});
        ++m_next;
        for (const dom::element child : dom::array(*m_next)) {
            DomLevel level{dom::array(child)};
            onChild(level);
        }
    }

private:
    dom::array::iterator m_next;
    std::string_view m_name;
};

template <bool kFromFile>
class SimdJsonDomRecords : public RecordReader {
public:
    explicit SimdJsonDomRecords(const std::string& input) : m_path(input) {
        if constexpr (!kFromFile) m_text = simdjson::padded_string(input);
    }
    void Read() override {
        dom::element levels;
        if constexpr (kFromFile)
            Require(!m_parser.load(m_path).get(levels), "simdjson");
        else
            Require(!m_parser.parse(m_text).get(levels), "simdjson");
        m_part.emplace();
        for (const dom::element section : dom::array(levels)) {
            DomLevel level{dom::array(section)};
            ReadSection(level, *m_part);
        }
    }

private:
    const std::string& m_path;
    simdjson::padded_string m_text;
    dom::parser m_parser;
};

}  // namespace

std::unique_ptr<Reader> MakeSimdJsonDomRecords(const std::string& text) {
    return std::make_unique<SimdJsonDomRecords<false>>(text);
}
std::unique_ptr<Reader> MakeSimdJsonDomRecordsFromFile(const std::string& path) {
    return std::make_unique<SimdJsonDomRecords<true>>(path);
}

}  // namespace bench
