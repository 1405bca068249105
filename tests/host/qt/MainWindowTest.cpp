#include "host/qt/MainWindow.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTreeWidget>
#include <QUrl>

#include "support/Files.h"
#include "support/QtScript.h"

namespace {

class QtMainWindow : public test::QtTest {
protected:
    QtMainWindow() {
        file = directory.Write(
            "part \xFF.veka",
            "(VEK (PARTGENERAL (UNIT MM) (MANUFACTURER Maker) (MPN A) (PARTDESC \"A part\")))");
        std::filesystem::create_directory(directory.Path() / "lib");
        library = directory / "lib";
        window.show();
    }
    std::string Text(const char* label) {
        return test::QtScript::Child<QLabel>(window, label)->text().toStdString();
    }
    QTreeWidget* Records() { return test::QtScript::Child<QTreeWidget>(window, "records"); }
    void Drop(const std::vector<QUrl>& urls) {
        QMimeData data;
        data.setUrls(QList<QUrl>(urls.begin(), urls.end()));
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
        QTest::qWait(50);
    }
    static QUrl Url(const CString& path) {
        QUrl url("file:");
        url.setPath(
            QString::fromLatin1(QByteArray(path.GetString(), path.GetLength()).toPercentEncoding("/")),
            QUrl::TolerantMode);
        return url;
    }
    bool Stored(const char* name) { return std::filesystem::exists(directory.Path() / "lib" / name); }

    test::TemporaryDirectory directory;
    CString file, library;
    QSettings settings{QString::fromStdString((directory.Path() / "settings.ini").string()),
                       QSettings::IniFormat};
    host::MainWindow window{settings};
};

TEST_F(QtMainWindow, ImportsShowsAndStoresAPart) {
    EXPECT_FALSE(window.HasPart());
    window.Suggest(file, library);
    script.Click("1");
    window.Import();
    EXPECT_TRUE(window.HasPart());
    EXPECT_EQ(Text("number"), "A");
    EXPECT_EQ(Text("identity"), "Maker, A part, 0 pins");
    EXPECT_TRUE(Stored("A"));
    EXPECT_EQ(window.statusBar()->currentMessage().toStdString(),
              "Stored as A in " + std::string(library.View()));
}

TEST_F(QtMainWindow, ShowsTheRecordsAsATree) {
    window.Suggest(file, library);
    script.Click("1");
    window.Import();
    ASSERT_EQ(Records()->topLevelItemCount(), 1) << "what holds nothing is left out";
    QTreeWidgetItem* general = Records()->topLevelItem(0)->child(0);
    EXPECT_EQ(general->text(0), "PartGeneral");
    EXPECT_TRUE(general->isExpanded());
    EXPECT_EQ(general->child(1)->text(0), "Manufacturer");
    EXPECT_EQ(general->child(1)->text(1), "Maker");
    test::QtScript::Child<QAction>(window, "showAll")->trigger();
    EXPECT_EQ(Records()->topLevelItemCount(), 8);
    QTreeWidgetItem* bom = Records()->topLevelItem(0)->child(0)->child(0);
    EXPECT_EQ(bom->text(0), "Unit");
}

TEST_F(QtMainWindow, TheActionImportsTheNextPart) {
    window.Suggest(file, library);
    script.Click("1");
    test::QtScript::Child<QAction>(window, "import")->trigger();
    EXPECT_EQ(Text("number"), "A");
    const CString other = directory.Write("other.veka", "(VEK (PARTGENERAL (MPN B)))");
    script.Then([&](QWidget& dialog) {
        auto* edit = test::QtScript::Child<QLineEdit>(dialog, "8000");
        edit->selectAll();
        QTest::keyClicks(edit, other.GetString());
        test::QtScript::Click(dialog, "1");
    });
    test::QtScript::Child<QAction>(window, "import")->trigger();
    EXPECT_EQ(Text("number"), "B");
}

TEST_F(QtMainWindow, CancelLeavesTheLastPart) {
    window.Suggest(file, library);
    script.Click("1");
    window.Import();
    script.Click("2");
    window.Import();
    EXPECT_EQ(Text("number"), "A");
}

TEST_F(QtMainWindow, RemembersTheLastFileAndDirectoryByteForByte) {
    window.Suggest(file, library);
    script.Click("1");
    window.Import();
    QSettings next(settings.fileName(), QSettings::IniFormat);
    host::MainWindow later(next);
    script.Click("1").Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::Yes); });
    later.Import();
    EXPECT_TRUE(later.HasPart());
}

TEST_F(QtMainWindow, ADroppedFileIsImportedIntoTheLastLibrary) {
    window.Suggest("", library);
    Drop({Url(file)});
    EXPECT_EQ(Text("number"), "A");
    EXPECT_TRUE(Stored("A"));
}

TEST_F(QtMainWindow, DroppedFilesAreImportedOneAfterAnother) {
    window.Suggest("", library);
    Drop({Url(file), Url(directory.Write("B.VEKA", "(VEK (PARTGENERAL (MPN B)))")),
          Url(directory / "notes.txt"), QUrl("http://elsewhere/c.veka")});
    EXPECT_EQ(Text("number"), "B");
    EXPECT_TRUE(Stored("A"));
    EXPECT_TRUE(Stored("B"));
}

TEST_F(QtMainWindow, ADroppedFileAsksBeforeAPartIsOverwritten) {
    window.Suggest("", library);
    Drop({Url(file)});
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::No); });
    directory.Write("part \xFF.veka", "(VEK (PARTGENERAL (MPN A) (UNIT new)))");
    Drop({Url(file)});
    EXPECT_EQ(Text("identity"), "Maker, A part, 0 pins") << "No leaves the part that was shown";
}

TEST_F(QtMainWindow, WithoutALibraryADroppedFileOpensTheDialog) {
    script.Then([&](QWidget& dialog) {
        QTest::keyClicks(test::QtScript::Child<QLineEdit>(dialog, "8005"), library.GetString());
        test::QtScript::Click(dialog, "1");
    });
    Drop({Url(file)});
    EXPECT_TRUE(Stored("A"));
}

TEST_F(QtMainWindow, ADragOfPartDataFilesIsWelcome) {
    for (const auto& [path, welcome] :
         std::map<CString, bool>{{file, true}, {directory / "notes.txt", false}}) {
        QMimeData data;
        data.setUrls({Url(path)});
        QDragEnterEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        EXPECT_EQ(event.isAccepted(), welcome);
    }
}

TEST_F(QtMainWindow, FailuresAreToldInASentence) {
    const auto expect = [&](const std::string& sentence) {
        script.Then([sentence](QWidget& box) {
            EXPECT_THAT(qobject_cast<QMessageBox*>(&box)->text().toStdString(), testing::HasSubstr(sentence));
            QTest::keyClick(&box, Qt::Key_Return);
        });
    };
    window.Suggest(directory.Write("none.veka", "(VEK)"), library);
    script.Click("1").Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::Yes); });
    expect("holds no part with a part number");
    window.Import();
    EXPECT_EQ(Text("number"), "No part number");

    window.Suggest(
        directory.Write("bad.veka",
                        "(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))"),
        "");
    script.Click("1");
    expect("could not be imported: The level \"MECHANICALPIN\" has no child at position 1.");
    window.Import();

    window.Suggest(file, directory.Write("no directory", ""));
    script.Click("1");
    expect("the part could not be stored: ");
    window.Import();
    EXPECT_EQ(Text("number"), "A") << "it is shown all the same";
}

}  // namespace
