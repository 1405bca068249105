#include "host/PartFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/SafeFiles.h"
#include "support/Files.h"

namespace {

using testing::ElementsAre;
using testing::ThrowsMessage;

class PartFiles : public testing::Test {
protected:
    std::string Write(const std::string& name) {
        const std::filesystem::path path = directory.Path() / name;
        std::filesystem::create_directories(path.parent_path());
        return directory.Write(name, "(VEK)").GetString();
    }
    std::string Root() const { return veka::FromPath(directory.Path()).GetString(); }

    test::TemporaryDirectory directory;
};

TEST_F(PartFiles, AreFoundAtEveryDepthAndSorted) {
    const std::string b = Write("b.veka"), deep = Write("a/z/deep.VEKA"), first = Write("a/1.veka");
    Write("a/notes.txt");
    Write("veka");
    EXPECT_THAT(host::PartFilesBelow(directory.Path()), ElementsAre(first, deep, b));
}

TEST_F(PartFiles, OfADirectoryAreNeverReachedByALink) {
    const std::string real = Write("in/real.veka");
    Write("outside/secret.veka");
    std::error_code error;
    std::filesystem::create_symlink(directory.Path() / "outside/secret.veka",
                                    directory.Path() / "in/link.veka", error);
    std::filesystem::create_directory_symlink(directory.Path() / "outside", directory.Path() / "in/folder",
                                              error);
    std::filesystem::create_directory_symlink("..", directory.Path() / "in/round", error);
    if (error) GTEST_SKIP() << "This user cannot make links.";
    EXPECT_THAT(host::PartFilesBelow(directory.Path() / "in"), ElementsAre(real));
}

TEST_F(PartFiles, OfADirectoryNamedLikeAFileAreNotTheDirectory) {
    const std::string file = Write("part.veka/part.veka");
    EXPECT_THAT(host::PartFilesBelow(directory.Path()), ElementsAre(file));
}

TEST_F(PartFiles, ReplaceTheirDirectoryInAList) {
    const std::string one = Write("d/1.veka"), two = Write("d/2.veka");
    EXPECT_THAT(host::ExpandDirectories({"missing.veka", std::string((directory / "d").View()), "-"}),
                ElementsAre("missing.veka", one, two, "-"));
}

TEST_F(PartFiles, ThatAreNotThereAreAnError) {
    EXPECT_THAT([&] { host::ExpandDirectories({Root()}); },
                ThrowsMessage<host::SourceError>("the directory \"" + Root() + "\" holds no part data file"));
    EXPECT_THROW(host::PartFilesBelow(directory.Path() / "missing"), host::SourceError);
}

TEST_F(PartFiles, StandardInputIsNoDirectory) {
    EXPECT_TRUE(host::IsDirectoryOfFiles(Root()));
    EXPECT_FALSE(host::IsDirectoryOfFiles(Write("a.veka")));
    EXPECT_FALSE(host::IsDirectoryOfFiles("-"));
    EXPECT_FALSE(host::IsDirectoryOfFiles(""));
}

}  // namespace
