// Imports of many files in several threads. With TSan this shows that what the threads share is guarded.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "host/BatchImport.h"
#include "host/IndexWriter.h"
#include "host/Interrupt.h"
#include "host/LibraryIndex.h"
#include "support/Files.h"

namespace {

using host::Batch;
using host::BatchResult;
using host::BatchTotals;
using State = BatchResult::State;

constexpr unsigned kJobs = 4;

class BatchThreads : public testing::Test {
protected:
    BatchThreads() { std::filesystem::create_directory(Root()); }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    std::string Library() const { return (directory / "lib").GetString(); }
    static std::string Number(std::size_t place) { return "P" + std::to_string(place); }
    /// Writes files of parts, each with another number and with what makes a report long; returns their
    /// paths.
    std::vector<std::string> WriteParts(std::size_t first, std::size_t count) const {
        std::vector<std::string> files;
        for (std::size_t i = first; i < first + count; ++i)
            files.push_back(
                directory
                    .Write(Number(i) + ".veka",
                           "(VEK (PARTGENERAL (UNIT MM) (MPN " + Number(i) + ") (PARTDESC \"part number " +
                               std::to_string(i) + "\") (NUMBEROFPINS 2)) (PACKAGES (PACKAGE (NAME PKG" +
                               std::to_string(i % 7) +
                               ") (PKGPINS (PKGPIN 1 (ROTATON 90)) (PKGPIN 2)))))\n(PADS (PAD (PADNAME P)\n"
                               "(FILLCIRCLE (PT 1 2) (D 0.5))))\n")
                    .GetString());
        return files;
    }
    Batch Of(std::vector<std::string> files) const {
        Batch batch;
        batch.files = std::move(files);
        batch.library = Library();
        batch.jobs = kJobs;
        return batch;
    }
    /// Imports as the programs do: with the index written beside it.
    BatchTotals ImportWithIndex(Batch batch) const {
        host::IndexWriter index(Root());
        batch.index = [&index](std::vector<host::StoredPart> stored) { index.Put(std::move(stored)); };
        BatchTotals totals = host::ImportBatch(batch);
        EXPECT_EQ(index.End(), "");
        return totals;
    }
    /// How many parts the directory of the library has.
    std::size_t Stored() const { return host::StoredNames(host::Directory(Root())).size(); }
    /// Fails where the index does not find each of so many parts under its number.
    void ExpectAllFound(std::size_t count) const {
        if (!host::HasIndex()) return;
        const auto index = host::OpenIndex(Root(), kJobs);
        index->Refresh();
        EXPECT_EQ(index->Size(), count);
        for (std::size_t i = 0; i < count; ++i) {
            const auto found = index->Find({Number(i), {}});
            ASSERT_FALSE(found.empty()) << Number(i);
            EXPECT_EQ(index->Part(found[0])->facts.number, Number(i));
        }
    }

    /// Imports more than is read ahead, which another thread cancels at the first question whether to go on.
    void ExpectToEndEarly(const std::function<void()>& cancel, const std::function<bool()>& isCancelled) {
        std::vector<std::string> files;
        const std::string filling = "\n// " + std::string(1'000'000, 'x');
        for (std::size_t i = 0; i < 60; ++i)
            files.push_back(
                directory.Write(Number(i), "(VEK (PARTGENERAL (MPN " + Number(i) + ")))" + filling)
                    .GetString());
        std::atomic<bool> begun = false;
        Batch batch = Of(std::move(files));
        batch.goOn = [&] {
            begun = true;
            while (!isCancelled()) std::this_thread::yield();
            return false;
        };
        std::thread canceller([&] {
            while (!begun) std::this_thread::yield();
            cancel();
        });
        BatchTotals totals = ImportWithIndex(batch);
        canceller.join();
        EXPECT_GT(totals.Left(), 0u);
        EXPECT_EQ(totals[State::Stored], totals.Done());
        EXPECT_EQ(Stored(), totals.Done()) << "each part that was told is there, and no other";
    }

