#include "qt/QtUserInterface.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <clocale>
#include <fstream>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "model/CVEKA_Manager.h"
#include "parser/CInvalidAccessException.h"
#include "support/ImportSetup.h"
#include "support/QtScript.h"

namespace {

using testing::StrEq;

constexpr const char* kPath = "8000";
constexpr const char* kOk = "1";
constexpr const char* kCancel = "2";

/// The import dialog with real windows, operated with real buttons and keys.
class QtImportDialog : public test::QtTest, protected test::ImportSetup {
protected:
    QtImportDialog() : ImportSetup("a part \xC3\xA4\xFF.veka", "A") {}
    /// Expects a message with a text, and answers it with a button.
    void Answer(const std::string& text, QMessageBox::StandardButton button) {
        script.Then([text, button](QWidget& window) {
            auto* box = qobject_cast<QMessageBox*>(&window);
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text().toStdString(), text);
            test::QtScript::Answer(window, button);
        });
    }
    static QLineEdit* Edit(QWidget& window, const char* id) {
        return test::QtScript::Child<QLineEdit>(window, id);
    }
    static void Type(QWidget& window, const char* id, const CString& text) {
        QTest::keyClicks(Edit(window, id), QString::fromUtf8(text.GetString()));
    }
};

TEST_F(QtImportDialog, ImportsWithTheMouseAlone) {
    script.Click("8001")
        .Then([&](QWidget& picker) {
            auto* field = test::QtScript::Child<QLineEdit>(picker, "directory");
            QTest::mouseClick(field, Qt::LeftButton);
            field->setText(QString::fromStdString(directory.Path().string()));
            QTest::keyClick(field, Qt::Key_Return);
            auto* entries = test::QtScript::Child<QListWidget>(picker, "entries");
            ASSERT_EQ(entries->count(), 2);
            const QRect place = entries->visualItemRect(entries->item(1));
            QTest::mouseClick(entries->viewport(), Qt::LeftButton, {}, place.center());
            test::QtScript::Click(picker, "choose");
        })
        .Click("8006")
        .Then([&](QWidget& picker) {
            auto* field = test::QtScript::Child<QLineEdit>(picker, "directory");
            QTest::mouseClick(field, Qt::LeftButton);
            field->setText(QString::fromStdString(directory.Path().string()));
            QTest::keyClick(field, Qt::Key_Return);
            auto* entries = test::QtScript::Child<QListWidget>(picker, "entries");
            ASSERT_EQ(entries->count(), 1);
            QTest::mouseClick(entries->viewport(), Qt::LeftButton, {},
                              entries->visualItemRect(entries->item(0)).center());
            test::QtScript::Click(picker, "choose");
        })
        .Click(kOk);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file) << "a blank, a letter and a byte that is not UTF-8";
    EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
    EXPECT_EQ(MPN(dialog), "A");
}

TEST_F(QtImportDialog, ImportsWithTheKeyboardAlone) {
    const CString plain = directory.Write("plain.veka", "(VEK (PARTGENERAL (MPN B)))");
    const auto tab = [](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Tab); };
    script.Then([&](QWidget& window) {
        tab(window);
        tab(window);
        QTest::keyClicks(window.focusWidget(), plain.GetString());
        tab(window);
        tab(window);
        QTest::keyClicks(window.focusWidget(), library.GetString());
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "B");
}

TEST_F(QtImportDialog, APathOfAnyBytesSurvivesTheEditField) {
    Fill(dialog);
    script.Click(kOk);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
    EXPECT_EQ(MPN(dialog), "A");
}

TEST_F(QtImportDialog, AnEmptiedFieldKeepsItsLastTextForOk) {
    const CString single = directory.Write("x", "(VEK (PARTGENERAL (MPN X)))");
    dialog.SetDefaultPartLibDir(library);
    script.Then([&](QWidget& window) {
        Type(window, kPath, single);
        Edit(window, kPath)->selectAll();
        QTest::keyClick(Edit(window, kPath), Qt::Key_Delete);
        EXPECT_EQ(Edit(window, kPath)->text(), "");
        test::QtScript::Click(window, kOk);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "X");
    EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "") << "the end with OK reads the controls once more";
}

