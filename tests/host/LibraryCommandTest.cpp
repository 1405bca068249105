#include "host/LibraryCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "host/Host.h"
#include "host/LibraryIndex.h"
#include "support/Files.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class LibraryCommand : public testing::Test {
protected:
    LibraryCommand() {
        library = (directory / "lib").GetString();
        std::filesystem::create_directory(directory.Path() / "lib");
    }
    int Run(std::vector<std::string> arguments) {
        std::istringstream in;
        out.str("");
        err.str("");
        arguments.insert(arguments.end(), {"--library", library});
        return host::RunHost(arguments, {in, out, err, false});
    }
    void Import(const std::string& general) {
        ASSERT_EQ(Run({directory.Write("p.veka", "(VEK (PARTGENERAL " + general + "))").GetString()}), 0)
            << err.str();
    }

    test::TemporaryDirectory directory;
    std::string library;
    std::ostringstream out, err;
};

TEST_F(LibraryCommand, WithoutSqliteSaysSo) {
    if (host::HasIndex()) GTEST_SKIP() << "This program was built with SQLite.";
    EXPECT_EQ(Run({"--list"}), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was built without SQLite and has no index of a library\n");
}

class LibrarySearch : public LibraryCommand {
protected:
    void SetUp() override {
        if (!host::HasIndex()) GTEST_SKIP() << "This program was built without SQLite.";
    }
};

TEST_F(LibrarySearch, ListsPartsAsATable) {
    Import("(MPN A1) (MANUFACTURER Maker) (NUMBEROFPINS 3) (PACKAGETYPE SOT23) (PARTDESC \"A transistor\")");
    Import("(MPN B2) (PARTDESC \"" + std::string(200, 'd') + "\")");
    EXPECT_EQ(Run({"--list"}), 0);
    EXPECT_EQ(out.str().substr(0, out.str().find(std::string(60, 'd') + "\n")),
              "Number                            Manufacturer      Package               Pins   Footprints"
              "                        Description\n"
              "A1                                Maker             SOT23                 3      "
              "                                  A transistor\n"
              "B2                                                                        0      "
              "                                  ");
    EXPECT_THAT(out.str(), testing::EndsWith("2 parts\n"));
    EXPECT_EQ(Run({"--find", "trans"}), 0);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("A1 "), Not(HasSubstr("B2")), testing::EndsWith("1 part\n")));
    EXPECT_EQ(Run({"--where", "pins=3", "--where", "manufacturer=maker", "-q"}), 0);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("A1 "), Not(HasSubstr("1 part\n"))));
}

TEST_F(LibrarySearch, ListsPartsAsJson) {
    Import("(MPN \"A \xFF\") (CPN C1 C2)");
    EXPECT_EQ(Run({"--list", "json", "--find", "C2"}), 0);
    EXPECT_THAT(out.str(),
                AllOf(testing::StartsWith("[\n{\"part\":\"A&#32;&#255;\",\"number\":\"A \xF4\x8F\xBF\xBF\","),
                      HasSubstr(",\"companyNumbers\":[\"C1\",\"C2\"],\"families\":[],"),
                      HasSubstr("\"file\":\"p.veka\",\"size\":"), testing::EndsWith("Z\"}\n]\n")));
}

TEST_F(LibrarySearch, NothingFoundIsTheExitCode1) {
    EXPECT_EQ(Run({"--find", "x"}), 1);
    EXPECT_EQ(out.str(), "0 parts\n");
    EXPECT_EQ(Run({"--list", "json"}), 1);
    EXPECT_EQ(out.str(), "[\n]\n");
}

TEST_F(LibrarySearch, VerifyTellsWhatDoesNotHoldAndFails) {
    Import("(MPN A)");
    EXPECT_EQ(Run({"--verify"}), 0);
    EXPECT_EQ(out.str(), "1 parts can be read, 0 things do not hold\n");
    std::filesystem::remove(directory.Path() / "lib/A/p.veka");
    EXPECT_EQ(Run({"--verify"}), 3);
    EXPECT_EQ(out.str(), "0 parts can be read, 1 thing does not hold\n");
    EXPECT_EQ(err.str(), "veka-host: \"" + library + "/A\" has no file that is the part's, or several\n");
}

TEST_F(LibrarySearch, AnOutputThatIsFullIsOneSentence) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "This system has no full device.";
    Import("(MPN A)");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--list"}, std::vector<std::string>{"--list", "json"},
          std::vector<std::string>{"--find", "A"}, std::vector<std::string>{"--verify"}}) {
        std::vector<std::string> all = arguments;
        all.insert(all.end(), {"--library", library});
        std::ofstream full("/dev/full");
        std::istringstream in;
        err.str("");
        EXPECT_EQ(host::RunHost(all, {in, full, err, false}), 3) << arguments[0];
        EXPECT_EQ(err.str(), "veka-host: standard output cannot be written\n") << arguments[0];
    }
}

TEST_F(LibrarySearch, AMissingLibraryIsOneSentence) {
    library += "/missing";
    EXPECT_EQ(Run({"--list"}), 3);
    EXPECT_EQ(err.str(),
              "veka-host: cannot open the directory \"" + library + "\": No such file or directory\n");
}

TEST_F(LibrarySearch, NoTextOfAPartControlsTheTerminal) {
    Import("(MPN \"A\x1B[2J\") (PARTDESC \"\x9B[2J\xC2\x9B\")");
    EXPECT_EQ(Run({"--list"}), 0);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("A\\x1B[2J"), Not(HasSubstr("\x1B")), Not(HasSubstr("\x9B"))));
    EXPECT_EQ(Run({"--where", "\x1B[2J=8"}), 2);
    EXPECT_THAT(err.str(), Not(HasSubstr("\x1B")));
}

TEST_F(LibrarySearch, WrongUsageIsOneSentence) {
    EXPECT_EQ(Run({"--verify", "--find", "x"}), 2);
    EXPECT_EQ(Run({"file", "--find", "x"}), 2);
    EXPECT_EQ(Run({"--find", "x", "--undo"}), 2);
    EXPECT_EQ(Run({"--where", "colour=red"}), 2);
    EXPECT_THAT(err.str(),
                HasSubstr("\"colour=red\" is no condition such as pins=8; the fields are number, "));
    std::istringstream in;
    EXPECT_EQ(host::RunHost({"--find", "x"}, {in, out, err, false}), 2);
}

}  // namespace
