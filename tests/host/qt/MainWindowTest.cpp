#include "host/qt/MainWindow.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTreeWidget>
#include <QUrl>
#include <QWindow>

#include "host/LibraryIndex.h"
#include "host/qt/SceneView.h"
#include "qt/Text.h"
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
    /// Drops files, and returns what the program that they come from is told to do with them.
    Qt::DropAction Drop(const std::vector<QUrl>& urls, Qt::DropActions possible = Qt::CopyAction) {
        QMimeData data;
        data.setUrls(QList<QUrl>(urls.begin(), urls.end()));
        QDragEnterEvent enter({10, 10}, possible, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent event({10, 10}, possible, &data, Qt::LeftButton, Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(&window, &event);
        QTest::qWait(50);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    /// What the list of files says about a file.
    std::string State(const CString& path) {
        const auto found = test::QtScript::Child<QTreeWidget>(window, "files")
                               ->findItems(veka::ToQString(path), Qt::MatchExactly);
        return found.isEmpty() ? "" : found[0]->text(1).toStdString();
    }
    void Trigger(const char* action) { test::QtScript::Child<QAction>(window, action)->trigger(); }
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
    EXPECT_EQ(Text("identity"), "Maker, A part");
    EXPECT_EQ(Text("pinCount"), "0 pins");
    EXPECT_TRUE(Stored("A"));
    EXPECT_EQ(Text("state"), "Stored as A in " + std::string(library.View()));
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

TEST_F(QtMainWindow, ADroppedFileIsShownAndStoredByTheButton) {
    window.Suggest("", library);
    auto* store = test::QtScript::Child<QPushButton>(window, "storeButton");
    EXPECT_FALSE(store->isVisible());
    Drop({Url(file)});
    EXPECT_EQ(Text("number"), "A");
    EXPECT_EQ(Text("state"), "Not stored");
    EXPECT_FALSE(Stored("A"));
    ASSERT_TRUE(store->isVisible());
    QTest::mouseClick(store, Qt::LeftButton);
    EXPECT_TRUE(Stored("A"));
    EXPECT_EQ(Text("state"), "Stored as A in " + std::string(library.View()));
    EXPECT_FALSE(store->isVisible());
}

TEST_F(QtMainWindow, DroppedFilesAreImportedOneAfterAnother) {
    window.Suggest("", library);
    Drop({Url(file), Url(directory.Write("B.VEKA", "(VEK (PARTGENERAL (MPN B)))")),
          Url(directory / "notes.txt"), QUrl("http://elsewhere/c.veka")});
    EXPECT_EQ(Text("number"), "B");
    EXPECT_TRUE(Stored("A"));
    EXPECT_TRUE(Stored("B"));
}

TEST_F(QtMainWindow, StoringADroppedFileAsksBeforeAPartIsOverwritten) {
    window.Suggest("", library);
    Drop({Url(file)});
    Trigger("store");
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::No); });
    directory.Write("part \xFF.veka", "(VEK (PARTGENERAL (MPN A) (UNIT new)))");
    Drop({Url(file)});
    Trigger("store");
    EXPECT_EQ(Text("identity"), "") << "the part that the question is about is shown";
    EXPECT_EQ(Text("state"), "Not stored: the library has the part already");
}

