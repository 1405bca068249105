#include "leveltree/LevelReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <random>

#include "files/MemoryLines.h"
#include "support/Files.h"
#include "support/LibraryReader.h"
#include "support/RealParts.h"
#include "support/ReferenceReader.h"

namespace {

using test::LevelData;
using test::ReadResult;
using testing::ElementsAre;
using testing::IsEmpty;

ReadResult Read(std::string_view text, bool stopAtDepthZero = false, int reserved = 0) {
    return test::ReadByLibrary(text, stopAtDepthZero, reserved);
}

/// The one top-level level of a text.
LevelData ReadOne(std::string_view text) {
    const ReadResult read = Read(text);
    EXPECT_EQ(read.roots.size(), 1u) << text;
    return read.roots.empty() ? LevelData() : read.roots[0];
}

std::vector<std::string> ValuesOf(std::string_view text) {
    return ReadOne(text).values;
}

TEST(LevelReader, AnEmptyFileGivesAnEmptyTree) {
    EXPECT_EQ(Read(""), ReadResult());
}

TEST(LevelReader, AFileOfCommentsGivesAnEmptyTreeAndCountsTheLines) {
    const ReadResult read = Read("// one\n// two\n// three");
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.lineCount, 3);
    EXPECT_THAT(read.roots, IsEmpty());
}

TEST(LevelReader, AnIndentedCommentIsReadAsText) {
    const LevelData level = ReadOne("(\n  // note\n)");
    EXPECT_EQ(level.name, "//");
    EXPECT_THAT(level.values, ElementsAre("note"));
}

TEST(LevelReader, SlashesWithinALineAreText) {
    EXPECT_THAT(ValuesOf("(A // b)"), ElementsAre("//", "b"));
}

TEST(LevelReader, NoSeparatorIsNeededNextToAParenthesis) {
    const LevelData level = ReadOne("(A(B)C)");
    EXPECT_EQ(level.name, "A");
    EXPECT_THAT(level.values, ElementsAre("C"));
    ASSERT_EQ(level.children.size(), 1u);
    EXPECT_EQ(level.children[0].name, "B");
}

TEST(LevelReader, ATokenBeforeAnOpenParenthesisGoesToTheEnclosingLevel) {
    const LevelData level = ReadOne("(X A(B))");
    EXPECT_EQ(level.name, "X");
    EXPECT_THAT(level.values, ElementsAre("A"));
    EXPECT_EQ(level.children.at(0).name, "B");
}

TEST(LevelReader, ATokenOutsideEveryLevelIsDropped) {
    EXPECT_EQ(ReadOne("VEK(B)").name, "B");
    EXPECT_EQ(ReadOne("stray words\n\"and a string\" (B) tail").name, "B");
}

TEST(LevelReader, ATokenDirectlyBeforeAStringIsThrownAway) {
    EXPECT_THAT(ValuesOf("(N abc\"def\")"), ElementsAre("def"));
}

TEST(LevelReader, ATokenDirectlyBehindAStringIsItsOwn) {
    EXPECT_THAT(ValuesOf("(N \"abc\"def)"), ElementsAre("abc", "def"));
}

TEST(LevelReader, ATabBetweenWordsBelongsToTheToken) {
    EXPECT_THAT(ValuesOf("(N a\tb)"), ElementsAre("a\tb"));
}

TEST(LevelReader, LeadingWhiteSpaceOfALineIsTrimmed) {
    EXPECT_THAT(ValuesOf("(N\n\t\v\f\r a)"), ElementsAre("a"));
}

TEST(LevelReader, EmptyParenthesesGiveALevelWithoutNameAndValues) {
    const LevelData level = ReadOne("()");
    EXPECT_EQ(level.name, "");
    EXPECT_THAT(level.values, IsEmpty());
    EXPECT_EQ(level.depth, 1);
}

TEST(LevelReader, AnEmptyStringAsNameIsASingleBlank) {  // Q30
    const LevelData level = ReadOne("(\"\" x)");
    EXPECT_EQ(level.name, " ");
    EXPECT_THAT(level.values, ElementsAre("x"));
}

