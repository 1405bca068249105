#include "host/DesktopProgram.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "support/Children.h"
#endif

namespace {

bool Needs(const std::vector<std::string>& arguments) {
    return host::NeedsDesktop(host::ParseCommandLine(arguments));
}

TEST(DesktopProgram, WindowsNeedIt) {
    EXPECT_TRUE(Needs({}));
    EXPECT_TRUE(Needs({"--library", "l"}));
    EXPECT_TRUE(Needs({"--open", "f"}));
    EXPECT_TRUE(Needs({"f", "--ui", "qt"}));
    EXPECT_FALSE(Needs({"f", "--ui", "console"}));
    EXPECT_FALSE(Needs({"f"}));
    EXPECT_FALSE(Needs({"f", "g", "--library", "l"}));
}

TEST(DesktopProgram, SolidsNeedIt) {
    EXPECT_TRUE(Needs({"f", "--step", "s"}));
    EXPECT_TRUE(Needs({"f", "--gltf", "g"}));
    EXPECT_TRUE(Needs({"f", "--ui", "console", "--step", "s"}));
    EXPECT_TRUE(Needs({"f", "--kicad", "d/n"}));
    EXPECT_TRUE(Needs({"--library", "l", "--kicad", "d/n"}));
    EXPECT_FALSE(Needs({"f", "--kicad", "d/n", "--models", "no"}));
}

TEST(DesktopProgram, OnlyAPictureOfPixelsNeedsIt) {
    EXPECT_TRUE(Needs({"f", "--picture", "p.PNG"}));
    EXPECT_FALSE(Needs({"f", "--picture", "p.svg"}));
}

TEST(DesktopProgram, NeitherHelpNorAnythingThatOnlyLooksNeedsIt) {
    EXPECT_FALSE(Needs({"--help"}));
    EXPECT_FALSE(Needs({"--version"}));
    EXPECT_FALSE(Needs({"--check", "f"}));
    EXPECT_FALSE(Needs({"--library", "l", "--find", "x"}));
    EXPECT_FALSE(Needs({"--library", "l", "--verify"}));
    EXPECT_FALSE(Needs({"--library", "l", "--undo"}));
}

#ifndef _WIN32

namespace fs = std::filesystem;

/// A file beside this program.
class FileBeside {
public:
    FileBeside(const std::string& content, mode_t mode)
        : m_name("desktop-program-test-" + std::to_string(getpid())),
          m_path(fs::read_symlink("/proc/self/exe").parent_path() / m_name) {
        std::ofstream(m_path) << content;
        chmod(m_path.c_str(), mode);
    }
    ~FileBeside() { fs::remove(m_path); }
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;

    const std::string& Name() const { return m_name; }
    const fs::path& Path() const { return m_path; }

private:
    const std::string m_name;
    const fs::path m_path;
};

/// Runs the program `name` where the arguments need it.
std::string RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
    std::vector<char*> argv;
    std::vector<std::string> all = {"veka-host"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    for (std::string& argument : all) argv.push_back(argument.data());
    argv.push_back(nullptr);
    return host::RunDesktopProgram(name, arguments, argv.data());
}

TEST(DesktopProgram, TakesThePlaceOfThisOneWithTheSameArguments) {
    const FileBeside program("#!/bin/sh\n[ \"$*\" = \"f --step a b\" ] && exit 7\n", 0700);
    EXPECT_EQ(test::InChild([&] {
                  RunProgram(program.Name(), {"f", "--step", "a b"});
                  return 1;
              }),
              7);
}

TEST(DesktopProgram, DoesNotTakeThePlaceForACommandThatDoesNotNeedIt) {
    const FileBeside program("#!/bin/sh\nexit 7\n", 0700);
    EXPECT_EQ(test::InChild([&] { return RunProgram(program.Name(), {"--version"}).empty() ? 1 : 2; }), 1);
}

TEST(DesktopProgram, AWrongCommandLineIsLeftToThisProgram) {
    EXPECT_EQ(RunProgram("no-such-program", {"--no-such-option"}), "");
    EXPECT_EQ(RunProgram("no-such-program", {"f", "--step"}), "");
}

TEST(DesktopProgram, IsMissedInOneSentence) {
    EXPECT_EQ(RunProgram("no-such-program", {"f", "--step", "s"}),
              "there are no windows and no solids, because the program \"no-such-program\" is missing");
}

TEST(DesktopProgram, TellsWhyItCannotBeStarted) {
    const FileBeside program("#!/bin/sh\nexit 7\n", 0600);
    EXPECT_EQ(RunProgram(program.Name(), {"--open", "f"}),
              "there are no windows and no solids, because the program \"" + program.Name() +
                  "\" cannot be started: Permission denied");
}

TEST(DesktopProgram, IsFoundBesideThisProgramAndNeverThroughADirectory) {
    const FileBeside program("", 0600);
    EXPECT_TRUE(fs::equivalent(host::FindProgram(program.Name()), program.Path()));
    EXPECT_EQ(host::FindProgram("."), "");
    EXPECT_EQ(host::FindProgram("no-such-program"), "");
}

#endif

}  // namespace
