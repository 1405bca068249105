#include "failures/Failures.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <set>

#include "dialog/CVEK_AsciiFile_Import_Dlg.h"
#include "leveltree/CECadCls.h"
#include "model/CVEKA_Manager.h"
#include "parser/CVEK_AsciiParser.h"
#include "parser/Import.h"
#include "platform/Exceptions.h"
#include "support/Files.h"
#include "support/ModelText.h"
#include "support/ScriptedUserInterface.h"

namespace {

using test::AsJson;
using test::SectionsAsJson;

constexpr size_t kShapes = 5;  // among the sections

/// Runs something over and over, each time with the next allocation failing, until it needs no more. Each
/// failure must reach the caller. Returns how many there were.
size_t FailEachAllocation(const std::function<void()>& run, const std::function<void()>& afterFailure) {
    for (size_t number = 1;; ++number) {
        bool raised = false, happened = false;
        {
            const test::FailingAllocation failing(number);
            try {
                run();
            } catch (const std::bad_alloc&) {
                raised = true;
            }
            happened = failing.Happened();
        }
        if (!happened) return number - 1;
        EXPECT_TRUE(raised) << "allocation " << number << " failed and nobody was told";
        if (!raised) return number;
        afterFailure();
        if (testing::Test::HasFailure()) return number;
    }
}

std::vector<CString> Parts() {
    std::vector<CString> parts{veka::FromPath(test::ProjectFolder("tests") / "data/complete.veka")};
    for (const char* name : {"op-amp.veka", "resistor.veka"})
        parts.push_back(veka::FromPath(test::ProjectFolder("examples") / name));
    return parts;
}

std::unique_ptr<CVEKA_Manager> Import(const CString& path) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(path);
    parser.Parser();
    std::unique_ptr<CVEKA_Manager> model(parser.GetCVEKA_Manager());
    parser.SetCVEKA_Manager(nullptr);
    return model;
}

TEST(OutOfMemory, AnImportRaisesLeavesEachSectionWholeAndCanBeRepeated) {
    const std::vector<std::string> empty = SectionsAsJson(CVEKA_Manager());
    for (const CString& path : Parts()) {
        const std::vector<std::string> full = SectionsAsJson(*Import(path));
        std::unique_ptr<CVEK_AsciiParser> parser;
        const size_t failures = FailEachAllocation(
            [&] {
                parser.reset();
                parser = std::make_unique<CVEK_AsciiParser>();
                parser->SetVEKAsciiFilePath(path);
                parser->Parser();
            },
            [&] {
                if (!parser) return;
                const std::vector<std::string> left = SectionsAsJson(*parser->GetCVEKA_Manager());
                ASSERT_EQ(left.size(), full.size());
                // Each shape is a section of its own, so the first ones may be there.
                for (size_t i = 0; i < left.size(); ++i)
                    ASSERT_TRUE(left[i] == empty[i] || left[i] == full[i] ||
                                (i == kShapes && full[i].starts_with(left[i].substr(0, left[i].size() - 1))))
                        << "section " << i;
                *parser->GetCVEKA_Manager() = CVEKA_Manager();
                parser->SetVEKAsciiFilePath(path);
                parser->Parser();
                ASSERT_TRUE(SectionsAsJson(*parser->GetCVEKA_Manager()) == full);
            });
        EXPECT_GT(failures, 50u) << path;
    }
}

TEST(OutOfMemory, AnImportIntoAFullModelRaisesAndLeavesEachSectionOldOrNew) {
    const CString path = Parts()[0];
    const auto former = Import(Parts()[1]);
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(path);
    const auto restore = [&] { *parser.GetCVEKA_Manager() = *former; };
    restore();
    parser.Parser();
    const std::vector<std::string> old = SectionsAsJson(*former),
                                   fresh = SectionsAsJson(*parser.GetCVEKA_Manager());
    restore();
    FailEachAllocation([&] { parser.Parser(); },
                       [&] {
                           const std::vector<std::string> left = SectionsAsJson(*parser.GetCVEKA_Manager());
                           for (size_t i = 0; i < left.size(); ++i)
                               ASSERT_TRUE(left[i] == old[i] || left[i] == fresh[i]) << "section " << i;
                           restore();
                       });
}

TEST(OutOfMemory, AnImportWithOptionsRaisesAndLeavesEachSectionOldOrNew) {
    const std::string text = test::ReadFile(veka::ToPath(Parts()[0])) + "(OTHER)";
    const std::vector<std::string> empty = SectionsAsJson(CVEKA_Manager()),
                                   full = SectionsAsJson(*Import(Parts()[0]));
    std::unique_ptr<CVEK_AsciiParser> parser;
    const size_t failures = FailEachAllocation(
        [&] {
            parser.reset();
            parser = std::make_unique<CVEK_AsciiParser>();
            veka::ImportOptions options;
            options.progress = [](const veka::ImportProgress&) {};
            veka::ImportBytes(*parser, text, options);
        },
        [&] {
            if (!parser) return;
            const std::vector<std::string> left = SectionsAsJson(*parser->GetCVEKA_Manager());
            for (size_t i = 0; i < left.size(); ++i)
                ASSERT_TRUE(left[i] == empty[i] || left[i] == full[i] || i == kShapes) << "section " << i;
        });
    EXPECT_GT(failures, 50u);
}

