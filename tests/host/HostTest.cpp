#include "host/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "host/Desktop.h"
#include "host/UnattendedUserInterface.h"
#include "support/Files.h"

namespace {

using testing::HasSubstr;

/// Windows that nobody sees, and an application that notes what it was started with.
class FakeDesktop : public host::Desktop {
public:
    host::Windows Kind() const override { return host::Windows::Qt; }
    bool HasDisplay() override { return display; }
    std::unique_ptr<veka::UserInterface> MakeUserInterface() override {
        return std::make_unique<host::UnattendedUserInterface>(in, out, out, host::Overwrite::Yes);
    }
    int RunApplication(const host::CommandLine& line) override {
        started = "application on \"" + line.file + "\"";
        return host::kImported;
    }

    bool display = true;
    std::string started;

private:
    std::istringstream in;
    std::ostringstream out;
};

class HostTest : public testing::Test {
protected:
    HostTest() {
        library = (directory / "lib").GetString();
        std::filesystem::create_directory(Root());
    }
    int Run(std::vector<std::string> arguments, const std::string& input = "",
            host::Desktop* desktop = nullptr) {
        std::istringstream in(input);
        out.str("");
        err.str("");
        return host::RunHost(arguments, in, out, err, desktop);
    }
    /// Imports a text unattended.
    int Import(std::string_view text, const std::string& overwrite = "ask", const std::string& input = "") {
        return Run(
            {directory.Write("part.veka", text).GetString(), "--library", library, "--overwrite", overwrite},
            input);
    }
    bool Stored(const char* name) const { return std::filesystem::exists(Root() / name / "part.veka"); }

    std::filesystem::path Root() const { return veka::ToPath(CString(library)); }

    test::TemporaryDirectory directory;
    std::string library;
    std::ostringstream out, err;
};

TEST_F(HostTest, ImportsShowsAndStoresAPart) {
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A/1) (MANUFACTURER Maker)))"), 0);
    EXPECT_THAT(out.str(), HasSubstr("Part A/1\n"));
    EXPECT_THAT(out.str(), HasSubstr("Manufacturer      Maker\n"));
    EXPECT_EQ(err.str(), "");
    EXPECT_TRUE(Stored("A&#47;1"));
}

TEST_F(HostTest, AsksBeforeAPartIsOverwritten) {
    const char* text = "(VEK (PARTGENERAL (MPN A)))";
    Import(text);
    EXPECT_EQ(Import(text, "ask", "y\n"), 0);
    EXPECT_EQ(Import(text, "ask", "n\n"), 1);
    EXPECT_EQ(err.str(), "veka-host: the part is in the library already and was left alone\n");
    EXPECT_EQ(Import(text, "ask"), 1) << "the end of the input is a No";
    EXPECT_EQ(Import(text, "yes"), 0);
    EXPECT_EQ(Import(text, "no"), 1);
}

TEST_F(HostTest, OverwritingReplacesTheStoredFile) {
    Import("(VEK (PARTGENERAL (MPN A)))");
    Import("(VEK (PARTGENERAL (MPN A) (UNIT MM)))", "yes");
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), "(VEK (PARTGENERAL (MPN A) (UNIT MM)))");
    Import("(VEK (PARTGENERAL (MPN A)))", "no");
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), "(VEK (PARTGENERAL (MPN A) (UNIT MM)))");
}

TEST_F(HostTest, APartWithoutANumberIsNeverStored) {
    for (const char* overwrite : {"yes", "no", "ask"}) {
        EXPECT_EQ(Import("(VEK (PARTGENERAL (UNIT MM)))", overwrite, "y\n"), 1);
        EXPECT_NE(err.str(), "");
    }
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(HostTest, AMissingFileIsRefused) {
    EXPECT_EQ(Run({(directory / "missing").GetString(), "--library", library}), 1);
    EXPECT_EQ(err.str(), "veka-host: VEK Ascii File Path Fail!\n");
}

TEST_F(HostTest, AMissingLibraryIsRefused) {
    EXPECT_EQ(Run({directory.Write("f", "").GetString(), "--library", (directory / "missing").GetString()}),
              1);
    EXPECT_EQ(err.str(), "veka-host: VEK Library Directory Not Exist!\n");
}

TEST_F(HostTest, ADirectoryInPlaceOfAFileHoldsNoPart) {
    EXPECT_EQ(Run({veka::FromPath(directory.Path()).GetString(), "--library", library, "--overwrite", "yes"}),
              1);
    EXPECT_THAT(err.str(), HasSubstr("holds no part with a part number"));
}

TEST_F(HostTest, AFileThatCannotBeReadFails) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    EXPECT_EQ(Run({"/proc/self/mem", "--library", library}), 3);
    EXPECT_EQ(
        err.str(),
        "veka-host: \"/proc/self/mem\" could not be imported: The file \"/proc/self/mem\" cannot be read.\n");
}