TEST_F(QtMainWindow, WithoutALibraryTheUserIsAskedForOne) {
    Drop({Url(file)});
    EXPECT_EQ(Text("number"), "A");
    script.Then([&](QWidget& picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
    Trigger("store");
    EXPECT_EQ(Text("state"), "Not stored");
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

TEST_F(QtMainWindow, ADropIsACopyAndNeverAMove) {
    window.Suggest("", library);
    EXPECT_EQ(Drop({Url(file)}, Qt::CopyAction | Qt::MoveAction), Qt::CopyAction);
    EXPECT_EQ(Drop({Url(directory.Write("B.veka", "(VEK (PARTGENERAL (MPN B)))"))}, Qt::MoveAction),
              Qt::IgnoreAction);
    EXPECT_EQ(Text("number"), "A");
}

/// Files of parts P0, P1 and so on, with a unit that makes their content another one.
std::vector<CString> WriteParts(const test::TemporaryDirectory& directory, int count,
                                const std::string& unit) {
    std::vector<CString> files;
    for (int i = 0; i < count; ++i)
        files.push_back(
            directory.Write("p" + std::to_string(i) + ".veka",
                            "(VEK (PARTGENERAL (UNIT " + unit + ") (MPN P" + std::to_string(i) + ")))"));
    return files;
}

TEST_F(QtMainWindow, ManyFilesAreImportedWithASummary) {
    window.Suggest("", library);
    std::vector<CString> files = WriteParts(directory, 5, "MM");
    files.push_back(directory.Write("none.veka", "(VEK)"));
    window.ImportFiles(files);
    EXPECT_EQ(Text("state"), "6 files: 1 refused, 5 stored");
    EXPECT_EQ(State(files[2]), "stored");
    EXPECT_THAT(State(files[5]), testing::HasSubstr("holds no part with a part number"));
    EXPECT_EQ(Text("number"), "P4");
}

TEST_F(QtMainWindow, ADroppedFolderIsImported) {
    window.Suggest("", library);
    std::filesystem::create_directories(directory.Path() / "folder/deep");
    directory.Write("folder/a.veka", "(VEK (PARTGENERAL (MPN FA)))");
    directory.Write("folder/deep/b.veka", "(VEK (PARTGENERAL (MPN FB)))");
    Drop({Url(directory / "folder")});
    EXPECT_EQ(Text("state"), "2 files: 2 stored");
    EXPECT_TRUE(Stored("FA"));
    EXPECT_TRUE(Stored("FB"));
}

TEST_F(QtMainWindow, TheLibraryIsListedAndASelectedPartIsShown) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    window.Suggest("", library);
    window.ImportFiles(WriteParts(directory, 3, "MM"));
    Trigger("showLibrary");
    auto* const parts = test::QtScript::Child<QTableView>(window, "libraryParts");
    ASSERT_EQ(parts->model()->rowCount(), 3);
    parts->selectRow(1);
    EXPECT_EQ(Text("number"), "P1");
    EXPECT_EQ(Text("state"), "Part of the library " + std::string(library.View()));
}

TEST_F(QtMainWindow, OneQuestionIsEnoughForAllFiles) {
    window.Suggest("", library);
    window.ImportFiles(WriteParts(directory, 4, "MM"));
    const std::vector<CString> files = WriteParts(directory, 4, "INCH");
    script.Then([this](QWidget& question) {
        EXPECT_EQ(Text("number"), "P0") << "the question is about the part that is shown";
        test::QtScript::Answer(question, QMessageBox::No);
    });
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::YesToAll); });
    window.ImportFiles(files);
    EXPECT_EQ(Text("state"), "4 files: 1 refused, 3 replaced");
    EXPECT_EQ(State(files[0]), "refused: \"P0\" is in the library already and was left alone");
    EXPECT_THAT(test::ReadFile(directory.Path() / "lib/P0/p0.veka"), testing::HasSubstr("MM"));
    EXPECT_THAT(test::ReadFile(directory.Path() / "lib/P3/p3.veka"), testing::HasSubstr("INCH"));
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::NoToAll); });
    window.ImportFiles(files);
    EXPECT_EQ(Text("state"), "4 files: 1 refused, 3 unchanged");
}

TEST_F(QtMainWindow, ThePartOfAQuestionCannotBeExportedWhileFilesAreImported) {
    auto* const menu = test::QtScript::Child<QMenu>(window, "export");
    const auto canExport = [menu] {
        emit menu->aboutToShow();
        return test::QtScript::Child<QAction>(*menu, "exportKiCad")->isEnabled();
    };
    window.Suggest("", library);
    window.ImportFiles(WriteParts(directory, 2, "MM"));
    EXPECT_TRUE(canExport());
    script.Then([&](QWidget& question) {
        EXPECT_FALSE(canExport());
        test::QtScript::Answer(question, QMessageBox::NoToAll);
    });
    window.ImportFiles(WriteParts(directory, 2, "INCH"));
    EXPECT_TRUE(canExport());
}

TEST_F(QtMainWindow, CancelEndsTheImportOfAllFilesAfterThoseInHand) {
    window.Suggest("", library);
    std::vector<CString> files = WriteParts(directory, 2, "MM");
    window.ImportFiles(files);
    files = WriteParts(directory, 3, "INCH");
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::Cancel); });
    window.ImportFiles(files);
    EXPECT_EQ(Text("state"), "3 files: 2 refused, 1 stored");
    EXPECT_TRUE(Stored("P2")) << "it needed no question";
}

