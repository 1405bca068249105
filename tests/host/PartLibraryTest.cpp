#include "host/PartLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "host/SafeFiles.h"
#include "support/Children.h"
#include "support/Files.h"
#include "window/SBUtility.h"

namespace {

using host::PartLibrary;
using host::StoreError;
using testing::ElementsAre;

class Library : public testing::Test {
protected:
    Library() {
        std::filesystem::create_directory(directory.Path() / "lib");
        old_ = Source("old.veka", "old content");
        new_ = Source("new.veka", "new content");
    }
    std::filesystem::path Source(const char* name, std::string_view content) {
        directory.Write(name, content);
        return directory.Path() / name;
    }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    std::vector<std::string> Content(const std::filesystem::path& below = "") const {
        return test::Names(Root() / below);
    }

    test::TemporaryDirectory directory;
    std::filesystem::path old_, new_;
};

TEST_F(Library, StoresAPartAsADirectoryWithItsSource) {
    PartLibrary(Root()).Store("A", old_);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_THAT(Content("A"), ElementsAre("old.veka"));
    EXPECT_EQ(test::ReadFile(Root() / "A/old.veka"), "old content");
}

TEST_F(Library, ReplacesAPartAsAWhole) {
    PartLibrary(Root()).Store("A", old_);
    PartLibrary(Root()).Store("A", new_);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_THAT(Content("A"), ElementsAre("new.veka"));
    EXPECT_EQ(test::ReadFile(Root() / "A/new.veka"), "new content");
}

TEST_F(Library, CanStoreAPartFromItsOwnPlace) {
    PartLibrary(Root()).Store("A", old_);
    PartLibrary(Root()).Store("A", Root() / "A/old.veka");
    EXPECT_EQ(test::ReadFile(Root() / "A/old.veka"), "old content");
}

TEST_F(Library, RemovesWhatAnInterruptedStoreLeft) {
    PartLibrary(Root()).Store("A", old_);
    std::filesystem::create_directory(Root() / ".veka-new-abc");
    std::filesystem::rename(Root() / "A", Root() / ".veka-old-A");
    PartLibrary(Root()).Store("B", new_);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A", "B")) << "and puts a part back that was taken away";
    std::filesystem::create_directory(Root() / ".veka-old-A");
    PartLibrary(Root()).Store("B", new_);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A", "B"));
    EXPECT_EQ(test::ReadFile(Root() / "A/old.veka"), "old content");
}

TEST_F(Library, ASourceThatCannotBeReadLeavesTheOldPart) {
    PartLibrary(Root()).Store("A", old_);
    EXPECT_THROW(PartLibrary(Root()).Store("A", directory.Path() / "missing"), StoreError);
    EXPECT_THROW(PartLibrary(Root()).Store("A", directory.Path()), StoreError);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_EQ(test::ReadFile(Root() / "A/old.veka"), "old content");
}

TEST_F(Library, AMissingLibraryIsAnError) {
    EXPECT_THROW(PartLibrary(directory.Path() / "missing").Store("A", old_), StoreError);
}

TEST_F(Library, ItsPathMayBeLong) {
    CString deep = directory / "lib";
    for (int i = 0; i < 15; ++i) {
        deep = SBUtility::GetInstance().SBPathCombine(deep, "a rather long name of a directory", "", 0);
        std::filesystem::create_directory(veka::ToPath(deep));
    }
    PartLibrary(veka::ToPath(deep)).Store("A", old_);
    PartLibrary(veka::ToPath(deep)).Store("A", new_);
    const auto entries = host::Entries(veka::ToPath(deep));
    EXPECT_EQ(entries.size(), 2u) << "the lock and the part";
    const CString part = SBUtility::GetInstance().SBPathCombine(deep, "A", "", 0);
    const CString stored = SBUtility::GetInstance().SBPathCombine(part, "new.veka", "", 0);
    EXPECT_TRUE(veka::Exists(veka::ToPath(stored)));
    host::RemoveAll(Root());
    EXPECT_FALSE(veka::Exists(Root()));
}

TEST_F(Library, NamesThatWouldLeaveTheLibraryAreErrors) {
    for (const char* name : {"", ".", "..", "a/b", "/", ".veka-lock"})
        EXPECT_THROW(PartLibrary(Root()).Store(name, old_), StoreError) << name;
    EXPECT_THAT(Content(), testing::IsEmpty());
}

TEST_F(Library, SideBySideStoresLeaveOneWholePart) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&, i] {
            for (int k = 0; k < 10; ++k) PartLibrary(Root()).Store("A", i % 2 ? old_ : new_);
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
    EXPECT_EQ(Content("A").size(), 1u);
}

void StoreForever(const std::filesystem::path& directory) {
    PartLibrary library(directory / "lib");
    for (;;) {
        library.Store("A", directory / "new.veka");
        library.Store("A", directory / "old.veka");
    }
}

// A child process that could not be forked stores from here on, before any test runs.
const bool g_child = test::RunAsChild(StoreForever);

TEST_F(Library, KilledAtAnyInstantItHoldsTheOldPartOrTheNewOneWhole) {
    PartLibrary(Root()).Store("A", old_);
    for (int round = 0; round < test::kKills; ++round) {
        test::KillAfter(std::chrono::microseconds(500 + round * 211 % 7000), directory.Path(), StoreForever);
        // Where names cannot be exchanged, the next store puts a part back that was taken away.
        if (!test::kExchanges) PartLibrary(Root()).Store("B", old_);
        const auto names = Content("A");
        ASSERT_EQ(names.size(), 1u);
        ASSERT_EQ(test::ReadFile(Root() / "A" / names[0]),
                  names[0] == "old.veka" ? "old content" : "new content");
    }
    PartLibrary(Root()).Store("A", old_);
    std::filesystem::remove_all(Root() / "B");
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
}

/// 0 where a store fails with a message that has these words and leaves the old part whole and nothing else.
int FailsWith(const std::filesystem::path& root, const std::filesystem::path& source,
              const std::string& words) {
    try {
        PartLibrary(root).Store("A", source);
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
    PartLibrary(Root()).Store("A", old_);
    const auto large = Source("large.veka", std::string(3'000'000, 'x'));
    const int code = test::InChild([&] {
        if (!test::LimitFiles(1'500'000)) return test::kNotPossibleHere;
        return FailsWith(Root(), large, "cannot write");
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "Files have no limit of their own here.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, AFullDiskLeavesTheOldPart) {
    const auto large = Source("large.veka", std::string(300'000, 'x'));
    const int code = test::InChild([&] {
        if (!test::MountSmallDisk(Root())) return test::kNotPossibleHere;
        PartLibrary(Root()).Store("A", old_);
        return FailsWith(Root(), large, "No space left on device");
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "No disk of one's own can be made here.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, AReadOnlyLibraryIsAnError) {
    PartLibrary(Root()).Store("A", old_);
    using std::filesystem::perms;
    const auto readable = perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec |
                          perms::others_read | perms::others_exec;
    std::filesystem::permissions(directory.Path(), readable | perms::owner_write);
    std::filesystem::permissions(Root(), readable);
    const int code = test::InChild([&] {
        if (!test::BecomeNobody()) return test::kNotPossibleHere;  // rights do not bind the superuser
        return FailsWith(Root(), new_, "Permission denied");
    });
    std::filesystem::permissions(Root(), readable | perms::owner_write);
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
}

}  // namespace