TEST_F(QtImportDialog, DeletingLetterByLetterLeavesTheFirstLetter) {
    dialog.SetDefaultPartLibDir(library);
    script.Then([&](QWidget& window) {
        Type(window, kPath, "ab");
        for (int i = 0; i < 2; ++i) QTest::keyClick(Edit(window, kPath), Qt::Key_Backspace);
        EXPECT_EQ(dialog.GetVEKAsciiFilePath(), "a");
        test::QtScript::Click(window, kCancel);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, AMissingFileIsToldAndEndsWithCancel) {
    dialog.SetDefaultPartLibDir(library);
    script.Click(kOk);
    Answer("VEK Ascii File Path Fail!", QMessageBox::Ok);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, AMissingXmlFileIsToldAndEndsWithCancel) {
    test::KindDialog xml(1);
    script.Click(kOk);
    Answer("VEK XML File Path Fail!", QMessageBox::Ok);
    EXPECT_EQ(xml.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, AMissingDirectoryIsToldAndEndsWithCancel) {
    dialog.SetVEKAsciiFilePath(file);
    script.Click(kOk);
    Answer("VEK Library Directory Not Exist!", QMessageBox::Ok);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, NoLeavesItOpenAndYesOverwrites) {
    MakeTarget();
    Fill(dialog);
    const std::string question =
        "\"" + std::string(library.View()) + "/A\"is already exist. Do you want to overwrite";
    const CVEK_AsciiParser* first = nullptr;
    script.Click(kOk);
    Answer(question, QMessageBox::No);
    script.Then([&](QWidget& window) {
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(MPN(dialog), "A");
        first = dialog.GetParser();
        directory.Write("a part \xC3\xA4\xFF.veka", "(VEK (PARTGENERAL (MPN A) (UNIT NEW)))");
        test::QtScript::Click(window, kOk);
    });
    Answer(question, QMessageBox::Yes);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetParser()->GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetUnit(), "NEW");
}

TEST_F(QtImportDialog, EscapeAtTheQuestionIsNo) {
    MakeTarget();
    Fill(dialog);
    script.Click(kOk).Then([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }).Click(kCancel);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, CancelInAPickerChangesNothing) {
    Fill(dialog);
    script.Click("8001").Click("cancel").Click("8006").Then(
        [](QWidget& picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
    script.Then([&](QWidget& window) {
        EXPECT_EQ(dialog.GetVEKAsciiFilePath(), file);
        EXPECT_EQ(dialog.GetDefaultPartLibDir(), library);
        test::QtScript::Click(window, kCancel);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, TheXmlFormHasItsOwnCaptionsAndFileType) {
    test::KindDialog xml(1);
    script
        .Then([](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), "Import XML Part Data File");
            EXPECT_EQ(test::QtScript::Child<QLabel>(window, "8003")->text(), "XML Part Data File");
            test::QtScript::Click(window, "8001");
        })
        .Then([](QWidget& picker) {
            EXPECT_EQ(picker.windowTitle(), "VEKX File");
            test::QtScript::Click(picker, "cancel");
        })
        .Click(kCancel);
    EXPECT_EQ(xml.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, ABraceErrorIsToldAndTheImportGoesOn) {
    file = directory.Write("odd.veka", "(VEK (PARTGENERAL (MPN A)))\n)(");
    Fill(dialog);
    script.Click(kOk);
    Answer("Parser meet unexpected Brace Counting Number, 0 at line number 2.!", QMessageBox::Ok);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "A");
}

TEST_F(QtImportDialog, AnExceptionDuringTheImportLeavesTheLoopAndReachesTheHost) {
    file = directory.Write(
        "bad.veka",
        "(VEK (PARTGENERAL (MPN A)) (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))");
    Fill(dialog);
    script.Click(kOk);
    EXPECT_THROW(dialog.DoModal(), CInvalidAccessException);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    // It can be opened again.
    file = directory.Write("good.veka", "(VEK (PARTGENERAL (MPN B)))");
    Fill(dialog);
    script.Click(kOk);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(MPN(dialog), "B");
}

TEST_F(QtImportDialog, OpensOverTheWindowOfAHost) {
    QWidget hosts;
    hosts.show();
    veka::QtWnd parent(&hosts);
    CVEK_AsciiFile_Import_Dlg child(&parent);
    script.Then([&](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), &hosts);
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        test::QtScript::Click(window, kCancel);
    });
    EXPECT_EQ(child.DoModal(), IDCANCEL);
}

TEST_F(QtImportDialog, ATextThatLooksLikeMarkupIsShownAsItStands) {
    script.Then([](QWidget& window) {
        EXPECT_EQ(qobject_cast<QMessageBox*>(&window)->textFormat(), Qt::PlainText);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    AfxMessageBox("<b>bold</b>");
}

TEST(QtUserInterface, UsesTheApplicationOfAHost) {
    int count = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    { const veka::QtUserInterface user; }
    EXPECT_EQ(QCoreApplication::instance(), &application);
    EXPECT_TRUE(veka::HasDisplay());
}

TEST(QtUserInterface, MakesAnApplicationWhereThereIsNoneAndTakesItAway) {
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    {
        const veka::QtUserInterface user;
        EXPECT_NE(QCoreApplication::instance(), nullptr);
    }
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST(QtUserInterface, RefusesAnApplicationWithoutWindows) {
    int count = 1;
    char name[] = "host";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    EXPECT_THROW(veka::QtUserInterface(), std::logic_error);
    EXPECT_FALSE(veka::HasDisplay());
}

TEST(QtUserInterface, LeavesTheLocaleOfTheNumbersAsItWas) {
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    const veka::QtUserInterface user;
    EXPECT_THAT(std::setlocale(LC_NUMERIC, nullptr), StrEq("C"));
    unsetenv("LC_ALL");
}

TEST(QtUserInterface, TellsWhetherThereIsADisplay) {
    EXPECT_TRUE(veka::HasDisplay()) << "the tests run off screen";
    const std::string former = qgetenv("QT_QPA_PLATFORM").toStdString();
    qputenv("QT_QPA_PLATFORM", "no such platform");
    EXPECT_FALSE(veka::HasDisplay());
    qunsetenv("QT_QPA_PLATFORM");
    const QByteArray display = qgetenv("DISPLAY"), wayland = qgetenv("WAYLAND_DISPLAY");
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_FALSE(veka::HasDisplay());
    if (!display.isNull()) qputenv("DISPLAY", display);
    if (!wayland.isNull()) qputenv("WAYLAND_DISPLAY", wayland);
    qputenv("QT_QPA_PLATFORM", former.c_str());
}

}  // namespace
