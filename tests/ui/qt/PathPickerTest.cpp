#include "qt/PathPicker.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>

#include "qt/Text.h"
#include "support/Files.h"
#include "support/QtScript.h"

namespace {

using testing::ElementsAre;
using veka::PathPicker;

class QtPathPicker : public test::QtTest {
protected:
    QtPathPicker() {
        for (const char* name : {"b.veka", "A.VEKA", "other.txt", ".hidden.veka"}) parts.Write(name, "");
        std::filesystem::create_directory(parts.Path() / "sub");
        parts.Write("sub/c.veka", "");
        parts.Write("latin \xE4.veka", "");
    }
    static PathPicker::Wanted AFile() { return PathPicker::File("VEKA File", "veka"); }
    static PathPicker::Wanted ADirectory() { return PathPicker::Directory("VEK Library Directory"); }
    static QLineEdit* Name(QWidget& picker) { return test::QtScript::Child<QLineEdit>(picker, "name"); }
    static QListWidget* Entries(QWidget& picker) {
        return test::QtScript::Child<QListWidget>(picker, "entries");
    }
    static std::vector<std::string> Shown(QWidget& picker) {
        std::vector<std::string> names;
        for (int i = 0; i < Entries(picker)->count(); ++i)
            names.emplace_back(veka::FromQString(Entries(picker)->item(i)->text()));
        return names;
    }
    static void Name(QWidget& picker, const char* name) {
        Name(picker)->setText(veka::ToQString(name));
        QTest::keyClick(Name(picker), Qt::Key_Return);
    }

    test::TemporaryDirectory parts;
};

TEST_F(QtPathPicker, ShowsDirectoriesAndThenTheFilesOfTheType) {
    PathPicker picker(AFile(), parts / "", nullptr);
    EXPECT_THAT(Shown(picker), ElementsAre("sub", "A.VEKA", "b.veka", "latin \xE4.veka"));
    auto* types = test::QtScript::Child<QComboBox>(picker, "type");
    EXPECT_EQ(types->itemText(0), "VEKA File (*.veka)");
    types->setCurrentIndex(1);
    EXPECT_THAT(Shown(picker), ElementsAre("sub", "A.VEKA", "b.veka", "latin \xE4.veka", "other.txt"));
}

TEST_F(QtPathPicker, ShowsDirectoriesAloneWhereOneIsWanted) {
    PathPicker picker(ADirectory(), parts / "", nullptr);
    EXPECT_THAT(Shown(picker), ElementsAre("sub"));
    EXPECT_EQ(picker.windowTitle(), "VEK Library Directory");
}

TEST_F(QtPathPicker, ANameThatIsNotUtf8IsChosenByteForByte) {
    script.Then([&](QWidget& picker) {
        Entries(picker)->setCurrentRow(3);
        test::QtScript::Click(picker, "choose");
    });
    EXPECT_EQ(veka::PickPath(AFile(), parts / "", nullptr), parts / "latin \xE4.veka");
}

TEST_F(QtPathPicker, ADoubleClickEntersADirectoryAndChoosesAFile) {
    const auto doubleClick = [](QWidget& picker, int row) {
        const QPoint place = Entries(picker)->visualItemRect(Entries(picker)->item(row)).center();
        QTest::mouseClick(Entries(picker)->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Entries(picker)->viewport(), Qt::LeftButton, {}, place);
    };
    script
        .Then([&](QWidget& picker) {
            doubleClick(picker, 0);
            EXPECT_THAT(Shown(picker), ElementsAre("c.veka"));
        })
        .Then([&](QWidget& picker) { doubleClick(picker, 0); });
    EXPECT_EQ(veka::PickPath(AFile(), parts / "", nullptr), parts / "sub/c.veka");
}

TEST_F(QtPathPicker, OpensAtTheCurrentFileWithItsName) {
    PathPicker picker(AFile(), parts / "b.veka", nullptr);
    EXPECT_EQ(Name(picker)->text(), "b.veka");
    EXPECT_EQ(test::QtScript::Child<QLineEdit>(picker, "directory")->text().toStdString(),
              parts.Path().string());
}

TEST_F(QtPathPicker, OpensAboveADirectoryThatIsGone) {
    PathPicker picker(ADirectory(), parts / "gone/further", nullptr);
    EXPECT_EQ(test::QtScript::Child<QLineEdit>(picker, "directory")->text().toStdString(),
              parts.Path().string());
}

TEST_F(QtPathPicker, OpensInTheWorkingDirectoryWithoutAPath) {
    PathPicker picker(AFile(), "", nullptr);
    EXPECT_EQ(test::QtScript::Child<QLineEdit>(picker, "directory")->text(), QDir::currentPath());
}

TEST_F(QtPathPicker, ATypedNameMayLackTheExtensionAndLeadAway) {
    for (const auto& [name, path] : std::map<const char*, const char*>{{"b", "b.veka"},
                                                                       {"sub/c", "sub/c.veka"},
                                                                       {"other.txt", "other.txt"},
                                                                       {"sub/../b.veka", "b.veka"}}) {
        script.Then([name = name](QWidget& picker) { Name(picker, name); });
        EXPECT_EQ(veka::PickPath(AFile(), parts / "", nullptr), parts / path);
    }
}

TEST_F(QtPathPicker, ATypedDirectoryIsEnteredWhereAFileIsWanted) {
    script.Then([&](QWidget& picker) { Name(picker, "sub"); }).Then([&](QWidget& picker) {
        EXPECT_THAT(Shown(picker), ElementsAre("c.veka"));
        Name(picker, "");
        EXPECT_TRUE(picker.isVisible()) << "no name, no choice";
        test::QtScript::Click(picker, "up");
        EXPECT_EQ(Shown(picker).size(), 4u);
        test::QtScript::Click(picker, "home");
        EXPECT_EQ(test::QtScript::Child<QLineEdit>(picker, "directory")->text(), QDir::homePath());
        test::QtScript::Click(picker, "cancel");
    });
    EXPECT_EQ(veka::PickPath(AFile(), parts / "", nullptr), "");
}

TEST_F(QtPathPicker, WhatIsNotThereIsToldAndCannotBeChosen) {
    const auto confirm = [](QWidget& window) {
        EXPECT_EQ(qobject_cast<QMessageBox*>(&window)->text(), "There is no file \"gone\".");
        QTest::keyClick(&window, Qt::Key_Return);
    };
    script.Then([&](QWidget& picker) { Name(picker, "gone"); }).Then(confirm).Click("cancel");
    EXPECT_EQ(veka::PickPath(AFile(), parts / "", nullptr), "");
    script.Then([&](QWidget& picker) { Name(picker, "gone"); })
        .Then([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); })
        .Then([&](QWidget& picker) {
            auto* field = test::QtScript::Child<QLineEdit>(picker, "directory");
            field->setFocus();
            field->setText("gone");
            QTest::keyClick(field, Qt::Key_Return);
        })
        .Then([](QWidget& window) {
            EXPECT_EQ(qobject_cast<QMessageBox*>(&window)->text(), "There is no directory \"gone\".");
            QTest::keyClick(&window, Qt::Key_Return);
        })
        .Click("cancel");
    EXPECT_EQ(veka::PickPath(ADirectory(), parts / "", nullptr), "");
}

