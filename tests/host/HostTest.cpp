#include "host/Host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "host/Desktop.h"
#include "host/SafeFiles.h"
#include "platform/Utf8.h"
#include "platform/Version.h"
#include "support/Files.h"
#include "support/ScriptedUserInterface.h"
#include "window/AfxMessageBox.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kPart = "(VEK (PARTGENERAL (MPN A)))";

/// Windows in which OK is pressed once and every question is answered with Yes.
class PressingUserInterface : public veka::UserInterface {
public:
    void ShowMessage(const CString&) override {}
    bool AskYesNo(const CString&) override { return true; }
    CString PickFile(const CString&, const CString&, const CString&, void*) override { return ""; }
    CString PickDirectory(const CString&, const CString&, void*) override { return ""; }
    std::unique_ptr<veka::DialogWindow> MakeDialogWindow(const veka::DialogTemplate& dialog,
                                                         veka::DialogEvents& events, void*) override {
        return std::make_unique<test::ScriptedWindow>(dialog, events, test::PressOk);
    }
};

/// Windows that nobody sees, and an application that notes what it was started with.
class FakeDesktop : public host::Desktop {
public:
    host::Windows Kind() const override { return host::Windows::Qt; }
    bool HasDisplay() override { return display; }
    std::unique_ptr<veka::UserInterface> MakeUserInterface() override {
        return std::make_unique<PressingUserInterface>();
    }
    int RunApplication(const host::CommandLine& line) override {
        started = "application on";
        for (const std::string& file : line.files) started += ' ' + file;
        return host::kImported;
    }

    bool display = true;
    std::string started;
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
        return host::RunHost(arguments, {in, out, err, terminal}, desktop);
    }
    std::string Write(const char* name, std::string_view text) {
        return directory.Write(name, text).GetString();
    }
    /// Imports a text unattended.
    int Import(std::string_view text, const std::string& overwrite = "ask", const std::string& input = "") {
        return Run({Write("part.veka", text), "--library", library, "--overwrite", overwrite}, input);
    }
    /// Number of lines of the output.
    std::ptrdiff_t Lines() const {
        const std::string text = out.str();
        return std::count(text.begin(), text.end(), '\n');
    }
    bool Stored(const char* name) const { return std::filesystem::exists(Root() / name / "part.veka"); }

    std::filesystem::path Root() const { return veka::ToPath(CString(library)); }

    test::TemporaryDirectory directory;
    std::string library;
    std::ostringstream out, err;
    bool terminal = true;
};

TEST_F(HostTest, ImportsShowsAndStoresAPart) {
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A/1) (MANUFACTURER Maker) (NUMBEROFPINS 3)))"), 0);
    EXPECT_EQ(out.str(), "Part          A/1\nManufacturer  Maker\nPins          3\nStored as A&#47;1 in " +
                             library + "\n");
    EXPECT_EQ(err.str(), "");
    EXPECT_TRUE(Stored("A&#47;1"));
}

TEST_F(HostTest, WithoutALibraryAPartIsShownAndNothingIsStored) {
    EXPECT_EQ(Run({Write("part.veka", kPart)}), 0);
    EXPECT_EQ(out.str(), "Part          A\nPins          0\n");
    EXPECT_EQ(Run({Write("part.veka", kPart), "--quiet"}), 0);
    EXPECT_EQ(out.str(), "");
}

TEST_F(HostTest, TheSummaryOfARealPartIsShort) {
    EXPECT_EQ(Run({veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka").GetString()}), 0);
    EXPECT_LE(Lines(), 10);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("Packages      1: SO8\n"), HasSubstr("Footprints    1: SO8N\n"),
                                 HasSubstr("Symbols       1: OPAMP\n")));
}

TEST_F(HostTest, AsksBeforeAPartIsOverwritten) {
    Import(kPart);
    EXPECT_EQ(Import(kPart, "ask", "y\n"), 0);
    EXPECT_THAT(err.str(),
                EndsWith("\"A\" is in the library \"" + library + "\" already. Replace it? [y/n]: "));
    EXPECT_THAT(out.str(), HasSubstr("The part that was there is kept; --undo restores it.\n"));
    EXPECT_EQ(Import(kPart, "ask", "n\n"), 1);
    EXPECT_THAT(err.str(), EndsWith("veka-host: \"A\" is in the library already and was left alone\n"));
    EXPECT_EQ(Import(kPart, "ask"), 1) << "the end of the input is a No";
    EXPECT_EQ(Import(kPart, "yes"), 0);
    EXPECT_EQ(Import(kPart, "no"), 1);
}

TEST_F(HostTest, AsksOnATerminalOnly) {
    Import(kPart);
    terminal = false;
    std::istringstream in("y\nthe next line of a script\n");
    err.str("");
    EXPECT_EQ(host::RunHost({Write("part.veka", kPart), "--library", library}, {in, out, err, false}), 1);
    EXPECT_EQ(err.str(),
              "veka-host: \"A\" is in the library already and was left alone; --overwrite yes replaces it\n");
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "y") << "nothing was taken from the input";
}

