#include "leveltree/QuoteLookAhead.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "platform/Watch.h"
#include "support/ReferenceReader.h"

namespace {

constexpr size_t kIndexAtOnce = 0;
constexpr size_t kNoIndex = SIZE_MAX;

/// Tests every quote of a line that a reader could ask for, with strings that begin at the given positions.
void Compare(const std::string& line, const std::vector<size_t>& strings, size_t limit) {
    veka::QuoteLookAhead lookAhead;
    lookAhead.StartLine(line, limit);
    for (size_t k = 0; k < strings.size(); ++k) {
        const size_t begin = strings[k];
        const size_t end = k + 1 < strings.size() ? strings[k + 1] : line.size();
        lookAhead.StartString(begin);
        for (size_t quote = begin; quote < end; ++quote) {
            if (line[quote] != '"' || (quote > 0 && line[quote - 1] != '\\')) continue;
            ASSERT_EQ(lookAhead.EndsAt(quote),
                      test::EndsByReference(line, line.substr(begin, quote + 1 - begin)))
                << line << " from " << begin << " at " << quote;
        }
    }
}

/// Positions in a line at which strings begin: those after each quote that does not follow a backslash.
std::vector<size_t> AfterPlainQuotes(const std::string& line) {
    std::vector<size_t> strings{0};
    for (size_t i = 0; i < line.size(); ++i)
        if (line[i] == '"' && (i == 0 || line[i - 1] != '\\')) strings.push_back(i + 1);
    return strings;
}

using Pieces = std::vector<std::string>;

std::string RandomLine(std::mt19937& random, const Pieces& pieces, size_t length, bool periodic) {
    std::string line;
    while (line.size() < length) {
        std::string part;
        for (size_t i = 1 + random() % 4; i > 0; --i) part += pieces[random() % pieces.size()];
        for (size_t times = periodic ? 1 + random() % 5 : 1; times > 0; --times) line += part;
    }
    return line;
}

void CompareRandomly(unsigned seed, const Pieces& pieces, size_t limit, bool periodic) {
    std::mt19937 random(seed);
    for (int round = 0; round < 4000; ++round) {
        const std::string line = RandomLine(random, pieces, random() % 40, periodic);
        std::vector<size_t> strings{0};
        while (strings.back() < line.size()) strings.push_back(strings.back() + 1 + random() % 12);
        strings.pop_back();
        ASSERT_NO_FATAL_FAILURE(Compare(line, strings, limit));
    }
}

const Pieces kBytes{"\"", "\\", ")", "a"};
const Pieces kEscaped{"\\\"", ")", "a"};
const Pieces kMany{"\\\"", "\\\"", "\"", ")", "a", "b", "(", "\xFF", std::string(1, '\0')};

TEST(QuoteLookAhead, EqualsFindDeleteAndReplace) {
    CompareRandomly(1, kBytes, kNoIndex, false);
    CompareRandomly(2, kEscaped, kNoIndex, false);
    CompareRandomly(3, kEscaped, kNoIndex, true);
    CompareRandomly(4, kMany, kNoIndex, true);
}

TEST(QuoteLookAhead, EqualsThemWithItsIndexToo) {
    CompareRandomly(5, kBytes, kIndexAtOnce, false);
    CompareRandomly(6, kEscaped, kIndexAtOnce, false);
    CompareRandomly(7, kEscaped, kIndexAtOnce, true);
    CompareRandomly(8, kMany, kIndexAtOnce, true);
}

TEST(QuoteLookAhead, EqualsThemWhereTheIndexBeginsInTheMiddle) {
    for (unsigned seed = 0; seed < 8; ++seed)
        CompareRandomly(100 + seed, seed < 4 ? kEscaped : kMany, 1 + 3 * seed, seed % 2);
}

TEST(QuoteLookAhead, EqualsThemForPiecesThatDifferFarBeforeTheirEnds) {
    std::mt19937 random(9);
    Pieces pieces{"\"", ")"};
    for (size_t same : {5u, 6u, 7u, 8u, 13u, 14u, 15u, 21u, 30u})
        for (const char* first : {"", "a", "b", "ab", "\xFF"})
            pieces.push_back(first + std::string(same, 'z') + "\\\"");
    pieces.push_back(std::string(1, '\0') + "zzzzzzz\\\"");
    for (int round = 0; round < 200; ++round) {
        const std::string line = RandomLine(random, pieces, 400, round % 2);
        ASSERT_NO_FATAL_FAILURE(Compare(line, AfterPlainQuotes(line), kIndexAtOnce));
    }
}

TEST(QuoteLookAhead, EqualsThemForAllShortLines) {
    for (const auto& [pieces, longest] :
         {std::pair(Pieces{"a", "\"", "\\", ")", "("}, 6), std::pair(Pieces{"\\\"", "\"", ")", "a"}, 7)}) {
        for (int length = 0; length <= longest; ++length) {
            std::vector<size_t> chosen(static_cast<size_t>(length));
            for (;;) {
                std::string line;
                for (const size_t piece : chosen) line += pieces[piece];
                for (const size_t limit : {kIndexAtOnce, kNoIndex})
                    ASSERT_NO_FATAL_FAILURE(Compare(line, AfterPlainQuotes(line), limit));
                size_t i = 0;
                while (i < chosen.size() && ++chosen[i] == pieces.size()) chosen[i++] = 0;
                if (i == chosen.size()) break;
            }
        }
    }
}

// Lines that are made to cost much: with long common parts, many repeats, or many different chunks.

std::string Repeated(const std::string& piece, size_t times) {
    std::string line;
    for (; times > 0; --times) line += piece;
    return line;
}

std::string FibonacciLine(std::string shorter, std::string line, size_t length) {
    while (line.size() < length) {
        const std::string longer = line + shorter;
        shorter = line;
        line = longer;
    }
    return line;
}

/// A line in which each sequence of `order` of these pieces occurs once.
std::string DeBruijnLine(const Pieces& pieces, size_t order) {
    // The Lyndon words whose length divides the order, in alphabetical order.
    std::string line;
    std::vector<size_t> word{0};
    while (!word.empty()) {
        if (order % word.size() == 0)
            for (const size_t piece : word) line += pieces[piece];
        const size_t period = word.size();
        while (word.size() < order) word.push_back(word[word.size() - period]);
        while (!word.empty() && word.back() + 1 == pieces.size()) word.pop_back();
        if (!word.empty()) ++word.back();
    }
    return line;
}

/// Strings of ever more pieces, each a beginning or an ending of the same list of pieces.
std::string GrowingLists(const Pieces& list, bool endings) {
    std::string line;
    for (size_t count = 1; count <= list.size(); ++count) {
        line += "\"";
        for (size_t i = 0; i < count; ++i) line += list[endings ? list.size() - count + i : i];
        line += Repeated("x", count % 3) + "\" ";
    }
    return line;
}

std::vector<std::string> CostlyLines() {
    std::mt19937 random(1);
    Pieces distinct, equal;
    for (int i = 0; i < 24; ++i) {
        distinct.push_back("x" + std::to_string(i) + "\\\"");
        equal.push_back("\\\"");
    }
    std::vector<std::string> lines{
        Repeated("\\\"", 400),
        Repeated("\\\"", 300) + ")" + Repeated("\\\"", 300),
        Repeated("a\\\"", 100) + ")" + Repeated(" \"a\\\"\"", 60),
        Repeated("\\\"", 200) + Repeated(" \"\\\"\\\"a\"", 40),
        Repeated("a\\\"b\\\"\\\"", 80) + ")",
        Repeated(Repeated("a\\\"", 9) + ")", 12),
        FibonacciLine("\\\"", "a\\\"", 600),
        FibonacciLine("\\\")", "\\\"", 600),
        FibonacciLine("\\\"a\" \"", "\\\"", 600),
        DeBruijnLine({"\\\"", "a"}, 7),
        DeBruijnLine({"\\\"", ")", "\" \""}, 4),
        GrowingLists(distinct, false),
        GrowingLists(distinct, true),
        GrowingLists(equal, false),
        GrowingLists(distinct, false) + GrowingLists(distinct, true),
    };
    for (const size_t letters : {2u, 4u, 15u, 256u}) {
        std::string letter = "\\\")a";
        while (letter.size() < letters) letter += static_cast<char>(letter.size());
        std::string line;
        while (line.size() < 600) line += letter[random() % letters];
        lines.push_back(line);
        line.resize(200);
        lines.push_back(Repeated(line, 4));
    }
    return lines;
}

TEST(QuoteLookAhead, EqualsThemForLinesThatAreMadeToCostMuch) {
    for (const std::string& line : CostlyLines()) {
        const std::string inString = "(A \"" + line + ")";
        for (const size_t limit : {kIndexAtOnce, size_t{500}, kNoIndex}) {
            ASSERT_NO_FATAL_FAILURE(Compare(line, {0}, limit));
            ASSERT_NO_FATAL_FAILURE(Compare(inString, {4}, limit));
            ASSERT_NO_FATAL_FAILURE(Compare(inString, AfterPlainQuotes(inString), limit));
        }
    }
}

TEST(QuoteLookAhead, ForgetsItsIndexWithTheLine) {
    veka::QuoteLookAhead lookAhead;
    for (const std::string line : {"a\\\"b\")c\\\"", "\\\")\\\"", "a\\\"b\")c\\\"", ""}) {
        lookAhead.StartLine(line, kIndexAtOnce);
        ASSERT_NO_FATAL_FAILURE(Compare(line, {0}, kIndexAtOnce));
        lookAhead.StartString(0);
        for (size_t quote = 1; quote < line.size(); ++quote) {
            if (line[quote] != '"' || line[quote - 1] != '\\') continue;
            EXPECT_EQ(lookAhead.EndsAt(quote), test::EndsByReference(line, line.substr(0, quote + 1)))
                << line;
        }
    }
}

TEST(QuoteLookAhead, CountsTheQuotesThatBeginALine) {
    // The quote may be an escaped one where the last line ended with a backslash.
    veka::QuoteLookAhead lookAhead;
    for (const size_t limit : {kIndexAtOnce, kNoIndex}) {
        lookAhead.StartLine("\"\"\")", limit);
        lookAhead.StartString(0);
        EXPECT_TRUE(lookAhead.EndsAt(0));
        lookAhead.StartLine("\"\"", limit);
        lookAhead.StartString(0);
        EXPECT_FALSE(lookAhead.EndsAt(0));
    }
}

TEST(ChunkIndex, FindsTheSameWithWideNumbers) {
    for (const std::string& line : CostlyLines()) {
        const auto narrow = veka::ChunkIndex::Make(line), wide = veka::ChunkIndex::Make(line, true);
        for (size_t quote = 1; quote < line.size(); ++quote) {
            if (line[quote] != '"' || line[quote - 1] != '\\') continue;
            for (size_t length = 2; length <= quote + 1; length += 1 + length / 4)
                ASSERT_EQ(narrow->AfterFirstRun(quote, length), wide->AfterFirstRun(quote, length)) << line;
        }
    }
}

/// The position after the first occurrence of a chunk and its direct repeats.
size_t AfterFirstRun(const std::string& line, const std::string& chunk) {
    size_t after = line.find(chunk);
    while (line.compare(after, chunk.size(), chunk) == 0) after += chunk.size();
    return after;
}

TEST(ChunkIndex, FindsTheFirstRunOfEveryChunkInAnyOrder) {
    std::mt19937 random(1);
    for (int round = 0; round < 1000; ++round) {
        const std::string line = RandomLine(random, round % 2 == 0 ? kEscaped : kBytes, 40, round % 4 < 3);
        const auto index = veka::ChunkIndex::Make(line);
        const size_t last = line.rfind("\\\"");
        if (last == std::string::npos) continue;
        for (int search = 0; search < 100; ++search) {
            const size_t quote = line.find("\\\"", random() % (last + 1)) + 1;
            const size_t length = 2 + random() % quote;
            ASSERT_EQ(index->AfterFirstRun(quote, length),
                      AfterFirstRun(line, line.substr(quote + 1 - length, length)))
                << line << " at " << quote << ", " << length << " bytes";
        }
    }
}

// Many pieces are sorted byte by byte, few by comparisons.
TEST(ChunkIndex, FindsTheFirstRunOfEveryChunkAmongManyPieces) {
    std::mt19937 random(1);
    for (const Pieces& pieces : {Pieces{"\\\""}, Pieces{"\\\"", "a\\\"", "bc\\\"", "\xFF\\\"",
                                                        "ayyyyyyyyy\\\"", "byyyyyyyyy\\\""}}) {
        std::string line = "beginning";
        for (int i = 0; i < 10'000; ++i) line += pieces[random() % pieces.size()];
        const auto narrow = veka::ChunkIndex::Make(line), wide = veka::ChunkIndex::Make(line, true);
        for (int search = 0; search < 1000; ++search) {
            const size_t quote = line.find("\\\"", random() % (line.size() - 1)) + 1;
            const size_t length = 2 + random() % (search % 2 == 0 ? 40 : quote);
            if (quote == 0 || length > quote + 1) continue;
            const size_t after = AfterFirstRun(line, line.substr(quote + 1 - length, length));
            ASSERT_EQ(narrow->AfterFirstRun(quote, length), after) << quote << ", " << length << " bytes";
            ASSERT_EQ(wide->AfterFirstRun(quote, length), after) << quote << ", " << length << " bytes";
        }
    }
}

TEST(ChunkIndex, CanBeMadeOfALineWithoutEscapedQuotes) {
    for (const char* line : {"", "a\"", "\""}) EXPECT_TRUE(veka::ChunkIndex::Make(line)) << line;
}

/// Counts its ticks, and ends the work at one of them.
class CountTicks : public veka::Watch {
public:
    explicit CountTicks(int last = -1) : m_last(last) {}
    int ticks = 0;

protected:
    void Check() override {
        if (ticks++ == m_last) throw 1;
    }

private:
    int m_last;
};

/// What a watch sees while a string of each line is tested at its quotes that may be escaped.
struct Seen {
    int ticks;
    std::int64_t memory;
};
Seen TestAtQuotes(const std::vector<std::string>& lines, size_t begin, size_t limit) {
    CountTicks watch;
    const veka::Watch::Scope scope(&watch);
    veka::QuoteLookAhead lookAhead;
    for (const std::string& line : lines) {
        lookAhead.StartLine(line, limit);
        lookAhead.StartString(begin);
        for (size_t at = line.find("\\\"", begin); at != line.npos; at = line.find("\\\"", at + 1))
            lookAhead.EndsAt(at + 1);
    }
    return {watch.ticks, watch.MostTaken()};
}

/// A line in which the search for the string at its end costs some dozens of steps for each byte.
std::string LineToSearch(size_t length) {
    return std::string(length, 'a') + '"' + std::string(30, 'a') + "b\\\"";
}

TEST(QuoteLookAhead, SearchesNoFurtherThanItsLimit) {
    const std::vector<std::string> lines{LineToSearch(300'000)};
    const int ticksOfIndex = TestAtQuotes(lines, 300'001, kIndexAtOnce).ticks;
    EXPECT_EQ(TestAtQuotes(lines, 300'001, 1000).ticks, ticksOfIndex);
    EXPECT_GT(TestAtQuotes(lines, 300'001, 20'000'000).ticks, 5);
}

TEST(QuoteLookAhead, CountsTheStepsOfEachLineAnew) {
    const std::vector<std::string> lines(20, LineToSearch(1000));
    constexpr size_t kEnoughForOne = 100'000;
    EXPECT_EQ(TestAtQuotes(lines, 1001, kEnoughForOne).memory, 0) << "no line needs an index";
    EXPECT_GT(TestAtQuotes(lines, 1001, 1000).memory, 0);
}

TEST(QuoteLookAhead, CountsTheRepeatsOfAChunkAsSteps) {
    std::string line;
    for (int i = 0; i < 500; ++i) line += "a\\\"";
    EXPECT_GT(TestAtQuotes({line}, 0, 1000).memory, 0);
    EXPECT_EQ(TestAtQuotes({line}, 0, 1'000'000).memory, 0);
}

/// A search that ticks often, and that any of its ticks can end.
void TicksAndEnds(const std::string& line, const std::vector<size_t>& strings, size_t limit) {
    const auto askAll = [&] {
        veka::QuoteLookAhead lookAhead;
        lookAhead.StartLine(line, limit);
        for (const size_t begin : strings) {
            lookAhead.StartString(begin);
            lookAhead.EndsAt(line.find("\\\"", begin) + 1);
        }
    };
    CountTicks all;
    {
        const veka::Watch::Scope scope(&all);
        askAll();
    }
    EXPECT_GT(all.ticks, 5);
    EXPECT_EQ(all.Taken(), 0);
    EXPECT_EQ(all.MostTaken() > 0, limit == kIndexAtOnce);
    for (int last = 0; last < all.ticks; ++last) {
        CountTicks one(last);
        const veka::Watch::Scope scope(&one);
        EXPECT_THROW(askAll(), int);
    }
}

TEST(QuoteLookAhead, TicksWhileItMakesAnIndex) {
    std::mt19937 random(1);
    std::string line;
    while (line.size() < 200'000)
        line += std::string(1 + random() % 3, static_cast<char>('a' + random() % 2)) + "\\\"";
    TicksAndEnds(line, {0, line.size() / 2}, kIndexAtOnce);
}

TEST(QuoteLookAhead, TicksWhileItSearches) {
    TicksAndEnds(LineToSearch(300'000), {300'001}, kNoIndex);
}

}  // namespace
