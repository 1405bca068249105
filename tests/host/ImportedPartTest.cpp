#include "host/ImportedPart.h"

#include <gtest/gtest.h>

#include <set>

#include "dialog/ImportDialogTemplate.h"
#include "support/Files.h"
#include "support/ScriptedUserInterface.h"

namespace {

class ImportedPart : public testing::Test {
protected:
    test::TemporaryDirectory directory;
    test::ScriptedUserInterface user;
    CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A/B)))");
};

TEST_F(ImportedPart, OutlivesTheDialog) {
    user.script = [](test::ScriptedWindow& window) { window.Click(IDOK); };
    const std::optional<host::ImportedPart> part = host::RunImportDialog(file, directory / "");
    ASSERT_TRUE(part);
    EXPECT_EQ(part->Mpn(), "A/B");
    EXPECT_EQ(part->file, file);
    EXPECT_EQ(host::Store(*part), "A&#47;B");
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / "A&#47;B/part.veka"));
}

TEST_F(ImportedPart, IsNothingAfterCancel) {
    EXPECT_FALSE(host::RunImportDialog(file, directory / ""));
}

TEST_F(ImportedPart, KnowsItsFileThoughTheFieldWasEmptied) {
    user.script = [](test::ScriptedWindow& window) {
        window.Clear(IDC_EDIT_VEK_ASCII_PATH);
        window.Click(IDOK);
    };
    const std::optional<host::ImportedPart> part = host::RunImportDialog(file, directory / "");
    ASSERT_TRUE(part);
    EXPECT_EQ(part->file, file);
}

TEST_F(ImportedPart, WithoutANumberHasNoPlaceInALibrary) {
    user.script = [](test::ScriptedWindow& window) { window.Click(IDOK); };
    user.answers = {true};
    const std::optional<host::ImportedPart> part =
        host::RunImportDialog(directory.Write("none.veka", "(VEK)"), directory / "");
    ASSERT_TRUE(part);
    EXPECT_THROW(host::Store(*part), host::NoPartNumber);
}

TEST_F(ImportedPart, StaysInItsLibraryWhateverItsNumberIs) {
    std::filesystem::create_directory(directory.Path() / "library");
    const CString library = directory / "library";
    std::string allBytes;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '"' && byte != '\n' && byte != '\r') allBytes += static_cast<char>(byte);
    const std::vector<std::string> numbers{std::string(300, 'x'),
                                           std::string(5000, '/'),
                                           ".",
                                           "..",
                                           "../..",
                                           "/",
                                           "/etc/passwd",
                                           "a/../../b",
                                           "C:\\Windows",
                                           "CON",
                                           "nul.txt",
                                           "LPT1",
                                           ".veka-lock",
                                           ".veka-old-x",
                                           "-rf",
                                           "a\x01\x02\x1b[2J",
                                           "name ",
                                           "name.",
                                           "\xff\xfe\xc0\xaf",
                                           allBytes};
    user.script = [](test::ScriptedWindow& window) { window.Click(IDOK); };
    std::set<std::string> names;
    for (const std::string& number : numbers) {
        const CString source = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN \"" + number + "\")))");
        const std::optional<host::ImportedPart> part = host::RunImportDialog(source, library);
        ASSERT_TRUE(part) << number;
        const std::string name(host::Store(*part).View());
        EXPECT_TRUE(names.insert(name).second) << number << " takes the place of another part";
        EXPECT_LE(name.size(), 255u);
        EXPECT_EQ(name.find_first_of("/\\:"), std::string::npos) << name;
        EXPECT_TRUE(std::filesystem::exists(directory.Path() / "library" / name / "part.veka")) << name;
    }
    names.insert(".veka-lock");
    std::set<std::string> there;
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path() / "library"))
        there.emplace(veka::FromPath(entry.path().filename()).View());
    EXPECT_EQ(there, names);
    EXPECT_EQ(directory.Names(), (std::vector<std::string>{"library", "part.veka"})) << "nothing beside it";
}

}  // namespace
