#include "host/qt/ImportQueue.h"

#include <gmock/gmock.h>

#include <QThread>
#include <QTreeWidget>

#include "host/LibraryIndex.h"
#include "host/qt/QueueView.h"
#include "support/Files.h"
#include "support/QtScript.h"

namespace {

class QtImportQueue : public test::QtTest {
protected:
    QtImportQueue() {
        std::filesystem::create_directory(Root());
        batch.library = (directory / "lib").GetString();
        batch.mayReplace = [](const host::CheckedFile&) { return false; };
    }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    void Add(const std::string& number, const std::string& unit = "MM") {
        batch.files.push_back(
            directory.Write(number + ".veka", "(VEK (PARTGENERAL (MPN " + number + ") (UNIT " + unit + ")))")
                .GetString());
    }
    std::string State(int row) {
        return test::QtScript::Child<QTreeWidget>(view, "files")->topLevelItem(row)->text(1).toStdString();
    }

    test::TemporaryDirectory directory;
    host::Batch batch;
    host::QueueView view;
};

TEST_F(QtImportQueue, StoresAllPartsAndPutsThemIntoTheIndex) {
    for (const char* number : {"A", "B", "C"}) Add(number);
    batch.files.push_back((directory / "missing.veka").GetString());
    host::ImportQueue queue(view, batch, nullptr);
    EXPECT_EQ(host::TotalsSentence(queue.Run()), "4 files: 1 refused, 3 stored");
    EXPECT_EQ(queue.LastFile(), batch.files[2]);
    EXPECT_EQ(queue.IndexFailure(), "");
    EXPECT_EQ(State(2), "stored");
    EXPECT_THAT(State(3), testing::HasSubstr("there is no file"));
    if (host::HasIndex()) {
        EXPECT_EQ(host::OpenIndex(Root())->Size(), 3u);
    }
}

TEST_F(QtImportQueue, AsksInTheThreadOfTheWindow) {
    Add("A");
    host::ImportQueue(view, batch, nullptr).Run();
    Add("A", "INCH");
    batch.files.erase(batch.files.begin());
    batch.mayReplace = [](const host::CheckedFile& file) {
        EXPECT_EQ(QThread::currentThread(), QApplication::instance()->thread());
        return file.facts.name == "A";
    };
    host::ImportQueue(view, batch, nullptr).Run();
    EXPECT_EQ(State(0), "replaced");
}

TEST_F(QtImportQueue, CancelAtAQuestionEndsTheQuestions) {
    for (const char* number : {"A", "B"}) Add(number);
    host::ImportQueue(view, batch, nullptr).Run();
    batch.files.clear();
    for (const char* number : {"A", "B"}) Add(number, "INCH");
    int asked = 0;
    host::ImportQueue* running = nullptr;
    batch.mayReplace = [&](const host::CheckedFile&) {
        ++asked;
        running->Cancel();
        return false;
    };
    host::ImportQueue queue(view, batch, nullptr);
    running = &queue;
    EXPECT_EQ(host::TotalsSentence(queue.Run()), "2 files: 2 refused");
    EXPECT_EQ(asked, 1);
}

TEST_F(QtImportQueue, AQuestionThatFailsEndsTheImport) {
    Add("A");
    host::ImportQueue(view, batch, nullptr).Run();
    batch.files.clear();
    Add("A", "INCH");
    batch.mayReplace = [](const host::CheckedFile&) -> bool { throw host::SourceError("no question"); };
    host::ImportQueue queue(view, batch, nullptr);
    EXPECT_THAT([&] { queue.Run(); }, testing::ThrowsMessage<host::SourceError>("no question"));
    EXPECT_THAT(test::ReadFile(Root() / "A/A.veka"), testing::HasSubstr("MM"));
}

TEST_F(QtImportQueue, SaysThatTheIndexWasNotWrittenAndStoresAllParts) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    directory.Write("lib/.veka-index", "a file in the place of the directory");
    for (const char* number : {"A", "B"}) Add(number);
    host::ImportQueue queue(view, batch, nullptr);
    EXPECT_EQ(host::TotalsSentence(queue.Run()), "2 files: 2 stored");
    EXPECT_THAT(queue.IndexFailure(),
                testing::StartsWith("the index of the library was not written: cannot open the directory"));
}

TEST_F(QtImportQueue, AMissingLibraryIsTheStateOfAFile) {
    Add("A");
    batch.library += "/missing";
    host::ImportQueue queue(view, batch, nullptr);
    EXPECT_EQ(queue.Run().Left(), 0u);
    EXPECT_THAT(State(0), testing::HasSubstr("cannot open the directory"));
    EXPECT_EQ(queue.LastFile(), "");
}

}  // namespace
