#include "leveltree/QuoteLookAhead.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "support/PlainReader.h"

namespace {

/// Asks about every quote of a line, with strings that begin where the line says so by a marked position.
void Compare(const std::string& line, const std::vector<size_t>& strings, size_t limit) {
    veka::QuoteLookAhead lookAhead;
    lookAhead.StartLine(line, limit);
    for (size_t k = 0; k < strings.size(); ++k) {
        const size_t begin = strings[k];
        const size_t end = k + 1 < strings.size() ? strings[k + 1] : line.size();
        lookAhead.StartString(begin);
        for (size_t quote = begin; quote < end; ++quote) {
            if (line[quote] != '"') continue;
            ASSERT_EQ(lookAhead.EndsAt(quote), test::EndsPlainly(line, line.substr(begin, quote + 1 - begin)))
                << line << " from " << begin << " at " << quote;
        }
    }
}

void CompareRandomly(unsigned seed, const std::string& letters, size_t limit, bool periodic) {
    std::mt19937 random(seed);
    for (int round = 0; round < 4000; ++round) {
        std::string line;
        const size_t length = random() % 40;
        while (line.size() < length) {
            std::string piece;
            for (size_t i = 1 + random() % 4; i > 0; --i) piece += letters[random() % letters.size()];
            for (size_t times = periodic ? 1 + random() % 5 : 1; times > 0; --times) line += piece;
        }
        std::vector<size_t> strings{0};
        while (strings.back() < line.size()) strings.push_back(strings.back() + 1 + random() % 12);
        while (!strings.empty() && strings.back() >= line.size()) strings.pop_back();
        ASSERT_NO_FATAL_FAILURE(Compare(line, strings, limit));
    }
}

TEST(QuoteLookAhead, EqualsFindDeleteAndReplace) {
    CompareRandomly(1, "\")a", SIZE_MAX, false);
    CompareRandomly(2, "\")\\ab", SIZE_MAX, false);
    CompareRandomly(3, "\")a", SIZE_MAX, true);
}

TEST(QuoteLookAhead, EqualsThemWithItsIndexToo) {
    CompareRandomly(4, "\")a", 0, false);
    CompareRandomly(5, "\")\\ab", 0, true);
    CompareRandomly(6, "\")a", 0, true);
}

TEST(QuoteLookAhead, EqualsThemWhereTheIndexBeginsInTheMiddle) {
    for (unsigned seed = 0; seed < 8; ++seed) CompareRandomly(100 + seed, "\")ab", 1 + 3 * seed, seed % 2);
}

TEST(QuoteLookAhead, ForgetsItsIndexWithTheLine) {
    veka::QuoteLookAhead lookAhead;
    for (const std::string line : {"a\"b\")c\"", "\")\"", "a\"b\")c\"", ""}) {
        lookAhead.StartLine(line, 0);
        lookAhead.StartString(0);
        for (size_t quote = 0; quote < line.size(); ++quote) {
            if (line[quote] != '"') continue;
            EXPECT_EQ(lookAhead.EndsAt(quote), test::EndsPlainly(line, line.substr(0, quote + 1))) << line;
        }
    }
}

}  // namespace
