#include "host/OutputFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

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
    OutputFile output((directory / "missing/out").GetString());
    EXPECT_THROW(output.Commit(), host::OutputError);
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
