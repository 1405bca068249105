#include "console/ConsoleUserInterface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "model/CVEKA_Manager.h"
#include "support/Files.h"

namespace {

class Console : public testing::Test {
protected:
    ~Console() override { veka::InstallUserInterface(nullptr); }
    veka::ConsoleUserInterface& Input(const std::string& text) {
        in.clear();
        in.str(text);
        return user;
    }

    std::istringstream in;
    std::ostringstream out;
    veka::ConsoleUserInterface user{in, out};
};

TEST_F(Console, ShowsMessages) {
    Input("").ShowMessage("hello");
    EXPECT_EQ(out.str(), "hello\n");
}

TEST_F(Console, AsksUntilTheAnswerIsYesOrNo) {
    EXPECT_TRUE(Input("perhaps\n\n Yes \n").AskYesNo("sure?"));
    EXPECT_FALSE(Input("n\r\n").AskYesNo("sure?"));
    EXPECT_TRUE(Input("y").AskYesNo("sure?"));
}

TEST_F(Console, AnswersNoAtTheEndOfTheInput) {
    EXPECT_FALSE(Input("").AskYesNo("sure?"));
    EXPECT_FALSE(Input("what").AskYesNo("sure?"));
}

TEST_F(Console, PicksWhatIsTyped) {
    EXPECT_EQ(Input("a file \n").PickFile("VEKA File", "veka", "now", nullptr), "a file ");
    EXPECT_EQ(out.str(), "VEKA File (*.veka) [now]: ");
    EXPECT_EQ(Input("dir\n").PickDirectory("title", "", nullptr), "dir");
    EXPECT_EQ(Input("").PickFile("VEKA File", "veka", "now", nullptr), "");
    EXPECT_EQ(Input("").PickDirectory("title", "now", nullptr), "");
}

TEST_F(Console, NoTextControlsTheTerminal) {
    const std::string evil = "\x1B[2J\x9B";
    Input("y\n\n\n").ShowMessage(CString(evil));
    user.AskYesNo(CString(evil));
    user.PickFile(CString(evil), "veka", CString(evil), nullptr);
    user.PickDirectory(CString(evil), CString(evil), nullptr);
    EXPECT_EQ(out.str().find_first_of("\x1B\x9B"), std::string::npos) << out.str();
}

TEST_F(Console, RunsTheImportDialog) {
    const test::TemporaryDirectory directory;
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))");
    Input(std::string(file.View()) + "\n" + directory.Path().string() + "\n");
    veka::InstallUserInterface(&user);
    CVEK_AsciiFile_Import_Dlg dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN(), "A");
    EXPECT_EQ(out.str(), "Import ASCII Part Data File\nASCII Part Data File: Part Library Directory: ");
}

TEST_F(Console, KeepsWhatTheDialogWasOpenedWithOnEmptyAnswers) {
    const test::TemporaryDirectory directory;
    CVEK_AsciiFile_Import_Dlg dialog;
    dialog.SetVEKAsciiFilePath(directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))"));
    dialog.SetDefaultPartLibDir(CString(directory.Path().string()));
    Input("\n\n");
    veka::InstallUserInterface(&user);
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(Console, CancelsTheDialogAtTheEndOfTheInput) {
    Input("");
    veka::InstallUserInterface(&user);
    CVEK_AsciiFile_Import_Dlg dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(Console, AsksAgainAfterNo) {
    const test::TemporaryDirectory directory;
    std::filesystem::create_directory(directory.Path() / "A");
    CVEK_AsciiFile_Import_Dlg dialog;
    dialog.SetVEKAsciiFilePath(directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))"));
    dialog.SetDefaultPartLibDir(CString(directory.Path().string()));
    Input("\n\nn\n\n\ny\n");
    veka::InstallUserInterface(&user);
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(Console, AControlThatTheDialogLacksHasNoText) {
    class Events : public veka::DialogEvents {
        void WindowReady() noexcept override {}
        void ButtonClicked(int) noexcept override {}
        void EditChanged(int) noexcept override { ADD_FAILURE(); }
    } events;
    const veka::DialogTemplate dialog{1, "caption", 1, 1, "font", 8, {}};
    const auto window = user.MakeDialogWindow(dialog, events, nullptr);
    window->SetText(99, "x");
    EXPECT_EQ(window->GetText(99), "");
    window->SetCaption("new");
    EXPECT_EQ(window->Handle(), nullptr);
}

}  // namespace