TEST_F(HostTest, OverwritingReplacesTheStoredFileAndUndoRestoresIt) {
    const std::string other = "(VEK (PARTGENERAL (MPN A) (UNIT MM)))";
    Import(kPart);
    Import(other, "yes");
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), other);
    Import(kPart, "no");
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), other);
    EXPECT_EQ(Run({"--undo", "--library", library}), 0);
    EXPECT_EQ(out.str(), "Restored A in " + library + "\n");
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), kPart);
    EXPECT_EQ(Run({"--undo", "A", "B", "--library", library}), 1);
    EXPECT_EQ(test::ReadFile(Root() / "A/part.veka"), other);
    EXPECT_EQ(err.str(), "veka-host: the library keeps no replaced part \"B\"\n");
}

TEST_F(HostTest, UndoTakesPartNumbers) {
    Import("(VEK (PARTGENERAL (MPN A/1)))");
    Import("(VEK (PARTGENERAL (MPN A/1) (UNIT MM)))", "yes");
    EXPECT_EQ(Run({"--undo", "A/1", "--library", library}), 0);
    EXPECT_EQ(Run({"--undo", "--library", (directory / "missing").GetString()}), 3);
    EXPECT_THAT(err.str(), HasSubstr("no part was restored: cannot open the directory"));
}

TEST_F(HostTest, APartWithoutANumberIsNeverStored) {
    for (const char* overwrite : {"yes", "no", "ask"}) {
        EXPECT_EQ(Import("(VEK (PARTGENERAL (UNIT MM)))", overwrite, "y\n"), 1);
        EXPECT_THAT(err.str(), HasSubstr("part.veka\" holds no part with a part number\n"));
    }
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(HostTest, AMissingFileIsRefused) {
    const std::string missing = (directory / "missing").GetString();
    for (const auto& arguments :
         {std::vector<std::string>{missing, "--library", library}, {missing, "--print"}}) {
        EXPECT_EQ(Run(arguments), 1);
        EXPECT_EQ(err.str(), "veka-host: there is no file \"" + missing + "\"\n");
        EXPECT_EQ(out.str(), "");
    }
}

TEST_F(HostTest, AMissingLibraryIsAFailureThatNamesIt) {
    EXPECT_EQ(Run({Write("f", kPart), "--library", (directory / "missing").GetString()}), 3);
    EXPECT_THAT(err.str(), AllOf(HasSubstr("f\" could not be stored: cannot open the directory \""),
                                 HasSubstr("missing\"")));
}

TEST_F(HostTest, ADirectoryInPlaceOfAFileIsAFailureWithoutALibrary) {
    const std::string path = veka::FromPath(directory.Path()).GetString();
    EXPECT_EQ(Run({path, "--print"}), 3);
    EXPECT_EQ(err.str(), "veka-host: \"" + path + "\" is a directory, and no regular file\n");
    EXPECT_EQ(out.str(), "");
}

TEST_F(HostTest, AFileThatCannotBeReadFails) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    EXPECT_EQ(Run({"/proc/self/mem", "--library", library}), 3);
    EXPECT_THAT(err.str(), testing::StartsWith("veka-host: cannot read \"/proc/self/mem\": "));
    EXPECT_EQ(Run({"/proc/self/mem", "--print"}), 3);
}

TEST_F(HostTest, APipeIsRefusedAndNotWaitedFor) {
#ifdef _WIN32
    GTEST_SKIP() << "The tests make no pipes here.";
#else
    const std::string pipe = (directory / "pipe").GetString();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    EXPECT_EQ(Run({pipe, "--library", library}), 3);
    EXPECT_EQ(err.str(), "veka-host: \"" + pipe + "\" is a pipe, and no regular file\n");
#endif
}