TEST_F(HostTest, ALibraryThatCannotBeWrittenFails) {
    // A regular file can be no library, whoever asks; a directory without rights still lets the superuser in.
    std::ofstream(directory.Path() / "file").put('x');
    EXPECT_EQ(Run({directory.Write("f", "(VEK (PARTGENERAL (MPN A)))").GetString(), "--library",
                   (directory / "file").GetString()}),
              3);
    EXPECT_THAT(err.str(), HasSubstr("veka-host: the part could not be stored: cannot open the directory"));
    using std::filesystem::perms;
    std::filesystem::permissions(Root(), perms::owner_read | perms::owner_exec);
    if (!std::ofstream(Root() / "probe")) {
        EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A)))"), 3);
        EXPECT_TRUE(std::filesystem::is_empty(Root()));
    }
    std::filesystem::permissions(Root(), perms::owner_all);
}

TEST_F(HostTest, ABraceErrorIsToldAndTheRestIsImported) {
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A)))\n)("), 0);
    EXPECT_EQ(err.str(), "veka-host: Parser meet unexpected Brace Counting Number, 0 at line number 2.!\n");
}

TEST_F(HostTest, WrongUsageIsOneSentence) {
    EXPECT_EQ(Run({"--what"}), 2);
    EXPECT_EQ(err.str(), "veka-host: unknown option --what (--help tells more)\n");
}

TEST_F(HostTest, PrintsAPartWithoutStoringIt) {
    const std::string file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))").GetString();
    EXPECT_EQ(Run({file, "--print"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("      MPN               A\n"));
    EXPECT_THAT(out.str(), HasSubstr("NumberOfPins      0\n")) << "every field";
    EXPECT_EQ(Run({file, "--print", "json"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\"MPN\":\"A\""));
    EXPECT_EQ(Run({(directory / "missing").GetString(), "--print"}), 1);
    EXPECT_THAT(err.str(), HasSubstr("there is no file"));
}

TEST_F(HostTest, PrintsAndStoresWithALibrary) {
    EXPECT_EQ(Run({directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))").GetString(), "--library",
                   library, "--print", "json"}),
              0);
    EXPECT_EQ(out.str()[0], '{');
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, AProgramWithoutSolidsSaysSo) {
    EXPECT_EQ(Run({directory.Write("f", "").GetString(), "--step", (directory / "out.step").GetString()}), 3);
    EXPECT_EQ(err.str(),
              "veka-host: no solids were written: this program was built without OpenCASCADE and cannot make "
              "solids\n");
}

TEST_F(HostTest, AnAbsentChildIsOneSentenceAndStoresNothing) {
    EXPECT_EQ(
        Import(
            "(VEK (PARTGENERAL (MPN A)) (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))",
            "yes"),
        3);
    EXPECT_THAT(err.str(),
                testing::EndsWith(
                    "could not be imported: The level \"MECHANICALPIN\" has no child at position 1.\n"));
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(HostTest, HelpIsShown) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("usage: veka-host"));
}

TEST_F(HostTest, WithoutAFileTheDialogAsksOnTheTerminal) {
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))");
    EXPECT_EQ(Run({}, std::string(file.View()) + "\n" + library + "\n"), 0);
    EXPECT_TRUE(Stored("A"));
    EXPECT_EQ(Run({"--library", library}, std::string(file.View()) + "\n\nn\n"), 1) << "then the input ends";
    EXPECT_EQ(Run({}), 1);
}

TEST_F(HostTest, WithADisplayTheApplicationIsRun) {
    FakeDesktop desktop;
    EXPECT_EQ(Run({}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "application on \"\"");
    EXPECT_EQ(Run({"f", "--ui", "qt"}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "application on \"f\"");
}

TEST_F(HostTest, WindowsThatAreToPrintEndWithTheDialog) {
    FakeDesktop desktop;
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))");
    EXPECT_EQ(Run({file.GetString(), "--ui", "qt", "--library", library, "--print"}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "");
    EXPECT_THAT(out.str(), HasSubstr("MPN               A\n"));
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, WithoutADisplayTheTerminalAsks) {
    FakeDesktop desktop;
    desktop.display = false;
    EXPECT_EQ(Run({}, "", &desktop), 1);
    EXPECT_THAT(out.str(), HasSubstr("Import ASCII Part Data File"));
    desktop.display = true;
    EXPECT_EQ(Run({"--ui", "console"}, "", &desktop), 1);
    EXPECT_THAT(out.str(), HasSubstr("Import ASCII Part Data File"));
    EXPECT_EQ(desktop.started, "");
}

TEST_F(HostTest, WindowsThatCannotBeShownAreAFailure) {
    FakeDesktop desktop;
    desktop.display = false;
    EXPECT_EQ(Run({"--ui", "qt"}, "", &desktop), 3);
    EXPECT_EQ(err.str(), "veka-host: there is no display to show windows on\n");
    EXPECT_EQ(Run({"--ui", "qt"}), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was built without Qt\n");
    EXPECT_EQ(Run({"--ui", "win32"}, "", &desktop), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was not built for Windows\n");
}

TEST_F(HostTest, AnEmptyAnswerOnTheTerminalKeepsTheFileOfTheCommandLine) {
    const CString file = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))");
    EXPECT_EQ(Run({file.GetString(), "--ui", "console"}, "\n" + library + "\n"), 0);
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, APartNumberCannotLeaveTheLibrary) {
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN ../../escape)))"), 0);
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN ..)))"), 0);
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN \"" + std::string(5000, '/') + "\")))"), 0);
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path()))
        EXPECT_THAT(entry.path().filename().string(), testing::AnyOf("lib", "part.veka"));
}

}  // namespace