TEST_F(QtMainWindow, ClosesAfterTheFilesInHand) {
    window.Suggest("", library);
    window.ImportFiles(WriteParts(directory, 2, "MM"));
    script.Then([this](QWidget& question) {
        window.close();
        EXPECT_TRUE(window.isVisible());
        test::QtScript::Answer(question, QMessageBox::No);
    });
    window.ImportFiles(WriteParts(directory, 2, "INCH"));
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(test::ReadFile(directory.Path() / "lib/P1/p1.veka"), testing::HasSubstr("MM"));
}

TEST_F(QtMainWindow, NoOtherImportBeginsWhileFilesAreImported) {
    window.Suggest("", library);
    window.ImportFiles(WriteParts(directory, 2, "MM"));
    script.Then([this](QWidget& question) {
        window.ImportFiles(WriteParts(directory, 2, "THIRD"));
        test::QtScript::Answer(question, QMessageBox::NoToAll);
    });
    script.Then([](QWidget& message) {
        EXPECT_THAT(qobject_cast<QMessageBox*>(&message)->text().toStdString(),
                    testing::HasSubstr("files are imported already"));
        test::QtScript::Answer(message, QMessageBox::Ok);
    });
    window.ImportFiles(WriteParts(directory, 2, "INCH"));
    EXPECT_EQ(Text("state"), "2 files: 2 refused");
}

TEST_F(QtMainWindow, OpenShowsAPartAndStoresNothing) {
    window.Suggest("", library);
    window.Open({file});
    EXPECT_EQ(Text("number"), "A");
    EXPECT_EQ(Text("state"), "Not stored");
    EXPECT_FALSE(Stored("A"));
    Trigger("store");
    EXPECT_TRUE(Stored("A"));
    EXPECT_EQ(Text("state"), "Stored as A in " + std::string(library.View()));
}

TEST_F(QtMainWindow, AReplacedPartIsRestored) {
    window.Suggest("", library);
    window.ImportFiles({directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A) (PARTDESC old)))")});
    Trigger("store");
    directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A) (PARTDESC new)))");
    script.Then([](QWidget& question) { test::QtScript::Answer(question, QMessageBox::Yes); });
    window.ImportFiles({directory / "part.veka"});
    Trigger("store");
    EXPECT_EQ(Text("identity"), "new");
    EXPECT_THAT(Text("state"), testing::EndsWith("; the part that was there can be restored"));
    Trigger("undo");
    EXPECT_EQ(Text("identity"), "old");
    EXPECT_EQ(Text("state"), "Restored A in " + std::string(library.View()));
    EXPECT_THAT(test::ReadFile(directory.Path() / "lib/A/part.veka"), testing::HasSubstr("old"));
}

TEST_F(QtMainWindow, RecentFilesAndLibrariesAreOffered) {
    window.Suggest("", library);
    window.Open({file});
    Trigger("store");
    const CString other = directory.Write("other & more.veka", "(VEK (PARTGENERAL (MPN B)))");
    window.Open({other});
    auto* menu = test::QtScript::Child<QMenu>(window, "recentFiles");
    emit menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions()[1]->trigger();
    EXPECT_EQ(Text("number"), "A") << "a name of any bytes";
    menu->actions()[0]->trigger();
    EXPECT_EQ(Text("number"), "B");
    auto* libraries = test::QtScript::Child<QMenu>(window, "recentLibraries");
    emit libraries->aboutToShow();
    ASSERT_EQ(libraries->actions().size(), 1);
    libraries->actions()[0]->trigger();
    EXPECT_TRUE(Stored("B"));
}

TEST_F(QtMainWindow, ThePinsAreATable) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    auto* pins = test::QtScript::Child<QTableWidget>(window, "pins");
    ASSERT_EQ(pins->rowCount(), 8);
    EXPECT_EQ(pins->horizontalHeaderItem(1)->text(), "Name");
    EXPECT_EQ(pins->item(3, 1)->text(), "V-");
    EXPECT_EQ(pins->item(3, 2)->text(), "POWER");
}

TEST_F(QtMainWindow, FindSelectsTheNextPlaceInTheRecordsOrThePins) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    Trigger("find");
    auto* text = test::QtScript::Child<QLineEdit>(window, "findText");
    QTest::keyClicks(text, "inb");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Records()->currentItem()->text(1), "INB+");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Records()->currentItem()->text(1), "INB-");
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Records()->currentItem()->text(1), "INB+");
    QTest::keyClick(text, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Records()->currentItem()->text(0), "PinBodyShape") << "the last place of all";
    text->clear();
    QTest::keyClicks(text, "nowhere");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Text("findAnswer"), "Not found");
    test::QtScript::Child<QTabWidget>(window, "tabs")->setCurrentIndex(1);
    text->clear();
    QTest::keyClicks(text, "outb");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Text("findAnswer"), "");
    EXPECT_EQ(test::QtScript::Child<QTableWidget>(window, "pins")->currentRow(), 6);
}

