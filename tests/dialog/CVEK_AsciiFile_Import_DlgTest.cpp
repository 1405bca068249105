#include "dialog/CVEK_AsciiFile_Import_Dlg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog/Messages.h"
#include "model/CVEKA_Manager.h"
#include "platform/Exceptions.h"
#include "support/ImportSetup.h"
#include "support/ScriptedUserInterface.h"

namespace {

using test::PressOk;
using test::ScriptedWindow;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTarget = "ABC&#47;1";
constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

class ImportDialog : public testing::Test, protected test::ImportSetup {
protected:
    ImportDialog() : ImportSetup("part.veka", "ABC/1") {}
    /// Opens the dialog on a file and a directory, and runs a script in it.
    INT_PTR Run(CVEK_AsciiFile_Import_Dlg& one, std::function<void(ScriptedWindow&)> script) {
        user.script = std::move(script);
        return one.DoModal();
    }

    test::ScriptedUserInterface user;
};

TEST_F(ImportDialog, StartsEmptyWithAParserOfItsOwn) {
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "");
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), "");
    ASSERT_NE(dialog.GetParser(), nullptr);
    EXPECT_NE(dialog.GetParser()->GetCVEKA_Manager(), nullptr);
}

TEST_F(ImportDialog, OpensWithItsFieldsInTheControls) {
    Fill(dialog);
    Run(dialog, [&](ScriptedWindow& window) {
        EXPECT_EQ(window.Caption(), "Import ASCII Part Data File");
        EXPECT_EQ(window.GetText(IDC_STATIC_FILE_LABEL), "ASCII Part Data File");
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), file);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_DIR_PATH), library);
    });
}

TEST_F(ImportDialog, OkImportsAndEndsWithOk) {
    Fill(dialog);
    EXPECT_EQ(Run(dialog, PressOk), IDOK);
    EXPECT_EQ(MPN(dialog), "ABC/1");
    EXPECT_EQ(dialog.GetParser()->GetVEKAsciiFilePath(), file);
    EXPECT_THAT(user.messages, IsEmpty());
    EXPECT_THAT(user.questions, IsEmpty());
}

TEST_F(ImportDialog, TypedPathsAreUsed) {
    EXPECT_EQ(Run(dialog,
                  [&](ScriptedWindow& window) {
                      window.Type(IDC_EDIT_VEK_ASCII_PATH, file.View());
                      window.Type(IDC_EDIT_VEK_DIR_PATH, library.View());
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
}

TEST_F(ImportDialog, AMissingFileEndsItWithCancel) {
    dialog.SetVEKAsciiFilePath(directory / "missing");
    dialog.SetDefaultPartLibDir(library);
    EXPECT_EQ(Run(dialog, PressOk), IDCANCEL);
    EXPECT_THAT(user.messages, ElementsAre("VEK Ascii File Path Fail!"));
}

TEST_F(ImportDialog, AnEmptyFileFieldEndsItWithCancel) {
    dialog.SetDefaultPartLibDir(library);
    EXPECT_EQ(Run(dialog, PressOk), IDCANCEL);
    EXPECT_THAT(user.messages, ElementsAre("VEK Ascii File Path Fail!"));
}

TEST_F(ImportDialog, AMissingXmlFileHasItsOwnMessage) {
    for (int kind : {1, 2, -1}) {
        user.messages.clear();
        test::KindDialog xml(kind);
        EXPECT_EQ(Run(xml, PressOk), IDCANCEL);
        EXPECT_THAT(user.messages, ElementsAre("VEK XML File Path Fail!"));
    }
}

TEST_F(ImportDialog, AMissingDirectoryEndsItWithCancel) {
    for (int kind : {0, 1}) {
        user.messages.clear();
        test::KindDialog any(kind);
        any.SetVEKAsciiFilePath(file);
        any.SetDefaultPartLibDir(directory / "missing");
        EXPECT_EQ(Run(any, PressOk), IDCANCEL);
        EXPECT_THAT(user.messages, ElementsAre("VEK Library Directory Not Exist!"));
    }
}

TEST_F(ImportDialog, TheQuestionNamesTheTargetAndHasNoBlankBehindTheQuote) {
    MakeTarget(kTarget);
    Fill(dialog);
    user.answers = {true};
    EXPECT_EQ(Run(dialog, PressOk), IDOK);
    EXPECT_THAT(user.questions, ElementsAre("\"" + std::string(library.View()) + kSeparator + kTarget +
                                            "\"is already exist. Do you want to overwrite"));
}

TEST_F(ImportDialog, NoLeavesItOpenAndOkReadsTheFileAnew) {
    MakeTarget(kTarget);
    Fill(dialog);
    user.answers = {false, true};
    EXPECT_EQ(Run(dialog,
                  [&](ScriptedWindow& window) {
                      window.Press(IDOK);
                      ASSERT_TRUE(window.IsOpen());
                      EXPECT_EQ(MPN(dialog), "ABC/1");
                      CVEKA_Manager* first = dialog.GetParser()->GetCVEKA_Manager();
                      first->GetVEK()->GetPartGeneral()->SetUnit("left over");
                      directory.Write("part.veka", "(VEK (PARTGENERAL (MPN ABC/1) (PACKAGETYPE new)))");
                      window.Press(IDOK);
                      EXPECT_FALSE(window.IsOpen());
                  }),
              IDOK);
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetPackageType(), "new");
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetUnit(), "");
    EXPECT_EQ(user.questions.size(), 2u);
}

TEST_F(ImportDialog, OkAfterNoStartsFromAnEmptyModel) {
    MakeTarget(kTarget);
    file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN ABC/1))) (NSHAPE N) (FONTS (FONT (ID 1)))");
    Fill(dialog);
    user.answers = {false, true};
    Run(dialog, [&](ScriptedWindow& window) {
        window.Press(IDOK);
        directory.Write("part.veka", "(VEK (PARTGENERAL (MPN ABC/1))) (NSHAPE N)");
        window.Press(IDOK);
    });
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetNShapeArr()->GetSize(), 1);
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetLibFonts()->GetSize(), 0);
}

