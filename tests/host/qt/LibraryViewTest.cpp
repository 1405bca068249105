#include "host/qt/LibraryView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include "host/BatchImport.h"
#include "host/ImportedPart.h"
#include "host/IndexWriter.h"
#include "support/Files.h"
#include "support/QtScript.h"

namespace {

using testing::HasSubstr;

class QtLibraryView : public test::QtTest {
protected:
    void SetUp() override {
        if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
        std::filesystem::create_directory(directory.Path() / "lib");
        for (const char* general : {"(MPN LM358) (NUMBEROFPINS 8) (PARTDESC \"dual amplifier\")",
                                    "(MPN BME280) (NUMBEROFPINS 9) (PARTDESC Sensor)",
                                    "(MPN TL072) (NUMBEROFPINS 7) (PARTDESC \"quiet amplifier\")"}) {
            const CString file =
                directory.Write("part.veka", std::string("(VEK (PARTGENERAL ") + general + "))");
            host::Store(host::ReadPart(file), directory / "lib", host::Existing::Keep);
        }
        view.Open(directory / "lib");
    }
    QTableView* Table() { return test::QtScript::Child<QTableView>(view, "libraryParts"); }
    std::string Numbers() {
        std::string numbers;
        for (int row = 0; row < Table()->model()->rowCount(); ++row)
            numbers += Table()->model()->index(row, 0).data().toString().toStdString() + ' ';
        return numbers;
    }
    std::string State() { return test::QtScript::Child<QLabel>(view, "libraryState")->text().toStdString(); }
    void Trigger(const char* action) { test::QtScript::Child<QAction>(view, action)->trigger(); }

    test::TemporaryDirectory directory;
    std::vector<std::string> shown;
    host::LibraryView view{[this](const CString& file) { shown.emplace_back(file.View()); }};
};

TEST_F(QtLibraryView, ListsThePartsOfALibrary) {
    EXPECT_EQ(Numbers(), "BME280 LM358 TL072 ");
    EXPECT_EQ(State(), "3 of 3 parts");
    EXPECT_EQ(Table()->model()->index(0, 3).data().toInt(), 9);
    EXPECT_EQ(Table()->model()->headerData(4, Qt::Horizontal).toString(), "Description");
}

TEST_F(QtLibraryView, FiltersAsOneTypes) {
    auto* const filter = test::QtScript::Child<QLineEdit>(view, "libraryFilter");
    QTest::keyClicks(filter, "ampl");
    EXPECT_EQ(Numbers(), "BME280 LM358 TL072 ") << "not before a pause";
    QTest::qWait(300);
    EXPECT_EQ(Numbers(), "LM358 TL072 ");
    EXPECT_EQ(State(), "2 of 3 parts");
    filter->clear();
    QTest::qWait(300);
    EXPECT_EQ(Numbers(), "BME280 LM358 TL072 ");
}

TEST_F(QtLibraryView, SortsByAColumn) {
    Table()->sortByColumn(3, Qt::AscendingOrder);
    EXPECT_EQ(Numbers(), "TL072 LM358 BME280 ");
    Table()->sortByColumn(3, Qt::DescendingOrder);
    EXPECT_EQ(Numbers(), "BME280 LM358 TL072 ");
}

TEST_F(QtLibraryView, ShowsThePartThatIsSelected) {
    Table()->selectRow(1);
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0], veka::FromPath(directory.Path() / "lib/LM358/part.veka").View());
}

TEST_F(QtLibraryView, ARemovedPartIsInTheTrashAndCanBeRestored) {
    Table()->selectRow(1);
    Trigger("libraryRemove");
    EXPECT_EQ(Numbers(), "BME280 TL072 ");
    EXPECT_TRUE(std::filesystem::exists(directory.Path() / "lib/.veka-trash/LM358/part.veka"));
    EXPECT_THAT(State(), HasSubstr("can be restored"));
    Trigger("libraryRestore");
    EXPECT_EQ(Numbers(), "BME280 LM358 TL072 ");
    EXPECT_EQ(State(), "Restored \"LM358\"");
    EXPECT_FALSE(test::QtScript::Child<QAction>(view, "libraryRestore")->isEnabled());
}

