#include "report/Sarif.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <sstream>

namespace {

using namespace veka;

/// A value of JSON, read strictly.
struct Value {
    std::map<std::string, Value> members;
    std::vector<Value> items;
    std::string text;
    char kind = 'n';  // the first byte: { [ " or of a number or word

    const Value& operator[](const std::string& name) const {
        const auto found = members.find(name);
        if (found == members.end()) throw std::out_of_range(name);
        return found->second;
    }
    const Value& operator[](std::size_t index) const { return items.at(index); }
    int Number() const { return std::stoi(text); }
};

class Reader {
public:
    explicit Reader(std::string text) : m_text(std::move(text)) {}
    Value Read() {
        Value value = ReadValue();
        Skip();
        if (m_at != m_text.size()) throw std::logic_error("text after the value");
        return value;
    }

private:
    void Skip() {
        while (m_at < m_text.size() && std::isspace(static_cast<unsigned char>(m_text[m_at]))) ++m_at;
    }
    bool Take(char c) {
        Skip();
        if (m_at == m_text.size() || m_text[m_at] != c) return false;
        ++m_at;
        return true;
    }
    void Need(char c) {
        if (!Take(c))
            throw std::logic_error("expected " + std::string(1, c) + " at " + m_text.substr(m_at, 40));
    }
    std::string ReadText() {
        Need('"');
        std::string text;
        for (; m_text.at(m_at) != '"'; ++m_at) {
            if (static_cast<unsigned char>(m_text[m_at]) < 0x20)
                throw std::logic_error("a control byte in a text");
            if (m_text[m_at] == '\\') ++m_at;
            text += m_text.at(m_at);
        }
        ++m_at;
        return text;
    }
    Value ReadValue() {
        Skip();
        Value value;
        value.kind = m_text.at(m_at);
        if (Take('{')) {
            if (Take('}')) return value;
            do {
                Skip();
                const std::string name = ReadText();
                Need(':');
                if (!value.members.emplace(name, ReadValue()).second)
                    throw std::logic_error("a member twice: " + name);
            } while (Take(','));
            Need('}');
        } else if (Take('[')) {
            if (Take(']')) return value;
            do value.items.push_back(ReadValue());
            while (Take(','));
            Need(']');
        } else if (value.kind == '"') {
            value.text = ReadText();
        } else {
            while (m_at < m_text.size() &&
                   (std::isalnum(static_cast<unsigned char>(m_text[m_at])) || m_text[m_at] == '-'))
                value.text += m_text[m_at++];
            if (value.text.empty()) throw std::logic_error("no value");
        }
        return value;
    }
    std::string m_text;
    std::size_t m_at = 0;
};

Value Written(const std::vector<ReportedFile>& files) {
    std::ostringstream out;
    WriteSarif(out, files);
    return Reader(out.str()).Read();
}

TEST(Sarif, HasTheStructureOfTheFormat) {
    const Value log = Written({{"a.veka", ReportImport("(VEK (PARTGENERAL (MPN A B) (COLOUR)))")},
                               {"/x/\xC3\xA9 b.veka", ReportImport("(VEK")}});
    EXPECT_EQ(log["version"].text, "2.1.0");
    ASSERT_EQ(log["runs"].items.size(), 1u);
    const Value& run = log["runs"][0];
    const Value& rules = run["tool"]["driver"]["rules"];
    EXPECT_EQ(run["tool"]["driver"]["name"].text, "veka-host");
    ASSERT_EQ(rules.items.size(), AllCodes().size());
    const Value& results = run["results"];
    ASSERT_EQ(results.items.size(), 3u);
    for (const Value& result : results.items) {
        const auto index = static_cast<std::size_t>(result["ruleIndex"].Number());
        EXPECT_EQ(rules[index]["id"].text, result["ruleId"].text);
        EXPECT_EQ(rules[index]["defaultConfiguration"]["level"].text, result["level"].text);
        EXPECT_EQ(rules[index]["properties"]["kind"].text, result["properties"]["kind"].text);
        EXPECT_NE(result["message"]["text"].text, "");
        const Value& region = result["locations"][0]["physicalLocation"]["region"];
        EXPECT_GE(region["startLine"].Number(), 1);
        EXPECT_GE(region["startColumn"].Number(), 1);
        EXPECT_GE(region["endLine"].Number(), region["startLine"].Number());
        EXPECT_GE(region["endColumn"].Number(), 1);
    }
    EXPECT_EQ(results[0]["locations"][0]["logicalLocations"][0]["fullyQualifiedName"].text,
              "VEK > PARTGENERAL > MPN");
    EXPECT_EQ(results[0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].text, "a.veka");
    EXPECT_EQ(results[2]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].text,
              "file:///x/%C3%A9%20b.veka");
    EXPECT_EQ(results[2]["level"].text, "error");
}

TEST(Sarif, OfNoFilesIsARunWithoutResults) {
    const Value log = Written({});
    EXPECT_TRUE(log["runs"][0]["results"].items.empty());
}

TEST(Sarif, TellsWhatIsNotShown) {
    std::string file = "(VEK ";
    for (int i = 0; i < 5; ++i) file += "(FOO)";
    const Value log = Written({{"a", ReportImport(file + ")", {2, {}})}});
    const Value& notes = log["runs"][0]["invocations"][0]["toolExecutionNotifications"];
    ASSERT_EQ(notes.items.size(), 1u);
    EXPECT_EQ(notes[0]["message"]["text"].text, "3 more findings are not shown");
}

TEST(Sarif, IsValidForAnyBytes) {
    std::string bytes;
    for (int i = 1; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_NO_THROW(Written({{"C:\\x\\" + bytes, ReportImport("(VEK (" + bytes + " " + bytes)}}));
    EXPECT_NO_THROW(Written({{bytes, ReportImport(bytes)}}));
}

}  // namespace
