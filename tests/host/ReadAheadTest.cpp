#include "host/ReadAhead.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Files.h"

namespace {

using host::CheckedFile;
using host::ReadAhead;
using testing::HasSubstr;

constexpr auto kLong = std::chrono::minutes(1);

class ReadAheadTest : public testing::Test {
protected:
    /// Writes as many parts as a window cannot hold.
    void WriteParts(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            files.push_back(
                directory.Write(number + ".veka", "(VEK (PARTGENERAL (MPN P" + number + ")))").GetString());
        }
    }
    test::TemporaryDirectory directory;
    std::vector<std::string> files;
};

TEST_F(ReadAheadTest, HandsFilesOverInTheirOrderWhateverTheThreads) {
    WriteParts(1500);
    for (unsigned jobs : {0u, 1u, 2u, 7u}) {
        ReadAhead reader(files, {}, jobs);
        CheckedFile file;
        for (int i = 0; i < 1500; ++i) {
            ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
            ASSERT_EQ(file.facts.name, "P" + std::to_string(i));
            ASSERT_EQ(file.file, files[static_cast<size_t>(i)]);
            ASSERT_FALSE(file.content.bytes.empty());
        }
        EXPECT_EQ(reader.Next(file, kLong), ReadAhead::Answer::End);
        EXPECT_EQ(reader.Next(file, kLong), ReadAhead::Answer::End);
    }
}

TEST_F(ReadAheadTest, AFileThatFailsSaysWhyAndStopsNoOther) {
    files = {(directory / "missing").GetString(), directory.Write("none.veka", "(VEK)").GetString(),
             directory.Write("a.veka", "(VEK (PARTGENERAL (MPN A)))\n(PADS").GetString()};
    ReadAhead reader(files, {}, 2);
    CheckedFile file;
    ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
    EXPECT_THAT(file.failure->sentence, HasSubstr("there is no file"));
    ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
    EXPECT_THAT(file.failure->sentence, HasSubstr("holds no part with a part number"));
    ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
    EXPECT_FALSE(file.failure);
    EXPECT_THAT(file.faults, testing::ElementsAre(HasSubstr("ends inside the level \"PADS\"")));
}

TEST_F(ReadAheadTest, ReportsOnFilesWhereThatIsAskedForAlsoOnThoseWithoutAPart) {
    files = {(directory / "missing").GetString(),
             directory.Write("none.veka", "(VEK (PARTGENERAL (MANUFACTURER M N)))").GetString(),
             directory.Write("a.veka", "(VEK (PARTGENERAL (MPN A B)))").GetString()};
    for (const bool report : {false, true}) {
        ReadAhead reader(files, {{}, nullptr, false, report}, 2);
        for (const bool readable : {false, true, true}) {
            CheckedFile file;
            ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
            ASSERT_EQ(file.report.has_value(), report && readable) << file.file;
            if (!file.report) continue;
            EXPECT_EQ(file.report->Dropped(), 1u) << "findings are counted";
            EXPECT_TRUE(file.report->Findings().empty()) << "and not kept";
        }
    }
}

TEST_F(ReadAheadTest, StopHandsOverWhatIsInHandAndNoMore) {
    WriteParts(1500);
    ReadAhead reader(files, {}, 2);
    CheckedFile file;
    ASSERT_EQ(reader.Next(file, kLong), ReadAhead::Answer::File);
    reader.Stop();
    size_t taken = 1;
    while (reader.Next(file, kLong) == ReadAhead::Answer::File) EXPECT_EQ(file.file, files[taken++]);
    EXPECT_LT(taken, 300u) << "no more than the window held";
}

TEST_F(ReadAheadTest, EndsWithFilesThatNobodyTakes) {
    WriteParts(100);
    ReadAhead(files, {}, 3);
    ReadAhead(std::vector<std::string>{}, {}, 3);
}

TEST_F(ReadAheadTest, NoFilesAreTheEnd) {
    ReadAhead reader(files, {}, 0);
    CheckedFile file;
    EXPECT_EQ(reader.Next(file, kLong), ReadAhead::Answer::End);
}

}  // namespace
