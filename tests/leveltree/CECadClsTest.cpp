#include "leveltree/CECadCls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "platform/Exceptions.h"
#include "support/Files.h"
#include "support/PlainLevels.h"
#include "support/PlainReader.h"
#include "support/ScriptedUserInterface.h"

namespace {

using test::PlainLevel;
using test::PlainResult;
using testing::ElementsAre;
using testing::IsEmpty;

PlainResult ReadPath(const CString& path, bool stopAtDepthZero = false, int reserved = 0) {
    test::ScriptedUserInterface user;
    PlainResult out = test::ReadAsPlain(path, stopAtDepthZero, reserved);
    for (const std::string& message : user.messages) out.message += message;
    return out;
}

PlainResult Read(std::string_view text, bool stopAtDepthZero = false, int reserved = 0) {
    const test::TemporaryDirectory directory;
    return ReadPath(directory.Write("part.veka", text), stopAtDepthZero, reserved);
}

/// The one top-level level of a text.
PlainLevel ReadOne(std::string_view text) {
    const PlainResult read = Read(text);
    EXPECT_EQ(read.roots.size(), 1u) << text;
    return read.roots.empty() ? PlainLevel() : read.roots[0];
}

std::vector<std::string> ValuesOf(std::string_view text) {
    return ReadOne(text).values;
}

TEST(CECadCls, StartsWithAnEmptyTree) {
    const CECadCls tree;
    EXPECT_EQ(tree.m_bStopAtDepthZero, 0);
    EXPECT_EQ(tree.m_nLineCount, 0);
    EXPECT_TRUE(tree.m_strFilePath.IsEmpty());
    EXPECT_TRUE(tree.m_pRootLevels->IsEmpty());
    EXPECT_TRUE(tree.m_aReserved32.IsEmpty());
    EXPECT_TRUE(tree.m_aReserved64.IsEmpty());
}

TEST(CECadCls, AnEmptyFileGivesAnEmptyTree) {
    EXPECT_EQ(Read(""), PlainResult());
}

TEST(CECadCls, AFileOfCommentsGivesAnEmptyTreeAndCountsTheLines) {
    const PlainResult read = Read("// one\n// two\n// three");
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.lineCount, 3);
    EXPECT_THAT(read.roots, IsEmpty());
}

TEST(CECadCls, AnIndentedCommentIsReadAsText) {
    const PlainLevel level = ReadOne("(\n  // note\n)");
    EXPECT_EQ(level.name, "//");
    EXPECT_THAT(level.values, ElementsAre("note"));
}

TEST(CECadCls, SlashesWithinALineAreText) {
    EXPECT_THAT(ValuesOf("(A // b)"), ElementsAre("//", "b"));
}

TEST(CECadCls, NoSeparatorIsNeededNextToAParenthesis) {
    const PlainLevel level = ReadOne("(A(B)C)");
    EXPECT_EQ(level.name, "A");
    EXPECT_THAT(level.values, ElementsAre("C"));
    ASSERT_EQ(level.children.size(), 1u);
    EXPECT_EQ(level.children[0].name, "B");
}

TEST(CECadCls, ATokenBeforeAnOpenParenthesisGoesToTheEnclosingLevel) {
    const PlainLevel level = ReadOne("(X A(B))");
    EXPECT_EQ(level.name, "X");
    EXPECT_THAT(level.values, ElementsAre("A"));
    EXPECT_EQ(level.children.at(0).name, "B");
}

TEST(CECadCls, ATokenOutsideEveryLevelIsDropped) {
    EXPECT_EQ(ReadOne("VEK(B)").name, "B");
    EXPECT_EQ(ReadOne("stray words\n\"and a string\" (B) tail").name, "B");
}

TEST(CECadCls, ATokenDirectlyBeforeAStringIsThrownAway) {
    EXPECT_THAT(ValuesOf("(N abc\"def\")"), ElementsAre("def"));
}

TEST(CECadCls, ATokenDirectlyBehindAStringIsItsOwn) {
    EXPECT_THAT(ValuesOf("(N \"abc\"def)"), ElementsAre("abc", "def"));
}

TEST(CECadCls, ATabBetweenWordsBelongsToTheToken) {
    EXPECT_THAT(ValuesOf("(N a\tb)"), ElementsAre("a\tb"));
}

TEST(CECadCls, LeadingWhiteSpaceOfALineIsTrimmed) {
    EXPECT_THAT(ValuesOf("(N\n\t\v\f\r a)"), ElementsAre("a"));
}