TEST_F(ImportDialog, AfterNoAnotherDirectoryCanBeChosen) {
    MakeTarget(kTarget);
    Fill(dialog);
    EXPECT_EQ(Run(dialog,
                  [&](ScriptedWindow& window) {
                      window.Press(IDOK);
                      user.picked = directory / "";
                      window.Press(IDC_BTN_VEK_DIR_PATH);
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), directory / "");
}

TEST_F(ImportDialog, WithoutAPartNumberTheQuestionIsAboutTheLibraryItself) {
    file = directory.Write("part.veka", "(VEK)");
    Fill(dialog);
    user.answers = {true};
    EXPECT_EQ(Run(dialog, PressOk), IDOK);
    EXPECT_THAT(user.questions, ElementsAre("\"" + std::string(library.View()) + kSeparator +
                                            "\"is already exist. Do you want to overwrite"));
}

TEST_F(ImportDialog, AnEmptiedFieldKeepsItsLastTextForOk) {
    dialog.SetDefaultPartLibDir(library);
    EXPECT_EQ(Run(dialog,
                  [&](ScriptedWindow& window) {
                      window.Type(IDC_EDIT_VEK_ASCII_PATH, file.View());
                      window.Clear(IDC_EDIT_VEK_ASCII_PATH);
                      EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
                      window.Clear(IDC_EDIT_VEK_DIR_PATH);
                      EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(MPN(dialog), "ABC/1");
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "") << "the end with OK reads the controls once more";
}

TEST_F(ImportDialog, AnEmptiedFieldMayKeepASingleLetter) {
    dialog.SetDefaultPartLibDir(library);
    Run(dialog, [&](ScriptedWindow& window) {
        window.Type(IDC_EDIT_VEK_ASCII_PATH, "ab");
        window.SetText(IDC_EDIT_VEK_ASCII_PATH, "a");
        window.Clear(IDC_EDIT_VEK_ASCII_PATH);
        EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "a");
    });
}

TEST_F(ImportDialog, ThePickersFillTheFields) {
    Run(dialog, [&](ScriptedWindow& window) {
        window.Type(IDC_EDIT_VEK_ASCII_PATH, "typed");
        user.picked = file;
        window.Press(IDC_BTN_VEK_ASCII_PATH);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), file);
        user.picked = library;
        window.Press(IDC_BTN_VEK_DIR_PATH);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_DIR_PATH), library);
    });
    EXPECT_THAT(user.pickers,
                ElementsAre("file|VEKA File|veka|typed", "directory|VEK Library Directory||owner"));
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
}

TEST_F(ImportDialog, CancelInAPickerChangesNothing) {
    Fill(dialog);
    Run(dialog, [&](ScriptedWindow& window) {
        window.Press(IDC_BTN_VEK_ASCII_PATH);
        window.Press(IDC_BTN_VEK_DIR_PATH);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_ASCII_PATH), file);
        EXPECT_EQ(window.GetText(IDC_EDIT_VEK_DIR_PATH), library);
    });
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
}