TEST(LevelReader, AnEmptyStringAndOneOfABlankBothGiveAnEmptyValue) {  // Q30
    EXPECT_THAT(ValuesOf("(N \"\")"), ElementsAre(""));
    EXPECT_THAT(ValuesOf("(N \" \")"), ElementsAre(""));
    EXPECT_THAT(ValuesOf("(N \"  \")"), ElementsAre("  "));
}

TEST(LevelReader, AnEscapedQuoteStaysWithItsBackslash) {
    EXPECT_THAT(ValuesOf("(N \"a\\\"b\")"), ElementsAre("a\\\"b"));
}

TEST(LevelReader, AStringMayEndInABackslashDirectlyBeforeTheEndOfItsLevel) {
    EXPECT_THAT(ValuesOf("(N \"C:\\d\\\")"), ElementsAre("C:\\d\\"));
}

TEST(LevelReader, ABlankBeforeTheCloseParenthesisKeepsTheStringOpen) {
    const ReadResult read = Read("(N \"C:\\d\\\" )");
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(read.roots, IsEmpty());
    EXPECT_THAT(ValuesOf("(N \"C:\\d\\\" )\nx\")"), ElementsAre("C:\\d\\\" )\nx"));
}

TEST(LevelReader, TheLookAheadSeesBytesBeforeTheString) {  // Q29
    const ReadResult read = Read("(x\\\" \"x\\\")");
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(ValuesOf("(x\\\" \"x\\\")\n\")"), ElementsAre("x\\\")\n "));
}

TEST(LevelReader, TheChunkOfALaterEscapedQuoteIsLonger) {
    EXPECT_THAT(ValuesOf("(N \"a\\\"b\\\")"), ElementsAre("a\\\"b\\"));
}

TEST(LevelReader, ABackslashThatIsATrailByteEscapesNothing) {
    EXPECT_THAT(ValuesOf("(N \"\x83\\\" x)"), ElementsAre("\x83\\", "x"));
    EXPECT_THAT(ValuesOf("(N \"\x80\\\" x)"), ElementsAre("\x80\\", "x")) << "from 128 on";
    EXPECT_THAT(ValuesOf("(N \"\xff\\\" x)"), ElementsAre("\xff\\", "x"));
}

TEST(LevelReader, ABackslashBehindAWholeDoubleByteCharacterEscapes) {
    EXPECT_THAT(ValuesOf("(N \"\x83\x84\\\" x\")"), ElementsAre("\x83\x84\\\" x"));
    EXPECT_THAT(ValuesOf("(N \"\x83\x84\x85\\\" x)"), ElementsAre("\x83\x84\x85\\", "x"));
}

TEST(LevelReader, OutsideAStringABackslashBeforeAQuoteContinuesTheToken) {
    EXPECT_THAT(ValuesOf("(N a\\\"b c)"), ElementsAre("a\\\"b", "c"));
    EXPECT_THAT(ValuesOf("(N \x83\\\"b c)"), ElementsAre("\x83\\\"b", "c")) << "double-byte or not";
}

TEST(LevelReader, AStringRunsOverLinesWithTheirIndentation) {
    EXPECT_THAT(ValuesOf("(N \"line one\n  line (two)\n\nend\" x)"),
                ElementsAre("line one\n  line (two)\n\nend", "x"));
}

TEST(LevelReader, AClosingQuoteThatOpensItsLineAddsABlank) {  // Q31
    EXPECT_THAT(ValuesOf("(N \"a\n\")"), ElementsAre("a\n "));
    EXPECT_THAT(ValuesOf("(N \"\n\")"), ElementsAre("\n "));
    EXPECT_THAT(ValuesOf("(N \"a\n \")"), ElementsAre("a\n "));
}

TEST(LevelReader, ACommentLineVanishesFromAString) {
    EXPECT_THAT(ValuesOf("(N \"a\n// not there\nb\")"), ElementsAre("a\nb"));
}

TEST(LevelReader, ATokenSurvivesACommentLine) {
    EXPECT_THAT(ValuesOf("(N a\n// comment\nb)"), ElementsAre("a", "b"));
}

