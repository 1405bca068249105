#include "host/SafeFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "support/Children.h"
#include "support/Files.h"

namespace {

using host::StoreError;
using testing::ElementsAre;

std::filesystem::path ToPath(const CString& path) {
    return veka::ToPath(path);
}

TEST(SafeFiles, ALockIsHeldByOneAtATime) {
    const test::TemporaryDirectory directory;
    std::atomic<int> inside = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 50; ++k) {
                const host::FileLock lock(ToPath(directory / "lock"));
                EXPECT_EQ(++inside, 1);
                --inside;
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THROW(host::FileLock(ToPath(directory / "missing") / "lock"), StoreError);
}

TEST(SafeFiles, ANameOfAnEntryHasNoSeparator) {
    EXPECT_TRUE(host::IsFileName("a b.c"));
    for (const char* name : {"", ".", "..", "a/b", "/"}) EXPECT_FALSE(host::IsFileName(name)) << name;
}

TEST(SafeFiles, AUniqueDirectoryIsANewOne) {
    const test::TemporaryDirectory directory;
    const auto one = host::MakeUniqueDirectory(directory.Path(), "new-");
    const auto other = host::MakeUniqueDirectory(directory.Path(), "new-");
    EXPECT_NE(one, other);
    EXPECT_TRUE(std::filesystem::is_directory(one));
    EXPECT_TRUE(one.filename().string().starts_with("new-"));
    EXPECT_THROW(host::MakeUniqueDirectory(directory.Path() / "missing", "new-"), StoreError);
}

TEST(SafeFiles, ACopyHasAllBytesAndReplacesNothing) {
    const test::TemporaryDirectory directory;
    std::string content(3'000'000, '\0');
    for (size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i * 7);
    const auto from = ToPath(directory.Write("from", content)), to = ToPath(directory / "to");
    host::CopyFileDurably(from, to);
    EXPECT_EQ(test::ReadFile(to), content);
    EXPECT_THROW(host::CopyFileDurably(from, to), StoreError);
    EXPECT_THROW(host::CopyFileDurably(ToPath(directory / "missing"), ToPath(directory / "other")),
                 StoreError);
    EXPECT_THAT(directory.Names(), ElementsAre("from", "to"));
}

TEST(SafeFiles, AMoveTakesAFreeNameOnly) {
    const test::TemporaryDirectory directory;
    for (const char* name : {"a", "b"}) std::filesystem::create_directory(directory.Path() / name);
    directory.Write("b/file", "");
    EXPECT_TRUE(host::MoveToFree(directory.Path() / "b", directory.Path() / "c"));
    EXPECT_FALSE(host::MoveToFree(directory.Path() / "a", directory.Path() / "c"));
    EXPECT_THAT(directory.Names(), ElementsAre("a", "c"));
    EXPECT_THROW(host::MoveToFree(directory.Path() / "missing", directory.Path() / "d"), StoreError);
}

TEST(SafeFiles, AnExchangeIsOfBothWhereTheSystemCan) {
    const test::TemporaryDirectory directory;
    const auto one = ToPath(directory.Write("one", "1")), other = ToPath(directory.Write("other", "2"));
    EXPECT_EQ(host::Exchange(one, other), test::kExchanges);
    EXPECT_EQ(test::ReadFile(one), test::kExchanges ? "2" : "1");
    EXPECT_EQ(test::ReadFile(other), test::kExchanges ? "1" : "2");
}

TEST(SafeFiles, EntriesAreAllThatADirectoryHolds) {
    const test::TemporaryDirectory directory;
    EXPECT_THAT(host::Entries(directory.Path()), testing::IsEmpty());
    directory.Write(".hidden", "");
    directory.Write("a", "");
    EXPECT_THAT(host::Entries(directory.Path()),
                testing::UnorderedElementsAre(directory.Path() / ".hidden", directory.Path() / "a"));
    EXPECT_THAT(host::Entries(directory.Path() / "missing"), testing::IsEmpty());
}

TEST(SafeFiles, RemovingTakesAllBelowAndForgivesWhatIsNotThere) {
    const test::TemporaryDirectory directory;
    std::filesystem::create_directories(directory.Path() / "a/b/c");
    directory.Write("a/b/file", "x");
    directory.Write("other", "x");
    host::RemoveAll(directory.Path() / "a");
    host::RemoveAll(directory.Path() / "missing");
    EXPECT_THAT(directory.Names(), ElementsAre("other"));
}

}  // namespace
