// What the program writes when a file, a name or an option holds bytes that control a terminal.

#include "host/Messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "host/Host.h"
#include "support/Files.h"
#include "support/TerminalText.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Terminal : public testing::Test {
protected:
    /// Runs the program. Expects that neither of its outputs controls a terminal, and that there is one.
    int Run(const std::vector<std::string>& arguments, const std::string& input = "") {
        std::istringstream in(input);
        out.str("");
        err.str("");
        const int code = host::RunHost(arguments, {in, out, err, true}, nullptr);
        EXPECT_EQ(test::TerminalFault(out.str()), "");
        EXPECT_EQ(test::TerminalFault(err.str()), "");
        EXPECT_NE(out.str() + err.str(), "");
        return code;
    }
    std::string Path(const std::string& name) const { return (directory / name).GetString(); }
    std::string Write(const std::string& name, const std::string& text) const {
        return directory.Write(name, text).GetString();
    }

    test::TemporaryDirectory directory;
    std::ostringstream out, err;
    /// A string of a file can hold every byte but a quote.
    const std::string evil = test::EveryByte("\""), quoted = '"' + evil + '"';
};

TEST_F(Terminal, IsNotControlledByASentence) {
    host::Messages(err).Say(test::EveryByte() + std::string(1, '\0'));
    EXPECT_EQ(test::TerminalFault(err.str()), "");
    EXPECT_THAT(err.str(), HasSubstr("x\\x01x\\x02x"));
    EXPECT_THAT(err.str(), HasSubstr("x\\xC2\\x9Bx"));
}

TEST_F(Terminal, IsNotControlledByThePrintedPart) {
    const std::string file =
        Write("part.veka", "(VEK (PARTGENERAL (MPN " + quoted + ") (MANUFACTURER " + quoted + ") (PARTDESC " +
                               quoted + ") (CPN " + quoted + ' ' + quoted +
                               "))(ELECTRICAL (ELECTRICALPINS (EPIN (NAME " + quoted + ") (SNAME " + quoted +
                               ")))) (PACKAGES (PACKAGE (NAME " + quoted +
                               "))))(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME " + quoted + ")))");
    EXPECT_EQ(Run({file}), 0);
    EXPECT_EQ(Run({file, "--print"}), 0);
    EXPECT_EQ(Run({file, "--print", "json"}), 0);
    EXPECT_EQ(Run({file, "--pins"}), 0);
    EXPECT_EQ(Run({file, "--pins", "csv"}), 0);
    EXPECT_EQ(Run({file, file}), 0);
}

TEST_F(Terminal, IsNotControlledByTheFaultsOfAFile) {
    const std::string level = test::EveryByte("\"() \t\r\n\f\v");
    EXPECT_EQ(Run({Write("unread.veka", "(VEK (PARTGENERAL (MPN A)))(" + level + ")")}), 0);
    EXPECT_NE(err.str(), "") << "nothing reads the section";
    EXPECT_EQ(Run({Write("open.veka", "(VEK (PARTGENERAL (MPN A)) (" + level)}), 1);
    EXPECT_NE(err.str(), "") << "the file ends in a level";
    EXPECT_EQ(Run({Write("none.veka", level)}), 1);
    EXPECT_NE(err.str(), "") << "the file holds no part";
    Run({Write("fails.veka", "(VEK (PACKAGES (PACKAGE (MECHANICALPINS (" + level + ") (MECHANICALPIN " +
                                 quoted + " (PT 1))))))")});
    EXPECT_NE(err.str(), "") << "a mechanical pin lacks its child";
}

TEST_F(Terminal, IsNotControlledByFindings) {
    const std::string level = test::EveryByte("\"() \t\r\n\f\v");
    const std::string file = Write(
        "part.veka", "(VEK (PARTGENERAL (MPN " + quoted + ' ' + quoted + ") (NUMBEROFPINS " + quoted + ") (" +
                         level + ' ' + quoted + ") (LAYOUT (" + level + "))) (PACKAGES (DEFAULTPACKAGE " +
                         quoted + ") (PACKAGE (NAME Q) (DEFAULTFOOTPRINT " + quoted + "))))\n(" + level +
                         ")\n" + level + "\n(FOOTPRINTS (FOOTPRINT (FPINS (FPIN " + quoted + ' ' + quoted +
                         " (LIBPADSTACK " + quoted + ")))))(VEK");
    EXPECT_EQ(Run({"--check", file}), 3);
    const std::string lines = out.str();
    EXPECT_GT(std::count(lines.begin(), lines.end(), '\n'), 8);
    EXPECT_EQ(Run({"--check", "json", file}), 3);
}