TEST_F(QtLibraryView, AnyPartOfTheTrashCanBeRestored) {
    for (int i = 0; i < 2; ++i) {
        Table()->selectRow(0);
        Trigger("libraryRemove");
    }
    EXPECT_EQ(Numbers(), "TL072 ");
    script.Then([](QWidget& trash) {
        auto* const list = test::QtScript::Child<QTreeWidget>(trash, "trash");
        ASSERT_EQ(list->topLevelItemCount(), 2);
        EXPECT_EQ(list->topLevelItem(0)->text(0), "BME280");
        EXPECT_EQ(list->topLevelItem(0)->text(1), "comes back");
        list->setCurrentItem(list->topLevelItem(0));
        test::QtScript::Click(trash, "trashRestore");
        EXPECT_EQ(list->topLevelItemCount(), 1);
        QTest::keyClick(&trash, Qt::Key_Escape);
    });
    Trigger("libraryTrash");
    EXPECT_EQ(Numbers(), "BME280 TL072 ");
    EXPECT_EQ(State(), "Restored \"BME280\"");
}

TEST_F(QtLibraryView, AReplacedPartIsExchangedWithTheOneInTheTrash) {
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN LM358) (PARTDESC other)))");
    host::Store(host::ReadPart(file), directory / "lib", host::Existing::Replace);
    view.Refresh();
    script.Then([](QWidget& trash) {
        auto* const list = test::QtScript::Child<QTreeWidget>(trash, "trash");
        ASSERT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(list->topLevelItem(0)->text(1), "changes places with the stored part");
        list->setCurrentItem(list->topLevelItem(0));
        emit list->itemActivated(list->topLevelItem(0), 0);
        EXPECT_EQ(list->topLevelItemCount(), 1) << "the other one is there now";
        QTest::keyClick(&trash, Qt::Key_Escape);
    });
    Trigger("libraryTrash");
    EXPECT_EQ(Table()->model()->index(1, 4).data().toString(), "dual amplifier");
}

TEST_F(QtLibraryView, APartIsImportedAgainFromWhereItCame) {
    host::Batch batch;
    batch.library = (directory / "lib").GetString();
    batch.files = {directory.Write("new.veka", "(VEK (PARTGENERAL (MPN NEW) (PARTDESC first)))").GetString()};
    {
        host::IndexWriter writer(directory.Path() / "lib");
        batch.index = [&](std::vector<host::StoredPart> stored) { writer.Put(std::move(stored)); };
        host::ImportBatch(batch);
    }
    view.Refresh();
    Table()->selectRow(2);
    Trigger("libraryImportAgain");
    EXPECT_EQ(State(), '"' + batch.files[0] + "\" holds what is stored");
    directory.Write("new.veka", "(VEK (PARTGENERAL (MPN NEW) (PARTDESC second)))");
    Table()->selectRow(2);
    Trigger("libraryImportAgain");
    EXPECT_EQ(State(), "Stored \"NEW\" from \"" + batch.files[0] +
                           "\"; the part that was there is in the trash of the library");
    EXPECT_EQ(Table()->model()->index(2, 4).data().toString(), "second");
    EXPECT_EQ(shown.back(), veka::FromPath(directory.Path() / "lib/NEW/new.veka").View());
    directory.Write("new.veka", "(VEK (PARTGENERAL (MPN OTHER)))");
    Table()->selectRow(2);
    Trigger("libraryImportAgain");
    EXPECT_EQ(State(), '"' + batch.files[0] + "\" holds the part \"OTHER\", and not \"NEW\"");
    EXPECT_EQ(Table()->model()->index(2, 4).data().toString(), "second");
}

TEST_F(QtLibraryView, WhereAPartCameFromIsAskedForIfNobodyKnows) {
    Table()->selectRow(1);
    script.Then([](QWidget& picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
    Trigger("libraryImportAgain");
    EXPECT_EQ(State(), "3 of 3 parts") << "without a file nothing is done";
}

TEST_F(QtLibraryView, ALibraryThatIsNotThereIsASentence) {
    view.Open(directory / "missing");
    EXPECT_EQ(Numbers(), "");
    EXPECT_THAT(State(), HasSubstr("cannot open the directory"));
    Trigger("libraryRemove");
    Trigger("libraryShow");
    Trigger("libraryImportAgain");
    Trigger("libraryTrash");
    view.Refresh();
    EXPECT_TRUE(shown.empty());
}

TEST_F(QtLibraryView, NoticesWhatWasStoredSince) {
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN NEW)))");
    host::Store(host::ReadPart(file), directory / "lib", host::Existing::Keep);
    view.Refresh();
    EXPECT_EQ(Numbers(), "BME280 LM358 NEW TL072 ");
}

}  // namespace
