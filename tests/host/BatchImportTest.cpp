#include "host/BatchImport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <limits>

#include "support/Children.h"
#include "support/Files.h"

namespace {

using host::Batch;
using host::BatchResult;
using host::BatchTotals;
using testing::ElementsAre;
using testing::HasSubstr;
using State = BatchResult::State;

std::string PartText(const std::string& number, const std::string& unit = "MM") {
    return "(VEK (PARTGENERAL (UNIT " + unit + ") (MPN " + number + ")))";
}

class BatchImport : public testing::Test {
protected:
    BatchImport() {
        std::filesystem::create_directory(Root());
        batch.library = (directory / "lib").GetString();
        batch.onResult = [this](const BatchResult& result, const BatchTotals& totals) {
            results.push_back(result);
            EXPECT_EQ(totals.Done(), results.size());
        };
    }
    std::filesystem::path Root() const { return directory.Path() / "lib"; }
    std::string Add(const std::string& name, const std::string& text) {
        batch.files.push_back(directory.Write(name, text).GetString());
        return batch.files.back();
    }
    void AddParts(int count, const std::string& unit = "MM") {
        for (int i = 0; i < count; ++i)
            Add("p" + std::to_string(i) + ".veka", PartText("P" + std::to_string(i), unit));
    }
    BatchTotals Import() {
        results.clear();
        return host::ImportBatch(batch);
    }
    std::vector<State> States() const {
        std::vector<State> states;
        for (const BatchResult& result : results) states.push_back(result.state);
        return states;
    }