TEST_F(HostTest, StandardInputIsStoredAsItWasRead) {
    const std::string text = std::string(kPart) + "\n// " + std::string(1'000'000, 'x');
    EXPECT_EQ(Run({"-", "--library", library}, text), 0);
    EXPECT_EQ(test::ReadFile(Root() / "A/A.veka"), text);
    terminal = false;
    EXPECT_EQ(Run({"-", "--library", library}, text), 1) << "nobody can be asked";
    EXPECT_EQ(Run({"-", "--print", "json"}, text), 0);
    EXPECT_THAT(out.str(), HasSubstr("\"MPN\":\"A\""));
}

TEST_F(HostTest, ALibraryThatCannotBeWrittenFails) {
    // A regular file can be no library, whoever asks; a directory without rights still lets the superuser in.
    std::ofstream(directory.Path() / "file").put('x');
    EXPECT_EQ(Run({Write("f", kPart), "--library", (directory / "file").GetString()}), 3);
    EXPECT_THAT(err.str(), HasSubstr("f\" could not be stored: cannot open the directory"));
    using std::filesystem::perms;
    std::filesystem::permissions(Root(), perms::owner_read | perms::owner_exec);
    if (!std::ofstream(Root() / "probe")) {
        EXPECT_EQ(Import(kPart), 3);
        EXPECT_TRUE(std::filesystem::is_empty(Root()));
    }
    std::filesystem::permissions(Root(), perms::owner_all);
}

TEST_F(HostTest, WrongUsageIsOneSentence) {
    EXPECT_EQ(Run({"--what"}), 2);
    EXPECT_EQ(err.str(), "veka-host: unknown option --what (--help tells more)\n");
}

TEST_F(HostTest, PrintsAPartWithoutStoringIt) {
    const std::string file = Write("part.veka", kPart);
    EXPECT_EQ(Run({file, "--print"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("      MPN               A\n"));
    EXPECT_THAT(out.str(), HasSubstr("NumberOfPins      0\n")) << "every field";
    EXPECT_EQ(Run({file, "--print", "json"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\"MPN\":\"A\""));
}

TEST_F(HostTest, PrintsAndStoresWithALibrary) {
    EXPECT_EQ(Run({Write("part.veka", kPart), "--library", library, "--print", "json"}), 0);
    EXPECT_EQ(out.str()[0], '{');
    EXPECT_EQ(Lines(), 1) << "nothing but JSON";
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, AQuestionIsNoPartOfTheOutput) {
    Import(kPart);
    EXPECT_EQ(Run({Write("part.veka", kPart), "--library", library, "--print", "json"}, "y\n"), 0);
    EXPECT_EQ(Lines(), 1);
    EXPECT_THAT(err.str(), HasSubstr("[y/n]"));
}

TEST_F(HostTest, PrintsThePinsAsATable) {
    const std::string file = veka::FromPath(test::ProjectFolder("examples") / "op-amp.veka").GetString();
    EXPECT_EQ(Run({file, "--pins"}), 0);
    EXPECT_THAT(out.str(), testing::StartsWith("Number  Name  Type    Padstack  X     Y\n"
                                               "1       OUTA  OUTPUT  R06X15T   -2.7  1.905\n"));
    EXPECT_EQ(Run({file, "--pins", "csv"}), 0);
    EXPECT_THAT(out.str(),
                testing::StartsWith("Number,Name,Type,Padstack,X,Y\n1,OUTA,OUTPUT,R06X15T,-2.7,1.905\n"));
}

TEST_F(HostTest, SeveralFilesAreImportedAndEachIsReported) {
    const std::string a = Write("a.veka", kPart), b = Write("b.veka", "(VEK (PARTGENERAL (MPN B)))"),
                      missing = (directory / "missing").GetString();
    EXPECT_EQ(Run({a, missing, b, "--library", library}), 1);
    EXPECT_EQ(out.str(), a + ": Stored as A in " + library + "\n" + b + ": Stored as B in " + library +
                             "\n3 files: 1 refused, 2 stored\n");
    EXPECT_EQ(err.str(), "veka-host: there is no file \"" + missing + "\"\n");
    EXPECT_EQ(Run({a, b, "--library", library, "--overwrite", "yes", "-q"}), 0);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(Run({a, b, "--print", "json"}), 0);
    EXPECT_EQ(Lines(), 2) << "one line for each file";
}

TEST_F(HostTest, DrawsAPart) {
    const std::string picture = (directory / "out.svg").GetString();
    const std::string part =
        Write("part.veka",
              "(VEK (PARTGENERAL (MPN A)))(PADS (PAD (PADNAME P) (FILLCIRCLE (D 1))))"
              "(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P))))"
              "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (FPINS (FPIN 1 1 (LIBPADSTACK S)))))");
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture}), 0) << err.str();
    EXPECT_EQ(err.str(), "");
    EXPECT_THAT(test::ReadFile(picture),
                AllOf(HasSubstr("<title>Footprint F</title>"), EndsWith("</svg>\n")));
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture, "--of", "padstack"}), 0);
    EXPECT_THAT(test::ReadFile(picture), HasSubstr("<title>Padstack S</title>"));
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture, "--of", "symbol"}), 3);
    EXPECT_EQ(err.str(), "veka-host: no picture of \"" + part + "\" was written: the part has no symbol\n");
    EXPECT_THAT(test::ReadFile(picture), HasSubstr("Padstack S")) << "what was there stays";
    EXPECT_EQ(Run({part, "--picture", part}), 1) << "the part itself is no place for a picture";
}