TEST_F(Terminal, IsNotControlledByNamesOfFilesAndOptions) {
#ifdef _WIN32
    GTEST_SKIP() << "Names of files have no such bytes here.";
#else
    // A name has 255 bytes at most.
    const std::string all = test::EveryByte("/");
    fs::create_directory(Path("library"));
    int number = 0;
    for (std::size_t at = 0; at < all.size(); at += 100) {
        const std::string name = std::to_string(++number) + all.substr(at, 100);
        SCOPED_TRACE(number);
        EXPECT_NE(Run({Path(name)}), 0) << "there is no file";
        fs::create_directory(Path(name));
        EXPECT_NE(Run({Path(name)}), 0) << "a directory";
        const std::string file =
            Write("part of " + name, "(VEK (PARTGENERAL (MPN A" + std::to_string(number) + ")))");
        EXPECT_EQ(Run({file}), 0);
        EXPECT_EQ(Run({file, "--library", Path(name)}), 0) << "stored in a library of that name";
        EXPECT_NE(Run({file, "--library", Path(name)}, "n\n"), 0) << "asked and left alone";
        EXPECT_EQ(Run({file, "--library", Path(name)}, "y\n"), 0) << "asked and replaced";
        EXPECT_EQ(Run({"--undo", "--library", Path(name)}), 0);
        EXPECT_EQ(Run({file, file, "--library", Path("library"), "--overwrite", "yes"}), 0);
        EXPECT_NE(Run({file, "--library", Path("missing") + name}), 0);
        EXPECT_NE(Run({file, "--picture", Path("missing") + name + "/x.svg"}), 0);
        EXPECT_NE(Run({file, "--picture", file}), 0) << "the output is the input";
        EXPECT_NE(Run({file, "--picture", Path(name)}), 0) << "the output is a directory";
        EXPECT_NE(Run({file, "--step", Path(name) + "/x.step"}), 0);
        EXPECT_EQ(Run({"--check", file}), 0);
        EXPECT_NE(Run({"--check", Path("missing") + name, Path(name)}), 0);
        for (const char* option :
             {"--print", "--overwrite", "--check", "--of", "--wait", "--max-size", "--ui"})
            EXPECT_NE(Run({file, std::string(option) + '=' + name}), 0) << option;
        EXPECT_NE(Run({"--" + name, file}), 0);
        EXPECT_NE(Run({"--undo=" + name, "--library", Path("library")}), 0);
    }
#endif
}

TEST_F(Terminal, IsNotControlledByThePartNumberInALibrary) {
    fs::create_directory(Path("library"));
    const std::string file = Write("part.veka", "(VEK (PARTGENERAL (MPN " + quoted + ")))");
    EXPECT_EQ(Run({file, "--library", Path("library")}), 0);
    EXPECT_NE(Run({file, "--library", Path("library")}, "n\n"), 0);
    EXPECT_EQ(Run({file, "--library", Path("library")}, "y\n"), 0);
    EXPECT_EQ(Run({"--undo", "--library", Path("library")}), 0);
}

TEST_F(Terminal, IsNotControlledByWhatIsSaidOfAPicture) {
    const std::string file =
        Write("part.veka", "(VEK (PARTGENERAL (MPN A) (UNIT " + quoted + ")) (PACKAGES (PACKAGE (NAME " +
                               quoted + ") (DEFAULTFOOTPRINT " + quoted + ") (PKGPINS (PKGPIN " + quoted +
                               " (LEAD (GULLWING)))))))(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME " + quoted +
                               ") (FPINS (FPIN 1 " + quoted + " (LIBPADSTACK " + quoted + ")))))");
    for (const char* of : {"footprint", "package", "symbol", "all"})
        Run({file, "--picture", Path("x.svg"), "--of", of});
}

}  // namespace
