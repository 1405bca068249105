#include "parser/CVEK_AsciiParser.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "model/CVEKA_Manager.h"
#include "support/ModelText.h"
#include "support/Parsing.h"
#include "support/Records.h"
#include "support/ReferenceImport.h"
#include "support/ScriptedUserInterface.h"

namespace {

using test::Import;
using test::SameButApart;

const CVEKA_PartGeneral& General(const CVEK_AsciiParser& parser) {
    return *parser.GetCVEKA_Manager()->GetVEK()->GetPartGeneral();
}

TEST(CVEK_AsciiParser, StartsWithAnEmptyPathAndAnEmptyModel) {
    const CVEK_AsciiParser parser;
    EXPECT_EQ(parser.GetVEKAsciiFilePath(), "");
    EXPECT_TRUE(SameButApart(*parser.GetCVEKA_Manager(), CVEKA_Manager()));
}

TEST(CVEK_AsciiParser, AFileWithoutAKnownKeywordGivesAnEmptyModel) {
    for (const char* text :
         {"", "(OTHER (VEK))", "(vek (PARTGENERAL (MPN A)))", "(VEK (PARTGENERAL (MPN A))"})
        EXPECT_TRUE(SameButApart(*Import(text)->GetCVEKA_Manager(), CVEKA_Manager())) << text;
}

TEST(CVEK_AsciiParser, ATopLevelKeywordInsideAnotherLevelIsNotRead) {
    const auto parser = Import(R"(
(OTHER
  (FONTS (FONT (ID 1)))
  (VEK (PARTGENERAL (MPN A)))
  (COLORTABLE (1 2 3 4))
  (PADS (PAD (PADNAME P)))
  (PADSTACKS (PADSTACK (PADSTACKNAME S)))
  (FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F)))
  (NSHAPE N)
  (PARTITIONS (PARTITION (PARTITION G))))
)");
    EXPECT_TRUE(SameButApart(*parser->GetCVEKA_Manager(), CVEKA_Manager()));
}

TEST(CVEK_AsciiParser, ASectionIsReadInThePartOnly) {
    const auto parser = Import(R"(
(PARTGENERAL (MPN A))
(LAYERS (DEFAULT D))
(ELECTRICAL (PINMAPPINGMODE TRUE))
(PACKAGES (WEIGHT 1))
(MANUFACTURING (MOUNTTYPE SMD))
(LOGICSYMBOLS (DEFAULTSYMBOL S))
)");
    EXPECT_TRUE(SameButApart(*parser->GetCVEKA_Manager(), CVEKA_Manager()));
}

TEST(CVEK_AsciiParser, TheLastPartOfAFileWins) {
    const auto parser = Import("(VEK (PARTGENERAL (MPN A) (UNIT MM))) (VEK (PARTGENERAL (MPN B)))");
    EXPECT_EQ(General(*parser).GetMPN(), "B");
    EXPECT_EQ(General(*parser).GetUnit(), "");
}

TEST(CVEK_AsciiParser, KeepsWhatClosedBeforeABraceError) {
    test::ScriptedUserInterface user;
    const auto parser = Import("(VEK (PARTGENERAL (MPN A)))\n" + std::string(21, '('));
    EXPECT_EQ(General(*parser).GetMPN(), "A");
    EXPECT_EQ(user.messages.size(), 1u);
}

TEST(CVEK_AsciiParser, AMissingFileGivesAnEmptyModel) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath("/nowhere/at/all");
    EXPECT_EQ(parser.Parser(), 1);
}

TEST(CVEK_AsciiParser, AReadErrorReachesTheCaller) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath("/proc/self/mem");
    EXPECT_THROW(parser.Parser(), CFileException);
}

TEST(CVEK_AsciiParser, CanReadAgain) {
    const test::TemporaryDirectory directory;
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(directory.Write("one", "(VEK (PARTGENERAL (MPN A)))"));
    parser.Parser();
    parser.SetVEKAsciiFilePath(directory.Write("two", "(VEK (PARTGENERAL (UNIT MM)))"));
    parser.Parser();
    EXPECT_EQ(General(parser).GetMPN(), "");
    EXPECT_EQ(General(parser).GetUnit(), "MM");
}

TEST(CVEK_AsciiParser, HandsItsModelOverAndTakesAnother) {
    CVEK_AsciiParser parser;
    const std::unique_ptr<CVEKA_Manager> former(parser.GetCVEKA_Manager());
    auto* fresh = new CVEKA_Manager;
    parser.SetCVEKA_Manager(fresh);
    EXPECT_EQ(parser.GetCVEKA_Manager(), fresh);
}

TEST(CVEK_AsciiParser, CopiesShareOneModel) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath("path");
    CVEK_AsciiParser copy(parser), assigned;
    const std::unique_ptr<CVEKA_Manager> overwritten(assigned.GetCVEKA_Manager());
    assigned = parser;
    EXPECT_EQ(copy.GetCVEKA_Manager(), parser.GetCVEKA_Manager());
    EXPECT_EQ(assigned.GetCVEKA_Manager(), parser.GetCVEKA_Manager());
    EXPECT_EQ(copy.GetVEKAsciiFilePath(), "path");
    EXPECT_EQ(assigned.GetVEKAsciiFilePath(), "path");
    copy.SetCVEKA_Manager(nullptr);
    assigned.SetCVEKA_Manager(nullptr);
}

