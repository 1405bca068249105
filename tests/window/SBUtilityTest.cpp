#include "window/SBUtility.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/Files.h"
#include "support/ScriptedUserInterface.h"
#include "window/CDialog.h"

namespace {

const SBUtility& Utility() {
    return SBUtility::GetInstance();
}

bool Exists(const CString& path) {
    return Utility().DoesFileOrDirExist(path, __FILE__, __LINE__);
}

std::string Encode(std::string_view text) {
    return std::string(Utility().EncodeEntityCode(CString(text)).View());
}

std::string Join(const char* directory, const char* name) {
    return std::string(Utility().SBPathCombine(directory, name, __FILE__, __LINE__).View());
}

TEST(SBUtility, FilesAndDirectoriesExist) {
    const test::TemporaryDirectory directory;
    EXPECT_TRUE(Exists(directory.Write("file", "")));
    EXPECT_TRUE(Exists(directory / ""));
    EXPECT_FALSE(Exists(directory / "other"));
    EXPECT_FALSE(Exists(directory / "file/below"));
}

TEST(SBUtility, AnEmptyPathDoesNotExist) {
    EXPECT_FALSE(Exists(""));
}

TEST(SBUtility, APathWithAZeroByteDoesNotExist) {
    const test::TemporaryDirectory directory;
    CString path = directory.Write("file", "");
    path.AppendChar('\0');
    EXPECT_FALSE(Exists(path));
}

TEST(SBUtility, LinksAreFollowed) {
    const test::TemporaryDirectory directory;
    directory.Write("file", "");
    std::error_code error;
    std::filesystem::create_symlink("file", directory.Path() / "link", error);
    if (error) GTEST_SKIP() << "No links can be made here.";
    std::filesystem::create_symlink("nothing", directory.Path() / "dangling");
    EXPECT_TRUE(Exists(directory / "link"));
    EXPECT_FALSE(Exists(directory / "dangling"));
}

TEST(SBUtility, SafeCharactersStandForThemselves) {
    EXPECT_EQ(Encode("AZaz09-_+"), "AZaz09-_+");
    EXPECT_EQ(Encode("LM358.A.B"), "LM358.A.B");
    EXPECT_EQ(Encode(""), "");
}

TEST(SBUtility, APointAtEitherEndIsEncoded) {
    EXPECT_EQ(Encode("."), "&#46;");
    EXPECT_EQ(Encode(".."), "&#46;&#46;");
    EXPECT_EQ(Encode(".a."), "&#46;a&#46;");
}

TEST(SBUtility, EveryOtherByteIsEncodedByItsNumber) {
    EXPECT_EQ(Encode("a/b\\c d"), "a&#47;b&#92;c&#32;d");
    EXPECT_EQ(Encode("&#47;"), "&#38;&#35;47&#59;");
    EXPECT_EQ(Encode(std::string_view("\0\x7F\xFF", 3)), "&#0;&#127;&#255;");
}

TEST(SBUtility, ReservedNamesAreEncoded) {
    EXPECT_EQ(Encode("CON"), "&#67;ON");
    EXPECT_EQ(Encode("nul"), "&#110;ul");
    EXPECT_EQ(Encode("Com1"), "&#67;om1");
    EXPECT_EQ(Encode("lpt9.part"), "&#108;pt9.part");
    EXPECT_EQ(Encode("CONN"), "CONN");
    EXPECT_EQ(Encode("COMA"), "COMA");
    EXPECT_EQ(Encode("XON1"), "XON1");
    EXPECT_EQ(Encode("A.CON"), "A.CON");
}

/// A name that ends in a hash, without it; "" for any other.
std::string WithoutHash(const std::string& name) {
    constexpr size_t kDigits = 16, kMark = 2 + kDigits + 1;
    if (name.size() < kMark) return "";
    const std::string front = name.substr(0, name.size() - kMark), mark = name.substr(front.size());
    const bool hash = mark.starts_with("&h") && mark.ends_with(';') &&
                      mark.find_first_not_of("0123456789abcdef", 2) == kMark - 1;
    return hash ? front : "";
}

TEST(SBUtility, LongNamesAreCutAndEndInAHash) {
    const std::string most(200, 'x');
    EXPECT_EQ(Encode(most), most);
    const std::string one = Encode(most + "y"), other = Encode(most + "z");
    EXPECT_EQ(one.size(), 200u);
    EXPECT_NE(one, other);
    EXPECT_EQ(WithoutHash(one), std::string(181, 'x'));
    std::string cut;
    for (int i = 0; i < 36; ++i) cut += "&#47;";
    EXPECT_EQ(WithoutHash(Encode(std::string(100, '/'))), cut) << "between two characters";
}

TEST(SBUtility, DifferentTextsHaveDifferentNames) {
    std::set<std::string> names;
    const std::string letters = "a.&#4;/C";
    size_t count = 0;
    for (char a : letters)
        for (char b : letters)
            for (char c : letters)
                for (char d : letters) {
                    names.insert(Encode(std::string{a, b, c, d}));
                    ++count;
                }
    EXPECT_EQ(names.size(), count);
}

TEST(SBUtility, PathsAreJoinedWithExactlyOneSeparator) {
#ifdef _WIN32
    const std::string separator = "\\";
    EXPECT_EQ(Join("C:\\", "part"), "C:\\part");
    EXPECT_EQ(Join("\\\\server\\share\\lib/\\", "part"), "\\\\server\\share\\lib\\part");
    EXPECT_EQ(Join("C:/lib\\", "\\part"), "C:/lib\\part");
#else
    const std::string separator = "/";
    EXPECT_EQ(Join("lib\\", "part"), "lib\\/part") << "a backslash is a letter";
#endif
    EXPECT_EQ(Join("/lib", "part"), "/lib" + separator + "part");
    EXPECT_EQ(Join("/lib/", "part"), "/lib" + separator + "part");
    EXPECT_EQ(Join("/lib//", "/part"), "/lib" + separator + "part");
    EXPECT_EQ(Join("/", "part"), separator + "part");
    EXPECT_EQ(Join("/lib", ""), "/lib" + separator);
    EXPECT_EQ(Join("/lib/", ""), "/lib" + separator);
}

TEST(SBUtility, PickersAreTheUserInterfaces) {
    test::ScriptedUserInterface user;
    user.picked = "chosen";
    CWnd parent;
    EXPECT_EQ(Utility().GetFilePathFromUser(1, "VEKA File", "veka", "", "now", &parent), "chosen");
    EXPECT_EQ(Utility().GetDirectoryFromUser("title", "now", nullptr), "chosen");
    EXPECT_THAT(user.pickers, testing::ElementsAre("file|VEKA File|veka|now", "directory|title|now"));
}

TEST(SBUtility, NothingIsPickedWithoutAUserInterface) {
    EXPECT_EQ(Utility().GetFilePathFromUser(1, "VEKA File", "veka", "", "now", nullptr), "");
    EXPECT_EQ(Utility().GetDirectoryFromUser("title", "now", nullptr), "");
}

}  // namespace
