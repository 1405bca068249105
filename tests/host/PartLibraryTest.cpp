#include "host/PartLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <memory>
#include <thread>

#include "host/SafeFiles.h"
#include "support/Children.h"
#include "support/Files.h"
#include "window/SBUtility.h"

namespace {

using host::Existing;
using host::FileContent;
using host::Outcome;
using host::PartLibrary;
using host::StoreError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

const FileContent kOld{"old content", 0666}, kNew{"new content", 0666};

/// Stores the old or the new content under a file name of its own, over whatever is there.
Outcome Store(const std::filesystem::path& root, const std::string& name, const FileContent& content) {
    return PartLibrary(root).Store(name, content.bytes.substr(0, 3) + ".veka", content, Existing::Replace);
}

class Library : public testing::Test {
protected:
    Library() { std::filesystem::create_directory(Root()); }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    Outcome Store(const std::string& name, const FileContent& content) {
        return ::Store(Root(), name, content);
    }
    std::vector<std::string> Content(const std::filesystem::path& below = "") const {
        return test::Names(Root() / below);
    }
    std::string Read(const char* path) const { return test::ReadFile(Root() / path); }

    test::TemporaryDirectory directory;
};

TEST_F(Library, StoresAPartAsADirectoryWithItsSource) {
    EXPECT_EQ(Store("A", kOld), Outcome::New);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_THAT(Content("A"), ElementsAre("old.veka"));
    EXPECT_EQ(Read("A/old.veka"), "old content");
}

TEST_F(Library, ReplacesAPartAsAWholeAndKeepsTheFormerOne) {
    Store("A", kOld);
    EXPECT_EQ(Store("A", kNew), Outcome::Replaced);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A"));
    EXPECT_THAT(Content("A"), ElementsAre("new.veka"));
    EXPECT_EQ(Read("A/new.veka"), "new content");
    EXPECT_EQ(Read(".veka-trash/A/old.veka"), "old content");
}

TEST_F(Library, TheTrashHasWhatWasRemovedAndWhatWasReplaced) {
    EXPECT_THAT(PartLibrary(Root()).Trash(), ElementsAre());
    for (const char* name : {"C", "A", "B"}) Store(name, kOld);
    Store("C", kNew);
    PartLibrary(Root()).Remove("A");
    EXPECT_THAT(PartLibrary(Root()).Trash(), ElementsAre("A", "C"));
    PartLibrary(Root()).Undo("A");
    EXPECT_THAT(PartLibrary(Root()).Trash(), ElementsAre("C"));
}

TEST_F(Library, KeepsAPartThatIsThereUnlessItIsToBeReplaced) {
    Store("A", kOld);
    EXPECT_EQ(PartLibrary(Root()).Store("A", "new.veka", kNew, Existing::Keep), Outcome::Kept);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_EQ(Read("A/old.veka"), "old content");
    EXPECT_EQ(PartLibrary(Root()).Store("B", "new.veka", kNew, Existing::Keep), Outcome::New);
}

TEST_F(Library, OfManyWhoStoreTheSamePartWithoutReplacingOneDoes) {
    for (int round = 0; round < 20; ++round) {
        const std::string name = "A" + std::to_string(round);
        std::atomic<int> stored = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                stored += PartLibrary(Root()).Store(name, "f", kNew, Existing::Keep) == Outcome::New;
            });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(stored, 1);
    }
}

TEST_F(Library, AReplacedPartKeepsWhatElseIsInItsDirectory) {
    Store("A", kOld);
    std::ofstream(Root() / "A/notes.txt") << "notes";
    Store("A", kNew);
    EXPECT_THAT(Content(".veka-trash/A"), ElementsAre("notes.txt", "old.veka"));
}

TEST_F(Library, UndoPutsTheReplacedPartBackAndUndoneTwiceTheNewOne) {
    Store("A", kOld);
    Store("A", kNew);
    EXPECT_EQ(PartLibrary(Root()).Undo("A"), "A");
    EXPECT_EQ(Read("A/old.veka"), "old content");
    EXPECT_EQ(PartLibrary(Root()).Undo("A"), "A");
    EXPECT_EQ(Read("A/new.veka"), "new content");
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A"));
}

TEST_F(Library, UndoWithoutANameMeansThePartThatWasReplacedLast) {
    for (const char* name : {"A", "B", "C"}) Store(name, kOld);
    for (const char* name : {"A", "C", "B"}) Store(name, kNew);
    EXPECT_EQ(PartLibrary(Root()).Undo(), "B");
    EXPECT_EQ(Read("B/old.veka"), "old content");
    EXPECT_EQ(Read("C/new.veka"), "new content");
}

