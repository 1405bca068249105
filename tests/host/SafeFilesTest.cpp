#include "host/SafeFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <thread>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "support/Children.h"
#include "support/Files.h"

namespace {

namespace fs = std::filesystem;
using host::Directory;
using host::FileContent;
using host::SourceError;
using host::StoreError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

constexpr std::uintmax_t kLimit = 10'000'000;

/// A directory of the test, opened.
class SafeFiles : public testing::Test {
protected:
    fs::path Path(const char* name) const { return directory.Path() / name; }

    test::TemporaryDirectory directory;
    Directory open{directory.Path()};
};

TEST_F(SafeFiles, ALockIsHeldByOneAtATime) {
    std::atomic<int> inside = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 20; ++k) {
                const host::FileLock lock(open, "lock", nullptr);
                EXPECT_EQ(++inside, 1);
                --inside;
            }
        });
    for (std::thread& thread : threads) thread.join();
}

TEST_F(SafeFiles, ALockThatAnotherHasIsWaitedForUntilTheWaitingGivesUp) {
    const host::FileLock lock(open, "lock", nullptr);
    int asked = 0;
    std::chrono::milliseconds last{-1};
    const auto wait = [&](std::chrono::milliseconds waited, [[maybe_unused]] const std::string& holder) {
        EXPECT_GE(waited, last);
        last = waited;
#ifndef _WIN32
        EXPECT_EQ(holder, "process " + std::to_string(getpid()));
#endif
        return ++asked < 3;
    };
    EXPECT_THAT([&] { host::FileLock(open, "lock", wait); },
                ThrowsMessage<StoreError>(HasSubstr("is in use by")));
    EXPECT_EQ(asked, 3);
}

TEST_F(SafeFiles, ALockIsNoLink) {
#ifdef _WIN32
    GTEST_SKIP() << "The tests make no links here.";
#else
    fs::create_symlink("elsewhere", Path("lock"));
    EXPECT_THROW(host::FileLock(open, "lock", nullptr), StoreError);
    EXPECT_THAT(directory.Names(), ElementsAre("lock")) << "and nothing is made where the link leads";
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
    EXPECT_THAT([&] { host::FileLock(open, "pipe", nullptr); },
                ThrowsMessage<StoreError>(HasSubstr("is no regular file")));
#endif
}

TEST(SafeFilesNames, ANameOfAnEntryHasNoSeparator) {
    EXPECT_TRUE(host::IsFileName("a b.c"));
    for (const char* name : {"", ".", "..", "a/b", "/"}) EXPECT_FALSE(host::IsFileName(name)) << name;
    EXPECT_FALSE(host::IsFileName(std::string("a\0b", 3)));
}

TEST_F(SafeFiles, ADirectoryThatIsNoneIsAnError) {
    EXPECT_THROW(Directory(Path("missing")), StoreError);
    directory.Write("file", "");
    EXPECT_THROW(Directory(Path("file")), StoreError);
    EXPECT_THROW(open.Open("missing"), StoreError);
    EXPECT_THROW(open.OpenOrMake("file"), StoreError);
    EXPECT_EQ(open.OpenOrMake("made").Name(), "made");
    EXPECT_EQ(open.OpenOrMake("made").Path(), Path("made"));
}

TEST_F(SafeFiles, AUniqueDirectoryIsANewOne) {
    const Directory one = open.MakeUnique("new-"), other = open.MakeUnique("new-");
    EXPECT_NE(one.Name(), other.Name());
    EXPECT_TRUE(fs::is_directory(one.Path()));
    EXPECT_TRUE(one.Name().starts_with("new-"));
}

TEST_F(SafeFiles, AWrittenFileHasAllBytesAndReplacesNothing) {
    FileContent content{std::string(3'000'000, '\0'), 0666};
    for (size_t i = 0; i < content.bytes.size(); ++i) content.bytes[i] = static_cast<char>(i * 7);
    open.Write("file", content);
    EXPECT_EQ(test::ReadFile(Path("file")), content.bytes);
    EXPECT_THROW(open.Write("file", content), StoreError);
    open.Write("small", {"text", 0666});
    EXPECT_EQ(open.Read("small"), "text");
    EXPECT_EQ(open.Read("missing"), "");
}