TEST_F(HostTest, WhatCannotBeDrawnIsTold) {
    const std::string picture = (directory / "out.svg").GetString();
    const std::string part = Write(
        "part.veka",
        "(VEK (PARTGENERAL (MPN A)))(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) (CAMLAYERS (LAYER (LNAME A)"
        " (FILLCIRCLE (D -1)) (FILLCIRCLE (D 1))))))");
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture}), 0);
    EXPECT_EQ(err.str(), "veka-host: Footprint F: 1 object is left out: a size or a place cannot be drawn\n");
    const std::string nothing = Write("nothing.veka", "(VEK (PARTGENERAL (MPN A)))");
    EXPECT_EQ(Run({nothing, "--quiet", "--picture", picture}), 3);
    EXPECT_THAT(err.str(), HasSubstr("there is nothing to draw"));
}

TEST_F(HostTest, APngPictureNeedsWindows) {
    const std::string part = Write("part.veka",
                                   "(VEK (PARTGENERAL (MPN A)))(FOOTPRINTS (FOOTPRINT (CAMLAYERS (LAYER "
                                   "(LNAME A) (FILLCIRCLE (D 1))))))");
    const std::string picture = (directory / "out.PNG").GetString();
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture}), 3);
    EXPECT_THAT(err.str(), HasSubstr("built without Qt"));
    FakeDesktop desktop;
    EXPECT_EQ(Run({part, "--quiet", "--picture", picture}, "", &desktop), 3) << "nor can every window";
    EXPECT_FALSE(std::filesystem::exists(directory.Path() / "out.PNG"));
}

TEST_F(HostTest, APictureIsNoMoreThanTenTimesTheFile) {
    // One pad of many corners, used by many pins.
    std::string lines, pins;
    for (int i = 0; i < 300; ++i)
        lines += "(LINE(PT " + std::to_string(i) + " 0)(PT " + std::to_string(i + 1) + " 1))";
    for (int i = 0; i < 1000; ++i) pins += "(FPIN 1 A(LIBPADSTACK B))";
    const std::string part = Write("part.veka", "(VEK (PARTGENERAL (MPN A)))(PADS(PAD(PADNAME B)" + lines +
                                                    "))(PADSTACKS(PADSTACK(PADSTACKNAME B)(TOP(CON B))))"
                                                    "(FOOTPRINTS(FOOTPRINT(FPINS" +
                                                    pins + ")))");
    EXPECT_EQ(Run({part, "--quiet", "--picture", (directory / "out.svg").GetString()}), 3);
    EXPECT_THAT(err.str(), HasSubstr("the picture would have more than 1000000 bytes"));
    EXPECT_FALSE(std::filesystem::exists(directory.Path() / "out.svg"));
}

