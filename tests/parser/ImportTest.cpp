#include "parser/Import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <thread>

#include "model/CVEKA_Manager.h"
#include "support/ModelText.h"
#include "support/Parsing.h"
#include "support/ScriptedUserInterface.h"

namespace {

using End = veka::ImportResult::End;
using Structure = veka::LevelsRead::Structure;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using veka::ImportBytes;
using veka::ImportFile;
using veka::ImportOptions;
using veka::ImportResult;

constexpr const char* kPart = "(VEK (PARTGENERAL (MPN A)))\n";

CString Mpn(const CVEK_AsciiParser& parser) {
    return std::as_const(*parser.GetCVEKA_Manager()).GetVEK()->GetPartGeneral()->GetMPN();
}

ImportResult Import(std::string_view text, const ImportOptions& options = {}) {
    CVEK_AsciiParser parser;
    return ImportBytes(parser, text, options);
}

std::string Repeat(std::string_view piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

/// One section of many records.
std::string HugeSection(int pads = 5'000) {
    return "(PADS " + Repeat("(PAD (PADNAME P)\n(FILLCIRCLE (PT 1 2) (D 0.5)))", pads) + ")";
}
/// One line, whose search for the end of a string needs an index.
std::string HugeLine() {
    std::mt19937 random(1);
    std::string line = "(VEK \"";
    while (line.size() < 200'000)
        line += std::string(1 + random() % 3, static_cast<char>('a' + random() % 2)) + "\\\"";
    return line;
}

/// Texts whose cost is in many places: records, levels, values, blanks, comments, one string, search in a
/// line.
std::vector<std::string> HugeTexts() {
    return {HugeSection(),
            "(VEK " + Repeat("(U 1)", 70'000) + ")",
            "(VEK (PARTGENERAL (CPN" + Repeat(" 1", 200'000) + ")))",
            "(A" + std::string(1'000'000, ' ') + ")",
            "(A" + Repeat(" \"b\"", 100'000) + ")",
            "(A \"" + Repeat("x\n", 200'000) + "\")",
            Repeat("// c\n", 160'000),
            Repeat(")", 800'000),
            Repeat("(NSHAPE (NAME N))", 4'000),
            HugeLine()};
}

/// A part that is in the model before, which nothing may change.
class Unchanged {
public:
    Unchanged() {
        ImportBytes(parser, "(VEK (PARTGENERAL (MPN OLD)))(PADS (PAD (PADNAME OLD)))(NSHAPE)");
        m_before = test::AsJson(*parser.GetCVEKA_Manager());
    }
    ~Unchanged() { EXPECT_EQ(test::AsJson(*parser.GetCVEKA_Manager()), m_before); }
    CVEK_AsciiParser parser;

private:
    std::string m_before;
};

TEST(Import, CountsWhatItRead) {
    const std::string text = "// c\n(VEK (PARTGENERAL (MPN A)))\n(PADS)";
    CVEK_AsciiParser parser;
    const ImportResult result = ImportBytes(parser, text);
    EXPECT_EQ(result.end, End::Completed);
    EXPECT_TRUE(result.IsWhole());
    EXPECT_EQ(result.bytes, text.size());
    EXPECT_EQ(result.lines, 3);
    EXPECT_EQ(result.levels, 4u);
    EXPECT_EQ(result.sections, 2u);
    EXPECT_EQ(result.parts, 1u);
    EXPECT_THAT(result.unread, IsEmpty());
    EXPECT_EQ(result.message, "");
    EXPECT_GT(result.memory, 0u);
    EXPECT_EQ(Mpn(parser), "A");
}

TEST(Import, OfNothingIsWholeAndHasNoPart) {
    const ImportResult result = Import("");
    EXPECT_TRUE(result.IsWhole());
    EXPECT_EQ(result.bytes, 0u);
    EXPECT_EQ(result.sections, 0u);
    EXPECT_EQ(result.parts, 0u);
}

TEST(Import, OfAFileIsThatOfItsBytes) {
    const test::TemporaryDirectory directory;
    const CString path = directory.Write("part.veka", kPart);
    CVEK_AsciiParser parser;
    const ImportResult result = ImportFile(parser, path);
    EXPECT_TRUE(result.IsWhole());
    EXPECT_EQ(result.bytes, std::string_view(kPart).size());
    EXPECT_EQ(parser.GetVEKAsciiFilePath(), path);
    EXPECT_EQ(Mpn(parser), "A");
    ImportBytes(parser, "(VEK)");
    EXPECT_EQ(parser.GetVEKAsciiFilePath(), path);
    EXPECT_EQ(Mpn(parser), "");
}

TEST(Import, AFileThatCannotBeOpenedIsTold) {
    const test::TemporaryDirectory directory;
    for (const CString& path : {directory / "missing", veka::FromPath(directory.Path()), CString(),
                                CString(std::string_view("a\0b", 3))}) {
        Unchanged before;
        EXPECT_EQ(ImportFile(before.parser, path).end, End::NotOpened) << path;
    }
}

TEST(Import, AReadErrorReachesTheCaller) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    Unchanged before;
    EXPECT_THROW(ImportFile(before.parser, "/proc/self/mem"), CFileException);
}

TEST(Import, TellsTheLevelsThatAreOpenAtTheEnd) {
    const ImportResult result = Import("(PADS)\n(VEK\n(PACKAGES (PACKAGE\n(NAME P");
    EXPECT_EQ(result.end, End::Completed);
    EXPECT_FALSE(result.IsWhole());
    EXPECT_EQ(result.structure.structure, Structure::Unclosed);
    ASSERT_THAT(result.structure.open, SizeIs(4));
    EXPECT_EQ(result.structure.open[0].name, "VEK");
    EXPECT_EQ(result.structure.open[0].line, 2);
    EXPECT_EQ(result.structure.open[3].name, "NAME");
    EXPECT_EQ(result.structure.open[3].line, 4);
    EXPECT_EQ(result.sections, 1u);
    EXPECT_EQ(result.parts, 0u);
}

TEST(Import, TellsAStringThatIsOpenAtTheEnd) {
    EXPECT_EQ(Import("(VEK\n(MPN \"A))\n\n").structure.openString, 2);
}

TEST(Import, TellsParenthesesThatCloseNothing) {
    ImportResult result = Import("(VEK)\n))\n)");
    EXPECT_EQ(result.structure.structure, Structure::StrayParenthesis);
    EXPECT_EQ(result.structure.breakLine, 2);
    EXPECT_EQ(result.structure.strayParentheses, 3);
    EXPECT_EQ(result.message, "");
    result = Import("(VEK))\n(VEK)\n(VEK)\n");
    EXPECT_EQ(result.structure.strayParentheses, 1);
    EXPECT_EQ(result.message, "Parser meet unexpected Brace Counting Number, 0 at line number 2.!");
    EXPECT_EQ(result.sections, 1u);
    EXPECT_EQ(result.bytes, 13u) << "to the end of the line where reading stopped";
}

TEST(Import, ALevelTooDeepIsToldAndNoMessageIsShown) {
    test::ScriptedUserInterface user;
    const ImportResult result = Import(kPart + std::string(21, '('));
    EXPECT_EQ(result.structure.structure, Structure::TooDeep);
    EXPECT_EQ(result.structure.breakLine, 2);
    EXPECT_EQ(result.structure.strayParentheses, 0);
    EXPECT_THAT(result.structure.open, SizeIs(20));
    EXPECT_EQ(result.message, "Parser meet unexpected Brace Counting Number, 21 at line number 2.!");
    EXPECT_EQ(result.parts, 1u);
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST(Import, TellsSectionsThatNothingReads) {
    const ImportResult result = Import("(VEK)\n(vek)\n(FONTS)(FONTS)\n(OTHER (VEK))\n()");
    EXPECT_EQ(result.sections, 6u);
    EXPECT_EQ(result.unreadSections, 3u);
    ASSERT_THAT(result.unread, SizeIs(3));
    EXPECT_EQ(result.unread[0].name, "vek");
    EXPECT_EQ(result.unread[0].line, 2);
    EXPECT_EQ(result.unread[1].name, "OTHER");
    EXPECT_EQ(result.unread[1].line, 4);
    EXPECT_EQ(result.unread[2].name, "");
}

TEST(Import, NamesTheFirstHundredSectionsThatNothingReads) {
    const ImportResult result = Import(Repeat("(" + std::string(50, 'U') + ")\n", 1000));
    EXPECT_EQ(result.unreadSections, 1000u);
    ASSERT_THAT(result.unread, SizeIs(ImportResult::kMostUnread));
    EXPECT_EQ(result.unread[99].name, std::string(50, 'U')) << "a name of its own, though its level is gone";
    EXPECT_EQ(result.unread[99].line, 100);
}

TEST(Import, CountsTheParts) {
    CVEK_AsciiParser parser;
    EXPECT_EQ(ImportBytes(parser, "(VEK (PARTGENERAL (MPN A)))(VEK (PARTGENERAL (MPN B)))").parts, 2u);
    EXPECT_EQ(Mpn(parser), "B");
}

/// The model and the exception of an import.
std::string Outcome(CVEK_AsciiParser& parser, const std::function<void()>& import) {
    std::string outcome;
    try {
        import();
    } catch (const std::exception& error) {
        outcome = error.what();
    }
    return outcome + test::AsJson(*parser.GetCVEKA_Manager());
}

TEST(Import, GivesTheModelOfTheParser) {
    std::vector<std::string> texts = HugeTexts();
    for (const char* text :
         {"(FONTS (FONT (ID 1)))(FONTS)(VEK)(NSHAPE N)(NSHAPE M)", "(VEK (PARTGENERAL (MPN A))",
          "(NSHAPE)(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))(PADS "
          "(PAD))(FONTS (FONT))",
          "(FONTS (FONT (ID 1)))\r\n)(", "(A \"x\r\n\")\n(VEK (PARTGENERAL (MPN \"a\\\"b\")))\r"})
        texts.emplace_back(text);
    const test::TemporaryDirectory directory;
    test::ScriptedUserInterface user;
    for (const std::string& text : texts) {
        const CString path = directory.Write("part.veka", text);
        CVEK_AsciiParser plain, fromFile, fromBytes;
        plain.SetVEKAsciiFilePath(path);
        const int rounds = text.size() < 1000 ? 2 : 1;  // the second time into a model that is full
        for (int round = 0; round < rounds; ++round) {
            user.messages.clear();
            const std::string expected = Outcome(plain, [&] { plain.Parser(); });
            CString message;
            EXPECT_EQ(Outcome(fromFile, [&] { message = ImportFile(fromFile, path).message; }), expected);
            if (expected[0] == '{') {
                EXPECT_EQ(message, user.messages.empty() ? "" : user.messages[0].c_str());
            }
            EXPECT_EQ(Outcome(fromBytes, [&] { ImportBytes(fromBytes, text); }), expected);
        }
    }
}

TEST(Import, GivesTheModelOfTheParserForRealParts) {
    VEKA_NEEDS_CORPUS();
    const std::vector<std::filesystem::path> files = test::CorpusFiles();
    for (size_t i = 0; i < files.size(); i += 4) {
        const std::filesystem::path& path = files[i];
        CVEK_AsciiParser plain, parser;
        plain.SetVEKAsciiFilePath(veka::FromPath(path));
        plain.Parser();
        const std::string text = test::ReadFile(path);
        const ImportResult result = ImportBytes(parser, text);
        EXPECT_TRUE(result.IsWhole()) << path;
        EXPECT_EQ(result.bytes, text.size());
        EXPECT_EQ(result.parts, 1u);
        EXPECT_EQ(result.unreadSections, 0u);
        EXPECT_EQ(test::AsJson(*parser.GetCVEKA_Manager()), test::AsJson(*plain.GetCVEKA_Manager())) << path;
    }
}

TEST(Import, TakesAsManyBytesAsTheLimitSays) {
    const test::TemporaryDirectory directory;
    const std::string text = kPart + std::string(200'000, '\n');
    const CString path = directory.Write("part.veka", text);
    Unchanged before;
    EXPECT_EQ(ImportBytes(before.parser, text, {.byteLimit = text.size() - 1}).end, End::ByteLimit);
    EXPECT_EQ(ImportFile(before.parser, path, {.byteLimit = text.size() - 1}).end, End::ByteLimit);
    EXPECT_EQ(ImportFile(before.parser, path, {.byteLimit = 0}).end, End::ByteLimit);
    CVEK_AsciiParser parser;
    EXPECT_EQ(ImportBytes(parser, text, {.byteLimit = text.size()}).end, End::Completed);
    EXPECT_EQ(ImportFile(parser, path, {.byteLimit = text.size()}).end, End::Completed);
}

TEST(Import, AFileWithoutAnEndIsReadToTheLimit) {
    if (!std::filesystem::exists("/dev/zero")) GTEST_SKIP() << "There is no file without an end.";
    Unchanged before;
    EXPECT_EQ(ImportFile(before.parser, "/dev/zero", {.byteLimit = 1'000'000}).end, End::ByteLimit);
    EXPECT_EQ(ImportFile(before.parser, "/dev/zero", {.memoryLimit = 1'000'000}).end, End::MemoryLimit);
}

TEST(Import, TakesAsMuchMemoryAsTheLimitSays) {
    for (const std::string& text : HugeTexts()) {
        const std::uint64_t memory = Import(text).memory;
        EXPECT_GT(memory, 0u);
        EXPECT_EQ(Import(text, {.memoryLimit = memory}).end, End::Completed);
        Unchanged before;
        const ImportResult ended = ImportBytes(before.parser, text, {.memoryLimit = memory - 1});
        EXPECT_EQ(ended.end, End::MemoryLimit) << text.substr(0, 40);
        EXPECT_LE(ended.bytes, text.size());
    }
}

TEST(Import, CountsTheMemoryOfLevelsRecordsAndSearches) {
    const auto bytesAByte = [](const std::string& text) {
        return static_cast<double>(Import(text).memory) / static_cast<double>(text.size());
    };
    EXPECT_GT(bytesAByte("(VEK (PACKAGES " + Repeat("(PACKAGE)", 2'000) + "))"), 50)
        << "records of their own";
    EXPECT_GT(bytesAByte(HugeSection()), 2) << "records in pages";
    EXPECT_GT(bytesAByte("(A" + Repeat(" 1", 200'000) + ")"), 16) << "values";
    EXPECT_GT(bytesAByte(HugeLine()), 5) << "the search for the end of a string";
    EXPECT_LT(bytesAByte(Repeat("(VEK)\n", 20'000)), 2) << "what is freed is not counted";
}

TEST(Import, NoTimeIsTooLittleForAnyText) {
    for (const std::string& text : HugeTexts()) {
        Unchanged before;
        EXPECT_EQ(ImportBytes(before.parser, text, {.timeLimit = std::chrono::nanoseconds(0)}).end,
                  End::TimeLimit);
    }
    EXPECT_EQ(Import(kPart, {.timeLimit = std::chrono::hours(1)}).end, End::Completed);
}

TEST(Import, TellsHowFarItIsWithinOneSectionAndOneLine) {
    for (const std::string& text : HugeTexts()) {
        std::vector<veka::ImportProgress> told;
        ImportOptions options;
        options.progress = [&](const veka::ImportProgress& progress) { told.push_back(progress); };
        options.progressInterval = {};
        const ImportResult result = Import(text, options);
        EXPECT_GT(told.size(), 10u) << text.substr(0, 40);
        for (size_t i = 0; i < told.size(); ++i) {
            EXPECT_EQ(told[i].bytesTotal, text.size());
            if (i > 0) {
                EXPECT_GE(told[i].bytesRead, told[i - 1].bytesRead);
            }
        }
        EXPECT_EQ(told.back().bytesRead, result.bytes);
    }
}

TEST(Import, TellsTheSizeOfAFile) {
    const test::TemporaryDirectory directory;
    std::vector<std::uint64_t> read, total;
    ImportOptions options;
    options.progress = [&](const veka::ImportProgress& progress) {
        read.push_back(progress.bytesRead);
        total.push_back(progress.bytesTotal);
    };
    CVEK_AsciiParser parser;
    ImportFile(parser, directory.Write("part.veka", kPart), options);
    const std::uint64_t size = std::string_view(kPart).size();
    EXPECT_THAT(total, Each(size));
    EXPECT_EQ(read.back(), size);
}

TEST(Import, IsCancelledWithinEverySectionAndLine) {
    for (const std::string& text : HugeTexts()) {
        Unchanged before;
        int calls = 0;
        std::stop_source stop;
        ImportOptions options;
        options.stop = stop.get_token();
        options.progressInterval = {};
        options.progress = [&](const veka::ImportProgress&) {
            if (++calls == 5) stop.request_stop();
        };
        const ImportResult result = ImportBytes(before.parser, text, options);
        EXPECT_EQ(result.end, End::Cancelled) << text.substr(0, 40);
        EXPECT_EQ(calls, 5) << "nothing is told after that";
        EXPECT_LE(result.bytes, text.size());
        EXPECT_FALSE(result.IsWhole());
    }
}

TEST(Import, CanBeCancelledAtItsEndAndBeforeItsBegin) {
    Unchanged before;
    std::stop_source stop;
    ImportOptions options;
    options.stop = stop.get_token();
    options.progress = [&](const veka::ImportProgress&) { stop.request_stop(); };
    options.progressInterval = std::chrono::hours(1);
    EXPECT_EQ(ImportBytes(before.parser, kPart, options).end, End::Cancelled);
    options.progress = nullptr;
    const ImportResult result = ImportBytes(before.parser, kPart, options);
    EXPECT_EQ(result.end, End::Cancelled);
    EXPECT_EQ(result.bytes, 0u);
}

TEST(Import, IsCancelledFromAnotherThread) {
    const test::TemporaryDirectory directory;
    std::stop_source stop;
    std::thread other;
    ImportOptions options;
    options.stop = stop.get_token();
    options.progressInterval = {};
    options.progress = [&](const veka::ImportProgress&) {
        if (!other.joinable()) other = std::thread([&] { stop.request_stop(); });
        std::this_thread::yield();
    };
    Unchanged before;
    // However slow the other thread is: the text is longer.
    const std::string text = HugeSection(100'000);
    EXPECT_EQ(ImportBytes(before.parser, text, options).end, End::Cancelled);
    other.join();
}

TEST(Import, WhatTheCallbackRaisesPassesThrough) {
    for (const std::string& text : HugeTexts()) {
        Unchanged before;
        int calls = 0;
        ImportOptions options;
        options.progressInterval = {};
        options.progress = [&](const veka::ImportProgress&) {
            if (++calls == 5) throw std::domain_error("no more");
        };
        EXPECT_THROW(ImportBytes(before.parser, text, options), std::domain_error);
        EXPECT_EQ(calls, 5) << "the import does not go on after that";
    }
}

TEST(Import, TheCallbackMayImportAnotherPart) {
    int calls = 0;
    ImportOptions options;
    options.memoryLimit = Import(HugeSection()).memory;
    options.progressInterval = {};
    options.progress = [&](const veka::ImportProgress&) {
        if (++calls != 5) return;
        EXPECT_EQ(Import(HugeSection(10'000)).end, End::Completed) << "the outer limits are not its own";
        const auto parser = test::Import(kPart);
        EXPECT_EQ(Mpn(*parser), "A");
    };
    EXPECT_EQ(Import(HugeSection(), options).end, End::Completed);
    EXPECT_GE(calls, 5);
}

TEST(Import, AParserCanReadAfterAnImportThatEnded) {
    CVEK_AsciiParser parser;
    ImportBytes(parser, HugeSection(), {.memoryLimit = 1});
    EXPECT_TRUE(ImportBytes(parser, kPart).IsWhole());
    EXPECT_EQ(Mpn(parser), "A");
}

TEST(Import, AnyBytesEndInAnyLimit) {
    std::mt19937 random(1);
    const std::string_view pieces[] = {
        "(", ")", "\"", "\\\"", " ", "\n", "VEK", "PADS", "(PAD (PADNAME P))", "// c\n", "\x81"};
    for (int round = 0; round < 200; ++round) {
        std::string text;
        while (text.size() < 2'000) text += pieces[random() % std::size(pieces)];
        const ImportResult whole = Import(text);
        const std::uint64_t memory = random() % (whole.memory + 1);
        EXPECT_EQ(Import(text, {.memoryLimit = memory}).end,
                  memory < whole.memory ? End::MemoryLimit : End::Completed);
    }
}

}  // namespace