TEST_F(SafeFiles, AMoveTakesAFreeNameOnly) {
    const Directory inner = open.OpenOrMake("inner");
    for (const char* name : {"a", "b"}) fs::create_directory(Path(name));
    directory.Write("b/file", "");
    EXPECT_TRUE(open.MoveToFree("b", open, "c"));
    EXPECT_FALSE(open.MoveToFree("a", open, "c"));
    EXPECT_TRUE(open.MoveToFree("a", inner, "a"));
    EXPECT_THAT(directory.Names(), ElementsAre("c", "inner"));
    EXPECT_THAT(inner.Names(), ElementsAre("a"));
    EXPECT_THROW(open.MoveToFree("missing", open, "d"), StoreError);
}

TEST_F(SafeFiles, AnExchangeIsOfBothWhereTheSystemCan) {
    directory.Write("one", "1");
    directory.Write("other", "2");
    EXPECT_EQ(open.Exchange("one", open, "other"), test::kExchanges);
    EXPECT_EQ(test::ReadFile(Path("one")), test::kExchanges ? "2" : "1");
    EXPECT_EQ(test::ReadFile(Path("other")), test::kExchanges ? "1" : "2");
}

TEST_F(SafeFiles, NamesAreThoseOfAllEntries) {
    EXPECT_THAT(open.Names(), testing::IsEmpty());
    directory.Write(".hidden", "");
    directory.Write("a", "");
    EXPECT_THAT(open.Names(), testing::UnorderedElementsAre(".hidden", "a"));
    EXPECT_TRUE(open.Has(".hidden"));
    EXPECT_FALSE(open.Has("b"));
}

TEST_F(SafeFiles, RemovingTakesAllBelowAndForgivesWhatIsNotThere) {
    fs::create_directories(Path("a") / "b/c");
    directory.Write("a/b/file", "x");
    directory.Write("other", "x");
    open.RemoveAll("a");
    open.RemoveAll("missing");
    EXPECT_THAT(directory.Names(), ElementsAre("other"));
}

TEST_F(SafeFiles, ADirectoryStaysTheOneThatWasOpened) {
#ifdef _WIN32
    GTEST_SKIP() << "An open directory keeps its name here.";
#else
    fs::create_directory(Path("a"));
    const Directory a = open.Open("a");
    fs::rename(Path("a"), Path("b"));
    fs::create_directory(Path("a"));
    a.Write("file", {"x", 0666});
    EXPECT_TRUE(fs::exists(Path("b") / "file"));
    EXPECT_TRUE(fs::is_empty(Path("a")));
#endif
}

TEST_F(SafeFiles, AnEntryThatIsALinkIsNotFollowed) {
#ifdef _WIN32
    GTEST_SKIP() << "The tests make no links here.";
#else
    const test::TemporaryDirectory elsewhere;
    elsewhere.Write("file", "precious");
    fs::create_directory_symlink(elsewhere.Path(), Path("link"));
    fs::create_symlink(elsewhere.Path() / "new", Path("dangling"));
    EXPECT_THROW(open.Open("link"), StoreError);
    EXPECT_THROW(open.OpenOrMake("link"), StoreError);
    EXPECT_THROW(open.Write("dangling", {"x", 0666}), StoreError);
    EXPECT_TRUE(open.Has("dangling"));
    open.RemoveAll("link");
    EXPECT_THAT(directory.Names(), ElementsAre("dangling"));
    EXPECT_THAT(elsewhere.Names(), ElementsAre("file"));
#endif
}