TEST_F(HostTest, AProgramWithoutSolidsSaysSo) {
    EXPECT_EQ(Run({Write("f", kPart), "--step", (directory / "out.step").GetString()}), 3);
    EXPECT_THAT(
        err.str(),
        HasSubstr("f\" were written: this program was built without OpenCASCADE and cannot make solids\n"));
}

TEST_F(HostTest, SolidsThatFailDoNotStopTheStore) {
    EXPECT_EQ(Run({Write("part.veka", kPart), "--library", library, "--step",
                   (directory / "out.step").GetString()}),
              3);
    EXPECT_TRUE(Stored("A"));
    EXPECT_FALSE(std::filesystem::exists(directory.Path() / "out.step"));
}

TEST_F(HostTest, AnOutputThatIsTheInputOrAStoredPartIsRefused) {
    const std::string file = Write("part.veka", kPart);
    EXPECT_EQ(Run({file, "--step", file, "--library", library}), 1);
    EXPECT_EQ(err.str(), "veka-host: \"" + file + "\" is the file that is imported\n");
    EXPECT_EQ(test::ReadFile(directory.Path() / "part.veka"), kPart);
    EXPECT_FALSE(Stored("A")) << "a command that would damage something does nothing";
    const std::string inside = (Root() / "A/part.veka").string();
    EXPECT_EQ(Run({file, "--gltf", inside, "--library", library}), 1);
    EXPECT_EQ(err.str(), "veka-host: \"" + inside + "\" lies in the place of a part in the library\n");
}

TEST_F(HostTest, AnAbsentChildIsOneSentenceAndStoresNothing) {
    EXPECT_EQ(
        Import(
            "(VEK (PARTGENERAL (MPN A)) (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))",
            "yes"),
        3);
    EXPECT_THAT(err.str(),
                EndsWith("could not be imported: The level \"MECHANICALPIN\" has no child at position 1.\n"));
    EXPECT_TRUE(std::filesystem::is_empty(Root()));
}

TEST_F(HostTest, ATruncatedFileIsToldByTheLevelThatIsOpen) {
    const std::string file = Write("part.veka", "(FONTS)\n(VEK (PARTGENERAL (MPN A))\n(LAYERS (LAYER");
    EXPECT_EQ(Run({file, "--library", library}), 1);
    EXPECT_EQ(err.str(), "veka-host: \"" + file +
                             "\": it ends inside the level \"LAYER\" of line 3, within \"VEK\" of line 2\n"
                             "veka-host: \"" +
                             file +
                             "\" holds no part: it ends inside the level \"LAYER\" of line 3, within " +
                             "\"VEK\" of line 2\n");
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A)))\n(PADS\n"), 0);
    EXPECT_THAT(err.str(), HasSubstr("\": it ends inside the level \"PADS\" of line 2\n"));
}

TEST_F(HostTest, ALevelTooDeepIsToldOnce) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN A)))\n" + std::string(21, '(')), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(err.str(),
                HasSubstr("\": nothing was read from line 2 on: Parser meet unexpected Brace Counting "
                          "Number, 21 at line number 2.!\n"));
}

TEST_F(HostTest, SaysOnceHowMuchACheckFindsBeforeAPartIsStored) {
    const std::string file = Write("part.veka", "(VEK (PARTGENERAL (MPN A B C) (NOSUCH 1)))"),
                      sentence =
                          "veka-host: a check of \"" + file + "\" finds 2 warnings; --check lists them\n";
    EXPECT_EQ(Run({file, "--library", library}), 0);
    EXPECT_EQ(err.str(), sentence);
    EXPECT_EQ(Run({file, "--library", library}, "y\n"), 0);
    EXPECT_THAT(err.str(), testing::StartsWith(sentence + "\"A\" is in the library"))
        << "before the question";
    EXPECT_EQ(Run({file}), 0);
    EXPECT_EQ(err.str(), "") << "nothing is stored";
    EXPECT_EQ(Import(kPart, "yes"), 0);
    EXPECT_EQ(err.str(), "") << "there is nothing to say";
    const std::string whole = Write("part.veka", "(VEK (PARTGENERAL (MPN A))) (PADS");
    EXPECT_EQ(Run({whole, "--library", library, "--overwrite", "yes"}), 0);
    EXPECT_THAT(err.str(), HasSubstr(" finds 1 error; --check lists them\n"));
}