TEST_F(Library, UndoPutsAPartBackThatWasRemovedSince) {
    Store("A", kOld);
    Store("A", kNew);
    std::filesystem::remove_all(Root() / "A");
    PartLibrary(Root()).Undo("A");
    EXPECT_EQ(Read("A/old.veka"), "old content");
}

TEST_F(Library, ARemovedPartIsInTheTrashAndUndoPutsItBack) {
    Store("A", kOld);
    Store("B", kOld);
    PartLibrary(Root()).Remove("A");
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "B"));
    EXPECT_EQ(Read(".veka-trash/A/old.veka"), "old content");
    EXPECT_EQ(PartLibrary(Root()).Undo(), "A");
    EXPECT_EQ(Read("A/old.veka"), "old content");
    for (const char* name : {"missing", "..", ".veka-trash", ""})
        EXPECT_THROW(PartLibrary(Root()).Remove(name), StoreError) << name;
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A", "B"));
}

TEST_F(Library, AGroupIsStoredWithOneOutcomeForEachPart) {
    Store("B", kOld);
    Store("C", kOld);
    const auto outcomes = PartLibrary(Root()).StoreGroup({{"A", "a.veka", kNew, Existing::Keep},
                                                          {"B", "b.veka", kNew, Existing::Keep},
                                                          {"B", "b.veka", kNew, Existing::Replace},
                                                          {"C", "c.veka", kOld, Existing::Replace},
                                                          {"..", "d.veka", kNew, Existing::Keep},
                                                          {"D", "a/b", kNew, Existing::Keep}});
    ASSERT_EQ(outcomes.size(), 6u);
    EXPECT_EQ(outcomes[0].outcome, Outcome::New);
    EXPECT_EQ(outcomes[1].outcome, Outcome::Kept);
    EXPECT_EQ(outcomes[2].outcome, Outcome::Replaced);
    EXPECT_EQ(outcomes[3].outcome, Outcome::Unchanged);
    EXPECT_EQ(outcomes[3].stamp.fileName, "old.veka");
    EXPECT_THAT(outcomes[4].failure, HasSubstr("is no name for a part"));
    EXPECT_THAT(outcomes[5].failure, HasSubstr("is no name for a file"));
    EXPECT_EQ(Read("B/b.veka"), "new content");
    EXPECT_EQ(PartLibrary(Root()).Undo(), "B") << "the last part of the group that was replaced";
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A", "B", "C"));
}

TEST_F(Library, UndoOfNothingIsAnError) {
    EXPECT_THROW(PartLibrary(Root()).Undo(), host::NothingToUndo);
    Store("A", kOld);
    Store("A", kNew);
    for (const char* name : {"B", "..", ".last", "a/b"})
        EXPECT_THROW(PartLibrary(Root()).Undo(name), host::NothingToUndo) << name;
    std::filesystem::remove(Root() / ".veka-trash/.last");
    EXPECT_THAT([&] { PartLibrary(Root()).Undo(); },
                ThrowsMessage<host::NothingToUndo>("it is not known which part was replaced last"));
}

TEST_F(Library, TheTrashKeepsOnePartOfEachName) {
    Store("A", kOld);
    Store("A", kNew);
    Store("A", kNew);
    EXPECT_THAT(Content(".veka-trash"), ElementsAre(".last", "A"));
    EXPECT_EQ(Read(".veka-trash/A/new.veka"), "new content");
}

TEST_F(Library, RemovesWhatAnInterruptedStoreLeft) {
    Store("A", kOld);
    std::filesystem::create_directory(Root() / ".veka-new-abc");
    std::filesystem::rename(Root() / "A", Root() / ".veka-old-A");
    Store("B", kNew);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A", "B")) << "and puts a part back that was taken away";
    std::filesystem::create_directory(Root() / ".veka-old-A");
    std::ofstream(Root() / ".veka-old-A/file") << "x";
    Store("B", kNew);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A", "B"));
    EXPECT_EQ(Read("A/old.veka"), "old content");
    EXPECT_EQ(Read(".veka-trash/A/file"), "x") << "what had been replaced is kept";
}