TEST_F(ImportDialog, APickerReadsTheControlsFirst) {
    Fill(dialog);
    Run(dialog, [&](ScriptedWindow& window) {
        window.Clear(IDC_EDIT_VEK_ASCII_PATH);
        window.Press(IDC_BTN_VEK_ASCII_PATH);
        EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "");
    });
}

TEST_F(ImportDialog, TheDirectoryPickerReadsTheControlsFirst) {
    Fill(dialog);
    Run(dialog, [&](ScriptedWindow& window) {
        window.Clear(IDC_EDIT_VEK_DIR_PATH);
        window.Press(IDC_BTN_VEK_DIR_PATH);
        EXPECT_EQ(dialog.GetDefaultPartLibDir(), "");
    });
    EXPECT_THAT(user.pickers, ElementsAre("directory|VEK Library Directory||owner"));
}

TEST_F(ImportDialog, TheXmlFormReadsTheControlsOnceMoreAtItsEnd) {
    test::KindDialog xml(1);
    Fill(xml);
    EXPECT_EQ(Run(xml,
                  [&](ScriptedWindow& window) {
                      window.Clear(IDC_EDIT_VEK_DIR_PATH);
                      EXPECT_EQ(xml.GetDefaultPartLibDir(), library);
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_EQ(xml.GetDefaultPartLibDir(), "");
    EXPECT_EQ(xml.GetVEKAsciiFilePath(), file);
}

TEST(ImportDialogMessages, AFailedReadHasItsText) {
    EXPECT_EQ(CString(veka::messages::kAsciiReadFail), "VEK Ascii File read Fail!");
}

TEST_F(ImportDialog, TheXmlFormOffersItsTypeAndReadsNothing) {
    test::KindDialog xml(1);
    Fill(xml);
    const CVEK_AsciiParser* first = xml.GetParser();
    EXPECT_EQ(Run(xml,
                  [&](ScriptedWindow& window) {
                      EXPECT_EQ(window.Caption(), "Import XML Part Data File");
                      EXPECT_EQ(window.GetText(IDC_STATIC_FILE_LABEL), "XML Part Data File");
                      window.Press(IDC_BTN_VEK_ASCII_PATH);
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_THAT(user.pickers, ElementsAre("file|VEKX File|vekx|" + std::string(file.View())));
    EXPECT_EQ(xml.GetParser(), first);
    EXPECT_EQ(MPN(xml), "");
}

TEST_F(ImportDialog, AnyOtherFileKindLooksLikeAsciiAndEndsLikeXml) {
    test::KindDialog other(2);
    Fill(other);
    EXPECT_EQ(Run(other,
                  [&](ScriptedWindow& window) {
                      EXPECT_EQ(window.Caption(), "Import ASCII Part Data File");
                      window.Press(IDC_BTN_VEK_ASCII_PATH);
                      window.Press(IDOK);
                  }),
              IDOK);
    EXPECT_THAT(user.pickers, ElementsAre("file|VEKA File|veka|" + std::string(file.View())));
    EXPECT_EQ(MPN(other), "");
}

TEST_F(ImportDialog, UnbalancedLevelsPass) {
    file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A))) (PADS");
    Fill(dialog);
    EXPECT_EQ(Run(dialog, PressOk), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(ImportDialog, ABraceErrorIsShownAndPasses) {
    file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))\n)(");
    Fill(dialog);
    EXPECT_EQ(Run(dialog, PressOk), IDOK);
    EXPECT_THAT(user.messages,
                ElementsAre("Parser meet unexpected Brace Counting Number, 0 at line number 2.!"));
}

TEST_F(ImportDialog, AnExceptionOfTheImportReachesTheCaller) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    file = "/proc/self/mem";
    Fill(dialog);
    EXPECT_THROW(Run(dialog, PressOk), CFileException);
}

TEST_F(ImportDialog, TheParserCanBeTakenOut) {
    std::unique_ptr<CVEK_AsciiParser> parser;
    {
        CVEK_AsciiFile_Import_Dlg inner;
        Fill(inner);
        Run(inner, PressOk);
        parser.reset(inner.GetParser());
        inner.SetParser(nullptr);
    }
    EXPECT_EQ(parser->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN(), "ABC/1");
}

TEST_F(ImportDialog, AButtonThatItDoesNotHaveDoesNothing) {
    Fill(dialog);
    const INT_PTR result = Run(dialog, [](ScriptedWindow& window) {
        window.Press(4711);
        EXPECT_TRUE(window.IsOpen());
    });
    EXPECT_EQ(result, IDCANCEL);
}

}  // namespace
