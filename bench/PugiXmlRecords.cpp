// pugixml's tree, and then the records.

#include <pugixml.hpp>

#include "Peers.h"
#include "ReadRecords.h"

namespace bench {

namespace {

class XmlLevel {
public:
    explicit XmlLevel(pugi::xml_node node) : m_node(node) {}
    /// A name that begins with no letter has got a "_".
    std::string_view Name() const {
        const std::string_view name = m_node.name();
        return name.starts_with('_') ? name.substr(1) : name;
    }
    template <class OnValue, class OnChild>
    void Read(OnValue onValue, OnChild onChild) const {
        for (const pugi::xml_attribute value : m_node.attributes()) onValue(TextValue{value.value()});
        for (const pugi::xml_node child : m_node.children()) {
            XmlLevel level(child);
            onChild(level);
        }
    }

private:
    pugi::xml_node m_node;
};

template <bool kFromFile>
class PugiXmlRecords : public RecordReader {
public:
    explicit PugiXmlRecords(const std::string& input) : m_input(input) {}
    void Read() override {
        pugi::xml_document document;
        if constexpr (kFromFile)
            Require(document.load_file(m_input.c_str(), pugi::parse_default, pugi::encoding_utf8), "pugixml");
        else
            Require(document.load_buffer(m_input.data(), m_input.size(), pugi::parse_default,
                                         pugi::encoding_utf8),
                    "pugixml");
        m_part.emplace();
        for (const pugi::xml_node section : document.first_child().children()) {
            XmlLevel level(section);
            ReadSection(level, *m_part);
        }
    }

private:
    const std::string& m_input;
};

}  // namespace

std::unique_ptr<Reader> MakePugiXmlRecords(const std::string& text) {
    return std::make_unique<PugiXmlRecords<false>>(text);
}
std::unique_ptr<Reader> MakePugiXmlRecordsFromFile(const std::string& path) {
    return std::make_unique<PugiXmlRecords<true>>(path);
}

}  // namespace bench
