#include "host/CommandLine.h"

#include <gtest/gtest.h>

namespace {

using host::Overwrite;
using host::ParseCommandLine;
using host::UsageError;

TEST(CommandLine, NothingMeansTheDialog) {
    const host::CommandLine line = ParseCommandLine({});
    EXPECT_EQ(line.file, "");
    EXPECT_EQ(line.library, "");
    EXPECT_EQ(line.overwrite, Overwrite::Ask);
    EXPECT_FALSE(line.help);
}

TEST(CommandLine, TakesItsOptionsInAnyOrder) {
    for (const auto& line : {ParseCommandLine({"f", "--library", "l", "--overwrite", "yes"}),
                             ParseCommandLine({"--overwrite", "yes", "--library", "l", "f"})}) {
        EXPECT_EQ(line.file, "f");
        EXPECT_EQ(line.library, "l");
        EXPECT_EQ(line.overwrite, Overwrite::Yes);
    }
    EXPECT_EQ(ParseCommandLine({"--overwrite", "no"}).overwrite, Overwrite::No);
    EXPECT_EQ(ParseCommandLine({"--overwrite", "ask"}).overwrite, Overwrite::Ask);
    EXPECT_TRUE(ParseCommandLine({"-h"}).help);
}

TEST(CommandLine, AFileMayBeginWithAHyphen) {
    EXPECT_EQ(ParseCommandLine({"--library", "l", "--", "--f"}).file, "--f");
    EXPECT_EQ(ParseCommandLine({"--library", "l", "-"}).file, "-");
}

TEST(CommandLine, WhatOnlyShowsNeedsNoLibrary) {
    EXPECT_EQ(ParseCommandLine({"f", "--print"}).print, host::Print::Outline);
    EXPECT_EQ(ParseCommandLine({"--print", "json", "f"}).print, host::Print::Json);
    EXPECT_EQ(ParseCommandLine({"--print", "f"}).file, "f");
    EXPECT_EQ(ParseCommandLine({"f", "--step", "s"}).step, "s");
    EXPECT_EQ(ParseCommandLine({"f", "--gltf", "g"}).gltf, "g");
}

TEST(CommandLine, AUserInterfaceThatIsNamedAsksWithAFileToo) {
    EXPECT_TRUE(ParseCommandLine({}).Attended());
    EXPECT_FALSE(ParseCommandLine({"f", "--library", "l"}).Attended());
    const host::CommandLine line = ParseCommandLine({"f", "--ui", "qt"});
    EXPECT_EQ(line.windows, host::Windows::Qt);
    EXPECT_TRUE(line.Attended()) << "and so needs no library";
    EXPECT_EQ(ParseCommandLine({"--ui", "console"}).windows, host::Windows::Console);
}

TEST(CommandLine, AWrongWordIsAnsweredWithTheRightOnes) {
    const auto sentence = [](std::vector<std::string> arguments) -> std::string {
        try {
            ParseCommandLine(arguments);
        } catch (const UsageError& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(sentence({"--overwrite", "maybe"}), "--overwrite takes yes, no or ask, not \"maybe\"");
    EXPECT_EQ(sentence({"--ui", "x"}), "--ui takes qt, win32 or console, not \"x\"");
}

TEST(CommandLine, RaisesWhatItCannotUnderstand) {
    EXPECT_THROW(ParseCommandLine({"f"}), UsageError);
    EXPECT_THROW(ParseCommandLine({""}), UsageError);
    EXPECT_THROW(ParseCommandLine({"f", "g", "--library", "l"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--library"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--overwrite", "maybe"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--what"}), UsageError);
}

}  // namespace