TEST_F(QtMainWindow, EmptyFieldsLeaveOpenWhatWasOpen) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    Trigger("find");
    auto* text = test::QtScript::Child<QLineEdit>(window, "findText");
    QTest::keyClicks(text, "R06X15T");
    QTest::keyClick(text, Qt::Key_Return);
    const QString name = Records()->currentItem()->text(0);
    Records()->topLevelItem(0)->setExpanded(false);
    for (int i = 0; i < 2; ++i) {
        Trigger("showAll");
        ASSERT_TRUE(Records()->currentItem());
        EXPECT_EQ(Records()->currentItem()->text(0), name);
        EXPECT_TRUE(Records()->currentItem()->text(0).endsWith("R06X15T"));
        EXPECT_TRUE(Records()->currentItem()->parent()->isExpanded());
        EXPECT_FALSE(Records()->topLevelItem(0)->isExpanded());
    }
}

TEST_F(QtMainWindow, ALibraryThatCannotBeWrittenIsNotRemembered) {
    window.Suggest(file, directory.Write("no directory", ""));
    script.Click("1").Then([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
    window.Import();
    EXPECT_THAT(Text("state"), testing::HasSubstr("could not be stored: cannot open the directory"));
    EXPECT_TRUE(settings.value("recentLibraries").toList().isEmpty());
}

TEST_F(QtMainWindow, WhatIsToComeOnceItIsShownComesOnce) {
    host::MainWindow later(settings);
    int called = 0;
    later.show();
    later.WhenShown([&] {
        EXPECT_TRUE(later.windowHandle()->isExposed());
        ++called;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return called > 0; }));
    QTest::qWait(50);
    EXPECT_EQ(called, 1);
}

TEST_F(QtMainWindow, FailuresAreToldInASentence) {
    const auto expect = [&](const std::string& sentence) {
        script.Then([sentence](QWidget& box) {
            EXPECT_THAT(qobject_cast<QMessageBox*>(&box)->text().toStdString(), testing::HasSubstr(sentence));
            QTest::keyClick(&box, Qt::Key_Return);
        });
    };
    window.Suggest(directory.Write("none.veka", "(VEK)"), library);
    script.Click("1");
    expect("holds no part with a part number");
    script.Click("2");
    window.Import();
    EXPECT_EQ(Text("number"), "No part") << "the dialog stayed open";

    window.Suggest(
        directory.Write("bad.veka",
                        "(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))"),
        "");
    script.Click("1");
    expect("could not be imported: The level \"MECHANICALPIN\" has no child at position 1.");
    window.Import();

    window.Suggest(file, directory.Write("no directory", ""));
    script.Click("1");
    expect("could not be stored: ");
    window.Import();
    EXPECT_EQ(Text("number"), "A") << "it is shown all the same";
}

TEST_F(QtMainWindow, AClickOnAPadSelectsItsRecordAndItsPin) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    auto* view = test::QtScript::Child<host::SceneView>(window, "footprintView");
    auto* pins = test::QtScript::Child<QTableWidget>(window, "pins");
    const drawing::Point pad{pins->item(3, 4)->text().toDouble(), pins->item(3, 5)->text().toDouble()};
    QTest::mouseClick(view, Qt::LeftButton, {}, view->ToWidget(pad).toPoint());
    ASSERT_TRUE(Records()->currentItem());
    EXPECT_TRUE(Records()->currentItem()->text(0).endsWith(" 4"))
        << Records()->currentItem()->text(0).toStdString();
    EXPECT_EQ(Records()->currentItem()->parent()->text(0), "FPins");
    EXPECT_EQ(pins->currentRow(), 3);
    EXPECT_FALSE(view->Highlighted().empty());
    QTest::mouseClick(view, Qt::LeftButton, {}, {2, 2});
    EXPECT_FALSE(Records()->currentItem());
    EXPECT_TRUE(view->Highlighted().empty());
}

