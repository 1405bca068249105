#include "host/ImportDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "dialog/ImportDialogTemplate.h"
#include "support/Files.h"
#include "support/ScriptedUserInterface.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ImportDialog : public testing::Test {
protected:
    ImportDialog() { std::filesystem::create_directory(directory.Path() / "lib"); }
    /// Presses OK in the dialog, with a file and a library filled in.
    std::optional<host::DialogChoice> ChooseWithOk(const CString& path, const CString& libraryPath) {
        user.script = [this](test::ScriptedWindow& window) {
            test::PressOk(window);
            stayedOpen = window.IsOpen();
        };
        return host::RunImportDialog(path, libraryPath);
    }

    test::TemporaryDirectory directory;
    test::ScriptedUserInterface user;
    CString library = directory / "lib";
    CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A/B)))");
    bool stayedOpen = false;
};

TEST_F(ImportDialog, GivesThePartThatTheUserChose) {
    const auto choice = ChooseWithOk(file, library);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->part.Mpn(), "A/B");
    EXPECT_EQ(choice->part.Name(), "A&#47;B");
    EXPECT_EQ(choice->part.file, file);
    EXPECT_EQ(choice->part.content.bytes, "(VEK (PARTGENERAL (MPN A/B)))");
    EXPECT_EQ(choice->library, library);
    EXPECT_EQ(choice->existing, host::Existing::Keep);
    EXPECT_EQ(host::Store(choice->part, choice->library, choice->existing), host::Outcome::New);
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / "lib/A&#47;B/part.veka"));
}

TEST_F(ImportDialog, IsNothingAfterCancel) {
    EXPECT_FALSE(host::RunImportDialog(file, library));
}

TEST_F(ImportDialog, KnowsItsFileAndLibraryThoughTheFieldsWereEmptied) {
    user.script = [](test::ScriptedWindow& window) {
        window.Clear(IDC_EDIT_VEK_ASCII_PATH);
        window.Clear(IDC_EDIT_VEK_DIR_PATH);
        window.Press(IDOK);
    };
    const auto choice = host::RunImportDialog(file, library);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->part.file, file);
    EXPECT_EQ(choice->library, library);
}

TEST_F(ImportDialog, AFileThatHoldsNoPartIsToldBeforeAnyQuestion) {
    EXPECT_FALSE(ChooseWithOk(directory.Write("none.veka", "(VEK)"), library));
    EXPECT_TRUE(stayedOpen);
    EXPECT_THAT(user.messages, ElementsAre(HasSubstr("none.veka\" holds no part with a part number")));
    EXPECT_THAT(user.questions, IsEmpty());
}

TEST_F(ImportDialog, AFileThatCannotBeReadIsToldAndTheDialogStaysOpen) {
    EXPECT_FALSE(ChooseWithOk(library, library));
    EXPECT_TRUE(stayedOpen);
    EXPECT_THAT(user.messages, ElementsAre(HasSubstr("is a directory, and no regular file")));
#ifndef _WIN32
    ASSERT_EQ(mkfifo((directory / "pipe").GetString(), 0666), 0);
    EXPECT_FALSE(ChooseWithOk(directory / "pipe", library));
    EXPECT_THAT(user.messages, ElementsAre(testing::_, HasSubstr("is a pipe, and no regular file")));
#endif
}

TEST_F(ImportDialog, AMissingFileIsTheDialogsOwnAffair) {
    EXPECT_FALSE(ChooseWithOk(directory / "missing", library));
    EXPECT_FALSE(stayedOpen);
    EXPECT_THAT(user.messages, ElementsAre("VEK Ascii File Path Fail!"));
}

TEST_F(ImportDialog, AMissingLibraryCanBeMade) {
    user.answers = {true};
    EXPECT_TRUE(ChooseWithOk(file, directory / "new/inner"));
    EXPECT_THAT(user.questions, ElementsAre(HasSubstr("inner\". Make it?")));
    EXPECT_TRUE(std::filesystem::is_directory(directory.Path() / "new/inner"));
    user.answers = {false};
    EXPECT_FALSE(ChooseWithOk(file, directory / "other"));
    EXPECT_TRUE(stayedOpen);
    EXPECT_FALSE(std::filesystem::exists(directory.Path() / "other"));
    user.answers = {true};
    EXPECT_FALSE(ChooseWithOk(file, file + "/below"));
    EXPECT_THAT(user.messages, ElementsAre(HasSubstr("cannot be made")));
}

TEST_F(ImportDialog, APartThatIsThereIsReplacedOnlyIfTheUserWasAsked) {
    host::Store(host::ReadPart(file), library, host::Existing::Keep);
    user.answers = {true};
    const auto choice = ChooseWithOk(file, library);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->existing, host::Existing::Replace);
    user.questions.clear();
    user.answers = {false};
    EXPECT_FALSE(ChooseWithOk(file, library));
    EXPECT_THAT(user.questions, ElementsAre(HasSubstr("is already exist. Do you want to overwrite")));
}

TEST_F(ImportDialog, APartThatChangesWhileTheUserIsAskedIsRefused) {
    user.script = test::PressOk;
    user.beforeAnswer = [&] { directory.Write("part.veka", "(VEK (PARTGENERAL (MPN B)))"); };
    directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))");
    user.answers = {true};
    EXPECT_THAT([&] { host::RunImportDialog(file, directory / "new"); },
                testing::ThrowsMessage<host::SourceError>(HasSubstr("changed while it was imported")));
}

TEST_F(ImportDialog, APartStaysInItsLibraryWhateverItsNumberIs) {
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
    std::set<std::string> names;
    for (const std::string& number : numbers) {
        const CString source = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN \"" + number + "\")))");
        const host::ImportedPart part = host::ReadPart(source);
        const std::string name = part.Name();
        ASSERT_EQ(host::Store(part, library, host::Existing::Keep), host::Outcome::New) << number;
        EXPECT_TRUE(names.insert(name).second) << number << " takes the place of another part";
        EXPECT_LE(name.size(), 255u);
        EXPECT_EQ(name.find_first_of("/\\:"), std::string::npos) << name;
        EXPECT_TRUE(std::filesystem::exists(directory.Path() / "lib" / name / "part.veka")) << name;
    }
    names.insert(".veka-lock");
    std::set<std::string> there;
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path() / "lib"))
        there.emplace(veka::FromPath(entry.path().filename()).View());
    EXPECT_EQ(there, names);
    EXPECT_EQ(directory.Names(), (std::vector<std::string>{"lib", "part.veka"})) << "nothing beside it";
}

}  // namespace