TEST(CECadCls, EmptyParenthesesGiveALevelWithoutNameAndValues) {
    const PlainLevel level = ReadOne("()");
    EXPECT_EQ(level.name, "");
    EXPECT_THAT(level.values, IsEmpty());
    EXPECT_EQ(level.depth, 1);
}

TEST(CECadCls, AnEmptyStringAsNameIsASingleBlank) {
    const PlainLevel level = ReadOne("(\"\" x)");
    EXPECT_EQ(level.name, " ");
    EXPECT_THAT(level.values, ElementsAre("x"));
}

TEST(CECadCls, AnEmptyStringAndOneOfABlankBothGiveAnEmptyValue) {
    EXPECT_THAT(ValuesOf("(N \"\")"), ElementsAre(""));
    EXPECT_THAT(ValuesOf("(N \" \")"), ElementsAre(""));
    EXPECT_THAT(ValuesOf("(N \"  \")"), ElementsAre("  "));
}

TEST(CECadCls, AnEscapedQuoteStaysWithItsBackslash) {
    EXPECT_THAT(ValuesOf("(N \"a\\\"b\")"), ElementsAre("a\\\"b"));
}

TEST(CECadCls, AStringMayEndInABackslashDirectlyBeforeTheEndOfItsLevel) {
    EXPECT_THAT(ValuesOf("(N \"C:\\d\\\")"), ElementsAre("C:\\d\\"));
}

TEST(CECadCls, ABlankBeforeTheCloseParenthesisKeepsTheStringOpen) {
    const PlainResult read = Read("(N \"C:\\d\\\" )");
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(read.roots, IsEmpty());
    EXPECT_THAT(ValuesOf("(N \"C:\\d\\\" )\nx\")"), ElementsAre("C:\\d\\\" )\nx"));
}

TEST(CECadCls, TheLookAheadSeesBytesBeforeTheString) {
    const PlainResult read = Read("(x\\\" \"x\\\")");
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(ValuesOf("(x\\\" \"x\\\")\n\")"), ElementsAre("x\\\")\n "));
}

TEST(CECadCls, TheChunkOfALaterEscapedQuoteIsLonger) {
    EXPECT_THAT(ValuesOf("(N \"a\\\"b\\\")"), ElementsAre("a\\\"b\\"));
}

TEST(CECadCls, ABackslashThatIsATrailByteEscapesNothing) {
    EXPECT_THAT(ValuesOf("(N \"\x83\\\" x)"), ElementsAre("\x83\\", "x"));
    EXPECT_THAT(ValuesOf("(N \"\x80\\\" x)"), ElementsAre("\x80\\", "x")) << "from 128 on";
    EXPECT_THAT(ValuesOf("(N \"\xff\\\" x)"), ElementsAre("\xff\\", "x"));
}

TEST(CECadCls, ABackslashBehindAWholeDoubleByteCharacterEscapes) {
    EXPECT_THAT(ValuesOf("(N \"\x83\x84\\\" x\")"), ElementsAre("\x83\x84\\\" x"));
    EXPECT_THAT(ValuesOf("(N \"\x83\x84\x85\\\" x)"), ElementsAre("\x83\x84\x85\\", "x"));
}

TEST(CECadCls, OutsideAStringABackslashBeforeAQuoteContinuesTheToken) {
    EXPECT_THAT(ValuesOf("(N a\\\"b c)"), ElementsAre("a\\\"b", "c"));
    EXPECT_THAT(ValuesOf("(N \x83\\\"b c)"), ElementsAre("\x83\\\"b", "c")) << "double-byte or not";
}

TEST(CECadCls, AStringRunsOverLinesWithTheirIndentation) {
    EXPECT_THAT(ValuesOf("(N \"line one\n  line (two)\n\nend\" x)"),
                ElementsAre("line one\n  line (two)\n\nend", "x"));
}

TEST(CECadCls, AClosingQuoteThatOpensItsLineAddsABlank) {
    EXPECT_THAT(ValuesOf("(N \"a\n\")"), ElementsAre("a\n "));
    EXPECT_THAT(ValuesOf("(N \"\n\")"), ElementsAre("\n "));
    EXPECT_THAT(ValuesOf("(N \"a\n \")"), ElementsAre("a\n "));
}

TEST(CECadCls, ACommentLineVanishesFromAString) {
    EXPECT_THAT(ValuesOf("(N \"a\n// not there\nb\")"), ElementsAre("a\nb"));
}

