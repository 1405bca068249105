#include "host/BatchCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

#include "host/Host.h"
#include "host/Interrupt.h"
#include "host/LibraryIndex.h"
#include "inspect/Json.h"
#include "support/Children.h"
#include "support/Files.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

std::string PartText(const std::string& number, const std::string& unit = "MM") {
    return "(VEK (PARTGENERAL (UNIT " + unit + ") (MPN " + number + ")))";
}

class BatchCommand : public testing::Test {
protected:
    BatchCommand() {
        library = (directory / "lib").GetString();
        folder = (directory / "in").GetString();
        std::filesystem::create_directories(Root());
        std::filesystem::create_directories(directory.Path() / "in/deep");
    }
    int Run(std::vector<std::string> arguments, const std::string& input = "") {
        std::istringstream in(input);
        out.str("");
        err.str("");
        arguments.insert(arguments.end(), {"--library", library});
        return host::RunHost(arguments, {in, out, err, terminal, live});
    }
    std::filesystem::path Root() const { return veka::ToPath(CString(library)); }
    std::string Write(const std::string& name, const std::string& text) {
        return directory.Write("in/" + name, text).GetString();
    }

    test::TemporaryDirectory directory;
    std::string library, folder;
    std::ostringstream out, err;
    bool terminal = false, live = false;
};

TEST_F(BatchCommand, ImportsAllPartDataFilesBelowADirectory) {
    const std::string a = Write("a.veka", PartText("A")), b = Write("deep/b.VEKA", PartText("B"));
    Write("notes.txt", "");
    EXPECT_EQ(Run({folder}), 0);
    EXPECT_EQ(out.str(), a + ": Stored as A in " + library + "\n" + b + ": Stored as B in " + library +
                             "\n2 files: 2 stored\n");
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(Run({folder, "--jobs", "2"}), 0);
    EXPECT_EQ(out.str(), a + ": A is unchanged\n" + b + ": B is unchanged\n2 files: 2 unchanged\n");
    EXPECT_EQ(Run({folder, "-q"}), 0);
    EXPECT_EQ(out.str(), "");
}

TEST_F(BatchCommand, PrintsTheRecordsOfADirectoryWhereThatIsAskedFor) {
    Write("a.veka", PartText("A"));
    Write("b.veka", PartText("B"));
    EXPECT_EQ(Run({folder, "--print", "json"}), 0);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("\"MPN\":\"A\""), HasSubstr("\"MPN\":\"B\"")));
    EXPECT_TRUE(std::filesystem::exists(Root() / "B/b.veka"));
}

TEST_F(BatchCommand, AnEmptyDirectoryIsAFailure) {
    EXPECT_EQ(Run({folder}), 3);
    EXPECT_EQ(err.str(), "veka-host: the directory \"" + folder + "\" holds no part data file\n");
    EXPECT_EQ(out.str(), "");
}

TEST_F(BatchCommand, EachRefusalAndFailureIsASentenceAndCounted) {
    const std::string a = Write("a.veka", PartText("A")), none = Write("none.veka", "(VEK)"),
                      z = Write("z.veka", PartText("A", "INCH"));
    EXPECT_EQ(Run({folder}), 1);
    EXPECT_EQ(out.str(), a + ": Stored as A in " + library + "\n3 files: 2 refused, 1 stored\n");
    EXPECT_EQ(err.str(), "veka-host: \"" + none + "\" holds no part with a part number\nveka-host: \"" + z +
                             "\" has the part number of \"" + a +
                             "\", which came before; --overwrite yes takes the last of them\n");
}

TEST_F(BatchCommand, TellsHowAPartThatIsThereCanBeReplaced) {
    Write("a.veka", PartText("A"));
    Run({folder});
    Write("a.veka", PartText("A", "INCH") + ")");
    EXPECT_EQ(Run({folder}), 1);
    EXPECT_THAT(
        err.str(),
        EndsWith("\"A\" is in the library already and was left alone; --overwrite yes replaces it\n"));
    EXPECT_EQ(Run({folder, "--overwrite", "no"}), 1);
    EXPECT_THAT(err.str(), EndsWith("\"A\" is in the library already and was left alone\n"));
    EXPECT_EQ(Run({folder, "--overwrite", "yes"}), 0);
    EXPECT_THAT(out.str(), EndsWith("1 file: 1 replaced\n"));
    EXPECT_THAT(err.str(), AllOf(HasSubstr("closes no level\n"),
                                 EndsWith("veka-host: \"A\" was replaced although the file is faulty\n")));
}

