#include "host/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using host::Overwrite;
using host::ParseCommandLine;
using host::UsageError;
using testing::ElementsAre;

TEST(CommandLine, NothingMeansTheDialog) {
    const host::CommandLine line = ParseCommandLine({});
    EXPECT_TRUE(line.files.empty());
    EXPECT_EQ(line.library, "");
    EXPECT_EQ(line.overwrite, Overwrite::Ask);
    EXPECT_FALSE(line.help);
}

TEST(CommandLine, TakesItsOptionsInAnyOrder) {
    for (const auto& line : {ParseCommandLine({"f", "--library", "l", "--overwrite", "yes"}),
                             ParseCommandLine({"--overwrite", "yes", "--library", "l", "f"})}) {
        EXPECT_THAT(line.files, ElementsAre("f"));
        EXPECT_EQ(line.library, "l");
        EXPECT_EQ(line.overwrite, Overwrite::Yes);
    }
    EXPECT_EQ(ParseCommandLine({"--overwrite", "no"}).overwrite, Overwrite::No);
    EXPECT_EQ(ParseCommandLine({"--overwrite", "ask"}).overwrite, Overwrite::Ask);
    EXPECT_TRUE(ParseCommandLine({"-h"}).help);
}

TEST(CommandLine, AFileMayBeginWithAHyphen) {
    EXPECT_THAT(ParseCommandLine({"--library", "l", "--", "--f"}).files, ElementsAre("--f"));
    EXPECT_THAT(ParseCommandLine({"--library", "l", "-"}).files, ElementsAre("-"));
}

TEST(CommandLine, TellsWhatIsToBeShown) {
    EXPECT_FALSE(ParseCommandLine({"f", "--library", "l"}).Shown());
    EXPECT_FALSE(ParseCommandLine({"f", "--quiet"}).Shown());
    EXPECT_EQ(ParseCommandLine({"f", "--print"}).print, host::Print::Outline);
    EXPECT_EQ(ParseCommandLine({"--print", "json", "f"}).print, host::Print::Json);
    EXPECT_THAT(ParseCommandLine({"--print", "f"}).files, ElementsAre("f"));
    EXPECT_EQ(ParseCommandLine({"f", "--step", "s"}).step, "s");
    EXPECT_EQ(ParseCommandLine({"f", "--gltf", "g"}).gltf, "g");
}

TEST(CommandLine, AUserInterfaceThatIsNamedAsksWithAFileToo) {
    EXPECT_TRUE(ParseCommandLine({}).Attended());
    EXPECT_FALSE(ParseCommandLine({"f", "--library", "l"}).Attended());
    const host::CommandLine line = ParseCommandLine({"f", "--ui", "qt"});
    EXPECT_EQ(line.windows, host::Windows::Qt);
    EXPECT_TRUE(line.Attended());
    EXPECT_TRUE(ParseCommandLine({"--open", "f"}).Attended());
    EXPECT_FALSE(ParseCommandLine({"--undo", "--library", "l"}).Attended());
    EXPECT_EQ(ParseCommandLine({"--ui", "console"}).windows, host::Windows::Console);
}

