#include "host/qt/FindingsView.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QTableWidget>

#include "support/QtScript.h"

namespace {

using testing::HasSubstr;

class FindingsView : public test::QtTest {
protected:
    FindingsView() {
        view.onReport = [this] { ++reports; };
        view.onSelect = [this](veka::Place place) { selected = place; };
        view.resize(700, 500);
        view.show();
    }
    void Show(const std::string& bytes) {
        view.ShowFile("part.veka", bytes);
        ASSERT_TRUE(QTest::qWaitFor([&] { return reports > 0; }, 60'000));
        reports = 0;
    }
    QTableWidget& Table() { return *test::QtScript::Child<QTableWidget>(view, "findings"); }
    QPlainTextEdit& Lines() { return *test::QtScript::Child<QPlainTextEdit>(view, "reportLines"); }
    std::string Cell(int row, int column) { return Table().item(row, column)->text().toStdString(); }
    std::string Summary() {
        return test::QtScript::Child<QLabel>(view, "reportSummary")->text().toStdString();
    }
    void ClickRow(int row) {
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {},
                          Table().visualItemRect(Table().item(row, 3)).center());
    }
    /// The texts that are marked.
    std::string Marked() {
        std::string text;
        for (const QTextEdit::ExtraSelection& mark : Lines().extraSelections())
            text += '[' + mark.cursor.selectedText().toStdString() + ']';
        return text;
    }

    host::FindingsView view;
    int reports = 0;
    std::optional<veka::Place> selected;
};

TEST_F(FindingsView, TheFindingsAreATable) {
    Show("(VEK (PARTGENERAL\n (MPNN A)\n (MPN B)))");
    ASSERT_EQ(Table().rowCount(), 1);
    EXPECT_EQ(Cell(0, 0), "warning");
    EXPECT_EQ(Cell(0, 1), "VEKA-W001");
    EXPECT_EQ(Cell(0, 2), "2");
    EXPECT_THAT(Cell(0, 3), HasSubstr("MPN was meant"));
    EXPECT_EQ(Cell(0, 4), "MPNN");
    EXPECT_EQ(Cell(0, 5), "VEK > PARTGENERAL > MPNN");
    EXPECT_EQ(Summary(), "1 warning");
}

TEST_F(FindingsView, AClickShowsTheLinesWithTheTokenMarked) {
    Show("(VEK\r\n(PARTGENERAL\r\n (MPNN \"\xC3\x84\") (MPN B)))");
    ClickRow(0);
    EXPECT_THAT(Lines().toPlainText().toStdString(), HasSubstr("3   (MPNN \"\xC3\x84\") (MPN B)))"));
    EXPECT_THAT(Lines().toPlainText().toStdString(), HasSubstr("1  (VEK\n"));
    EXPECT_THAT(Marked(), HasSubstr("MPNN"));
    EXPECT_EQ(Marked().find("MPN B"), std::string::npos);
    ASSERT_TRUE(selected);
    EXPECT_EQ(selected->line, 3);
}

TEST_F(FindingsView, ATokenBehindALongLineIsMarked) {
    Show("(VEK (PARTGENERAL (MPN " + std::string(100'000, 'x') + ") (FOO bar) (PARTDESC " +
         std::string(100'000, 'y') + ")))");
    ASSERT_GE(Table().rowCount(), 1);
    ClickRow(0);
    EXPECT_LT(Lines().toPlainText().size(), 1000);
    EXPECT_THAT(Marked(), HasSubstr("FOO"));
}

TEST_F(FindingsView, TheNextFileReplacesTheReport) {
    Show("(VEK (FOO))");
    ClickRow(0);
    view.ShowFile("a.veka", "(VEK (PARTGENERAL (FOO) (BAR)))");
    EXPECT_EQ(Table().rowCount(), 0);
    EXPECT_EQ(Lines().toPlainText(), "");
    view.ShowFile("b.veka", "(VEK (PARTGENERAL (MPN A)))");
    EXPECT_TRUE(view.Report().Findings().empty());
    EXPECT_EQ(Summary(), "A check of the file finds nothing.");
    QTest::qWait(20);
    EXPECT_EQ(Table().rowCount(), 0) << "no report of a former file comes late";
}

TEST_F(FindingsView, AFileOfEveryByteIsShown) {
    std::string bytes = "(VEK (FOO \"";
    for (int i = 1; i < 256; ++i)
        if (i != '"') bytes += static_cast<char>(i);
    Show(bytes + "\") (\x1B[2J))");
    for (int row = 0; row < Table().rowCount(); ++row) {
        Table().setCurrentCell(row, 0);
        EXPECT_EQ(Lines().toPlainText().toStdString().find('\x1B'), std::string::npos);
    }
    view.grab();
}

TEST_F(FindingsView, WhatIsNotListedIsCounted) {
    std::string file = "(VEK ";
    for (int i = 0; i < 300; ++i) file += "(FOO)\n";
    Show(file + ")");
    EXPECT_GE(Table().rowCount(), 100);
    EXPECT_LE(Table().rowCount(), 110);
    EXPECT_THAT(Summary(), HasSubstr("200 of them are not listed"));
}

TEST_F(FindingsView, ALargeFileHasNoReport) {
    Show("(VEK (X))" + std::string(17 << 20, ' '));
    EXPECT_THAT(Summary(), HasSubstr("--check"));
}

TEST_F(FindingsView, WithoutAFileThereIsNothing) {
    EXPECT_TRUE(view.Report().Findings().empty());
    view.grab();
}

}  // namespace