TEST(LevelReader, TheByteBeforeALineIsThatOfAnEarlierLine) {  // Q28
    // The last but one byte of the line before is a backslash, so the first quote is suspected of an escape.
    EXPECT_THAT(ValuesOf("(N \"a\\b\n\" x\")"), ElementsAre("a\\b\n\" x"));
    EXPECT_THAT(ValuesOf("(N \"a\\b\n// comment\n\" x\")"), ElementsAre("a\\b\n\" x"));
    EXPECT_THAT(ValuesOf("(N \"a\\b\nc\n\" x\")"), ElementsAre("a\\b\nc\n\" x")) << "one byte does not count";
    EXPECT_THAT(ValuesOf("(N \"a\\b\n\")\n\")"), ElementsAre("a\\b\n")) << "and the look-ahead may end it";
}

TEST(LevelReader, TwentyNestedLevelsAreRead) {
    const ReadResult read = Read(std::string(20, '(') + std::string(20, ')'));
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.message, "");
    const LevelData* level = &read.roots.at(0);
    for (int depth = 1; depth < 20; ++depth) {
        EXPECT_EQ(level->depth, depth);
        level = &level->children.at(0);
    }
    EXPECT_EQ(level->depth, 20);
    EXPECT_THAT(level->children, IsEmpty());
}

TEST(LevelReader, ATwentyFirstLevelIsTheBraceError) {
    const ReadResult read = Read("(A)\n\n" + std::string(21, '(') + std::string(21, ')'));
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "Parser meet unexpected Brace Counting Number, 21 at line number 3.!");
    ASSERT_EQ(read.roots.size(), 1u);
    EXPECT_EQ(read.roots[0].name, "A");
}

TEST(LevelReader, AStrayCloseParenthesisIsIgnored) {
    const ReadResult read = Read("(A)\n)\ntext");
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "");
    EXPECT_EQ(read.roots.size(), 1u);
}

TEST(LevelReader, ALevelBehindAStrayCloseParenthesisIsTheBraceError) {
    EXPECT_EQ(Read(")(A)").message, "Parser meet unexpected Brace Counting Number, 0 at line number 1.!");
    EXPECT_EQ(Read(")))(A)").message, "Parser meet unexpected Brace Counting Number, -2 at line number 1.!");
}

TEST(LevelReader, TheBraceErrorIsAFailureEvenWhereItCountsToZero) {
    EXPECT_EQ(Read(")(A)").result, -1);
}

