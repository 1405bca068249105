#include "host/ImportedPart.h"

#include <gtest/gtest.h>

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

}  // namespace