TEST_F(Library, ALibraryThatAnotherProgramWritesIsWaitedFor) {
    const host::Directory open(Root());
    auto lock = std::make_unique<host::FileLock>(open, ".veka-lock", nullptr);
    int asked = 0;
    const auto free = [&](std::chrono::milliseconds, const std::string&) {
        if (++asked == 3) lock.reset();
        return true;
    };
    EXPECT_EQ(PartLibrary(Root(), free).Store("A", "f", kNew, Existing::Keep), Outcome::New);
    EXPECT_EQ(asked, 3);
    lock = std::make_unique<host::FileLock>(open, ".veka-lock", nullptr);
    const auto giveUp = [](std::chrono::milliseconds, const std::string&) { return false; };
    EXPECT_THAT([&] { PartLibrary(Root(), giveUp).Store("B", "f", kNew, Existing::Keep); },
                ThrowsMessage<StoreError>(HasSubstr("is in use by")));
}

TEST_F(Library, AMissingLibraryIsAnError) {
    EXPECT_THROW(::Store(directory.Path() / "missing", "A", kOld), StoreError);
}

TEST_F(Library, ItsPathMayBeLong) {
    CString deep = directory / "lib";
    for (int i = 0; i < 15; ++i) {
        deep = SBUtility::GetInstance().SBPathCombine(deep, "a rather long name of a directory", "", 0);
        std::filesystem::create_directory(veka::ToPath(deep));
    }
    ::Store(veka::ToPath(deep), "A", kOld);
    ::Store(veka::ToPath(deep), "A", kNew);
    EXPECT_EQ(host::Directory(veka::ToPath(deep)).Names().size(), 3u) << "the lock, the trash and the part";
    const CString part = SBUtility::GetInstance().SBPathCombine(deep, "A", "", 0);
    const CString stored = SBUtility::GetInstance().SBPathCombine(part, "new.veka", "", 0);
    EXPECT_TRUE(veka::Exists(veka::ToPath(stored)));
    host::Directory(directory.Path()).RemoveAll("lib");
    EXPECT_FALSE(veka::Exists(Root()));
}

TEST_F(Library, NamesThatWouldLeaveTheLibraryAreErrors) {
    for (const char* name : {"", ".", "..", "a/b", "/", ".veka-lock"})
        EXPECT_THROW(Store(name, kOld), StoreError) << name;
    EXPECT_THROW(PartLibrary(Root()).Store("A", "../f", kOld, Existing::Replace), StoreError);
    EXPECT_THAT(Content(), testing::IsEmpty());
}

TEST_F(Library, SideBySideStoresLeaveOneWholePart) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&, i] {
            for (int k = 0; k < 10; ++k) ::Store(Root(), "A", i % 2 ? kOld : kNew);
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A"));
    EXPECT_EQ(Content("A").size(), 1u);
    EXPECT_EQ(Content(".veka-trash/A").size(), 1u);
}

void StoreForever(const std::filesystem::path& directory) {
    for (;;) {
        Store(directory / "lib", "A", kNew);
        Store(directory / "lib", "A", kOld);
    }
}

// A child process that could not be forked stores from here on, before any test runs.
const bool g_child = test::RunAsChild(StoreForever);

TEST_F(Library, KilledAtAnyInstantItHoldsTheOldPartOrTheNewOneWhole) {
    Store("A", kOld);
    for (int round = 0; round < test::kKills; ++round) {
        test::KillAfter(std::chrono::microseconds(500 + round * 211 % 7000), directory.Path(), StoreForever);
        // Where names cannot be exchanged, the next store puts a part back that was taken away.
        if (!test::kExchanges) Store("B", kOld);
        const auto names = Content("A");
        ASSERT_EQ(names.size(), 1u);
        ASSERT_EQ(test::ReadFile(Root() / "A" / names[0]),
                  names[0] == "old.veka" ? "old content" : "new content");
    }
    Store("A", kOld);
    std::filesystem::remove_all(Root() / "B");
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A"));
}

/// 0 where a store fails with a message that has these words and leaves the old part whole and nothing else.
int FailsWith(const std::filesystem::path& root, const FileContent& content, const std::string& words) {
    try {
        Store(root, "A", content);
        return 1;
    } catch (const StoreError& error) {
        if (std::string(error.what()).find(words) == std::string::npos) return 2;
    }
    if (test::ReadFile(root / "A/old.veka") != "old content") return 3;
    for (const auto& entry : std::filesystem::directory_iterator(root))
        if (entry.path().filename() != "A" && entry.path().filename() != ".veka-lock") return 4;
    return 0;
}

