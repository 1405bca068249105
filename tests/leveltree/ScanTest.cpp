#include "leveltree/Scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace {

TEST(SpecialBytes, AreFoundOneAfterAnotherWhereverTheyStand) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        std::string text(300, 'x');
        for (char& c : text) c = random() % 8 == 0 ? "\"\n ()"[random() % 5] : static_cast<char>(random());
        text += '\n' + std::string(veka::SpecialBytes::kBlock, 'x');
        veka::SpecialBytes specials(text.data());
        size_t at = 0;
        while (at <= 300) {
            while (static_cast<unsigned char>(text[at]) > ')') ++at;
            ASSERT_EQ(static_cast<size_t>(specials.Next() - text.data()), at);
            ++at;
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
         {"", " ", "\t", " \r\v\f ", "                                 ", "               \t  ",
          "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t", "\t \t \t \t \t \t \t \t \t \t ", "                \r",
          "               \v\t"})
        for (const char end : {'\n', 'x', '(', '\0', '\x08', '\x0E', '\xA0'}) {
            const std::string text = std::string(white) + end + behind;
            EXPECT_EQ(veka::SkipWhiteSpace(text.data()) - text.data(),
                      static_cast<std::ptrdiff_t>(white.size()));
        }
}

}  // namespace
