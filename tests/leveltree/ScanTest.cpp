#include "leveltree/Scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kSpecials(
    "\0\1\2\3\4\5\6\7\x08\t\n\v\f\r\x0E\x0F\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1A\x1B\x1C\x1D\x1E\x1F "
    "!\"#$%&'()",
    42);

TEST(SpecialBytes, AreFoundOneAfterAnotherWhereverTheyStand) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        std::string text(300, 'x');
        for (char& c : text) c = random() % 8 == 0 ? "\"\n ()"[random() % 5] : static_cast<char>(random());
        text += '\n' + std::string(veka::SpecialBytes::kBlock, 'x');
        veka::SpecialBytes specials(text.data());
        size_t at = 0;
        while (at <= 300) {
            const size_t found = static_cast<size_t>(specials.Next() - text.data());
            ASSERT_EQ(found, text.find_first_of(kSpecials, at));
            at = found + 1;
            if (random() % 4 == 0 && at <= 300) {
                at += random() % std::min<size_t>(100, 301 - at);
                specials.Seek(text.data() + at);
            }
        }
    }
}

TEST(SpecialBytes, AreAllThatComeUpToTheRightParenthesis) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text =
            static_cast<char>(byte) + ('\n' + std::string(veka::SpecialBytes::kBlock, 'x'));
        veka::SpecialBytes specials(text.data());
        EXPECT_EQ(specials.Next() - text.data(), byte <= ')' ? 0 : 1) << byte;
    }
}

TEST(SkipWhiteSpace, SkipsWhatALineBeginsWithButNoLineFeed) {
    const std::string behind(16, ' ');
    for (const std::string_view white :
         {"", " ", "\t", " \r\v\f ", "                                 ", "               \t  "})
        for (const char end : {'\n', 'x', '(', '\0', '\x08', '\x0E', '\xA0'}) {
            const std::string text = std::string(white) + end + behind;
            EXPECT_EQ(veka::SkipWhiteSpace(text.data()) - text.data(),
                      static_cast<std::ptrdiff_t>(white.size()));
        }
}

}  // namespace