TEST_F(QtPathPicker, TheDirectoryItselfIsChosenWithoutAName) {
    script.Click("choose");
    EXPECT_EQ(veka::PickPath(ADirectory(), parts / "sub", nullptr), parts / "sub");
}

TEST_F(QtPathPicker, ANamedDirectoryIsChosen) {
    script.Then([&](QWidget& picker) { Name(picker, "sub"); });
    EXPECT_EQ(veka::PickPath(ADirectory(), parts / "", nullptr), parts / "sub");
}

TEST_F(QtPathPicker, ADirectoryCanBeMade) {
    script
        .Then([&](QWidget& picker) {
            Name(picker)->setText("sub/new");
            test::QtScript::Click(picker, "make");
            Name(picker)->setText("no/way");
            test::QtScript::Click(picker, "make");
        })
        .Then([](QWidget& window) {
            EXPECT_THAT(qobject_cast<QMessageBox*>(&window)->text().toStdString(),
                        testing::StartsWith("The directory \"no/way\" cannot be made: "));
            QTest::keyClick(&window, Qt::Key_Return);
        })
        .Then([&](QWidget& picker) {
            Name(picker)->clear();
            test::QtScript::Click(picker, "choose");
        });
    EXPECT_EQ(veka::PickPath(ADirectory(), parts / "", nullptr), parts / "sub/new");
    EXPECT_TRUE(std::filesystem::is_directory(parts.Path() / "sub/new"));
}

TEST_F(QtPathPicker, ADirectoryThatCannotBeReadIsEmpty) {
    PathPicker picker(AFile(), "/proc/self/fdinfo/none", nullptr);
    EXPECT_TRUE(picker.Chosen().IsEmpty());
}

}  // namespace