TEST_F(BatchCommand, AsksOnATerminalAndTakesAnAnswerForAll) {
    for (const char* unit : {"MM", "INCH"}) {
        for (const char* number : {"A", "B", "C"})
            Write(number + std::string(".veka"), PartText(number, unit));
        if (unit == std::string("MM")) Run({folder});
    }
    terminal = true;
    EXPECT_EQ(Run({folder}, "what\nn\nall\n"), 1);
    EXPECT_THAT(err.str(),
                AllOf(HasSubstr("\"B\" is in the library \"" + library + "\" already. Replace it by \""),
                      HasSubstr("B.veka\"? [y/n/all/none]: "), Not(HasSubstr("\"C\" is in"))));
    EXPECT_THAT(out.str(), EndsWith("3 files: 1 refused, 2 replaced\n"));
    EXPECT_EQ(Run({folder}, "none\n"), 1);
    EXPECT_THAT(out.str(), EndsWith("3 files: 1 refused, 2 unchanged\n"));
    EXPECT_EQ(Run({folder}, "y\n"), 0);
    EXPECT_EQ(Run({folder}), 0);
}

TEST_F(BatchCommand, TheSummaryIsJsonWhereThatIsAskedFor) {
    const std::string a = Write("a.veka", PartText("A") + "\n(X)"), none = Write("none.veka", "(VEK)");
    EXPECT_EQ(Run({folder, "--summary", "json"}), 1);
    EXPECT_EQ(
        out.str(),
        "{\"files\":[\n{\"file\":" + veka::JsonString(a) +
            ",\"part\":\"A\",\"state\":\"stored\",\"faults\":[\"nothing reads the section \\\"X\\\" of "
            "line 2\"]},\n{\"file\":" +
            veka::JsonString(none) + ",\"state\":\"refused\",\"reason\":" +
            veka::JsonString('"' + none + "\" holds no part with a part number") +
            "}\n],\"stored\":1,\"replaced\":0,\"unchanged\":0,\"refused\":1,\"failed\":0,\"left\":0}\n");
    EXPECT_EQ(Run({a, "--summary", "json"}), 0) << "one file, too";
    EXPECT_THAT(out.str(), HasSubstr("\"unchanged\":1"));
    EXPECT_EQ(Run({a, "--summary", "xml"}), 2);
    EXPECT_EQ(Run({"-", "--summary", "json"}), 2);
    EXPECT_EQ(Run({"--summary", "json"}), 2);
    EXPECT_EQ(Run({a, "--summary", "json", "--pins"}), 2);
}

TEST_F(BatchCommand, TheFindingsOfAllFilesAreSummedUpWhereThatIsAskedFor) {
    Write("a.veka", "(VEK (PARTGENERAL (MPN A B) (MANUFACTURER M N)))");
    Write("b.veka", "(VEK (PARTGENERAL (MPN B B)))");
    Write("none.veka", "(VEK (PARTGENERAL (MANUFACTURER M) (BOM)))");
    const std::string rows =
        "findings in 3 files:\n"
        "  findings     files  code       severity  kind          name\n"
        "         3         2  VEKA-W005  warning   not-read      surplus-value\n"
        "         1         1  VEKA-W007  note      not-read      gives-nothing\n";
    EXPECT_EQ(Run({folder, "--summary", "findings"}), 1);
    EXPECT_THAT(out.str(), EndsWith("in " + library + '\n' + rows + "3 files: 1 refused, 2 stored\n"));
    EXPECT_EQ(Run({folder, "--summary", "findings", "-q", "--jobs", "3"}), 1);
    EXPECT_EQ(out.str(), rows) << "parts that are unchanged are counted, too";
    EXPECT_EQ(Run({folder, "--summary", "findings", "--summary", "json"}), 1);
    EXPECT_THAT(out.str(), AllOf(testing::StartsWith("{\"files\":[\n"),
                                 HasSubstr(",\"left\":0,\"reports\":3,\"findings\":[\n{\"code\":"
                                           "\"VEKA-W005\",\"name\":\"surplus-value\","),
                                 EndsWith("\"files\":1,\"count\":1}\n]}\n")));
    EXPECT_EQ(Run({folder}), 1);
    EXPECT_THAT(out.str(), Not(HasSubstr("findings")));
    EXPECT_EQ(Run({folder + "/a.veka", "--summary", "findings", "-q"}), 0) << "one file, too";
    EXPECT_THAT(out.str(), HasSubstr("         2         1  VEKA-W005"));
}

TEST_F(BatchCommand, AFileThatCannotBeReadHasNoReport) {
    Write("a.veka", PartText("A"));
    EXPECT_EQ(Run({folder, folder + "/missing.veka", "--summary", "findings", "-q"}), 1);
    EXPECT_EQ(out.str(), "findings in 1 file: none\n");
}