TEST_F(SafeFiles, ReadsTheBytesOfARegularFile) {
    std::string bytes(1'000'000, 'x');
    bytes[500'000] = '\0';
    directory.Write("file", bytes);
    EXPECT_EQ(host::ReadRegularFile(Path("file"), kLimit).bytes, bytes);
    directory.Write("empty", "");
    EXPECT_EQ(host::ReadRegularFile(Path("empty"), kLimit).bytes, "");
    EXPECT_THAT([&] { host::ReadRegularFile(Path("missing"), kLimit); },
                ThrowsMessage<host::NoSuchFile>(HasSubstr("there is no file \"")));
    EXPECT_THAT([&] { host::ReadRegularFile(directory.Path(), kLimit); },
                ThrowsMessage<SourceError>(HasSubstr("is a directory, and no regular file")));
}

TEST_F(SafeFiles, AFileOverTheLimitIsRefused) {
    directory.Write("file", std::string(2 << 20, 'x'));
    EXPECT_EQ(host::ReadRegularFile(Path("file"), 2 << 20).bytes.size(), 2u << 20);
    EXPECT_THAT([&] { host::ReadRegularFile(Path("file"), (2 << 20) - 1); },
                ThrowsMessage<SourceError>(HasSubstr("is larger than 1 MB")));
}

TEST_F(SafeFiles, APipeAndADeviceAreRefusedAndNotWaitedFor) {
#ifdef _WIN32
    EXPECT_THROW(host::ReadRegularFile("NUL", kLimit), SourceError);
#else
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0666), 0);
    EXPECT_THAT([&] { host::ReadRegularFile(Path("pipe"), kLimit); },
                ThrowsMessage<SourceError>(HasSubstr("is a pipe, and no regular file")));
    EXPECT_THAT([&] { host::ReadRegularFile("/dev/zero", kLimit); },
                ThrowsMessage<SourceError>(HasSubstr("is a device, and no regular file")));
#endif
}

TEST_F(SafeFiles, WhatIsWrittenIsNoMoreReadableThanItsSource) {
#ifdef _WIN32
    GTEST_SKIP() << "A file has the rights of its directory here.";
#else
    using fs::perms;
    directory.Write("secret", "x");
    fs::permissions(Path("secret"), perms::owner_read);
    const FileContent secret = host::ReadRegularFile(Path("secret"), kLimit);
    open.Write("copy", secret);
    EXPECT_EQ(fs::status(Path("copy")).permissions(), perms::owner_read);
#endif
}

TEST_F(SafeFiles, AWrittenFileIsWhatItsStatusSaysAfterwards) {
    const host::EntryStatus written = open.Write("file", {"text", 0666}), found = open.Status("file");
    EXPECT_EQ(written.kind, host::EntryStatus::Kind::File);
    EXPECT_EQ(written.size, 4u);
    EXPECT_EQ(written.modified, found.modified);
    EXPECT_EQ(written.inode, found.inode);
}

TEST_F(SafeFiles, ADirectoryIsNotMadeTwice) {
    EXPECT_EQ(open.Make("inner", open).kind, host::EntryStatus::Kind::Directory);
    open.Open("inner").Write("file", {"text", 0666});
    EXPECT_THROW(open.Make("inner", open), host::StoreError);
    EXPECT_EQ(test::ReadFile(Path("inner/file")), "text");
}

TEST_F(SafeFiles, ANewDirectoryIsOpenToTheUsersOfTheOneAroundIt) {
#ifdef _WIN32
    GTEST_SKIP() << "A directory has the rights of the one around it here.";
#else
    fs::permissions(directory.Path(), fs::perms(0775));
    const Directory made = open.MakeUnique("new");
    EXPECT_EQ(fs::status(made.Path()).permissions(), fs::perms(0700));
    made.ShareLike(open);
    EXPECT_EQ(fs::status(made.Path()).permissions(), fs::perms(0775));
    const host::EntryStatus inner = made.Make("inner", open);
    EXPECT_EQ(inner.inode, made.Open("inner").Status(".").inode);
    EXPECT_EQ(fs::status(made.Path() / "inner").permissions(), fs::perms(0775));
    fs::permissions(directory.Path(), fs::perms(01777));
    made.ShareLike(open);
    EXPECT_EQ(fs::status(made.Path()).permissions(), fs::perms(0755))
        << "nobody else may change it where nobody else may replace it";
    const host::FileLock lock(open, "lock", nullptr);
    EXPECT_EQ(fs::status(Path("lock")).permissions(), fs::perms(0666)) << "all who may write here can lock";
#endif
}

}  // namespace
