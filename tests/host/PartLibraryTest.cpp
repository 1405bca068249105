#include "host/PartLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "support/Files.h"

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
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Root() / below))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
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

TEST_F(Library, KilledAtAnyInstantItHoldsTheOldPartOrTheNewOneWhole) {
    PartLibrary(Root()).Store("A", old_);
    for (int round = 0; round < 60; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                PartLibrary(Root()).Store("A", new_);
                PartLibrary(Root()).Store("A", old_);
            }
        }
        usleep(static_cast<useconds_t>(500 + round * 211 % 7000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const auto names = Content("A");
        ASSERT_EQ(names.size(), 1u);
        ASSERT_EQ(test::ReadFile(Root() / "A" / names[0]),
                  names[0] == "old.veka" ? "old content" : "new content");
    }
    PartLibrary(Root()).Store("A", old_);
    EXPECT_THAT(Content(), ElementsAre(".veka-lock", "A"));
}

}  // namespace
