#include "leveltree/SuffixSorter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Numbers = std::vector<std::uint32_t>;

/// Sorts the suffixes of a text, to which the final 0 is added, and of the same text in 16 bits.
void Compare(Numbers text) {
    text.push_back(0);
    Numbers plain(text.size());
    std::iota(plain.begin(), plain.end(), 0);
    std::sort(plain.begin(), plain.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::lexicographical_compare(text.begin() + a, text.end(), text.begin() + b, text.end());
    });
    const std::size_t letters = *std::max_element(text.begin(), text.end()) + std::size_t{1};
    Numbers sorted(text.size());
    veka::SuffixSorter<std::uint32_t>::Sort(text.data(), sorted.data(), text.size(), letters);
    ASSERT_EQ(sorted, plain);

    const std::vector<std::uint16_t> narrow(text.begin(), text.end());
    std::vector<std::uint16_t> narrowSorted(text.size());
    veka::SuffixSorter<std::uint16_t>::Sort(narrow.data(), narrowSorted.data(), narrow.size(), letters);
    ASSERT_TRUE(std::equal(sorted.begin(), sorted.end(), narrowSorted.begin()));
}

TEST(SuffixSorter, SortsAllShortTexts) {
    for (std::size_t length = 0; length <= 7; ++length) {
        Numbers text(length, 1);
        for (;;) {
            ASSERT_NO_FATAL_FAILURE(Compare(text));
            std::size_t i = 0;
            while (i < length && text[i] == 3) text[i++] = 1;
            if (i == length) break;
            ++text[i];
        }
    }
}

TEST(SuffixSorter, SortsRandomAndPeriodicTexts) {
    std::mt19937 random(1);
    for (int round = 0; round < 1000; ++round) {
        Numbers text;
        const std::uint32_t letters = round % 3 == 0 ? 1 + random() % 2 : 1 + random() % 200;
        const std::size_t length = random() % 300;
        while (text.size() < length) {
            Numbers piece(1 + random() % 8);
            for (std::uint32_t& letter : piece) letter = 1 + static_cast<std::uint32_t>(random() % letters);
            for (auto times = round % 2 == 0 ? 1 : 1 + random() % 10; times > 0; --times)
                text.insert(text.end(), piece.begin(), piece.end());
        }
        ASSERT_NO_FATAL_FAILURE(Compare(text));
    }
}

TEST(SuffixSorter, SortsAFibonacciWordWhichNeedsDeepRecursion) {
    Numbers shorter{1}, text{1, 2};
    while (text.size() < 5000) {
        const Numbers longer = text;
        text.insert(text.end(), shorter.begin(), shorter.end());
        shorter = longer;
    }
    ASSERT_NO_FATAL_FAILURE(Compare(text));
}

}  // namespace