    test::TemporaryDirectory directory;
};

TEST_F(BatchThreads, ReadStoreAndIndexSideBySide) {
    const std::vector<std::string> files = WriteParts(0, 800);
    Batch reported = Of(files);
    std::size_t unknown = 0;
    reported.onReport = [&](const veka::ImportReport& report) {
        unknown += report.Count(veka::Code::UnknownLevel);
    };
    EXPECT_EQ(ImportWithIndex(reported)[State::Stored], 800u);
    EXPECT_EQ(unknown, 800u) << "each file has one unknown level";
    EXPECT_EQ(ImportWithIndex(Of(files))[State::Unchanged], 800u);
    ExpectAllFound(800);
}

TEST_F(BatchThreads, TheIndexIsMadeAndVerifiedInSeveralThreads) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    host::ImportBatch(Of(WriteParts(0, 200)));
    const auto index = host::OpenIndex(Root(), kJobs);
    EXPECT_TRUE(index->Verify().empty());
    EXPECT_EQ(index->Find({"", {host::ParseCondition("warnings>0")}}).size(), 200u);
    ExpectAllFound(200);
}

TEST_F(BatchThreads, TheIndexIsReadWhileAnImportWritesIt) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    host::OpenIndex(Root())->Refresh();
    std::atomic<bool> ended = false;
    std::thread reader([&] {
        while (!ended) {
            const auto index = host::OpenIndex(Root());
            for (const std::int64_t id : index->Find({"number", {}})) index->Part(id);
            EXPECT_THAT(index->Remarks(), testing::IsEmpty());
        }
    });
    EXPECT_EQ(ImportWithIndex(Of(WriteParts(0, 300)))[State::Stored], 300u);
    ended = true;
    reader.join();
    ExpectAllFound(300);
}

TEST_F(BatchThreads, AnotherThreadCancelsABatch) {
    std::atomic<bool> cancelled = false;
    ExpectToEndEarly([&] { cancelled = true; }, [&] { return cancelled.load(); });
}

TEST_F(BatchThreads, CtrlCThatAnotherThreadNotesCancelsABatch) {
    // A program that a shell starts in the background ignores Ctrl-C, and so would this one.
    void (*const former)(int) = std::signal(SIGINT, SIG_DFL);
    host::Interrupt::Forget();
    {
        const host::Interrupt interrupt;
        ExpectToEndEarly([] { std::raise(SIGINT); }, host::Interrupt::Happened);
    }
    host::Interrupt::Forget();
    std::signal(SIGINT, former);
}

TEST_F(BatchThreads, AnotherThreadStopsTheReadingAtAnyInstant) {
    const std::vector<std::string> files = WriteParts(0, 150);
    for (int round = 0; round < 20; ++round) {
        host::ReadAhead reader(files, {}, kJobs);
        std::atomic<int> taken = 0;
        std::thread stopper([&] {
            while (taken < round * 5) std::this_thread::yield();
            reader.Stop();
        });
        std::size_t place = 0;
        host::CheckedFile file;
        while (reader.Next(file, std::chrono::minutes(1)) == host::ReadAhead::Answer::File) {
            EXPECT_EQ(file.file, files[place++]);
            ++taken;
        }
        EXPECT_GE(place, static_cast<std::size_t>(round * 5));
        stopper.join();
    }
}

TEST_F(BatchThreads, TwoBatchesImportIntoOneLibraryAtOnce) {
    const std::vector<std::string> files = WriteParts(0, 400);
    const std::vector<std::string> first(files.begin(), files.begin() + 250);
    const std::vector<std::string> second(files.begin() + 150, files.end());
    BatchTotals beside;
    std::thread other([&] { beside = ImportWithIndex(Of(second)); });
    BatchTotals totals = ImportWithIndex(Of(first));
    other.join();
    EXPECT_EQ(totals[State::Stored] + totals[State::Unchanged], 250u);
    EXPECT_EQ(beside[State::Stored] + beside[State::Unchanged], 250u);
    EXPECT_EQ(totals[State::Stored] + beside[State::Stored], 400u) << "each part is stored once";
    EXPECT_EQ(Stored(), 400u);
    ExpectAllFound(400);
}

}  // namespace
