#include "files/Paths.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Files.h"

namespace {

using veka::ToPath;

TEST(Paths, KeepAllBytes) {
    const CString path("/tmp/\xC3\xA4 \xFF.veka");
    EXPECT_EQ(veka::FromPath(ToPath(path)), path);
}

TEST(Paths, FilesAndDirectoriesExist) {
    const test::TemporaryDirectory directory;
    const auto file = ToPath(directory.Write("file", ""));
    EXPECT_TRUE(veka::Exists(file));
    EXPECT_FALSE(veka::IsDirectory(file));
    EXPECT_TRUE(veka::Exists(directory.Path()));
    EXPECT_TRUE(veka::IsDirectory(directory.Path()));
    EXPECT_FALSE(veka::Exists(directory.Path() / "missing"));
    EXPECT_FALSE(veka::IsDirectory(directory.Path() / "missing"));
    EXPECT_FALSE(veka::Exists(""));
    EXPECT_FALSE(veka::Exists(file / "below"));
}

TEST(Paths, AShortPathStandsAsItIs) {
    for (const char* path : {"", "a", "../a", "C:a", "C:\\a", "\\\\server\\share\\a", "a/"})
        EXPECT_EQ(veka::FromPath(ToPath(path)), path);
}

TEST(Paths, ALongPathIsOneThatEveryFunctionTakes) {
    const std::string name(300, 'x');
    const auto native = [](const std::string& path) {
        return std::string(veka::FromPath(ToPath(CString(path))).View());
    };
#ifdef _WIN32
    EXPECT_EQ(native("C:\\" + name), "\\\\?\\C:\\" + name);
    EXPECT_EQ(native("C:/a/../" + name), "\\\\?\\C:\\" + name);
    EXPECT_EQ(native("\\\\server\\share\\" + name), "\\\\?\\UNC\\server\\share\\" + name);
    EXPECT_EQ(native("\\\\?\\C:\\" + name), "\\\\?\\C:\\" + name) << "it is one already";
    for (const std::string front : {"", "C:"}) {
        const std::string path = native(front + name);
        EXPECT_TRUE(path.starts_with("\\\\?\\")) << path;
        EXPECT_TRUE(path.ends_with("\\" + name)) << "it stands in the drive's own directory";
    }
#else
    for (const std::string front : {"", "/", "C:", "\\\\server\\share\\"})
        EXPECT_EQ(native(front + name), front + name);
#endif
}

}  // namespace
