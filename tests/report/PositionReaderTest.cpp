#include "report/PositionReader.h"

#include <gtest/gtest.h>

#include "Grammar.h"
#include "support/Files.h"
#include "support/ReferenceReader.h"
#include "support/Samples.h"

namespace {

using namespace veka;
using What = TextFault::What;

test::LevelData ToData(const PositionedLevel& level) {
    test::LevelData reference;
    reference.name = level.m_strName.View();
    reference.depth = level.m_nDepth;
    for (const CString& value : level.m_aValues) reference.values.emplace_back(value.View());
    for (INT_PTR i = 0; i < level.m_pChildren->GetSize(); ++i) {
        EXPECT_EQ(level.Child(i)->parent, &level);
        EXPECT_EQ(level.Child(i)->place, i);
        reference.children.push_back(ToData(*level.Child(i)));
    }
    return reference;
}

/// The bytes of a region.
class Bytes {
public:
    explicit Bytes(const std::string& text) : m_text(text) {
        for (std::size_t i = 0; i < text.size(); ++i)
            if (text[i] == '\n') m_lines.push_back(i + 1);
    }
    std::string operator()(const Region& region) const {
        return m_text.substr(At(region.begin), At(region.end) - At(region.begin));
    }

private:
    std::size_t At(const Place& place) const {
        return m_lines.at(static_cast<std::size_t>(place.line) - 1) + static_cast<std::size_t>(place.column) -
               1;
    }
    const std::string& m_text;
    std::vector<std::size_t> m_lines{0};
};

/// The reader gives the same levels as the reference reader, and each piece stands where it is said to stand.
void ExpectTheSame(const std::string& text) {
    const PositionedText read = ReadWithPositions(text);
    const test::ReadResult reference = test::ReadByReference(text);
    ASSERT_EQ(read.roots.size(), reference.roots.size()) << text;
    for (std::size_t i = 0; i < read.roots.size(); ++i) {
        EXPECT_EQ(ToData(*read.roots[i]), reference.roots[i]) << text;
        EXPECT_EQ(read.roots[i]->region.begin.line, reference.rootLines[i]) << text;
    }
    ASSERT_EQ(read.open.size(), reference.open.size()) << text;
    for (std::size_t i = 0; i < read.open.size(); ++i) {
        EXPECT_EQ(read.open[i]->m_strName.View(), reference.open[i].name) << text;
        EXPECT_EQ(read.open[i]->region.begin.line, reference.open[i].line) << text;
    }
    const Bytes bytes(text);
    for (std::size_t i = 0; i < read.levels.size(); ++i) {
        const PositionedLevel& level = *read.levels[i];
        EXPECT_EQ(level.number, i);
        EXPECT_EQ(bytes(level.region)[0], '(');
        EXPECT_TRUE(!level.closed || bytes(level.region).back() == ')');
        ASSERT_EQ(level.values.size(), static_cast<std::size_t>(level.m_aValues.GetSize()));
        for (std::size_t value = 0; value < level.values.size(); ++value) {
            const std::string token = bytes(level.values[value]);
            const bool quoted = token[0] == '"' && token.size() > 1 && token.back() == '"';
            EXPECT_TRUE(quoted || token == level.m_aValues[static_cast<INT_PTR>(value)].View()) << text;
        }
    }
}

std::vector<std::pair<What, std::string>> Faults(const std::string& text) {
    const PositionedText read = ReadWithPositions(text);
    const Bytes bytes(text);
    std::vector<std::pair<What, std::string>> faults;
    for (const TextFault& fault : read.faults) faults.emplace_back(fault.what, bytes(fault.region));
    return faults;
}
using Expected = std::vector<std::pair<What, std::string>>;

TEST(PositionReader, TellsWhereLevelsAndValuesStand) {
    const PositionedText read = ReadWithPositions("// x\r\n  (A b\r\n\t(C \"d\n e\" f))");
    const PositionedLevel& a = *read.levels.at(0);
    EXPECT_EQ(a.region, (Region{{2, 3}, {4, 8}}));
    EXPECT_EQ(a.nameRegion, (Region{{2, 4}, {2, 5}}));
    EXPECT_EQ(a.values.at(0), (Region{{2, 6}, {2, 7}}));
    const PositionedLevel& c = *read.levels.at(1);
    EXPECT_EQ(c.region, (Region{{3, 2}, {4, 7}}));
    EXPECT_EQ(c.values.at(0), (Region{{3, 5}, {4, 4}}));
    EXPECT_EQ(c.values.at(1), (Region{{4, 5}, {4, 6}}));
    EXPECT_EQ(read.end, (Place{4, 8}));
}

TEST(PositionReader, ReadsOddTextsAsThePlainReaderDoes) {
    for (const char* text : {"",
                             "\n",
                             "(",
                             ")",
                             "(A",
                             "(A))(B)",
                             "(A)) ",
                             "(A \"\")",
                             "(A \" \" \"\n\")",
                             "(A \"x\n// y\nz\n\")",
                             "(A b\"c\"d)",
                             "(A \"\\\")",
                             "(A \"\\\" x\")",
                             "(A \"a\\\"\\\" b\" c)",
                             "(\"\" x)",
                             "(\" \")",
                             "((()))",
                             "(A\tb\vc)",
                             "(A \xC3\\\"x\" y)",
                             "(A \"\xC3\\\" y)",
                             "(A \"x\\\n\"y\")",
                             "(A \"x\\z\n\" y)",
                             "(A \\\"b)",
                             "(A b\\\"c\")",
                             "// (A)\n(B)",
                             " //(A b)\n",
                             "(A //\n b)",
                             "(A \"b",
                             "(A b\r)",
                             "(A b\r\n)",
                             "(A \"b\r\nc\r\")",
                             "x (A) y\nz",
                             "(A (B (C)",
                             "\"(A)\" (B)",
                             "(A \"\\\\\" b)",
                             "\xEF\xBB\xBF(A b)"})
        ExpectTheSame(text);
    ExpectTheSame({"(A\0B (C\0 1\0002) (D\0E", 18});
    ExpectTheSame(std::string(20, '(') + std::string(20, ')'));
    ExpectTheSame(std::string(21, '(') + std::string(21, ')'));
}

TEST(PositionReader, ReadsGeneratedFilesAsThePlainReaderDoes) {
    for (const std::string& text : test::GeneratedFiles(20)) ExpectTheSame(text);
}

TEST(PositionReader, ReadsMixedBytesAsThePlainReaderDoes) {
    constexpr std::string_view bytes = "()\"\"\\\\ \n\n/ab\t\r\xC3)( \"";
    test::Random random(7);
    for (int i = 0; i < 1500; ++i) {
        std::string text = "(A ";
        for (unsigned size = random() % 40; size > 0; --size) text += bytes[random() % bytes.size()];
        ExpectTheSame(text);
    }
}

TEST(PositionReader, ReadsTheCorpusAsThePlainReaderDoes) {
    VEKA_NEEDS_CORPUS();
    for (const auto& file : test::CorpusFiles()) ExpectTheSame(test::ReadFile(file));
}

TEST(PositionReader, FindsWhatTheReaderDrops) {
    EXPECT_EQ(Faults("x y (A)) z"),
              (Expected{{What::Outside, "x y"}, {What::StrayParenthesis, ")"}, {What::Outside, "z"}}));
    EXPECT_EQ(Faults("(A lost\"b\"c)"), (Expected{{What::LostToken, "lost"}}));
    EXPECT_EQ(Faults("(A \"b\n// c\nd\")"), (Expected{{What::CommentInString, "// c"}}));
    EXPECT_EQ(Faults("(A \"b\n\")"), (Expected{{What::BlankAdded, "\""}}));
    EXPECT_EQ(Faults("(A b\tc)"), (Expected{{What::TabInToken, "b\tc"}}));
    EXPECT_EQ(Faults("(A)) (B)\n(C)"),
              (Expected{{What::StrayParenthesis, ")"}, {What::RestAfterStray, "(B)\n(C)"}}));
    EXPECT_EQ(Faults("(A \"b\nc"), (Expected{{What::OpenString, "\"b\nc"}}));
    EXPECT_EQ(Faults(std::string(20, '(') + "(A)\n)"), (Expected{{What::TooDeep, "(A)\n)"}}));
    EXPECT_EQ(Faults("// x\n(A \"b c\" d)\n"), Expected{});
}

TEST(PositionReader, GuessesTheLevelThatLacksItsParenthesisByTheIndentation) {
    const PositionedText read = ReadWithPositions("(A\n  (B 1\n  (C 2)\n)\n");
    ASSERT_NE(read.suspect, ReadTracer::kNone);
    EXPECT_EQ(read.levels[read.suspect]->m_strName, "B");
    EXPECT_EQ(ReadWithPositions("(A\n  (B 1)\n  (C 2)\n").suspect, ReadTracer::kNone);
}

}  // namespace
