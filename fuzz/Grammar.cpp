#include "Grammar.h"

#include <array>

namespace fuzz {

namespace {

// Values at the edges of what the parser does with them.
constexpr std::array<std::string_view, 40> kValues = {"0",
                                                      "-1",
                                                      "1",
                                                      "2147483647",
                                                      "2147483648",
                                                      "-2147483648",
                                                      "-2147483649",
                                                      "99999999999999999999",
                                                      "1e308",
                                                      "1e309",
                                                      "-1e-320",
                                                      "0x10",
                                                      "inf",
                                                      "nan",
                                                      ".5",
                                                      "5.",
                                                      "1e",
                                                      "+7",
                                                      "00012",
                                                      "1.7976931348623157e308",
                                                      "\"\"",
                                                      "\" \"",
                                                      "\"a b\"",
                                                      "\"\\\\\"",
                                                      "\"(\"",
                                                      "\")\"",
                                                      "\"\n\"",
                                                      "A",
                                                      "TRUE",
                                                      "FALSE",
                                                      "ON",
                                                      "OFF",
                                                      "YES",
                                                      "NO",
                                                      "//",
                                                      "12345678901234",
                                                      "123456789012345",
                                                      "\xC3\xA9",
                                                      "\xFF\\\"x",
                                                      "a\"b\"c"};
constexpr std::array<std::string_view, 8> kGaps = {" ", "\n", "\r\n", "\t", "  \n", "\n// note\n", "\v", " "};
constexpr std::size_t kMaximumSize = 200'000;

void AddLevels(const CECadClsLvlArray& levels, std::vector<const CECadClsLvl*>& all) {
    for (const CECadClsLvl* level : levels) {
        all.push_back(level);
        AddLevels(*level->m_pChildren, all);
    }
}

/// Turns choices into text, one byte a choice; where there are none left, everything stays as it is.
class Writer {
public:
    Writer(std::string_view choices, const std::vector<const CECadClsLvl*>& all)
        : m_choices(choices), m_all(all) {}

    std::string Write(const CECadClsLvlArray& levels) {
        WriteLevels(levels, 0);
        return m_text;
    }

private:
    unsigned Choose() {
        if (m_next == m_choices.size()) return 0;
        return static_cast<unsigned char>(m_choices[m_next++]);
    }
    void WriteLevels(const CECadClsLvlArray& levels, int depth) {
        for (const CECadClsLvl* level : levels) {
            const unsigned choice = Choose();
            // As a rule once; one of four not at all, others more than once or with a stranger beside them.
            const unsigned times = choice % 16 < 10 ? 1 : choice % 16 < 14 ? 0 : choice / 16;
            for (unsigned i = 0; i < times; ++i) WriteLevel(*level, depth);
            if (choice >= 0xF8) WriteLevel(*m_all[(choice * 256 + Choose()) % m_all.size()], depth);
        }
    }
    void WriteLevel(const CECadClsLvl& level, int depth) {
        if (m_text.size() > kMaximumSize || depth > 22) return;
        const unsigned choice = Choose();
        m_text += '(';
        m_text += choice < 0xFC ? level.m_strName.View() : kValues[Choose() % kValues.size()];
        // Values and children mix freely in a file; the children come first in one of eight levels.
        const bool childrenFirst = choice % 8 == 7;
        if (childrenFirst) WriteLevels(*level.m_pChildren, depth + 1);
        for (const CString& value : level.m_aValues) {
            const unsigned what = Choose();
            if (what >= 0xF0) continue;
            m_text += what < 0x80 ? " " : kGaps[what % kGaps.size()];
            m_text += what < 0xA0 ? value.View() : kValues[Choose() % kValues.size()];
            if (what >= 0xE8) (m_text += ' ') += value.View();
        }
        if (!childrenFirst) WriteLevels(*level.m_pChildren, depth + 1);
        if (choice != 0xFB) m_text += ')';
        if (choice == 0xFA) m_text += ')';
        m_text += kGaps[choice / 8 % kGaps.size()];
    }

    std::string_view m_choices;
    const std::vector<const CECadClsLvl*>& m_all;
    std::size_t m_next = 0;
    std::string m_text;
};

}  // namespace

Grammar::Grammar(const std::vector<CString>& files) {
    for (const CString& file : files) {
        m_shapes.m_strFilePath = file;
        m_shapes.ReadLevelTree(0);
    }
    AddLevels(*m_shapes.m_pRootLevels, m_all);
}

std::string Grammar::Make(std::string_view choices) const {
    return Writer(choices, m_all).Write(*m_shapes.m_pRootLevels);
}

}  // namespace fuzz