TEST(OutOfMemory, AnUnbalancedFileRaisesWhereItsMessageCannotBeMade) {
    const test::TemporaryDirectory directory;
    const CString path = directory.Write("part.veka", "(VEK (PARTGENERAL (MPN A)))\n" + std::string(21, '('));
    const size_t failures = FailEachAllocation(
        [&] {
            test::ScriptedUserInterface user;
            CVEK_AsciiParser parser;
            parser.SetVEKAsciiFilePath(path);
            parser.Parser();
        },
        [] {});
    EXPECT_GT(failures, 5u);
}

TEST(OutOfMemory, ATreeRaisesAndItsReaderCanReadAgain) {
    const CString path = Parts()[0];
    FailEachAllocation(
        [&] {
            CECadCls tree;
            tree.m_strFilePath = path;
            tree.ReadLevelTree(0);
        },
        [] {});
    CECadCls tree;
    tree.m_strFilePath = path;
    {
        const test::FailingAllocation failing(5);
        EXPECT_THROW(tree.ReadLevelTree(0), std::bad_alloc);
    }
    const INT_PTR before = tree.m_pRootLevels->GetSize();
    EXPECT_EQ(tree.ReadLevelTree(0), 0);
    EXPECT_GT(tree.m_pRootLevels->GetSize(), before);
}

TEST(OutOfMemory, CloningAndCopyingAModelRaiseAndLeaveWholeRecords) {
    const auto model = Import(Parts()[0]);
    const std::string told = AsJson(*model);
    size_t failures =
        FailEachAllocation([&] { delete model->Clone(); }, [&] { ASSERT_TRUE(AsJson(*model) == told); });
    EXPECT_GT(failures, 100u);

    std::unique_ptr<CVEKA_Manager> target;
    FailEachAllocation(
        [&] {
            target = std::make_unique<CVEKA_Manager>();
            *target = *model;
        },
        [&] {
            if (!target) return;
            *target = *model;
            ASSERT_TRUE(AsJson(*target) == told);
        });
    // Into records that are full, too.
    failures = FailEachAllocation([&] { *target = *model; },
                                  [&] {
                                      const std::unique_ptr<CVEKA_Manager> whole(target->Clone());
                                      ASSERT_TRUE(AsJson(*whole) == AsJson(*target));
                                  });
    EXPECT_TRUE(AsJson(*target) == told);
    EXPECT_GT(failures, 100u);
}

TEST(OutOfMemory, AStringAndItsArraysKeepWhatTheyHeld) {
    const CString text("more than a few bytes of text");
    CString string(text);
    CStringArray strings;
    CArrayN numbers;
    FailEachAllocation([&] { CString(string) += "and more of it, so that it has to grow"; },
                       [&] { ASSERT_EQ(string, text); });
    FailEachAllocation(
        [&] {
            CString copy = string;
            copy.Replace("e", "a longer text than it was");
        },
        [&] { ASSERT_EQ(string, text); });
    FailEachAllocation(
        [&] {
            for (int i = 0; i < 40; ++i) strings.Add(text);
            strings.RemoveAll();
        },
        [&] {
            for (const CString& each : strings) ASSERT_EQ(each, text);
            strings.RemoveAll();
        });
    FailEachAllocation([&] { numbers.SetSize(1000); }, [&] { ASSERT_EQ(numbers.GetSize(), 0); });
}

TEST(OutOfMemory, TheDialogEndsAndRaises) {
    const test::TemporaryDirectory directory;
    const CString library = directory / "";
    const CString path = Parts()[0];
    const size_t failures = FailEachAllocation(
        [&] {
            test::ScriptedUserInterface user;
            user.script = test::PressOk;
            CVEK_AsciiFile_Import_Dlg dialog;
            dialog.SetVEKAsciiFilePath(path);
            dialog.SetDefaultPartLibDir(library);
            dialog.DoModal();
        },
        [] {});
    EXPECT_GT(failures, 100u);
}

TEST(ReadError, HalfWayItReachesTheCallerAndTheModelStaysAsItWas) {
    const test::TemporaryDirectory directory;
    std::string text = "(FONTS (FONT (ID 1)))(VEK (PARTGENERAL (MPN A)))\n";
    while (text.size() < 500'000) text += "(NSHAPE (NAME N))\n";
    const CString path = directory.Write("part.veka", text);
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(path);
    const std::vector<std::string> before = SectionsAsJson(*parser.GetCVEKA_Manager());
    size_t number = 1;
    for (;; ++number) {
        const test::FailingRead failing(number);
        try {
            parser.Parser();
            break;
        } catch (const CFileException&) {
            ASSERT_TRUE(SectionsAsJson(*parser.GetCVEKA_Manager()) == before) << "read " << number;
        }
    }
    EXPECT_GT(number, 5u);
    EXPECT_EQ(parser.GetCVEKA_Manager()->GetVEK()->GetPartGeneral()->GetMPN(), "A");
}

TEST(ReadError, HalfWayATreeKeepsTheLevelsThatHadClosed) {
    const test::TemporaryDirectory directory;
    std::string text;
    while (text.size() < 500'000) text += "(NSHAPE (NAME N))\n";
    CECadCls tree;
    tree.m_strFilePath = directory.Write("part.veka", text);
    const test::FailingRead failing(4);
    EXPECT_THROW(tree.ReadLevelTree(0), CFileException);
    EXPECT_GT(tree.m_pRootLevels->GetSize(), 1000);
    for (const CECadClsLvl* level : *tree.m_pRootLevels) ASSERT_EQ(level->m_strName, "NSHAPE");
}

}  // namespace
