#include "files/CStdioFile.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <thread>

#include "platform/Exceptions.h"
#include "support/Files.h"

namespace {

std::vector<std::string> Lines(std::string_view text) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    EXPECT_TRUE(file.Open(directory.Write("file", text)));
    std::vector<std::string> lines;
    for (CString line; file.ReadString(line);) lines.emplace_back(line.View());
    return lines;
}

using testing::ElementsAre;

TEST(CStdioFile, EndsALineAtALineFeedAndDropsOneCarriageReturnBeforeIt) {
    EXPECT_THAT(Lines("a\nb\r\nc\r\r\n\r\n\n"), ElementsAre("a", "b", "c\r", "", ""));
}

TEST(CStdioFile, TakesALastLineWithoutALineFeed) {
    EXPECT_THAT(Lines("a\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("a\nb\r"), ElementsAre("a", "b\r"));
    EXPECT_THAT(Lines(""), ElementsAre());
    EXPECT_THAT(Lines("\n"), ElementsAre(""));
}

TEST(CStdioFile, KeepsEveryOtherByte) {
    EXPECT_THAT(Lines(std::string_view("a\0\x1A\r\xFF\nb", 7)),
                ElementsAre(std::string("a\0\x1A\r\xFF", 5), "b"));
}

TEST(CStdioFile, ReadsLinesOfAnyLengthAcrossItsBlocks) {
    std::mt19937 random(1);
    std::string text;
    std::vector<std::string> lines;
    for (size_t length : {0u, 65535u, 65536u, 65537u, 1u, 1000000u, 0u, 3000000u, 5u}) {
        lines.emplace_back(length, static_cast<char>('a' + random() % 26));
        text += lines.back() + (random() % 2 ? "\r\n" : "\n");
    }
    EXPECT_EQ(Lines(text), lines);
}

TEST(CStdioFile, DropsACarriageReturnAtTheEndOfABlock) {
    for (size_t length = 65532; length < 65540; ++length)
        EXPECT_THAT(Lines(std::string(length, 'x') + "\r\ny"), ElementsAre(std::string(length, 'x'), "y"));
}

TEST(CStdioFile, OpensNeitherAMissingFileNorADirectory) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    EXPECT_FALSE(file.Open(directory / "missing"));
    EXPECT_FALSE(file.Open(directory / ""));
    EXPECT_FALSE(file.Open(""));
    CString line;
    EXPECT_FALSE(file.ReadString(line));
}

TEST(CStdioFile, DoesNotTakeAPathWithAZeroByteForAShorterOne) {
    const test::TemporaryDirectory directory;
    CString path = directory.Write("file", "x");
    path.AppendChar('\0');
    CStdioFile file;
    EXPECT_FALSE(file.Open(path));
}

TEST(CStdioFile, CanBeOpenedAgain) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    file.Open(directory.Write("one", "a\nb"));
    CString line;
    file.ReadString(line);
    EXPECT_TRUE(file.Open(directory.Write("two", "c")));
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, "c");
    file.Close();
    EXPECT_FALSE(file.ReadString(line));
}

TEST(CStdioFile, RaisesWhereTheFileCannotBeReadOn) {
    CStdioFile file;
    if (!file.Open("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    CString line;
    try {
        file.ReadString(line);
        FAIL();
    } catch (const CFileException& error) {
        EXPECT_STREQ(error.what(), "The file \"/proc/self/mem\" cannot be read.");
    }
}

/// All that `ReadLines` gives of a text.
std::string AllLines(std::string_view text) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    EXPECT_TRUE(file.Open(directory.Write("file", text)));
    std::string all;
    for (std::string_view lines; file.ReadLines(lines);) {
        EXPECT_EQ(lines.back(), '\n');
        for (size_t i = 0; i < CStdioFile::kReadable; ++i)
            all += lines.data()[lines.size() + i];  // can be read
        all.resize(all.size() - CStdioFile::kReadable);
        all += lines;
    }
    return all;
}

TEST(CStdioFile, ReadsManyLinesAtOnceWithTheirEnds) {
    EXPECT_EQ(AllLines(""), "");
    EXPECT_EQ(AllLines("a\r\nb\n\n"), "a\r\nb\n\n");
    std::string large;
    for (int i = 0; i < 40000; ++i) large += std::string(static_cast<size_t>(i % 13), 'x') + "\n";
    EXPECT_EQ(AllLines(large), large);
    const std::string longLine = std::string(300'000, 'x') + "\n";
    EXPECT_EQ(AllLines("a\n" + longLine + "b\n"), "a\n" + longLine + "b\n");
}

TEST(CStdioFile, PutsALineEndBehindTheLastOfManyLines) {
    EXPECT_EQ(AllLines("a\nb"), "a\nb\r\n");
    EXPECT_EQ(AllLines("a\r"), "a\r\r\n") << "so that its own carriage return stays";
    for (size_t length = 65530; length < 65540; ++length)
        EXPECT_EQ(AllLines(std::string(length, 'x')), std::string(length, 'x') + "\r\n");
}

TEST(CStdioFile, ReadsAFileOfAnySizeToItsEnd) {
    for (size_t size : {1u, 65533u, 65534u, 65535u, 65536u, 65537u, 131071u, 131072u, 131073u}) {
        std::string text;
        while (text.size() < size) text += "0123456789\n";
        text.resize(size - 1);
        text += '\n';
        EXPECT_EQ(AllLines(text), text);
    }
}

TEST(CStdioFile, KnowsTheSizeOfAPlainFile) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    EXPECT_EQ(file.Size(), 0u);
    ASSERT_TRUE(file.Open(directory.Write("file", "a\nb")));
    EXPECT_EQ(file.Size(), 3u);
    ASSERT_TRUE(file.Open(directory.Write("empty", "")));
    EXPECT_EQ(file.Size(), 0u);
}

/// All lines that a file still has.
std::string RestOf(CStdioFile& file) {
    std::string all;
    for (std::string_view lines; file.ReadLines(lines);) all += lines;
    return all;
}

TEST(CStdioFile, ReadsWhatAFileHasWhenItIsRead) {
    const test::TemporaryDirectory directory;
    CStdioFile file;
    const CString path = directory.Write("file", "a\n");
    ASSERT_TRUE(file.Open(path));
    std::string large;
    while (large.size() < 200'000) large += "line\n";
    directory.Write("file", large);
    EXPECT_EQ(RestOf(file), large) << "the file has grown since it was opened";
    EXPECT_EQ(file.BytesRead(), large.size());

    ASSERT_TRUE(file.Open(path));
    directory.Write("file", "b\n");
    EXPECT_EQ(RestOf(file), "b\n") << "the file has become smaller";
    EXPECT_EQ(file.BytesRead(), 2u);
}

#ifndef _WIN32
TEST(CStdioFile, ReadsAPipeThatIsWrittenInPieces) {
    const test::TemporaryDirectory directory;
    const CString path = directory / "pipe";
    ASSERT_EQ(mkfifo(path.GetString(), 0600), 0);
    std::string text;
    for (int i = 0; i < 30'000; ++i) text += std::to_string(i) + "\n";
    std::thread writer([&] {
        std::ofstream pipe(path.GetString(), std::ios::binary);
        for (size_t begin = 0; begin < text.size(); begin += 1000)
            pipe << text.substr(begin, 1000) << std::flush;
    });
    CStdioFile file;
    EXPECT_TRUE(file.Open(path));
    EXPECT_EQ(file.Size(), 0u);
    EXPECT_EQ(RestOf(file), text);
    writer.join();
}
#endif

}  // namespace
