#include "leveltree/Scan.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace {

TEST(SpecialBytes, AreFoundWhereverTheyStand) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        std::string text(300, 'x');
        for (char& c : text) c = random() % 8 == 0 ? "\"\n ()"[random() % 5] : static_cast<char>(random());
        text += '\n' + std::string(veka::SpecialBytes::kBlock, 'x');
        veka::SpecialBytes specials;
        for (size_t at = 0; at <= 300; at += 1 + random() % 3)
            ASSERT_EQ(static_cast<size_t>(specials.Find(text.data() + at) - text.data()),
                      text.find_first_of("\"\n ()", at));
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
