#include "host/IndexWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "host/LibraryIndex.h"
#include "support/Children.h"
#include "support/Files.h"

namespace {

class IndexWriter : public testing::Test {
protected:
    void SetUp() override {
        if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
        std::filesystem::create_directory(Root());
    }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    static std::vector<host::StoredPart> Parts(int first, int count, std::size_t textSize = 8) {
        std::vector<host::StoredPart> parts(static_cast<std::size_t>(count));
        for (host::StoredPart& part : parts) {
            part.facts.name = part.facts.number = "P" + std::to_string(first++);
            part.facts.description = std::string(textSize, 'd');
        }
        return parts;
    }
    /// How many parts the file of the index has.
    std::size_t Size() const { return host::OpenIndex(Root())->Size(); }

    test::TemporaryDirectory directory;
};

TEST_F(IndexWriter, PutsAllPartsIntoTheIndexHoweverManyThereAre) {
    host::IndexWriter writer(Root());
    for (int group = 0; group < 20; ++group) writer.Put(Parts(group * 500, 500));
    EXPECT_EQ(writer.End(), "");
    EXPECT_EQ(Size(), 10'000u);
}

TEST_F(IndexWriter, WaitsWhereTheTextsOfPartsTakeMuchMemory) {
    host::IndexWriter writer(Root());
    for (int group = 0; group < 3; ++group) writer.Put(Parts(group * 100, 100, 100'000));
    EXPECT_EQ(writer.End(), "");
    EXPECT_EQ(Size(), 300u);
}

TEST_F(IndexWriter, WithoutPartsMakesNoIndex) {
    {
        host::IndexWriter writer(Root());
        writer.Put({});
        EXPECT_EQ(writer.End(), "");
    }
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(IndexWriter, ItsEndWritesWhatIsLeft) {
    { host::IndexWriter(Root()).Put(Parts(0, 7)); }
    EXPECT_EQ(Size(), 7u);
}

TEST_F(IndexWriter, WritesWhatWasPutThoughNothingFollows) {
    host::IndexWriter writer(Root());
    writer.Put(Parts(0, 7));
    std::size_t size = 0;
    for (int i = 0; i < 1000 && size == 0; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        size = Size();
    }
    EXPECT_EQ(size, 7u);
}

TEST_F(IndexWriter, AFileThatMayNotGrowIsTheReasonAlsoWhereOnlyTheEndOfAChangeFails) {
    for (const unsigned long limit : {100'000ul, 500'000ul, 1'500'000ul}) {
        const int code = test::InChild([&]() -> int {
            if (!test::LimitFiles(limit)) return test::kNotPossibleHere;
            host::IndexWriter writer(Root());
            for (int group = 0; group < 16; ++group) writer.Put(Parts(group * 500, 500));
            return writer.End() == "the index of the library was not written: disk I/O error: File too large"
                       ? 0
                       : 1;
        });
        if (code == test::kNotPossibleHere) GTEST_SKIP() << "Files have no limit of their own here.";
        EXPECT_EQ(code, 0) << limit;
    }
}

TEST_F(IndexWriter, TellsOnceWhyTheIndexWasNotWrittenAndNeverWaitsAfterwards) {
    std::ofstream(Root() / ".veka-index") << "a file in the place of the directory";
    host::IndexWriter writer(Root());
    for (int group = 0; group < 30; ++group) writer.Put(Parts(group * 500, 500));
    EXPECT_THAT(writer.End(),
                testing::StartsWith("the index of the library was not written: cannot open the directory"));
}

}  // namespace