TEST(CECadCls, ATokenSurvivesACommentLine) {
    EXPECT_THAT(ValuesOf("(N a\n// comment\nb)"), ElementsAre("a", "b"));
}

TEST(CECadCls, TheByteBeforeALineIsThatOfAnEarlierLine) {
    // The last but one byte of the line before is a backslash, so the first quote is suspected of an escape.
    EXPECT_THAT(ValuesOf("(N \"a\\b\n\" x\")"), ElementsAre("a\\b\n\" x"));
    EXPECT_THAT(ValuesOf("(N \"a\\b\n// comment\n\" x\")"), ElementsAre("a\\b\n\" x"));
    EXPECT_THAT(ValuesOf("(N \"a\\b\nc\n\" x\")"), ElementsAre("a\\b\nc\n\" x")) << "one byte does not count";
    EXPECT_THAT(ValuesOf("(N \"a\\b\n\")\n\")"), ElementsAre("a\\b\n")) << "and the look-ahead may end it";
}

TEST(CECadCls, TheArgumentStandsForTheByteBeforeTheFile) {
    EXPECT_EQ(Read("(N\n\"\n\"x\")", false, '\\').roots, Read("(N\n\"\n\"x\")").roots)
        << "the first line sets it anew";
    const std::string text = "(\n\"\n\" x\")";
    EXPECT_EQ(Read(text, false, '\\').roots.at(0).name, "\n\" x");
    EXPECT_EQ(Read(text, false, 0x100 + '\\').roots.at(0).name, "\n\" x") << "only the low byte counts";
    EXPECT_EQ(Read(text, false, 0).roots.size(), 0u);
}

TEST(CECadCls, TwentyNestedLevelsAreRead) {
    const PlainResult read = Read(std::string(20, '(') + std::string(20, ')'));
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.message, "");
    const PlainLevel* level = &read.roots.at(0);
    for (int depth = 1; depth < 20; ++depth) {
        EXPECT_EQ(level->depth, depth);
        level = &level->children.at(0);
    }
    EXPECT_EQ(level->depth, 20);
    EXPECT_THAT(level->children, IsEmpty());
}

TEST(CECadCls, ATwentyFirstLevelIsTheBraceError) {
    const PlainResult read = Read("(A)\n\n" + std::string(21, '(') + std::string(21, ')'));
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "Parser meet unexpected Brace Counting Number, 21 at line number 3.!");
    ASSERT_EQ(read.roots.size(), 1u);
    EXPECT_EQ(read.roots[0].name, "A");
}

TEST(CECadCls, AStrayCloseParenthesisIsIgnored) {
    const PlainResult read = Read("(A)\n)\ntext");
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "");
    EXPECT_EQ(read.roots.size(), 1u);
}

TEST(CECadCls, ALevelBehindAStrayCloseParenthesisIsTheBraceError) {
    EXPECT_EQ(Read(")(A)").message, "Parser meet unexpected Brace Counting Number, 0 at line number 1.!");
    EXPECT_EQ(Read(")))(A)").message, "Parser meet unexpected Brace Counting Number, -2 at line number 1.!");
}

TEST(CECadCls, TheBraceErrorIsAFailureEvenWhereItCountsToZero) {
    EXPECT_EQ(Read(")(A)").result, -1);
}

TEST(CECadCls, LevelsOfAnyNumberOfValuesKeepThemBesideTheirNeighbours) {
    std::string text, values;
    for (int i = 0; i < 20; ++i) {
        const std::string level = "(N" + std::to_string(i) + values;
        text += level + ")" + level + "(IN" + values + "))\n";
        values += " V" + std::to_string(i);
    }
    const PlainResult read = Read(text);
    ASSERT_EQ(read.roots.size(), 40u);
    for (size_t i = 0; i < 40; ++i) {
        const auto& root = read.roots[i];
        EXPECT_EQ(root.name, "N" + std::to_string(i / 2));
        ASSERT_EQ(root.values.size(), i / 2);
        for (size_t value = 0; value < i / 2; ++value)
            EXPECT_EQ(root.values[value], "V" + std::to_string(value));
        ASSERT_EQ(root.children.size(), i % 2);
        for (const auto& child : root.children) {
            EXPECT_EQ(child.name, "IN");
            EXPECT_EQ(child.values, root.values);
        }
    }
}

TEST(CECadCls, AStringOpenAtTheEndOutsideEveryLevelIsLost) {
    const PlainResult read = Read("(A)\n\"open");
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.roots.size(), 1u);
}

