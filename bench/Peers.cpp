#include "Peers.h"

#include <expat.h>
#include <rapidjson/document.h>
#include <simdjson.h>

#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

#include "platform/Utf8.h"

namespace bench {

namespace {

/// Appends a text with some characters escaped: `escape` gives what is written for a character, or null. What
/// is not UTF-8 and every other control character is replaced.
template <class Escape>
void AppendEscaped(std::string& out, std::string_view text, Escape escape) {
    while (!text.empty()) {
        const size_t length = veka::Utf8Length(text);
        const char c = text[0];
        if (const char* escaped = escape(c))
            out += escaped;
        else if (length == 0 || (c >= 0 && c < ' '))
            out += '?';
        else
            out += text.substr(0, length);
        text.remove_prefix(length > 0 ? length : 1);
    }
}

const char* EscapeXml(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '"':
            return "&quot;";
        case '\n':
            return "&#10;";
        case '\t':
            return "&#9;";
        default:
            return nullptr;
    }
}

const char* EscapeJson(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        default:
            return nullptr;
    }
}

const char* EscapeInQuotes(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\n':
            return "\n";
        case '\t':
            return "\t";
        default:
            return nullptr;
    }
}

/// Appends a level's name as that of an element.
void AppendName(std::string& out, std::string_view name) {
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
    if (name.empty() || !letter(name[0])) out += '_';
    for (const char c : name) out += letter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' ? c : '_';
}

void AppendXml(std::string& out, const CECadClsLvlArray& levels) {
    for (const CECadClsLvl* level : levels) {
        out += '<';
        AppendName(out, level->m_strName.View());
        int number = 0;
        for (const CString& value : level->m_aValues) {
            out += " v" + std::to_string(number++) + "=\"";
            AppendEscaped(out, value.View(), EscapeXml);
            out += '"';
        }
        if (level->m_pChildren->IsEmpty()) {
            out += "/>\n";
            continue;
        }
        out += ">\n";
        AppendXml(out, *level->m_pChildren);
        out += "</";
        AppendName(out, level->m_strName.View());
        out += ">\n";
    }
}

void AppendString(std::string& out, std::string_view text) {
    out += '"';
    AppendEscaped(out, text, EscapeJson);
    out += '"';
}

void AppendJson(std::string& out, const CECadClsLvlArray& levels) {
    out += '[';
    bool first = true;
    for (const CECadClsLvl* level : levels) {
        out += first ? "\n[" : ",\n[";
        first = false;
        AppendString(out, level->m_strName.View());
        out += ",[";
        bool firstValue = true;
        for (const CString& value : level->m_aValues) {
            if (!firstValue) out += ',';
            firstValue = false;
            AppendString(out, value.View());
        }
        out += "],";
        AppendJson(out, *level->m_pChildren);
        out += ']';
    }
    out += ']';
}

void AppendWord(std::string& out, std::string_view text) {
    if (!text.empty() && text.find_first_of(" \t\n\"()\\") == std::string_view::npos) {
        AppendEscaped(out, text, [](char) -> const char* { return nullptr; });
        return;
    }
    out += '"';
    AppendEscaped(out, text, EscapeInQuotes);
    out += '"';
}

void AppendSExpressions(std::string& out, const CECadClsLvlArray& levels) {
    for (const CECadClsLvl* level : levels) {
        out += "\n(";
        AppendWord(out, level->m_strName.View());
        for (const CString& value : level->m_aValues) {
            out += ' ';
            AppendWord(out, value.View());
        }
        AppendSExpressions(out, *level->m_pChildren);
        out += ')';
    }
}

class PugiXml : public Reader {
public:
    explicit PugiXml(const std::string& text) : m_text(text) {}
    void Read() override {
        Require(
            m_document.load_buffer(m_text.data(), m_text.size(), pugi::parse_default, pugi::encoding_utf8),
            "pugixml");
    }
    void Free() override { m_document.reset(); }
    std::int64_t Count() override { return Count(m_document.first_child()) - 1; }

protected:
    static std::int64_t Count(pugi::xml_node node) {
        std::int64_t count = 1;
        for (pugi::xml_node child : node.children()) count += Count(child);
        return count;
    }
    const std::string& m_text;
    pugi::xml_document m_document;
};

/// As `PugiXml`, from a file.
class PugiXmlFile : public PugiXml {
public:
    using PugiXml::PugiXml;
    void Read() override {
        Require(m_document.load_file(m_text.c_str(), pugi::parse_default, pugi::encoding_utf8), "pugixml");
    }
};

class PugiXmlInPlace : public PugiXml {
public:
    using PugiXml::PugiXml;
    void Prepare() override { m_copy = m_text; }
    void Read() override {
        Require(m_document.load_buffer_inplace(m_copy.data(), m_copy.size(), pugi::parse_default,
                                               pugi::encoding_utf8),
                "pugixml");
    }

private:
    std::string m_copy;
};

