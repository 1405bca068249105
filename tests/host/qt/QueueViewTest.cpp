#include "host/qt/QueueView.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

#include "support/QtScript.h"

namespace {

using State = host::BatchResult::State;
using testing::ElementsAre;

class QtQueueView : public test::QtTest {
protected:
    QtQueueView() { view.show(); }
    std::vector<std::string> States() {
        std::vector<std::string> states;
        auto* const files = test::QtScript::Child<QTreeWidget>(view, "files");
        for (int row = 0; row < files->topLevelItemCount(); ++row)
            states.push_back(files->topLevelItem(row)->text(1).toStdString());
        return states;
    }
    std::string Count() { return test::QtScript::Child<QLabel>(view, "queueCount")->text().toStdString(); }
    int Done() { return test::QtScript::Child<QProgressBar>(view, "queueBar")->value(); }
    QPushButton* Cancel() { return test::QtScript::Child<QPushButton>(view, "queueCancel"); }

    host::QueueView view;
};

TEST_F(QtQueueView, ShowsAStateForEachFile) {
    view.Begin({"a.veka", "b.veka", "c.veka", "d.veka"});
    EXPECT_THAT(States(), ElementsAre("waiting", "waiting", "waiting", "waiting"));
    EXPECT_TRUE(Cancel()->isVisible());
    view.Add({{"a.veka", "A", State::Stored, "", {}}, {"b.veka", "", State::Refused, "holds no part", {}}});
    EXPECT_THAT(States(), ElementsAre("stored", "refused: holds no part", "waiting", "waiting"));
    EXPECT_EQ(Done(), 2);
    EXPECT_EQ(Count(), "1 refused or failed");
    view.Add({{"c.veka", "C", State::Replaced, "", {"it ends too early", "a section is unknown"}}});
    view.End("the total");
    EXPECT_THAT(States(), ElementsAre("stored", "refused: holds no part",
                                      "replaced: the file is faulty: it ends too early; a section is unknown",
                                      "not imported"));
    EXPECT_EQ(Count(), "the total");
    EXPECT_FALSE(Cancel()->isVisible());
}

TEST_F(QtQueueView, CancelIsToldOnce) {
    int cancelled = 0;
    view.onCancel = [&] { ++cancelled; };
    view.Begin({"a.veka"});
    QTest::mouseClick(Cancel(), Qt::LeftButton);
    QTest::mouseClick(Cancel(), Qt::LeftButton);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(Count(), "Ends after the files in hand");
    view.Begin({"a.veka"});
    EXPECT_TRUE(Cancel()->isEnabled()) << "the next time, too";
}

TEST_F(QtQueueView, ListsAnOpenedFileOnceAndOpensItByteForByte) {
    std::string opened;
    view.onOpen = [&](const CString& file) { opened = file.View(); };
    view.List("a \xFF.veka", "opened");
    view.List("a \xFF.veka", "opened again");
    EXPECT_THAT(States(), ElementsAre("opened again"));
    auto* const files = test::QtScript::Child<QTreeWidget>(view, "files");
    emit files->itemActivated(files->topLevelItem(0), 0);
    EXPECT_EQ(opened, "a \xFF.veka");
}

TEST_F(QtQueueView, MoreResultsThanFilesAreNoHarm) {
    view.Begin({"a.veka"});
    view.Add({{"a.veka", "A", State::Stored, "", {}}, {"b.veka", "B", State::Stored, "", {}}});
    EXPECT_THAT(States(), ElementsAre("stored"));
}

}  // namespace