TEST(CECadCls, AnOpenLevelAtTheEndIsNotInTheTree) {
    const PlainResult read = Read("(A) (B (C)");
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "");
    ASSERT_EQ(read.roots.size(), 1u);
    EXPECT_EQ(read.roots[0].name, "A");
}

TEST(CECadCls, LineNumbersCountCommentsAndTheLinesOfStrings) {
    const PlainResult read = Read("// one\n(A \"two\nthree\")\n// four\n)(");
    EXPECT_EQ(read.message, "Parser meet unexpected Brace Counting Number, 0 at line number 5.!");
    EXPECT_EQ(read.lineCount, 5);
}

TEST(CECadCls, StopsOutsideEveryLevelBehindTheFirstLineOnDemand) {
    EXPECT_EQ(Read("(A)\n(B)\n(C)", true).roots.size(), 2u);
    EXPECT_EQ(Read("(A)\n(B)\n(C)", false).roots.size(), 3u);
    EXPECT_EQ(Read("(A\n)\n(B)", true).roots.size(), 1u);
    EXPECT_EQ(Read("// c\n// d\n(A\n)\n(B)", true).roots.size(), 1u) << "comments do not stop it";
    EXPECT_EQ(Read("(A)\n// c\n(B)\n(C)", true).roots.size(), 2u);
}

TEST(CECadCls, ACarriageReturnBeforeALineFeedIsDroppedAndAnyOtherIsText) {
    EXPECT_THAT(ValuesOf("(N a\r\nb\rc \"d\r\ne\")\r\n"), ElementsAre("a", "b\rc", "d\ne"));
}

TEST(CECadCls, ZeroBytesAreText) {
    const std::string text("(N a\0b \"\0\")", 11);
    EXPECT_THAT(ValuesOf(text), ElementsAre(std::string("a\0b", 3), std::string("\0", 1)));
}

TEST(CECadCls, TheExampleOfTheFormatReadsAsDescribed) {
    const PlainLevel level = ReadOne(
        "// this line is dropped\nstray words are dropped\n(ITEM first \"two words\" \"\"\n  (SUB 1 2)\n"
        "  \"line one\nline two\"\n  (PATH \"C:\\parts\\\")\n  tail)\n");
    EXPECT_EQ(level.name, "ITEM");
    EXPECT_THAT(level.values, ElementsAre("first", "two words", "", "line one\nline two", "tail"));
    ASSERT_EQ(level.children.size(), 2u);
    EXPECT_EQ(level.children[0].name, "SUB");
    EXPECT_THAT(level.children[0].values, ElementsAre("1", "2"));
    EXPECT_EQ(level.children[1].depth, 2);
    EXPECT_THAT(level.children[1].values, ElementsAre("C:\\parts\\"));
}

TEST(CECadCls, AMissingFileGivesAnEmptyTree) {
    const test::TemporaryDirectory directory;
    EXPECT_EQ(ReadPath(directory / "nothing"), PlainResult());
}

TEST(CECadCls, ADirectoryGivesAnEmptyTree) {
    const test::TemporaryDirectory directory;
    EXPECT_EQ(ReadPath(directory / ""), PlainResult());
}

TEST(CECadCls, AReadErrorPassesThrough) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    EXPECT_THROW(ReadPath("/proc/self/mem"), CFileException);
}

TEST(CECadCls, AHundredMillionOpenParenthesesAreOneMessage) {
    EXPECT_EQ(Read(std::string(100'000'000, '(')).message,
              "Parser meet unexpected Brace Counting Number, 21 at line number 1.!");
}