#ifndef _WIN32
TEST_F(BatchCommand, ANameThatIsNoUtf8IsReadableJson) {
    Write("none \xFF.veka", "(VEK)");
    EXPECT_EQ(Run({folder, "--summary", "json"}), 1);
    EXPECT_THAT(out.str(), HasSubstr("{\"file\":\"" + folder + "/none \xF4\x8F\xBF\xBF.veka\",\"state\""));
    EXPECT_THAT(out.str(), HasSubstr("\"\\\"" + folder + "/none \xF4\x8F\xBF\xBF.veka\\\" holds no part"));
}
#endif

TEST_F(BatchCommand, ATerminalShowsOneLineInPlaceOfALineForEachPart) {
    Write("a.veka", PartText("A"));
    Write("b.veka", PartText("B\x1B[2J"));
    live = true;
    EXPECT_EQ(Run({folder}), 0);
    EXPECT_EQ(out.str(), "2 files: 2 stored\n");
    EXPECT_THAT(err.str(),
                AllOf(testing::StartsWith("\r1/2  "), EndsWith("\r\x1B[K"), Not(HasSubstr("[2J"))));
    EXPECT_EQ(Run({folder, "-q"}), 0);
    EXPECT_EQ(err.str(), "");
}

TEST_F(BatchCommand, ManyFilesHaveTheirReasonsAtTheEnd) {
    for (int i = 0; i < 60; ++i) Write("n" + std::to_string(i) + ".veka", "(VEK)");
    EXPECT_EQ(Run({folder}), 1);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("n0.veka\" holds no part with a part number\n"),
                                 EndsWith("and 10 more reasons; --summary json prints all\n"
                                          "60 files: 60 refused\n")));
}

/// Presses Ctrl-C when something is written.
class PressingCtrlC : public std::stringbuf {
protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        if (host::Interrupt::Happened()) return std::stringbuf::xsputn(text, size);
        std::raise(SIGINT);
        return std::stringbuf::xsputn(text, size);
    }
};

TEST_F(BatchCommand, CtrlCEndsItAfterThePartsInHandAndSaysHowManyAreLeft) {
    for (int i = 0; i < 1900; ++i)
        Write("p" + std::to_string(i) + ".veka", PartText("P" + std::to_string(i)));
    PressingCtrlC buffer;
    std::ostream pressed(&buffer);
    std::istringstream in;
    err.str("");
    host::RunHost({folder, "--library", library}, {in, pressed, err, false});
    EXPECT_TRUE(host::Interrupt::Happened());
    host::Interrupt::Forget();
    EXPECT_THAT(err.str(), EndsWith(" files are left; the same command goes on with them\n"));
    EXPECT_NE(buffer.str().find("1900 files: "), std::string::npos);
    const std::vector<std::string> names = test::Names(Root());
    const auto stored =
        std::count_if(names.begin(), names.end(), [](const std::string& name) { return name[0] != '.'; });
    EXPECT_GT(stored, 0);
    EXPECT_LT(stored, 1900);
    EXPECT_EQ(Run({folder, "--summary", "json"}), 0);
    const std::string text = out.str();
    EXPECT_EQ(text.substr(text.rfind("],")), "],\"stored\":" + std::to_string(1900 - stored) +
                                                 ",\"replaced\":0,\"unchanged\":" + std::to_string(stored) +
                                                 ",\"refused\":0,\"failed\":0,\"left\":0}\n");
}

TEST_F(BatchCommand, AnOutputThatIsFullIsOneSentenceAndStopsNoStore) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "This system has no full device.";
    for (int i = 0; i < 300; ++i) Write("p" + std::to_string(i) + ".veka", PartText("P" + std::to_string(i)));
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{}, std::vector<std::string>{"--summary", "json"}}) {
        std::ofstream full("/dev/full");
        std::istringstream in;
        err.str("");
        std::vector<std::string> arguments{folder, "--library", library};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(host::RunHost(arguments, {in, full, err, false}), 3);
        EXPECT_EQ(err.str(), "veka-host: standard output cannot be written\n");
    }
    EXPECT_EQ(Run({folder}), 0);
    EXPECT_THAT(out.str(), EndsWith("300 files: 300 unchanged\n"));
}

TEST_F(BatchCommand, AnIndexThatAnotherProgramHoldsIsOneSentenceAndStopsNoStore) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    Write("a.veka", PartText("A"));
    EXPECT_EQ(Run({folder}), 0);
    std::filesystem::remove_all(Root() / ".veka-index");
    const auto index = host::OpenIndex(Root());
    Write("b.veka", PartText("B"));
    int calls = 0;
    // The index is locked while this is called.
    index->Refresh([&](std::size_t, std::size_t) {
        if (calls++ > 0) return true;
        EXPECT_EQ(Run({folder}), 0);
        EXPECT_THAT(out.str(), EndsWith("2 files: 1 stored, 1 unchanged\n"));
        EXPECT_EQ(err.str(), "veka-host: the index of the library was not written: database is locked\n");
        EXPECT_EQ(Run({"--list"}), 0);
        EXPECT_THAT(out.str(), EndsWith("2 parts\n"));
        EXPECT_EQ(err.str(), "veka-host: the index of the library is made in memory: database is locked\n");
        return true;
    });
    EXPECT_EQ(Run({"--list"}), 0);
    EXPECT_THAT(out.str(), EndsWith("2 parts\n"));
    EXPECT_EQ(err.str(), "") << "as soon as the index is free, all is well";
}

