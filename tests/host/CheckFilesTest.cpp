#include "host/CheckFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "host/Host.h"
#include "support/Files.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kClean = "(VEK (PARTGENERAL (MPN A)))\n";
constexpr const char* kEmpty = "(VEK (PARTGENERAL (MPN A) (BOM)))\n";
constexpr const char* kWarning = "(VEK (PARTGENERAL (MPN A B)))\n";
constexpr const char* kError = "(VEK (PARTGENERAL (MPN A))\n";

/// One run of the program with some files in a directory.
struct Outcome {
    int code;
    std::string out, err;
};
class CheckFiles : public testing::Test {
protected:
    std::string Write(const char* name, const char* content) const {
        return std::string(m_directory.Write(name, content).View());
    }
    Outcome Check(std::vector<std::string> arguments, const std::string& input = "") const {
        std::istringstream in(input);
        std::ostringstream out, err;
        arguments.push_back("--check");
        const int code = host::RunHost(arguments, {in, out, err, false});
        return {code, out.str(), err.str()};
    }
    const test::TemporaryDirectory m_directory;
};

TEST_F(CheckFiles, OfACleanFileEndsWithNothing) {
    const std::string file = Write("a.veka", kClean);
    const Outcome run = Check({file});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, file + ": 0 errors, 0 warnings, 0 notes\n");
    EXPECT_EQ(run.err, "");
}

TEST_F(CheckFiles, PrintsFindingsAsACompilerDoes) {
    const std::string file = Write("a.veka", kWarning);
    const Outcome run = Check({file});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out,
              file + ":1: warning: the value \"B\" of MPN is not read: the first value counts [VEKA-W005]\n" +
                  file + ": 0 errors, 1 warning, 0 notes\n");
}

TEST_F(CheckFiles, AFileOverTheLimitIsRefused) {
    const std::string large(2 << 20, ' '), file = Write("a.veka", large.c_str());
    for (const std::string& name : {file, std::string("-")}) {
        const Outcome run = Check({name, "--max-size", "1"}, large);
        EXPECT_EQ(run.code, 3) << name;
        EXPECT_THAT(run.err, testing::HasSubstr("is larger than 1 MB; --max-size raises the limit")) << name;
    }
    EXPECT_EQ(Check({file, "--max-size", "0"}).code, 0);
}

TEST_F(CheckFiles, ANoteDoesNotFail) {
    const Outcome run = Check({Write("a.veka", kEmpty)});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, HasSubstr("note: BOM is empty and changes nothing [VEKA-W007]"));
}

TEST_F(CheckFiles, AnErrorEndsWithThree) {
    const Outcome run = Check({Write("a.veka", kError)});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.out, HasSubstr(":1: error: the level \"VEK\" is not closed"));
}

TEST_F(CheckFiles, SeveralFilesHaveASummaryEach) {
    const std::string one = Write("a.veka", kClean), two = Write("b.veka", kError);
    const Outcome run = Check({one, two});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.out, HasSubstr(one + ": 0 errors, 0 warnings, 0 notes\n"));
    EXPECT_THAT(run.out,
                HasSubstr(two + ": 1 error, 0 warnings, 0 notes\n2 files: 1 error, 0 warnings, 0 notes\n"));
}

TEST_F(CheckFiles, ADirectoryIsAllItsPartDataFiles) {
    Write("b.veka", kWarning);
    Write("a.veka", kClean);
    Write("c.txt", kError);
    const Outcome run = Check({std::string(veka::FromPath(m_directory.Path()).View())});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, HasSubstr("2 files: 0 errors, 1 warning, 0 notes\n"));
    EXPECT_LT(run.out.find("a.veka"), run.out.find("b.veka"));
    EXPECT_EQ(run.out.find("c.txt"), std::string::npos);
}

TEST_F(CheckFiles, ADirectoryWithoutPartDataFilesIsTold) {
    const Outcome run = Check({std::string(veka::FromPath(m_directory.Path()).View())});
    EXPECT_THAT(run.err, HasSubstr("holds no part data file"));
}

TEST_F(CheckFiles, AFileThatCannotBeReadDoesNotStopTheOthers) {
    const std::string file = Write("a.veka", kClean);
    const Outcome run = Check({file + ".none", file});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, StartsWith("veka-host: "));
    EXPECT_THAT(run.out, HasSubstr(file + ": 0 errors"));
}

TEST_F(CheckFiles, StandardInputIsAFile) {
    const Outcome run = Check({"-"}, kWarning);
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.out, StartsWith("-:1: warning: "));
}

TEST_F(CheckFiles, AQuietCheckPrintsTheFindingsAlone) {
    const Outcome run = Check({Write("a.veka", kClean), "--quiet"});
    EXPECT_EQ(run.out, "");
}

TEST_F(CheckFiles, LooksForStepFilesBesideThePart) {
    Write("there.step", "");
    const Outcome run = Check(
        {Write("a.veka",
               "(VEK (PACKAGES (PACKAGE (NAME a) (STEP gone.step)) (PACKAGE (NAME b) (STEP there.step))))")});
    EXPECT_THAT(run.out, HasSubstr("the file \"gone.step\" is not beside the part [VEKA-W053]"));
    EXPECT_EQ(run.out.find("there.step\" is"), std::string::npos);
}

TEST_F(CheckFiles, TakesNoOtherOptions) {
    const std::string file = Write("a.veka", kClean);
    EXPECT_EQ(Check({}).code, 2);
    EXPECT_EQ(Check({file, "--library", "x"}).code, 2);
    EXPECT_EQ(Check({file, "--print"}).code, 2);
    EXPECT_EQ(Check({file, "--open"}).code, 2);
}

TEST_F(CheckFiles, WritesSarif) {
    const std::string file = Write("a b.veka", kWarning);
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(host::RunHost({"--check", "json", file}, {in, out, err, false}), 1);
    EXPECT_THAT(out.str(), HasSubstr("\"version\":\"2.1.0\""));
    EXPECT_THAT(out.str(), HasSubstr("a%20b.veka"));
    EXPECT_THAT(out.str(),
                HasSubstr("\"region\":{\"startLine\":1,\"startColumn\":26,\"endLine\":1,\"endColumn\":27}"));
    EXPECT_THAT(out.str(), HasSubstr("\"properties\":{\"kind\":\"not-read\"}"));
}

}  // namespace