TEST_F(Library, AFileThatGrowsTooLargeLeavesTheOldPart) {
    Store("A", kOld);
    const FileContent large{std::string(3'000'000, 'x'), 0666};
    const int code = test::InChild([&] {
        if (!test::LimitFiles(1'500'000)) return test::kNotPossibleHere;
        return FailsWith(Root(), large, "cannot write");
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "Files have no limit of their own here.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, AFullDiskLeavesTheOldPart) {
    const FileContent large{std::string(300'000, 'x'), 0666};
    const int code = test::InChild([&] {
        if (!test::MountSmallDisk(Root())) return test::kNotPossibleHere;
        Store("A", kOld);
        return FailsWith(Root(), large, "No space left on device");
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "No disk of one's own can be made here.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, AReadOnlyLibraryIsAnError) {
    Store("A", kOld);
    using std::filesystem::perms;
    const auto readable = perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec |
                          perms::others_read | perms::others_exec;
    std::filesystem::permissions(directory.Path(), readable | perms::owner_write);
    std::filesystem::permissions(Root(), readable);
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;  // rights do not bind the superuser
        return FailsWith(Root(), kNew, "Permission denied");
    });
    std::filesystem::permissions(Root(), readable | perms::owner_write);
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, APartThatCannotGoToTheTrashIsNotReplaced) {
    std::filesystem::permissions(directory.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(Root(), std::filesystem::perms(0777));
    Store("A", kOld);
    std::filesystem::permissions(Root() / "A", std::filesystem::perms(0555));
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;
        try {
            Store("A", kNew);
        } catch (const StoreError& error) {
            return std::string(error.what()).find("cannot replace") == std::string::npos ? 1 : 0;
        }
        return 2;
    });
    std::filesystem::permissions(Root() / "A", std::filesystem::perms(0755));
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_EQ(Read("A/old.veka"), "old content");
}

TEST_F(Library, AStoreThatFailsAfterTheExchangePutsTheOldPartBack) {
    std::filesystem::permissions(directory.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(Root(), std::filesystem::perms(0777));
    Store("A", kNew);
    Store("A", kOld);
    // The part in the trash cannot be removed, so the part that is replaced finds no place there.
    std::filesystem::permissions(Root() / ".veka-trash/A", std::filesystem::perms(0555));
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;
        try {
            Store("A", {"third content", 0666});
        } catch (const StoreError&) {
            return 0;
        }
        return 1;
    });
    std::filesystem::permissions(Root() / ".veka-trash/A", std::filesystem::perms(0755));
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", ".veka-trash", "A"));
    EXPECT_EQ(Read("A/old.veka"), "old content");
    EXPECT_EQ(Read(".veka-trash/A/new.veka"), "new content");
}

TEST_F(Library, AllWhoMayWriteALibraryCanReplaceEachOthersParts) {
    std::filesystem::permissions(directory.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(Root(), std::filesystem::perms(0777));
    Store("A", kOld);
    Store("A", kOld);
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;
        return Store("A", kNew) == Outcome::Replaced ? 0 : 1;
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Read("A/new.veka"), "new content");
}

/// Puts links to a directory in the place of every new part, for as long as it is let.
void PutLinks(const std::filesystem::path& library, const std::filesystem::path& target) {
    for (;;) {
        std::error_code error;
        for (std::filesystem::directory_iterator entry(library, error), end; !error && entry != end;
             entry.increment(error)) {
            const std::filesystem::path path = entry->path();
            if (!path.filename().string().starts_with(".veka-new-")) continue;
            std::error_code ignored;
            std::filesystem::rename(path, library / ("stolen-" + path.filename().string()), ignored);
            if (!ignored) std::filesystem::create_directory_symlink(target, path, ignored);
        }
    }
}

TEST_F(Library, ALinkThatAnotherUserPutsInTheWayLeadsNobodyOutside) {
    const std::filesystem::path outside = directory.Path() / "outside";
    std::filesystem::create_directory(outside);
    const auto rights = std::filesystem::perms(0755);
    for (const auto& path : {directory.Path(), outside}) std::filesystem::permissions(path, rights);
    std::filesystem::permissions(Root(), std::filesystem::perms(0777));
    const test::ChildBeside attacker([&] {
        if (test::BecomeNobody()) PutLinks(Root(), outside);
    });
    if (!attacker.Runs()) GTEST_SKIP() << "This user cannot become another.";
    int failed = 0;
    for (int round = 0; round < 120; ++round) {
        try {
            Store("A" + std::to_string(round % 7), kNew);
        } catch (const StoreError&) {
            ++failed;  // somebody interfered
        }
        ASSERT_THAT(test::Names(outside), testing::IsEmpty());
        ASSERT_EQ(std::filesystem::status(outside).permissions(), rights);
    }
    RecordProperty("rounds_in_which_the_attacker_interfered", failed);
}

}  // namespace