/// Counts elements and keeps nothing. What a reader of the same text takes beyond this is the cost of its
/// tree.
class Expat : public Reader {
public:
    explicit Expat(const std::string& text) : m_text(text) {}
    void Read() override {
        m_count = -1;  // the outermost element is not a level
        XML_Parser parser = XML_ParserCreate(nullptr);
        XML_SetUserData(parser, &m_count);
        XML_SetStartElementHandler(parser, [](void* count, const XML_Char*, const XML_Char**) {
            ++*static_cast<std::int64_t*>(count);
        });
        // The reader takes lengths as int.
        bool done = true;
        for (size_t begin = 0; done && begin < m_text.size(); begin += kPiece) {
            const size_t length = std::min(kPiece, m_text.size() - begin);
            done = XML_Parse(parser, m_text.data() + begin, static_cast<int>(length),
                             begin + length == m_text.size()) == XML_STATUS_OK;
        }
        XML_ParserFree(parser);
        Require(done, "expat");
    }
    void Free() override {}
    std::int64_t Count() override { return m_count; }

private:
    static constexpr size_t kPiece = 1 << 20;
    const std::string& m_text;
    std::int64_t m_count = 0;
};

class RapidJson : public Reader {
public:
    explicit RapidJson(const std::string& text) : m_text(text) {}
    void Read() override {
        m_document.emplace();
        m_document->Parse(m_text.data(), m_text.size());
        Require(!m_document->HasParseError(), "RapidJSON");
    }
    void Free() override { m_document.reset(); }
    std::int64_t Count() override { return Count(*m_document); }

protected:
    static std::int64_t Count(const rapidjson::Value& levels) {
        std::int64_t count = 0;
        for (const rapidjson::Value& level : levels.GetArray()) count += 1 + Count(level[2]);
        return count;
    }
    const std::string& m_text;
    std::optional<rapidjson::Document> m_document;
};

class RapidJsonInSitu : public RapidJson {
public:
    using RapidJson::RapidJson;
    void Prepare() override { m_copy = m_text; }
    void Read() override {
        m_document.emplace();
        m_document->ParseInsitu(m_copy.data());
        Require(!m_document->HasParseError(), "RapidJSON");
    }

private:
    std::string m_copy;
};

class SimdJson : public Reader {
public:
    explicit SimdJson(const std::string& text) : m_text(text) {}
    void Prepare() override { m_parser.emplace(); }
    void Read() override { Require(!m_parser->parse(m_text).get(m_element), "simdjson"); }
    void Free() override { m_parser.reset(); }
    std::int64_t Count() override { return Count(m_element); }

protected:
    static std::int64_t Count(simdjson::dom::element levels) {
        std::int64_t count = 0;
        for (simdjson::dom::element level : levels.get_array()) count += 1 + Count(level.at(2));
        return count;
    }
    const simdjson::padded_string m_text;
    std::optional<simdjson::dom::parser> m_parser;
    simdjson::dom::element m_element;
};

/// Reads into the memory that its last run left.
class SimdJsonKept : public SimdJson {
public:
    explicit SimdJsonKept(const std::string& text) : SimdJson(text) {
        m_parser.emplace();
        Read();
    }
    void Prepare() override {}
    void Free() override {}
};

template <class Reader>
std::unique_ptr<bench::Reader> Make(const std::string& text) {
    return std::make_unique<Reader>(text);
}

}  // namespace

std::string WriteXml(const CECadClsLvlArray& levels) {
    std::string out = "<levels>\n";
    AppendXml(out, levels);
    return out + "</levels>\n";
}

std::string WriteJson(const CECadClsLvlArray& levels) {
    std::string out;
    AppendJson(out, levels);
    return out;
}

std::string WriteSExpressions(const CECadClsLvlArray& levels) {
    std::string out;
    AppendSExpressions(out, levels);
    return out;
}

std::string WithoutForbidden(std::string_view text) {
    std::string out;
    AppendEscaped(out, text, [](char c) { return c == '\n' ? "\n" : c == '\t' ? "\t" : nullptr; });
    return out;
}

void Require(bool done, const char* reader) {
    if (!done) throw std::runtime_error(std::string(reader) + " does not take the text");
}

std::vector<Peer> Peers() {
    return {{"pugixml load_buffer", Format::Xml, false, Make<PugiXml>},
            {"pugixml load_buffer_inplace", Format::Xml, false, Make<PugiXmlInPlace>},
            {"pugixml load_file", Format::Xml, true, Make<PugiXmlFile>},
            {"expat, no tree", Format::Xml, false, Make<Expat>},
            {"RapidJSON Parse", Format::Json, false, Make<RapidJson>},
            {"RapidJSON ParseInsitu", Format::Json, false, Make<RapidJsonInSitu>},
            {"simdjson DOM, new parser", Format::Json, false, Make<SimdJson>},
            {"simdjson DOM, kept parser", Format::Json, false, Make<SimdJsonKept>},
            {"pugixml + records", Format::Xml, false, MakePugiXmlRecords},
            {"pugixml + records, file", Format::Xml, true, MakePugiXmlRecordsFromFile},
            {"simdjson DOM + records", Format::Json, false, MakeSimdJsonDomRecords},
            {"simdjson DOM + records, file", Format::Json, true, MakeSimdJsonDomRecordsFromFile},
            {"On-Demand + records", Format::Json, false, MakeSimdJsonOnDemandRecords},
            {"On-Demand + records, file", Format::Json, true, MakeSimdJsonOnDemandRecordsFromFile},
            {"s-expressions + records", Format::SExpressions, false, MakeSExpressionRecords},
            {"s-expressions + records, file", Format::SExpressions, true, MakeSExpressionRecordsFromFile}};
}

}  // namespace bench
