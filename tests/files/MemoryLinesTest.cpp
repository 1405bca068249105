#include "files/MemoryLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "files/CStdioFile.h"
#include "support/Files.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The blocks of a source. Reads all the bytes that must be readable.
std::vector<std::string> Blocks(veka::LineSource& source) {
    std::vector<std::string> blocks;
    for (std::string_view lines; source.ReadLines(lines);) {
        volatile char byte = 0;
        for (size_t i = 0; i < lines.size() + veka::LineSource::kReadable; ++i) byte = lines.data()[i];
        (void)byte;
        blocks.emplace_back(lines);
    }
    return blocks;
}

/// The blocks of a text, which is in memory of its exact size.
std::vector<std::string> Blocks(std::string_view text) {
    const auto copy = std::make_unique<char[]>(text.size());
    std::copy(text.begin(), text.end(), copy.get());
    veka::MemoryLines lines({copy.get(), text.size()});
    return Blocks(lines);
}

std::string Joined(const std::vector<std::string>& blocks) {
    std::string joined;
    for (const std::string& block : blocks) joined += block;
    return joined;
}

TEST(MemoryLines, AnEmptyTextHasNoLines) {
    EXPECT_THAT(Blocks(""), IsEmpty());
    veka::MemoryLines lines({});
    std::string_view block;
    EXPECT_FALSE(lines.ReadLines(block));
    EXPECT_FALSE(lines.ReadLines(block)) << "once more";
}

TEST(MemoryLines, AddsALineEndToALastLineWithoutOne) {
    EXPECT_THAT(Blocks("a\nb"), ElementsAre("a\nb\r\n"));
    EXPECT_THAT(Blocks("a\r"), ElementsAre("a\r\r\n"));
    EXPECT_THAT(Blocks("a\r\n"), ElementsAre("a\r\n"));
    EXPECT_THAT(Blocks("\n"), ElementsAre("\n"));
}

TEST(MemoryLines, GivesLongTextsInBlocksOfWholeLines) {
    std::string text;
    for (int i = 0; text.size() < 300'000; ++i) text += "line " + std::to_string(i) + "\n";
    const auto blocks = Blocks(text);
    EXPECT_GE(blocks.size(), 4u);
    for (const std::string& block : blocks) {
        EXPECT_LE(block.size(), 65'536u + veka::LineSource::kReadable);
        EXPECT_EQ(block.back(), '\n');
    }
    EXPECT_EQ(Joined(blocks), text);
}

TEST(MemoryLines, GivesALineOfAnyLengthWhole) {
    for (const size_t length : {65'535u, 65'536u, 65'537u, 200'000u}) {
        const std::string text = "a\n" + std::string(length, 'x') + "\nb\n" + std::string(100, 'y');
        EXPECT_EQ(Joined(Blocks(text)), text + "\r\n") << length;
        const std::string last(length, 'z');
        EXPECT_EQ(Joined(Blocks(last)), last + "\r\n") << length;
    }
}

TEST(MemoryLines, GivesTheSameLinesAsAFile) {
    const test::TemporaryDirectory directory;
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        const size_t size = round % 3 ? random() % 200 : random() % 200'000;
        const auto feeds = 1 + random() % 5000;
        while (text.size() < size)
            text += random() % feeds == 0 ? '\n' : random() % 8 == 0 ? '\r' : static_cast<char>(random());
        CStdioFile file;
        ASSERT_TRUE(file.Open(directory.Write("text", text)));
        ASSERT_EQ(Joined(Blocks(text)), Joined(Blocks(file))) << round;
    }
}

}  // namespace
