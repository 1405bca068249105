// What the window shows while another program writes the library.

#include <gmock/gmock.h>
#include <unistd.h>

#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>

#include "host/SafeFiles.h"
#include "host/qt/MainWindow.h"
#include "support/Files.h"
#include "support/QtScript.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

class QtLockedLibrary : public test::QtTest {
protected:
    QtLockedLibrary() {
        std::filesystem::create_directory(directory.Path() / "lib");
        lock = std::make_unique<host::FileLock>(host::Directory(directory.Path() / "lib"), ".veka-lock",
                                                nullptr);
        window.show();
        window.Suggest(directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))"), directory / "lib");
    }
    /// The box that says who is waited for.
    QProgressDialog& Box(QWidget& waiting) {
        auto* box = qobject_cast<QProgressDialog*>(&waiting);
        if (!box) throw std::logic_error("no box of a progress");
        EXPECT_THAT(
            box->labelText().toStdString(),
            AllOf(HasSubstr("Waiting for the library \"" + (directory.Path() / "lib").string() + "\""),
                  HasSubstr("process " + std::to_string(getpid()) + " writes")));
        return *box;
    }
    std::string State() { return test::QtScript::Child<QLabel>(window, "state")->text().toStdString(); }
    bool Stored() const { return std::filesystem::exists(directory.Path() / "lib/A"); }

    test::TemporaryDirectory directory;
    std::unique_ptr<host::FileLock> lock;
    QSettings settings{QString::fromStdString((directory.Path() / "settings.ini").string()),
                       QSettings::IniFormat};
    host::MainWindow window{settings};
};

TEST_F(QtLockedLibrary, IsWaitedForWithABoxThatNamesTheOtherProgram) {
    script.Click("1").Then([&](QWidget& waiting) {
        Box(waiting);
        lock.reset();
    });
    window.Import();
    EXPECT_TRUE(Stored());
    EXPECT_THAT(State(), HasSubstr("Stored as A"));
}

TEST_F(QtLockedLibrary, IsLeftAloneWhenTheUserGivesUp) {
    script.Click("1")
        .Then([&](QWidget& waiting) {
            auto* giveUp = Box(waiting).findChild<QPushButton*>();
            ASSERT_TRUE(giveUp);
            EXPECT_EQ(giveUp->text(), "Give Up");
            QTest::mouseClick(giveUp, Qt::LeftButton);
        })
        .Then([](QWidget& message) {
            EXPECT_THAT(qobject_cast<QMessageBox*>(&message)->text().toStdString(),
                        HasSubstr("is in use by"));
            test::QtScript::Answer(message, QMessageBox::Ok);
        });
    window.Import();
    EXPECT_FALSE(Stored());
    EXPECT_THAT(State(), HasSubstr("is in use by"));
    EXPECT_TRUE(window.HasPart()) << "the part stays in the window";
    lock.reset();
    script.Click("1");
    window.Import();
    EXPECT_TRUE(Stored());
}

}  // namespace