TEST(LevelReader, LevelsOfAnyNumberOfValuesKeepThemBesideTheirNeighbours) {
    std::string text, values;
    for (int i = 0; i < 20; ++i) {
        const std::string level = "(N" + std::to_string(i) + values;
        text += level + ")" + level + "(IN" + values + "))\n";
        values += " V" + std::to_string(i);
    }
    const ReadResult read = Read(text);
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

TEST(LevelReader, AStringOpenAtTheEndOutsideEveryLevelIsLost) {
    const ReadResult read = Read("(A)\n\"open");
    EXPECT_EQ(read.result, 0);
    EXPECT_EQ(read.roots.size(), 1u);
}

TEST(LevelReader, AnOpenLevelAtTheEndIsNotInTheTree) {
    const ReadResult read = Read("(A) (B (C)");
    EXPECT_EQ(read.result, -1);
    EXPECT_EQ(read.message, "");
    ASSERT_EQ(read.roots.size(), 1u);
    EXPECT_EQ(read.roots[0].name, "A");
}

TEST(LevelReader, LineNumbersCountCommentsAndTheLinesOfStrings) {
    const ReadResult read = Read("// one\n(A \"two\nthree\")\n// four\n)(");
    EXPECT_EQ(read.message, "Parser meet unexpected Brace Counting Number, 0 at line number 5.!");
    EXPECT_EQ(read.lineCount, 5);
}

TEST(LevelReader, StopsOutsideEveryLevelBehindTheFirstLineOnDemand) {
    EXPECT_EQ(Read("(A)\n(B)\n(C)", true).roots.size(), 2u);
    EXPECT_EQ(Read("(A)\n(B)\n(C)", false).roots.size(), 3u);
    EXPECT_EQ(Read("(A\n)\n(B)", true).roots.size(), 1u);
    EXPECT_EQ(Read("// c\n// d\n(A\n)\n(B)", true).roots.size(), 1u) << "comments do not stop it";
    EXPECT_EQ(Read("(A)\n// c\n(B)\n(C)", true).roots.size(), 2u);
}

TEST(LevelReader, ACarriageReturnBeforeALineFeedIsDroppedAndAnyOtherIsText) {
    EXPECT_THAT(ValuesOf("(N a\r\nb\rc \"d\r\ne\")\r\n"), ElementsAre("a", "b\rc", "d\ne"));
}

TEST(LevelReader, ZeroBytesAreText) {
    const std::string text("(N a\0b \"\0\")", 11);
    EXPECT_THAT(ValuesOf(text), ElementsAre(std::string("a\0b", 3), std::string("\0", 1)));
}

TEST(LevelReader, TheExampleOfTheFormatReadsAsDescribed) {
    const LevelData level = ReadOne(
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

TEST(LevelReader, AHundredMillionOpenParenthesesAreOneMessage) {
    EXPECT_EQ(Read(std::string(100'000'000, '(')).message,
              "Parser meet unexpected Brace Counting Number, 21 at line number 1.!");
}

TEST(LevelReader, AStringThatNeverEndsGivesAnEmptyTree) {
    std::string text = "(N \"";
    for (int i = 0; i < 200'000; ++i) text += "never \\\" ending\n";
    const ReadResult read = Read(text);
    EXPECT_EQ(read.result, -1);
    EXPECT_THAT(read.roots, IsEmpty());
    EXPECT_EQ(read.lineCount, 200'000);
}

TEST(LevelReader, ALineFullOfEscapedQuotesIsRead) {
    std::string text = "(N \"";
    for (int i = 0; i < 300'000; ++i) text += "a\\\"";
    EXPECT_EQ(ValuesOf(text + "b\")").at(0).size(), 900'001u);
}

TEST(LevelReader, ALineFullOfStringsWithEscapedQuotesIsRead) {
    std::string text = "(N";
    for (int i = 0; i < 50'000; ++i) text += " \"" + std::to_string(i) + "\\\" x\"";
    EXPECT_EQ(ValuesOf(text + ")").size(), 50'000u);
}

TEST(LevelReader, ReadsEveryTextAsTheProcedureSays) {
    std::mt19937 random(1);
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
        ASSERT_EQ(Read(text, stop, reserved), test::ReadByReference(text, stop, reserved)) << text;
    }
}

TEST(LevelReader, ReadsEveryRealPartAsTheProcedureSays) {
    VEKA_NEEDS_CORPUS();
    for (const test::RealPart& part : test::RealParts()) {
        const ReadResult read = Read(part.text);
        EXPECT_EQ(read.result, 0) << part.path;
        EXPECT_TRUE(read == part.read) << part.path;
    }
}

TEST(LevelReader, ReadsALargeFileAsTheProcedureSays) {
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
    EXPECT_EQ(Read(shallow), test::ReadByReference(shallow));
}

TEST(LevelReader, ThePreviousByteIsThatBeforeTheFirstLine) {
    const std::string text = "(\n\"\n\" x\")";
    EXPECT_EQ(Read(text, false, '\\').roots.at(0).name, "\n\" x");
    EXPECT_EQ(Read(text, false, 0).roots.size(), 0u);
    EXPECT_EQ(Read("(N\n\"\n\"x\")", false, '\\').roots, Read("(N\n\"\n\"x\")").roots)
        << "the first line sets it anew";
}

veka::LevelsRead Summary(std::string_view text) {
    veka::Pages pages;
    veka::MemoryLines lines(text);
    return veka::LevelReader(pages, [](CECadClsLvl*, int) {}, {}).Read(lines);
}

using Structure = veka::LevelsRead::Structure;

TEST(LevelReader, TellsThatAllLevelsWereClosed) {
    const auto read = Summary("(A (B)\n(C))\n(D)\n");
    EXPECT_EQ(read.structure, Structure::Balanced);
    EXPECT_FALSE(read.stopped);
    EXPECT_EQ(read.depth, 0);
    EXPECT_EQ(read.breakLine, 0);
    EXPECT_EQ(read.openString, 0);
    EXPECT_THAT(read.open, IsEmpty());
}

TEST(LevelReader, TellsWhichLevelsTheTextEndedIn) {
    const auto read = Summary("(A)\n(B 1\n  (C)\n  ((\"a name that is longer than fourteen\" x\n// end\n");
    EXPECT_EQ(read.structure, Structure::Unclosed);
    EXPECT_FALSE(read.stopped);
    EXPECT_EQ(read.depth, 3);
    EXPECT_EQ(read.breakLine, 5);
    ASSERT_EQ(read.open.size(), 3u);
    EXPECT_EQ(read.open[0].name, "B");
    EXPECT_EQ(read.open[0].line, 2);
    EXPECT_EQ(read.open[1].name, "");
    EXPECT_EQ(read.open[1].line, 4);
    EXPECT_EQ(read.open[2].name, "a name that is longer than fourteen");
    EXPECT_EQ(read.open[2].line, 4);
}

TEST(LevelReader, TakesALastTokenForTheNameOfTheLevelThatTheTextEndedIn) {
    EXPECT_EQ(Summary("(A\n(PACKAGES").open.back().name, "PACKAGES");
    EXPECT_EQ(Summary("(A\n(\"PACKAGES").open.back().name, "") << "a string that was not closed is no token";
}

TEST(LevelReader, TellsTheNamesOfOpenLevelsWhenItsMemoryIsGone) {
    std::optional<veka::LevelsRead> read;
    {
        veka::Pages pages;
        veka::MemoryLines lines("(\"a name that is longer than fourteen\"");
        read = veka::LevelReader(pages, [](CECadClsLvl*, int) {}, {}).Read(lines);
    }
    EXPECT_EQ(read->open.at(0).name, "a name that is longer than fourteen");
}

TEST(LevelReader, TellsTheLineOfTheFirstStrayParenthesis) {
    const auto read = Summary("(A)\n\n)\n)\n");
    EXPECT_EQ(read.structure, Structure::StrayParenthesis);
    EXPECT_FALSE(read.stopped);
    EXPECT_EQ(read.depth, -2);
    EXPECT_EQ(read.breakLine, 3);
    EXPECT_THAT(read.open, IsEmpty());
}

TEST(LevelReader, TellsTheStrayParenthesisBeforeALevelThatStoppedIt) {
    const auto read = Summary("(A)\n)\n\n(B\n(C))\n");
    EXPECT_EQ(read.structure, Structure::StrayParenthesis);
    EXPECT_TRUE(read.stopped);
    EXPECT_EQ(read.depth, 0);
    EXPECT_EQ(read.breakLine, 2);
    EXPECT_THAT(read.open, IsEmpty());
}

TEST(LevelReader, TellsTheOpenLevelsWhereItBecameTooDeep) {
    std::string text = "(A)\n";
    for (int i = 1; i <= 20; ++i) text += "(L" + std::to_string(i) + "\n";
    const auto read = Summary(text + "(TOODEEP)\n\n");
    EXPECT_EQ(read.structure, Structure::TooDeep);
    EXPECT_TRUE(read.stopped);
    EXPECT_EQ(read.depth, 21);
    EXPECT_EQ(read.breakLine, 22);
    ASSERT_EQ(read.open.size(), 20u);
    EXPECT_EQ(read.open.back().name, "L20");
    EXPECT_EQ(read.open.back().line, 21);
}

TEST(LevelReader, TellsWhereAStringBeginsThatWasNotClosed) {
    EXPECT_EQ(Summary("(A\n\"open\nx\n(B))\n").openString, 2);
    EXPECT_EQ(Summary("(A \"closed\n\") \"\n").openString, 2);
    EXPECT_EQ(Summary("\"one\ntwo\" \"three\n// four\nfive").openString, 2);
    const auto outside = Summary("(A)\n\"open");
    EXPECT_EQ(outside.structure, Structure::Balanced);
    EXPECT_EQ(outside.openString, 2);
}

TEST(LevelReader, GivesTheLineOfEachTopLevelLevel) {
    EXPECT_THAT(Read("(A) (B\n)(C\n(D))\n// note\n  (E)").rootLines, ElementsAre(1, 1, 2, 5));
}

TEST(LevelReader, CountsTheParenthesesThatCloseNothing) {
    EXPECT_EQ(Summary("(A))\n))").strayParentheses, 3);
    EXPECT_EQ(Summary("(A)))(B").strayParentheses, 2);
    EXPECT_EQ(Summary("(A)\n").strayParentheses, 0);
    EXPECT_EQ(Summary("(A (B").strayParentheses, 0);
    EXPECT_EQ(Summary(std::string(25, '(')).strayParentheses, 0);
    EXPECT_EQ(Summary(")" + std::string(25, '(')).strayParentheses, 1);
}

/// Reads a text as one that is watched.
struct Watched {
    explicit Watched(std::string_view text, bool stopAtDepthZero = false) {
        veka::Pages pages;
        veka::MemoryLines lines(text);
        veka::LevelReader reader(pages, [](CECadClsLvl*, int) {},
                                 {.stopAtDepthZero = stopAtDepthZero, .watched = true});
        reader.Read(lines);
        levels = reader.LevelCount();
        bytes = reader.BytesRead();
    }
    std::uint64_t levels, bytes;
};

TEST(LevelReader, CountsLevelsAndBytesWhereItIsWatched) {
    EXPECT_EQ(Watched("").bytes, 0u);
    EXPECT_EQ(Watched("(A (B) (C (D)))\n(E) (F\n").levels, 5u);
    EXPECT_EQ(Watched("(A (B) (C (D)))\n(E) (F\n").bytes, 23u);
    EXPECT_EQ(Watched("))\n").levels, 0u);
    EXPECT_EQ(Watched("(A)").bytes, 5u) << "with the end of line that was added";
    EXPECT_EQ(Watched("(A)\n))( (B)\n(C)\n").bytes, 12u) << "to the end of the line where reading stopped";
    EXPECT_EQ(Watched("(A)\n(B)\n(C)\n", true).bytes, 8u);
    const std::string lines(100'000, '\n');
    EXPECT_EQ(Watched("(A" + lines + ")\n").bytes, 100'004u);
}

/// Ends the work at its first tick after some others.
class EndAt : public veka::Watch {
public:
    explicit EndAt(int ticks) : m_ticks(ticks) {}

protected:
    void Check() override {
        if (--m_ticks < 0) throw 1;
    }

private:
    int m_ticks;
};

TEST(LevelReader, TicksOftenWithinOneLine) {
    for (const char* piece : {" ", " 1", "(B)", " \"b\"", ")"}) {
        std::string line = "(A";
        while (line.size() < 1'000'000) line += piece;
        veka::Pages pages;
        veka::MemoryLines lines(line);
        veka::LevelReader reader(pages, [](CECadClsLvl*, int) {}, {.watched = true});
        EndAt watch(2);
        const veka::Watch::Scope scope(&watch);
        EXPECT_THROW(reader.Read(lines), int) << piece;
        EXPECT_LE(reader.BytesRead(), 3 * veka::LevelReader::kTickBytes) << piece;
    }
}

TEST(LevelReader, KnowsAtEachTickHowFarItIsWithinOneLine) {
    const std::string line = "(A" + std::string(1'000'000, ' ');
    const auto bytesReadAfter = [&](int ticks) {
        veka::Pages pages;
        veka::MemoryLines lines(line);
        veka::LevelReader reader(pages, [](CECadClsLvl*, int) {}, {.watched = true});
        EndAt watch(ticks);
        const veka::Watch::Scope scope(&watch);
        EXPECT_THROW(reader.Read(lines), int);
        return reader.BytesRead();
    };
    EXPECT_EQ(bytesReadAfter(9) - bytesReadAfter(5), 4 * veka::LevelReader::kTickBytes);
}

/// The most memory that reading a number of levels takes if their pages are used again.
std::int64_t MemoryOfLevels(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "(A (B 1) (C 2) (D 3))\n";
    EndAt watch(std::numeric_limits<int>::max());
    const veka::Watch::Scope scope(&watch);
    veka::Pages pages;
    veka::MemoryLines lines(text);
    veka::LevelReader(pages, [&](CECadClsLvl*, int) { pages.Reset(); }, {.watched = true}).Read(lines);
    return watch.MostTaken();
}

TEST(LevelReader, KeepsNothingOfALevelThatWasTaken) {
    EXPECT_GT(MemoryOfLevels(1), 0);
    EXPECT_LT(MemoryOfLevels(10'000), MemoryOfLevels(1) + 1000);
}

TEST(LevelReader, CountsTheLinesAlsoWhereAnExceptionEndsIt) {
    veka::Pages pages;
    veka::MemoryLines lines("\n(A)\n(B)\n");
    veka::LevelReader reader(pages, [](CECadClsLvl*, int) { throw 1; }, {});
    EXPECT_THROW(reader.Read(lines), int);
    EXPECT_EQ(reader.LineCount(), 2);
}

}  // namespace
