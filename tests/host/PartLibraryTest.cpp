#include "host/PartLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
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
    for (int round = 0; round < 320; ++round) {
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

constexpr int kNotPossibleHere = 77;  // exit code of a child

/// Runs something in a child process; returns its exit code.
int InChild(const std::function<int()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        try {
            _exit(run());
        } catch (...) {
            _exit(99);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
    const int code = InChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1'500'000, 1'500'000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return kNotPossibleHere;
        return FailsWith(Root(), large, "cannot write");
    });
    EXPECT_EQ(code, 0);
}

/// Gives this process a disk of its own with 64 kB at a directory; false where the system does not allow it.
bool MountSmallDisk(const std::filesystem::path& where) {
    const std::string user = "0 " + std::to_string(getuid()) + " 1";
    const std::string group = "0 " + std::to_string(getgid()) + " 1";
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    std::ofstream("/proc/self/uid_map") << user;
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << group;
    return mount("disk", where.c_str(), "tmpfs", 0, "size=64k") == 0;
}

TEST_F(Library, AFullDiskLeavesTheOldPart) {
    const auto large = Source("large.veka", std::string(300'000, 'x'));
    const int code = InChild([&] {
        if (!MountSmallDisk(Root())) return kNotPossibleHere;
        PartLibrary(Root()).Store("A", old_);
        return FailsWith(Root(), large, "No space left on device");
    });
    if (code == kNotPossibleHere) GTEST_SKIP() << "No disk of one's own can be made here.";
    EXPECT_EQ(code, 0);
}

TEST_F(Library, AReadOnlyLibraryIsAnError) {
    PartLibrary(Root()).Store("A", old_);
    using std::filesystem::perms;
    const auto readable = perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec |
                          perms::others_read | perms::others_exec;
    std::filesystem::permissions(directory.Path(), readable | perms::owner_write);
    std::filesystem::permissions(Root(), readable);
    const int code = InChild([&] {
        if (geteuid() == 0 && setuid(65534) != 0) return kNotPossibleHere;  // rights do not bind root
        return FailsWith(Root(), new_, "Permission denied");
    });
    std::filesystem::permissions(Root(), readable | perms::owner_write);
    if (code == kNotPossibleHere) GTEST_SKIP() << "This user cannot become another.";
    EXPECT_EQ(code, 0);
}

}  // namespace