TEST_F(HostTest, AVeryLargeFileIsStoredWithoutACheck) {
    const std::string file =
        Write("part.veka", "(VEK (PARTGENERAL (MPN A B)))\n//" + std::string(16 << 20, 'x') + "\n");
    EXPECT_EQ(Run({file, "--library", library}), 0);
    EXPECT_EQ(err.str(), "veka-host: \"" + file +
                             "\" is too large to be checked before it is stored; --check checks it\n");
}

TEST_F(HostTest, AFileThatCostsTooMuchIsRefused) {
    std::string packages = "(VEK (PARTGENERAL (MPN A)) (PACKAGES ";
    for (int i = 0; i < 2'000; ++i) packages += "(PACKAGE)";
    const std::string file = Write("part.veka", packages + "))");
    EXPECT_EQ(Run({file, "--library", library, "--max-memory", "1"}), 1);
    EXPECT_EQ(err.str(), "veka-host: the import of \"" + file +
                             "\" takes more than 1 MB of memory; --max-memory raises the limit\n");
    EXPECT_FALSE(Stored("A"));
    EXPECT_EQ(Run({file, "--ui", "console", "--library", library, "--max-memory", "1"}, "\n\n"), 1);
    EXPECT_THAT(err.str(), HasSubstr("takes more than 1 MB of memory"));
    EXPECT_FALSE(Stored("A"));
    EXPECT_EQ(Run({file, "--library", library, "--max-memory", "0"}), 0);
}

TEST_F(HostTest, HelpAndVersionAreShown) {
    EXPECT_EQ(Run({"--help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("usage: veka-host"));
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_EQ(out.str(), "veka-host " + std::string(veka::Version()) + "\n");
}

TEST_F(HostTest, OutputThatCannotBeWrittenIsAFailure) {
    /// A disk that is full.
    struct Full : std::streambuf {
    } full;
    std::istringstream in;
    for (const auto& arguments :
         {std::vector<std::string>{"--help"}, {Write("part.veka", kPart), "--print"}}) {
        std::ostream broken(&full);
        err.str("");
        EXPECT_EQ(host::RunHost(arguments, {in, broken, err, false}), 3);
        EXPECT_EQ(err.str(), "veka-host: standard output cannot be written\n");
    }
    std::ostream broken(&full);
    EXPECT_EQ(host::RunHost({"--what"}, {in, out, broken, false}), 3);
}

TEST_F(HostTest, ALibraryInUseIsWaitedForSaidSoAndGivenUp) {
    const host::Directory open(Root());
    const host::FileLock lock(open, ".veka-lock", nullptr);
    EXPECT_EQ(Run({Write("part.veka", kPart), "--library", library, "--wait", "0"}), 3);
    EXPECT_THAT(err.str(),
                HasSubstr("part.veka\" could not be stored: the library \"" + library + "\" is in use by"));
    EXPECT_EQ(Run({Write("part.veka", kPart), "--library", library, "--wait", "2"}), 3);
    EXPECT_THAT(err.str(), HasSubstr("veka-host: waiting for the library \"" + library + "\", which "));
}

TEST_F(HostTest, WithoutAFileTheDialogAsksOnTheTerminal) {
    const std::string file = Write("part.veka", kPart);
    EXPECT_EQ(Run({}, file + "\n" + library + "\n"), 0);
    EXPECT_TRUE(Stored("A"));
    EXPECT_THAT(err.str(), HasSubstr("ASCII Part Data File: ")) << "prompts are no output";
    EXPECT_THAT(out.str(), Not(HasSubstr("ASCII Part Data File")));
    EXPECT_EQ(Run({"--library", library}, file + "\n\nn\n"), 1) << "then the input ends";
    EXPECT_EQ(Run({}), 1);
}

TEST_F(HostTest, WithADisplayTheApplicationIsRun) {
    FakeDesktop desktop;
    EXPECT_EQ(Run({}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "application on");
    EXPECT_EQ(Run({"f", "--ui", "qt"}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "application on f");
    EXPECT_EQ(Run({"--open", "f", "g"}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "application on f g");
}

TEST_F(HostTest, WindowsThatAreToPrintEndWithTheDialog) {
    FakeDesktop desktop;
    const std::string file = Write("part.veka", kPart);
    EXPECT_EQ(Run({file, "--ui", "qt", "--library", library, "--print"}, "", &desktop), 0);
    EXPECT_EQ(desktop.started, "");
    EXPECT_THAT(out.str(), HasSubstr("MPN               A\n"));
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, WithoutADisplayTheTerminalAsks) {
    FakeDesktop desktop;
    desktop.display = false;
    EXPECT_EQ(Run({}, "", &desktop), 1);
    EXPECT_THAT(err.str(), HasSubstr("Import ASCII Part Data File"));
    desktop.display = true;
    EXPECT_EQ(Run({"--ui", "console"}, "", &desktop), 1);
    EXPECT_THAT(err.str(), HasSubstr("Import ASCII Part Data File"));
    EXPECT_EQ(desktop.started, "");
}

TEST_F(HostTest, WindowsThatCannotBeShownAreAFailure) {
    FakeDesktop desktop;
    desktop.display = false;
    EXPECT_EQ(Run({"--ui", "qt"}, "", &desktop), 3);
    EXPECT_EQ(err.str(), "veka-host: there is no display to show windows on\n");
    EXPECT_EQ(Run({"--open"}, "", &desktop), 3);
    EXPECT_EQ(Run({"--ui", "qt"}), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was built without Qt\n");
    EXPECT_EQ(Run({"--ui", "win32"}, "", &desktop), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was not built for Windows\n");
    EXPECT_EQ(Run({"--open"}), 3);
    EXPECT_EQ(err.str(), "veka-host: this program was built without Qt\n");
}

TEST_F(HostTest, AnEmptyAnswerOnTheTerminalKeepsTheFileOfTheCommandLine) {
    EXPECT_EQ(Run({Write("part.veka", kPart), "--ui", "console"}, "\n" + library + "\n"), 0);
    EXPECT_TRUE(Stored("A"));
}

TEST_F(HostTest, APartNumberCannotLeaveTheLibrary) {
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN ../../escape)))"), 0);
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN ..)))"), 0);
    EXPECT_EQ(Import("(VEK (PARTGENERAL (MPN \"" + std::string(5000, '/') + "\")))"), 0);
    for (const auto& entry : std::filesystem::directory_iterator(directory.Path()))
        EXPECT_THAT(entry.path().filename().string(), testing::AnyOf("lib", "part.veka"));
}

/// True if no byte of a text controls a terminal, except the ends of lines.
bool IsSafe(std::string_view text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const size_t length = veka::Utf8Length(text);
        if (length == 0 || (byte < 0x20 && byte != '\n') || byte == 0x7F) return false;
        if (length == 2 && byte == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0) return false;
        text.remove_prefix(length);
    }
    return true;
}

TEST_F(HostTest, NoTextOfAFileOrAPathControlsTheTerminal) {
    std::vector<std::string> evil;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '"' && byte != '/') evil.push_back(std::string("e") + static_cast<char>(byte) + "[2J");
    for (int code = 0x80; code < 0xA0; ++code)
        evil.push_back(std::string("e\xC2") + static_cast<char>(code) + "[2J");
    const auto expectSafe = [&](const std::string& text) {
        EXPECT_TRUE(IsSafe(out.str())) << testing::PrintToString(text) << testing::PrintToString(out.str());
        EXPECT_TRUE(IsSafe(err.str())) << testing::PrintToString(text) << testing::PrintToString(err.str());
    };
    for (const std::string& text : evil) {
        const std::string part = "(VEK (PARTGENERAL (MPN \"" + text + "\") (UNIT \"" + text +
                                 "\")) (ELECTRICAL (ELECTRICALPINS (EPIN (NAME \"" + text + "\")))))";
        for (const char* option : {"--quiet", "--print", "--pins"}) {
            Run({"-", option}, part);
            expectSafe(text);
        }
        Run({"-"}, part);
        expectSafe(text);
        // The path of everything that can fail.
        for (const std::string& argument : {text, "--" + text, "--ui=" + text}) {
            Run({argument});
            expectSafe(text);
        }
        Run({"-", "--library", text, "--step", text}, part);
        expectSafe(text);
        Run({"--undo", text, "--library", library});
        expectSafe(text);
        Run({"--undo", text, "--library", text});
        expectSafe(text);
        Run({"--ui", "console"}, text + "\n" + text + "\n");
        expectSafe(text);
        Run({text, "--ui", "console", "--library", text}, "\n\n");
        expectSafe(text);
    }
}

}  // namespace