    test::TemporaryDirectory directory;
    Batch batch;
    std::vector<BatchResult> results;
};

TEST_F(BatchImport, StoresManyPartsInTheirOrder) {
    AddParts(1300);
    EXPECT_EQ(Import()[State::Stored], 1300u);
    ASSERT_EQ(results.size(), 1300u);
    for (size_t i = 0; i < results.size(); ++i) EXPECT_EQ(results[i].file, batch.files[i]);
    EXPECT_EQ(test::Names(Root()).size(), 1301u) << "the parts and the lock";
    EXPECT_EQ(test::ReadFile(Root() / "P77/p77.veka"), PartText("P77"));
}

TEST_F(BatchImport, TheSameAgainFindsAllUnchangedByTheirContent) {
    AddParts(20);
    Import();
    for (const auto& path : batch.files) std::filesystem::last_write_time(veka::ToPath(CString(path)), {});
    EXPECT_EQ(Import()[State::Unchanged], 20u);
    Add("p7.veka", PartText("P7", "INCH"));
    batch.files.erase(batch.files.begin() + 7);
    BatchTotals totals = Import();
    EXPECT_EQ(totals[State::Unchanged], 19u);
    EXPECT_EQ(totals[State::Refused], 1u);
    batch.existing = host::Existing::Replace;
    totals = Import();
    EXPECT_EQ(totals[State::Unchanged], 19u);
    EXPECT_EQ(totals[State::Replaced], 1u);
    EXPECT_EQ(test::ReadFile(Root() / ".veka-trash/P7/p7.veka"), PartText("P7"));
    EXPECT_EQ(host::PartLibrary(Root()).Undo(), "P7");
}

TEST_F(BatchImport, AFileThatFailsStopsNoOther) {
    Add("a.veka", PartText("A"));
    batch.files.push_back((directory / "missing").GetString());
    Add("none.veka", "(VEK)");
    batch.files.push_back(batch.library);
    Add("b.veka", PartText("B") + "\n(PADS");
    EXPECT_EQ(Import()[State::Stored], 2u);
    EXPECT_THAT(States(),
                ElementsAre(State::Stored, State::Refused, State::Refused, State::Failed, State::Stored));
    EXPECT_THAT(results[1].reason, HasSubstr("there is no file"));
    EXPECT_THAT(results[2].reason, HasSubstr("holds no part with a part number"));
    EXPECT_THAT(results[3].reason, HasSubstr("is a directory"));
    EXPECT_THAT(results[4].faults, ElementsAre(HasSubstr("ends inside")));
}

TEST_F(BatchImport, OfTwoFilesOfOneNumberTheSecondIsRefusedByBothNames) {
    for (unsigned jobs : {1u, 2u, 8u}) {
        batch.files.clear();
        const std::string first = Add("z.veka", PartText("A", "FIRST"));
        AddParts(600);
        const std::string second = Add("a.veka", PartText("A", "SECOND"));
        batch.jobs = jobs;
        EXPECT_EQ(Import()[State::Refused], 1u);
        EXPECT_EQ(results.back().reason, "\"" + second + "\" has the part number of \"" + first +
                                             "\", which came before; --overwrite yes takes the last of them");
        EXPECT_EQ(test::ReadFile(Root() / "A/z.veka"), PartText("A", "FIRST"));
    }
}

TEST_F(BatchImport, OfTwoFilesOfOneNumberTheLastStaysWherePartsMayBeReplaced) {
    batch.existing = host::Existing::Replace;
    Add("z.veka", PartText("A", "FIRST"));
    Add("a.veka", PartText("A", "SECOND"));
    Add("m.veka", PartText("A", "SECOND"));
    Import();
    EXPECT_THAT(States(), ElementsAre(State::Stored, State::Replaced, State::Unchanged));
    EXPECT_EQ(test::ReadFile(Root() / "A/a.veka"), PartText("A", "SECOND"));
}

TEST_F(BatchImport, AsksAboutPartsThatTheLibraryHasWithAnotherContent) {
    AddParts(4);
    Import();
    batch.files.clear();
    Add("p0.veka", PartText("P0"));
    AddParts(4, "INCH");
    batch.files.erase(batch.files.begin() + 1);
    Add("p0.veka", PartText("P0"));
    batch.files.pop_back();
    std::string asked;
    batch.mayReplace = [&](const host::CheckedFile& file) {
        asked += file.facts.name;
        return file.facts.name == "P2";
    };
    Import();
    EXPECT_EQ(asked, "P1P2P3");
    EXPECT_THAT(States(), ElementsAre(State::Unchanged, State::Refused, State::Replaced, State::Refused));
    EXPECT_EQ(test::ReadFile(Root() / "P2/p2.veka"), PartText("P2", "INCH"));
    EXPECT_EQ(test::ReadFile(Root() / "P3/p3.veka"), PartText("P3"));
}

TEST_F(BatchImport, EndsWithThePartsInHandAndGoesOnTheNextTime) {
    AddParts(3000);
    batch.goOn = [calls = 0]() mutable { return ++calls < 3; };
    const BatchTotals totals = Import();
    EXPECT_GT(totals.Left(), 0u);
    EXPECT_GT(totals.Done(), 0u);
    EXPECT_EQ(test::Names(Root()).size(), totals.Done() + 1) << "each part that is told is there";
    batch.goOn = nullptr;
    BatchTotals again = Import();
    EXPECT_EQ(again[State::Unchanged], totals.Done());
    EXPECT_EQ(again[State::Stored], totals.Left());
}

TEST_F(BatchImport, AMissingLibraryEndsIt) {
    AddParts(5);
    batch.library += "/missing";
    const BatchTotals totals = Import();
    ASSERT_EQ(results.size(), 1u) << "every other file would fail, too";
    EXPECT_THAT(results[0].reason, HasSubstr("p0.veka\" could not be stored: cannot open the directory"));
    EXPECT_EQ(totals.Left(), 4u);
}

TEST_F(BatchImport, TellsTheIndexWhatTheLibraryHolds) {
    std::vector<std::string> names;
    batch.index = [&](std::vector<host::StoredPart> stored) {
        for (const host::StoredPart& part : stored) {
            names.push_back(part.facts.name);
            EXPECT_EQ(
                part.stamp.file.inode,
                host::CurrentStamp(host::Directory(Root()), part.facts.name, part.facts.fileName).file.inode);
        }
    };
    AddParts(2);
    Add("none.veka", "(VEK)");
    Import();
    EXPECT_THAT(names, ElementsAre("P0", "P1"));
}

TEST_F(BatchImport, NothingIsNothing) {
    EXPECT_EQ(Import().files, 0u);
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(BatchImport, AFullDiskEndsItAndLeavesEveryPartWhole) {
    AddParts(200);
    Add("large.veka", PartText("L") + "\n// " + std::string(100'000, 'x'));
    AddParts(3);
    const int code = test::InChild([&] {
        if (!test::MountSmallDisk(Root())) return test::kNotPossibleHere;
        batch.onResult = [this](const BatchResult& result, const BatchTotals&) { results.push_back(result); };
        const BatchTotals totals = Import();
        if (results.empty() || totals.Left() == 0) return 1;
        if (results.back().reason.find("No space left on device") == std::string::npos) return 2;
        size_t parts = 0;
        for (const auto& entry : std::filesystem::directory_iterator(Root())) {
            const std::string name = entry.path().filename().string();
            if (name[0] == '.') continue;
            ++parts;
            if (test::ReadFile(entry.path() / ("p" + name.substr(1) + ".veka")) != PartText(name)) return 3;
        }
        return parts + 1 == totals.Done() ? 0 : 4;
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "No disk of one's own can be made here.";
    EXPECT_EQ(code, 0);
}

constexpr int kKilled = 24;  // parts of a batch that is killed

/// How many batches are killed: some, or as many as the environment says. `scripts/kills` sets it.
int Kills() {
    const char* text = std::getenv("VEKA_KILLS");
    return text ? std::atoi(text) : 60;
}

/// Imports the files of one of two folders so many times.
void ImportTimes(const std::filesystem::path& directory, int times) {
    for (int round = 0; round < times; ++round) {
        Batch batch;
        batch.library = veka::FromPath(directory / "lib").GetString();
        batch.existing = host::Existing::Replace;
        batch.jobs = 1;
        const std::string folder = round % 2 ? "old" : "new";
        for (int i = 0; i < kKilled; ++i)
            batch.files.push_back(
                veka::FromPath(directory / folder / (folder + std::to_string(i) + ".veka")).GetString());
        host::ImportBatch(batch);
    }
}

void ImportForever(const std::filesystem::path& directory) {
    ImportTimes(directory, std::numeric_limits<int>::max());
}

TEST_F(BatchImport, KilledAtAnyInstantEachPartIsTheOldOrTheNewOneWhole) {
    if (!test::kExchanges)
        GTEST_SKIP() << "A child process does only one thing here, which another test does.";
    for (const std::string folder : {"old", "new"}) {
        std::filesystem::create_directory(directory.Path() / folder);
        for (int i = 0; i < kKilled; ++i) {
            const std::string number = std::to_string(i);
            const std::string file = Add(folder + "/" + folder + number + ".veka",
                                         PartText("P" + number, folder + std::string(3000, 'x')));
            if (folder == "new") batch.files.pop_back();
        }
    }
    ASSERT_EQ(Import()[State::Stored], static_cast<size_t>(kKilled));
    // A disk that is busy takes long for each group, and the kills have to come while parts are replaced.
    const auto begin = std::chrono::steady_clock::now();
    test::InChild([&] {
        ImportTimes(directory.Path(), 3);
        return 0;
    });
    const auto took =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
    for (int round = 0; round < Kills(); ++round) {
        test::KillAfter(took * (round * 379 % 1000 + 5) / 1000, directory.Path(), ImportForever);
        for (int i = 0; i < kKilled; ++i) {
            const std::string number = std::to_string(i);
            const auto names = test::Names(Root() / ("P" + number));
            ASSERT_EQ(names.size(), 1u) << number;
            const std::string folder = names[0].substr(0, 3);
            ASSERT_EQ(test::ReadFile(Root() / ("P" + number) / names[0]),
                      test::ReadFile(directory.Path() / folder / names[0]));
        }
    }
    batch.existing = host::Existing::Replace;
    Import();
    for (const std::string& name : test::Names(Root()))
        EXPECT_THAT(name, testing::AnyOf(".veka-lock", ".veka-trash", testing::StartsWith("P")))
            << "nothing is left of what was killed";
}

TEST_F(BatchImport, TwoProgramsImportIntoOneLibrary) {
    AddParts(700);
    const std::vector<std::string> first(batch.files.begin(), batch.files.begin() + 400);
    const std::vector<std::string> second(batch.files.begin() + 300, batch.files.end());
    const test::ChildBeside other([&] {
        Batch beside;
        beside.library = batch.library;
        beside.files = second;
        host::ImportBatch(beside);
        std::ofstream(directory.Path() / "ended") << "x";
    });
    batch.files = first;
    BatchTotals totals = Import();
    EXPECT_EQ(totals[State::Stored] + totals[State::Unchanged], 400u);
    if (!other.Runs() && !std::filesystem::exists(directory.Path() / "ended"))
        GTEST_SKIP() << "There is no second process here.";
    for (int i = 0; i < 600 && !std::filesystem::exists(directory.Path() / "ended"); ++i) other.Runs();
    EXPECT_EQ(test::Names(Root()).size(), 701u);
}

}  // namespace