TEST(CECadCls, AStringThatNeverEndsGivesAnEmptyTree) {
    std::string text = "(N \"";
    for (int i = 0; i < 200'000; ++i) text += "never \\\" ending\n";
    const PlainResult read = Read(text);
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(read.roots, IsEmpty());
    EXPECT_EQ(read.lineCount, 200'000);
}

TEST(CECadCls, ALineFullOfEscapedQuotesIsRead) {
    std::string text = "(N \"";
    for (int i = 0; i < 300'000; ++i) text += "a\\\"";
    EXPECT_EQ(ValuesOf(text + "b\")").at(0).size(), 900'001u);
}

TEST(CECadCls, ALineFullOfStringsWithEscapedQuotesIsRead) {
    std::string text = "(N";
    for (int i = 0; i < 50'000; ++i) text += " \"" + std::to_string(i) + "\\\" x\"";
    EXPECT_EQ(ValuesOf(text + ")").size(), 50'000u);
}

TEST(CECadCls, ReadsEveryTextAsTheProcedureSays) {
    std::mt19937 random(1);
    const test::TemporaryDirectory directory;
    const std::string pieces[] = {"(",    ")",    "\"",   "\"",    "\\",  "\\\"", " ",
                                  "\n",   "a",    "ab",   "x\\\"", "\t",  "\r",   "//",
                                  "\x83", "\n//", "\xff", "\r\n",  "(N ", "\")",  "\" )"};
    for (int round = 0; round < 20'000; ++round) {
        std::string text = round % 2 ? "(N " : "";
        const size_t kinds = 2 + random() % std::size(pieces);
        const size_t shift = random() % std::size(pieces);
        for (size_t length = random() % 60; length > 0; --length)
            text += pieces[(shift + random() % kinds) % std::size(pieces)];
        if (round % 2) text += "\") )";
        const bool stop = round % 7 == 0;
        const int reserved = round % 5 ? 0 : '\\';
        const CString path = directory.Write("part.veka", text);
        ASSERT_EQ(ReadPath(path, stop, reserved), test::ReadPlainly(text, stop, reserved)) << text;
    }
}

TEST(CECadCls, ReadsEveryRealPartAsTheProcedureSays) {
    VEKA_NEEDS_CORPUS();
    for (const auto& path : test::CorpusFiles()) {
        const PlainResult read = ReadPath(veka::FromPath(path));
        EXPECT_EQ(read.result, 0) << path;
        EXPECT_TRUE(read == test::ReadPlainly(test::ReadFile(path))) << path;
    }
}

TEST(CECadCls, ReadsALargeFileAsTheProcedureSays) {
    // Many blocks, with all that a line can end in.
    std::mt19937 random(3);
    std::string text;
    while (text.size() < 400'000) {
        const char* pieces[] = {
            "(LEVEL ",  "12.5 ", ")",   "\n",    "\r\n", "\r", "\"a string\" ", "\"",
            "  ",       "\t",    "// ", "\n// ", "\\\"", ") ", "(A B)\n",       "averyveryverylongtoken",
            "\xC3\xA4", "\\",    "x"};
        text += pieces[random() % std::size(pieces)];
        if (random() % 3 == 0) text += ")";
    }
    // Deep nesting would end the read at once.
    std::string shallow;
    int depth = 0;
    for (const char c : text) {
        if (c == '(' && depth >= 6) continue;
        if (c == ')' && depth == 0) continue;
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        shallow += c;
    }
    EXPECT_EQ(Read(shallow), test::ReadPlainly(shallow));
}

TEST(CECadCls, HandsTopLevelLevelsOverAndKeepsNone) {
    const test::TemporaryDirectory directory;
    const std::string text = "(A 1 (B \"a value that is longer than fourteen bytes\"))\n(C)\n(D (E) x";
    CECadCls tree;
    tree.m_strFilePath = directory.Write("part.veka", text);
    std::vector<PlainLevel> levels;
    EXPECT_EQ(tree.ReadTopLevels(0, [&](CECadClsLvl* level) { levels.push_back(test::Plain(*level)); }), -1);
    EXPECT_EQ(levels, test::ReadPlainly(text).roots);
    EXPECT_TRUE(tree.m_pRootLevels->IsEmpty());
    EXPECT_EQ(tree.m_nLineCount, 3);
}

TEST(CECadCls, AnExceptionOfWhoTakesTheLevelsEndsTheRead) {
    const test::TemporaryDirectory directory;
    CECadCls tree;
    tree.m_strFilePath = directory.Write("part.veka", "(A)(B)");
    int taken = 0;
    EXPECT_THROW(tree.ReadTopLevels(0, [&](CECadClsLvl*) { throw ++taken; }), int);
    EXPECT_EQ(taken, 1);
}

TEST(CECadCls, CountsTheLinesOfEachReadAnewAndKeepsTheLevelsOfTheFormer) {
    const test::TemporaryDirectory directory;
    CECadCls tree;
    tree.m_strFilePath = directory.Write("one", "(A)\n\n\n(B)\n");
    tree.ReadLevelTree(0);
    EXPECT_EQ(tree.m_nLineCount, 4);
    tree.m_strFilePath = directory.Write("two", "(C)\n");
    tree.ReadLevelTree(0);
    EXPECT_EQ(tree.m_nLineCount, 1);
    EXPECT_EQ(tree.m_pRootLevels->GetSize(), 3);
}

}  // namespace
