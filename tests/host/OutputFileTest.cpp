#include "host/OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <unistd.h>
#endif

#include <cstdlib>
#include <fstream>
#include <optional>

#include "support/Children.h"
#include "support/Files.h"

namespace {

namespace fs = std::filesystem;
using host::OutputFile;
using testing::ElementsAre;

class Output : public testing::Test {
protected:
    std::string Path(const char* name) const { return (directory / name).GetString(); }
    static void Fill(const OutputFile& output, const char* text) {
        std::ofstream(veka::ToPath(CString(output.TemporaryPath()))) << text;
    }

    test::TemporaryDirectory directory;
};

TEST_F(Output, TakesItsPlaceWhenItIsWhole) {
    directory.Write("out", "old");
    {
        OutputFile output(Path("out"));
        Fill(output, "new");
        EXPECT_EQ(test::ReadFile(directory.Path() / "out"), "old");
        output.Commit();
    }
    EXPECT_EQ(test::ReadFile(directory.Path() / "out"), "new");
    EXPECT_THAT(directory.Names(), ElementsAre("out"));
}

TEST_F(Output, ThatIsNotFinishedLeavesWhatWasThere) {
    directory.Write("out", "old");
    {
        OutputFile output(Path("out"));
        Fill(output, "half");
    }
    EXPECT_EQ(test::ReadFile(directory.Path() / "out"), "old");
    EXPECT_THAT(directory.Names(), ElementsAre("out"));
}

TEST_F(Output, BytesAreWrittenAsTheyAre) {
    const std::string bytes("a\r\n\0\xFF", 5);
    host::WriteOutput(Path("out"), bytes);
    EXPECT_EQ(test::ReadFile(directory.Path() / "out"), bytes);
    EXPECT_THROW(host::WriteOutput(Path("none/out"), bytes), host::OutputError);
}

TEST_F(Output, KeepsTheNameThatALinkLeadsTo) {
#ifdef _WIN32
    GTEST_SKIP() << "The tests make no links here.";
#else
    directory.Write("file", "old");
    fs::permissions(directory.Path() / "file", fs::perms(0640));
    fs::create_symlink("file", directory.Path() / "out");
    OutputFile output(Path("out"));
    Fill(output, "new");
    output.Commit();
    EXPECT_TRUE(fs::is_symlink(directory.Path() / "out"));
    EXPECT_EQ(test::ReadFile(directory.Path() / "file"), "new");
    EXPECT_EQ(fs::status(directory.Path() / "file").permissions(), fs::perms(0640));
#endif
}

TEST_F(Output, ReplacesRegularFilesOnly) {
    EXPECT_THROW(OutputFile(veka::FromPath(directory.Path()).GetString()), host::OutputError);
#ifndef _WIN32
    EXPECT_THROW(OutputFile("/dev/null"), host::OutputError);
#endif
    OutputFile none("");
    EXPECT_EQ(none.TemporaryPath(), "");
    none.Commit();
}

TEST_F(Output, InAMissingDirectoryIsAnError) {
    EXPECT_THROW(OutputFile((directory / "missing/out").GetString()), host::OutputError);
}

TEST_F(Output, ThatWasNeverWrittenIsAnErrorAndLeavesWhatWasThere) {
    directory.Write("out", "old");
    OutputFile output(Path("out"));
    EXPECT_THROW(output.Commit(), host::OutputError);
    EXPECT_EQ(test::ReadFile(directory.Path() / "out"), "old");
}

TEST_F(Output, IsMadeInADirectoryThatNoOtherUserCanEnterAndThatIsRemoved) {
    fs::path made;
    {
        const OutputFile output(Path("out.glb"));
        made = veka::ToPath(CString(output.TemporaryPath()));
        EXPECT_EQ(made.extension(), ".glb") << "a writer looks at the ending";
        ASSERT_TRUE(fs::is_directory(made.parent_path()));
#ifndef _WIN32
        EXPECT_EQ(fs::status(made.parent_path()).permissions(), fs::perms::owner_all);
#endif
        Fill(output, "half");
        fs::create_directory(made.parent_path() / "more");
    }
    EXPECT_FALSE(fs::exists(made.parent_path()));
    EXPECT_THAT(directory.Names(), testing::IsEmpty());
}

TEST_F(Output, WithoutADirectoryForTemporaryFilesIsAnError) {
#ifdef _WIN32
    GTEST_SKIP() << "The system names the directory here.";
#else
    const char* former = std::getenv("TMPDIR");
    const std::optional<std::string> kept = former ? std::optional<std::string>(former) : std::nullopt;
    setenv("TMPDIR", Path("missing").c_str(), 1);
    EXPECT_THROW(OutputFile(Path("out")), host::OutputError);
    kept ? setenv("TMPDIR", kept->c_str(), 1) : unsetenv("TMPDIR");
#endif
}

/// Puts links to a file in the place of every file that a program makes, for as long as it is let.
void PutLinks(const fs::path& place, const fs::path& target) {
    for (int count = 0;;) {
        std::error_code error;
        for (fs::directory_iterator entry(place, error), end; !error && entry != end;
             entry.increment(error)) {
            const fs::path path = entry->path();
            if (!path.filename().string().starts_with(".veka-")) continue;
            std::error_code ignored;
            fs::rename(path, place / ("stolen-" + std::to_string(++count % 50)), ignored);
            if (!ignored) fs::create_symlink(target, path, ignored);
        }
    }
}

TEST_F(Output, ALinkThatAnotherUserPutsInTheWayChangesNoOtherFile) {
    fs::create_directory(directory.Path() / "shared");
    const fs::path victim(std::string(directory.Write("victim", "mine").GetString()));
    fs::permissions(victim, fs::perms(0600));
    fs::permissions(directory.Path(), fs::perms(0755));
    fs::permissions(directory.Path() / "shared", fs::perms(0777));
    const test::ChildBeside attacker([&] {
        if (test::BecomeNobody()) PutLinks(directory.Path() / "shared", victim);
    });
    if (!attacker.Runs()) GTEST_SKIP() << "This user cannot become another.";
    const fs::path out = directory.Path() / "shared/out";
    for (int round = 0; round < 300; ++round) {
        fs::remove(out);
        std::ofstream(out) << "old";
        fs::permissions(out, fs::perms(0666));  // the new file gets its rights
        try {
            OutputFile output(Path("shared/out"));
            Fill(output, "new");
            output.Commit();
        } catch (const host::OutputError&) {
            // Somebody interfered.
        }
        ASSERT_EQ(test::ReadFile(victim), "mine");
        ASSERT_EQ(fs::status(victim).permissions(), fs::perms(0600));
    }
}

TEST_F(Output, ALinkOfAnotherUserIsNotFollowed) {
#ifdef _WIN32
    GTEST_SKIP() << "The tests make no links here.";
#else
    directory.Write("victim", "mine");
    fs::permissions(directory.Path(), fs::perms(0777));
    fs::create_symlink("victim", directory.Path() / "out");
    if (lchown(Path("out").c_str(), 65534, 65534) != 0) GTEST_SKIP() << "This user cannot give a link away.";
    EXPECT_THROW(OutputFile(Path("out")), host::OutputError);
    EXPECT_EQ(test::ReadFile(directory.Path() / "victim"), "mine");
#endif
}

TEST_F(Output, IsRefusedWhereItIsTheInputOrAPartOfTheLibrary) {
    const std::string input = directory.Write("in", "x").GetString(), library = directory.Path().string();
    const auto refused = [&](const std::string& output) {
        try {
            host::RequireOutsideOf(output, input, library, "A");
        } catch (const host::RefusedOutput&) {
            return true;
        }
        return false;
    };
    EXPECT_TRUE(refused(input));
    EXPECT_TRUE(refused(library + "/./in"));
    EXPECT_TRUE(refused(library + "/A"));
    EXPECT_TRUE(refused(library + "/A/part.veka"));
    EXPECT_TRUE(refused(library + "/B/../A/new/part.veka"));
    EXPECT_TRUE(refused(library + "/.veka-trash/A/out"));
    EXPECT_FALSE(refused(library + "/out.step"));
    EXPECT_FALSE(refused(library + "/AB"));
    EXPECT_FALSE(refused(library + "/../out.step"));
    EXPECT_FALSE(refused(""));
#ifndef _WIN32
    fs::create_hard_link(directory.Path() / "in", directory.Path() / "hard");
    EXPECT_TRUE(refused(library + "/hard"));
    fs::create_directory_symlink(".", directory.Path() / "link");
    EXPECT_TRUE(refused(library + "/link/in"));
    EXPECT_TRUE(refused(library + "/link/A/out"));
#endif
}

}  // namespace