TEST(CVEK_AsciiParser, AnyBytesImport) {
    test::ScriptedUserInterface user;
    std::mt19937 random(1);
    for (int round = 0; round < 50; ++round) {
        std::string text;
        for (int i = 0; i < 10'000; ++i) text += static_cast<char>(random());
        Import(text);
    }
}

TEST(CVEK_AsciiParser, ImportsEveryRealPart) {
    VEKA_NEEDS_CORPUS();
    for (const auto& path : test::CorpusFiles()) {
        CVEK_AsciiParser parser;
        parser.SetVEKAsciiFilePath(veka::FromPath(path));
        EXPECT_EQ(parser.Parser(), 1) << path;
        // The number as it stands in the text.
        const std::string text = test::ReadFile(path);
        size_t begin = text.find("(MPN ");
        ASSERT_NE(begin, std::string::npos) << path;
        begin += 5;
        const bool quoted = text[begin] == '"';
        const std::string mpn = quoted ? text.substr(begin + 1, text.find('"', begin + 1) - begin - 1)
                                       : text.substr(begin, text.find(')', begin) - begin);
        EXPECT_EQ(General(parser).GetMPN(), mpn.c_str()) << path;
    }
}

TEST(CVEK_AsciiParser, ReadsSectionsInAnyOrderAsTheProcedureSays) {
    const char* sections[] = {"(FONTS (FONT (ID 1) (CHARWIDTH 2)))",
                              "(FONTS (FONT (ID 2)))",
                              "(VEK (PARTGENERAL (MPN A) (UNIT MM)))",
                              "(VEK (PARTGENERAL (MPN B)))",
                              "(COLORTABLE (COLOR 1 2 3))",
                              "(PADS (PAD (PADNAME P)))",
                              "(PADSTACKS (PADSTACK (PADSTACKNAME S) (TOP (CON P))))",
                              "(FOOTPRINTS (FOOTPRINT (NAME F)))",
                              "(NSHAPE (NAME N1))",
                              "(NSHAPE (NAME N2))",
                              "(PARTITIONS (PARTITION (NAME X)))",
                              "(OTHER)",
                              ")(",
                              "(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) (MECHANICALPIN M (PT 1))))))"};
    std::mt19937 random(1);
    const test::TemporaryDirectory directory;
    for (int round = 0; round < 300; ++round) {
        CVEK_AsciiParser parser, plain;
        std::vector<std::string> told[2];
        for (int read = 0; read < 2; ++read) {  // the second time into a model that is full
            std::string text;
            for (unsigned i = random() % 8; i > 0; --i)
                text += std::string(sections[random() % std::size(sections)]) + "\n";
            const CString path = directory.Write("part.veka", text);
            parser.SetVEKAsciiFilePath(path);
            const auto run = [](std::vector<std::string>& all, const std::function<void()>& import) {
                test::ScriptedUserInterface user;
                try {
                    import();
                } catch (const std::exception& error) {
                    all.push_back(error.what());
                }
                all.insert(all.end(), user.messages.begin(), user.messages.end());
            };
            run(told[0], [&] { parser.Parser(); });
            run(told[1], [&] { test::ImportByReference(path, plain); });
            ASSERT_EQ(told[0], told[1]) << text;
            ASSERT_TRUE(SameButApart(*parser.GetCVEKA_Manager(), *plain.GetCVEKA_Manager())) << text;
        }
    }
}

TEST(CVEK_AsciiParser, AFailedSectionLeavesThoseBeforeItAndTheFontsBehindIt) {
    const test::TemporaryDirectory directory;
    test::ScriptedUserInterface user;
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(directory.Write("part.veka",
                                               "(NSHAPE (NAME N))(VEK (PACKAGES (PACKAGE (MECHANICALPINS (X) "
                                               "(MECHANICALPIN M (PT 1))))))(NSHAPE)(FONTS (FONT "
                                               "(ID 1)))\n)("));
    EXPECT_THROW(parser.Parser(), std::exception);
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetNShapeArr()->GetSize(), 1);
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetLibFonts()->GetSize(), 1);
    EXPECT_EQ(user.messages.size(), 1u) << "the file is read to its end";
}

TEST(CVEK_AsciiParser, ObjectsNestedToTheLimitAreClonedPrintedAndDestroyed) {
    const std::string open = "(COMPOSITE ", inner = "(PT 1 2)";
    std::string text = "(PADS (PAD ";
    for (int depth = 3; depth < 20; ++depth) text += open;
    text += inner;
    text += std::string(19, ')');
    test::ScriptedUserInterface user;
    const auto parser = Import(text);
    EXPECT_TRUE(user.messages.empty());
    const std::unique_ptr<CVEKA_Manager> clone(parser->GetCVEKA_Manager()->Clone());
    CVEKA_Manager moved;
    moved = std::move(*parser->GetCVEKA_Manager());
    EXPECT_EQ(test::Outlined(moved, true), test::Outlined(*clone, true));
    const std::string json = test::AsJson(moved);
    size_t count = 0;
    for (size_t at = 0; (at = json.find("\"COMPOSITE\"", at)) != std::string::npos; ++at) ++count;
    EXPECT_EQ(count, 17u);

    text.insert(text.find(inner), open);
    Import(text);
    EXPECT_EQ(user.messages.size(), 1u) << "one deeper is the brace error";
}

}  // namespace