TEST_F(QtMainWindow, AFieldInTheTreeHighlightsItsRecord) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    auto* view = test::QtScript::Child<host::SceneView>(window, "footprintView");
    Trigger("find");
    auto* text = test::QtScript::Child<QLineEdit>(window, "findText");
    QTest::keyClicks(text, "LibPadstackName");
    QTest::keyClick(text, Qt::Key_Return);
    const std::vector<std::size_t> first = view->Highlighted();
    EXPECT_FALSE(first.empty());
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_FALSE(view->Highlighted().empty());
    EXPECT_NE(view->Highlighted(), first);
    Records()->setCurrentItem(Records()->topLevelItem(0)->child(0));
    EXPECT_TRUE(view->Highlighted().empty()) << "the part as a whole is no shape";
    test::QtScript::Child<QTableWidget>(window, "pins")->setCurrentCell(2, 0);
    EXPECT_FALSE(view->Highlighted().empty());
}

TEST_F(QtMainWindow, ThePointersPlaceIsInTheStatusBar) {
    window.Open({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka")});
    auto* view = test::QtScript::Child<host::SceneView>(window, "footprintView");
    QTest::mouseMove(view, {30, 40});
    QTest::qWait(20);
    EXPECT_THAT(Text("place"), testing::HasSubstr("mil"));
}

TEST_F(QtMainWindow, ALongTextIsShownShort) {
    const std::string name(1'000'000, 'x');
    window.Open(
        {directory.Write("long.veka", "(VEK (PARTGENERAL (MPN " + name + ") (PARTDESC " + name + ")))")});
    EXPECT_LT(Text("number").size(), 600u);
    EXPECT_LT(Records()->topLevelItem(0)->child(0)->child(0)->text(1).size(), 600);
    window.grab();
}

TEST_F(QtMainWindow, TheReportHasATabWithTheNumberOfFindings) {
    window.Open({directory.Write("a.veka",
                                 "(VEK (PARTGENERAL (MPN A)) (PACKAGES (PACKAGE (NAME P)\n(PKGPINS (PKGPIN 1)"
                                 "\n(PKGPIN 2 (ROTATON 90))))))")});
    auto* pictures = test::QtScript::Child<QTabWidget>(window, "pictures");
    auto* findings = test::QtScript::Child<QTableWidget>(window, "findings");
    EXPECT_TRUE(QTest::qWaitFor([&] { return findings->rowCount() > 0; }));
    const int tab = pictures->indexOf(test::QtScript::Child<QWidget>(window, "report"));
    EXPECT_EQ(pictures->tabText(tab), "Repor&t (1)");
    EXPECT_EQ(pictures->tabToolTip(tab), "1 warning");
    pictures->setCurrentIndex(tab);
    QTest::mouseClick(findings->viewport(), Qt::LeftButton, {},
                      findings->visualItemRect(findings->item(0, 3)).center());
    ASSERT_TRUE(Records()->currentItem());
    EXPECT_EQ(Records()->currentItem()->text(0), "[1] 2");
    window.Open({file});
    EXPECT_TRUE(QTest::qWaitFor([&] { return pictures->tabText(tab) == "Repor&t"; }));
}

TEST_F(QtMainWindow, AfterTheDialogTheFindingsAreToldAndNotAsked) {
    window.Suggest(directory.Write("a.veka", "(VEK (PARTGENERAL (MPN A) (MPNN B)))"), library);
    script.Click("1");
    window.Import();
    EXPECT_TRUE(Stored("A"));
    EXPECT_THAT(Text("state"), testing::EndsWith(". A check of the file finds 1 warning."));
}

TEST_F(QtMainWindow, BeforeAPartWithFindingsIsStoredTheWindowSaysSoOnce) {
    window.Suggest("", library);
    window.Open({directory.Write("a.veka", "(VEK (PARTGENERAL (MPN A) (MPNN B)))")});
    script.Then([](QWidget& question) {
        EXPECT_THAT(qobject_cast<QMessageBox*>(&question)->text().toStdString(),
                    testing::HasSubstr("A check of the file finds 1 warning. Store the part?"));
        test::QtScript::Answer(question, QMessageBox::No);
    });
    Trigger("store");
    EXPECT_EQ(Text("state"), "Not stored");
    EXPECT_FALSE(Stored("A"));
    Trigger("store");
    EXPECT_TRUE(Stored("A")) << "it is said once";
    window.Open({directory / "a.veka"});
    script.Then([](QWidget& question) {
        EXPECT_THAT(
            qobject_cast<QMessageBox*>(&question)->text().toStdString(),
            testing::AllOf(testing::HasSubstr("Replace it?"), testing::HasSubstr("finds 1 warning.")));
        test::QtScript::Answer(question, QMessageBox::Yes);
    });
    Trigger("store");
    EXPECT_THAT(Text("state"), testing::HasSubstr("Stored as A"));
}

}  // namespace