TEST(CommandLine, TakesEachSummaryAndBothTogether) {
    const auto parse = [](std::vector<std::string> words) {
        std::vector<std::string> arguments{"f", "--library", "l"};
        for (const std::string& word : words) arguments.insert(arguments.end(), {"--summary", word});
        return ParseCommandLine(arguments);
    };
    EXPECT_FALSE(parse({}).Summarised());
    EXPECT_TRUE(parse({"json"}).jsonSummary);
    EXPECT_FALSE(parse({"json"}).findingsSummary);
    EXPECT_TRUE(parse({"findings"}).findingsSummary);
    EXPECT_FALSE(parse({"findings"}).jsonSummary);
    const host::CommandLine both = parse({"findings", "json"});
    EXPECT_TRUE(both.jsonSummary && both.findingsSummary);
    EXPECT_THROW(ParseCommandLine({"f", "--summary", "findings"}), UsageError) << "nothing is imported";
    EXPECT_THROW(ParseCommandLine({"-", "--library", "l", "--summary", "findings"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--library", "l", "--list", "--summary", "findings"}), UsageError);
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
    EXPECT_THROW(ParseCommandLine({""}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--library"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--overwrite", "maybe"}), UsageError);
    EXPECT_THROW(ParseCommandLine({"--what"}), UsageError);
}

TEST(CommandLine, AnOptionAndItsValueCanBeOneArgument) {
    const host::CommandLine line =
        ParseCommandLine({"--library=a=b", "--overwrite=no", "--print=json", "--wait=7", "f=g"});
    EXPECT_EQ(line.library, "a=b");
    EXPECT_EQ(line.overwrite, Overwrite::No);
    EXPECT_EQ(line.print, host::Print::Json);
    EXPECT_EQ(line.wait, std::chrono::seconds(7));
    EXPECT_THAT(line.files, ElementsAre("f=g"));
    EXPECT_EQ(ParseCommandLine({"--pins=csv"}).print, host::Print::PinsCsv);
    for (const char* argument :
         {"--help=x", "--quiet=", "--print=xml", "--library=", "--wait=", "--wait=1x", "--wait=-1",
          "--what=x", "--max-size=1MB", "--max-memory=", "--max-time=1.5"})
        EXPECT_THROW(ParseCommandLine({argument}), UsageError) << argument;
}

TEST(CommandLine, LimitsCanBeSet) {
    EXPECT_EQ(ParseCommandLine({"f"}).limits.size, 256u);
    EXPECT_EQ(ParseCommandLine({"f"}).limits.memory, 2048u);
    EXPECT_EQ(ParseCommandLine({"f"}).limits.time, std::chrono::seconds(60));
    const host::Limits limits =
        ParseCommandLine({"f", "--max-size", "1", "--max-memory=2", "--max-time", "0"}).limits;
    EXPECT_EQ(limits.size, 1u);
    EXPECT_EQ(limits.memory, 2u);
    EXPECT_EQ(limits.time, std::chrono::seconds(0));
}

TEST(CommandLine, TakesSeveralFiles) {
    EXPECT_THAT(ParseCommandLine({"f", "-q", "g", "h"}).files, ElementsAre("f", "g", "h"));
}

TEST(CommandLine, RaisesWhatDoesNotGoTogether) {
    using Arguments = std::vector<std::string>;
    for (const Arguments& arguments :
         {Arguments{"f", "g", "--step", "s"}, Arguments{"f", "--step", "s", "--gltf", "s"},
          Arguments{"-", "f"}, Arguments{"-", "--ui", "qt"}, Arguments{"f", "g", "--ui", "console"},
          Arguments{"--undo", "A"}, Arguments{"f", "--print", "--pins"}, Arguments{"--open", "f", "--print"}})
        EXPECT_THROW(ParseCommandLine(arguments), UsageError) << testing::PrintToString(arguments);
}

TEST(CommandLine, APictureShowsAllFromTheTopUnlessToldOtherwise) {
    const host::CommandLine plain = ParseCommandLine({"f", "--picture", "p.svg"});
    EXPECT_EQ(plain.picture, "p.svg");
    EXPECT_EQ(plain.of, host::PictureOf::All);
    EXPECT_EQ(plain.side, drawing::Side::Top);
    EXPECT_TRUE(plain.Shown());
    const host::CommandLine line =
        ParseCommandLine({"f", "--picture=p.png", "--of", "padstack", "--side", "bottom"});
    EXPECT_EQ(line.of, host::PictureOf::Padstack);
    EXPECT_EQ(line.side, drawing::Side::Bottom);
    using Arguments = std::vector<std::string>;
    for (const Arguments& arguments :
         {Arguments{"f", "--of", "symbol"}, Arguments{"f", "--side", "top"}, Arguments{"f", "--picture"},
          Arguments{"f", "--picture", "p", "--of", "thing"},
          Arguments{"f", "--picture", "p", "--side", "left"}, Arguments{"f", "g", "--picture", "p"},
          Arguments{"f", "--picture", "p", "--step", "p"}, Arguments{"--open", "f", "--picture", "p"}})
        EXPECT_THROW(ParseCommandLine(arguments), UsageError) << testing::PrintToString(arguments);
}

TEST(CommandLine, ALibraryOfKiCadTakesFilesOrAWholeLibrary) {
    const host::CommandLine line = ParseCommandLine({"f", "g", "--kicad", "d/n", "--models", "no"});
    EXPECT_EQ(line.kicad, "d/n");
    EXPECT_FALSE(line.models);
    EXPECT_TRUE(line.Shown());
    EXPECT_FALSE(line.Attended());
    EXPECT_FALSE(line.WholeLibrary());
    const host::CommandLine whole = ParseCommandLine({"--library", "l", "--kicad=d/n"});
    EXPECT_TRUE(whole.models);
    EXPECT_TRUE(whole.WholeLibrary());
    EXPECT_FALSE(whole.Attended());
    EXPECT_FALSE(ParseCommandLine({"--library", "l", "--kicad", "d/n", "--ui", "console"}).WholeLibrary());
    using Arguments = std::vector<std::string>;
    for (const Arguments& arguments :
         {Arguments{"f", "--kicad"}, Arguments{"f", "--kicad="}, Arguments{"f", "--models", "no"},
          Arguments{"f", "--kicad", "n", "--models", "some"}, Arguments{"f", "--check", "--kicad", "n"},
          Arguments{"--library", "l", "--kicad", "n", "--step", "s"}})
        EXPECT_THROW(ParseCommandLine(arguments), UsageError) << testing::PrintToString(arguments);
}

TEST(CommandLine, StepFoldersAreCollected) {
    const host::CommandLine line =
        host::ParseCommandLine({"x.veka", "--step-folder", "a", "--step-folder=b"});
    EXPECT_EQ(line.stepFolders, (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(host::ParseCommandLine({"x.veka"}).stepFolders.empty());
    EXPECT_THROW(host::ParseCommandLine({"x.veka", "--step-folder", ""}), host::UsageError);
}

}  // namespace