constexpr int kFew = 40;

/// What becomes of an import on a disk that is full while the index is written.
enum FullDisk { kAllWritten = 10, kIndexNotWritten, kWrong };

TEST_F(BatchCommand, ADiskThatIsFullWhileTheIndexIsWrittenIsOneSentenceAndStopsNoStore) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    for (int i = 0; i < kFew; ++i)
        Write("p" + std::to_string(i) + ".veka", PartText("P" + std::to_string(i)));
    const std::filesystem::path disk = directory.Path() / "disk";
    std::filesystem::create_directory(disk);
    constexpr int kDisk = 1024;  // kB
    const auto import = [&](int room) -> int {
        if (!test::MountSmallDisk(disk, kDisk)) return test::kNotPossibleHere;
        library = (directory / "disk/lib").GetString();
        std::filesystem::create_directory(Root());
        const std::filesystem::path filling = disk / "filling";
        std::ofstream(filling) << std::string(static_cast<std::size_t>(kDisk - room) * 1024, 'x');
        if (Run({folder}) != 0 || !out.str().ends_with("40 files: 40 stored\n")) return kWrong;
        const std::string said = err.str();
        const std::string sentence = "veka-host: the index of the library was not written: ";
        if (!said.empty() && said != sentence + "the disk is full\n" &&
            said != sentence + "disk I/O error: No space left on device\n")
            return kWrong;
        for (int i = 0; i < kFew; ++i) {
            const std::string number = std::to_string(i);
            if (test::ReadFile(Root() / ("P" + number) / ("p" + number + ".veka")) != PartText("P" + number))
                return kWrong;
        }
        if (Run({"--list"}) != 0 || !out.str().ends_with("40 parts\n")) return kWrong;
        std::filesystem::remove(filling);
        for (const char* search : {"--list", "--verify"})
            if (Run({search}) != 0 || out.str().find("40 parts") == std::string::npos || !err.str().empty())
                return kWrong;
        return said.empty() ? kAllWritten : kIndexNotWritten;
    };
    std::vector<int> codes;
    for (int room = 4 * kFew + 20; room < 700; room += 20) {
        codes.push_back(test::InChild([&] { return import(room); }));
        if (codes.back() == test::kNotPossibleHere) GTEST_SKIP() << "No disk of one's own can be made here.";
        ASSERT_THAT(codes.back(), testing::AnyOf(kAllWritten, kIndexNotWritten)) << room << " kB";
    }
    EXPECT_EQ(codes.front(), kIndexNotWritten);
    EXPECT_EQ(codes.back(), kAllWritten);
}

TEST_F(BatchCommand, AnIndexThatCannotGrowIsOneSentenceAndStopsNoStore) {
    if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    for (int i = 0; i < kFew; ++i)
        Write("p" + std::to_string(i) + ".veka", PartText("P" + std::to_string(i)));
    const int code = test::InChild([&] {
        if (!test::LimitFiles(40'000)) return test::kNotPossibleHere;
        if (Run({folder}) != 0 || !out.str().ends_with("40 files: 40 stored\n")) return 1;
        const std::string said = err.str();
        return said.starts_with("veka-host: the index of the library was not written: disk I/O error") &&
                       said.find('\n') + 1 == said.size()
                   ? 0
                   : 2;
    });
    if (code == test::kNotPossibleHere) GTEST_SKIP() << "The size of files cannot be limited here.";
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Run({"--list"}), 0);
    EXPECT_THAT(out.str(), EndsWith("40 parts\n"));
    EXPECT_EQ(err.str(), "") << "the next command writes the index";
    EXPECT_EQ(Run({"--verify"}), 0);
}

TEST_F(BatchCommand, ALibraryInUseEndsItWithOneSentence) {
    for (const char* name : {"a.veka", "b.veka"}) Write(name, PartText(name));
    const host::Directory open(Root());
    const host::FileLock lock(open, ".veka-lock", nullptr);
    EXPECT_EQ(Run({folder, "--wait", "0"}), 3);
    EXPECT_THAT(
        err.str(),
        AllOf(HasSubstr("a.veka\" could not be stored: the library \"" + library + "\" is in use by"),
              EndsWith("1 file is left; the same command goes on with them\n"), Not(HasSubstr("b.veka"))));
}

}  // namespace
