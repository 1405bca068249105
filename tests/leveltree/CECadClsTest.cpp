#include "leveltree/CECadCls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "files/MemoryLines.h"
#include "platform/Exceptions.h"
#include "support/Files.h"
#include "support/LibraryReader.h"
#include "support/RealParts.h"
#include "support/ReferenceReader.h"
#include "support/ScriptedUserInterface.h"

namespace {

using test::LevelData;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<LevelData> Roots(const CECadCls& tree) {
    std::vector<LevelData> roots;
    for (const CECadClsLvl* level : *tree.m_pRootLevels) roots.push_back(test::ToData(*level));
    return roots;
}

/// A tree that reads a file of the test.
class CECadClsTest : public testing::Test {
protected:
    int Read(std::string_view text, int reserved = 0) {
        tree.m_strFilePath = directory.Write("part.veka", text);
        return tree.ReadLevelTree(reserved);
    }

    test::TemporaryDirectory directory;
    test::ScriptedUserInterface user;
    CECadCls tree;
};

TEST_F(CECadClsTest, StartsWithAnEmptyTree) {
    EXPECT_EQ(tree.m_bStopAtDepthZero, 0);
    EXPECT_EQ(tree.m_nLineCount, 0);
    EXPECT_TRUE(tree.m_strFilePath.IsEmpty());
    EXPECT_TRUE(tree.m_pRootLevels->IsEmpty());
    EXPECT_TRUE(tree.m_aReserved32.IsEmpty());
    EXPECT_TRUE(tree.m_aReserved64.IsEmpty());
}

TEST_F(CECadClsTest, ReadsItsFileIntoTheRootLevels) {
    const std::string text = "(A 1 (B \"a value that is longer than fourteen bytes\"))\n// note\n(C)\n";
    EXPECT_EQ(Read(text), 0);
    EXPECT_EQ(Roots(tree), test::ReadByReference(text).roots);
    EXPECT_EQ(tree.m_nLineCount, 3);
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(CECadClsTest, ReadsTheSameTreeFromAnySourceOfLines) {
    const std::string text = "(A 1\n(B))\n(C)(D";
    veka::MemoryLines lines(text);
    EXPECT_EQ(tree.ReadLevelTreeFrom(lines, 0), -1);
    EXPECT_EQ(Roots(tree), test::ReadByReference(text).roots);
    EXPECT_EQ(tree.m_nLineCount, 3);
}

TEST_F(CECadClsTest, UnbalancedLevelsGiveMinusOneWithoutAMessage) {
    EXPECT_EQ(Read("(A) (B"), -1);
    EXPECT_EQ(Roots(tree).size(), 1u);
    EXPECT_EQ(Read("(C)\n)\ntext"), -1);
    EXPECT_EQ(Roots(tree).size(), 2u);
    EXPECT_THAT(user.messages, IsEmpty());
}

TEST_F(CECadClsTest, ATooDeepLevelGivesMinusOneAndAMessage) {
    EXPECT_EQ(Read("(A)\n\n" + std::string(21, '(') + std::string(21, ')')), -1);
    EXPECT_THAT(user.messages,
                ElementsAre("Parser meet unexpected Brace Counting Number, 21 at line number 3.!"));
    EXPECT_EQ(Roots(tree).size(), 1u);
}

TEST_F(CECadClsTest, ALevelAfterAStrayParenthesisGivesMinusOneAndAMessageAlthoughItCountsToZero) {
    EXPECT_EQ(Read("\n)(A)"), -1);
    EXPECT_THAT(user.messages,
                ElementsAre("Parser meet unexpected Brace Counting Number, 0 at line number 2.!"));
}

TEST(CECadCls, ShowsTheMessageWhenTheLevelsAndTheLineNumberAreInPlace) {
    struct Observer : test::ScriptedUserInterface {
        void ShowMessage(const CString&) override {
            levels = tree.m_pRootLevels->GetSize();
            line = tree.m_nLineCount;
        }
        CECadCls tree;
        INT_PTR levels = 0;
        int line = 0;
    } user;
    veka::MemoryLines lines("(A)(B)\n\n)(C)\n(D)\n");
    EXPECT_EQ(user.tree.ReadLevelTreeFrom(lines, 0), -1);
    EXPECT_EQ(user.levels, 2);
    EXPECT_EQ(user.line, 3);
}

TEST_F(CECadClsTest, AnExceptionOfTheMessagePassesThroughAndLeavesTheTree) {
    struct Broken : test::ScriptedUserInterface {
        void ShowMessage(const CString&) override { throw std::runtime_error("no window"); }
    } broken;
    EXPECT_THROW(Read("(A)\n)(B)"), std::runtime_error);
    EXPECT_EQ(Roots(tree).size(), 1u);
    EXPECT_EQ(tree.m_nLineCount, 2);
}

TEST_F(CECadClsTest, TheArgumentStandsForTheByteBeforeTheFile) {
    const std::string text = "(\n\"\n\" x\")";
    EXPECT_EQ(Read(text, '\\'), 0);
    EXPECT_EQ(Roots(tree).back().name, "\n\" x");
    EXPECT_EQ(Read(text, 0x100 + '\\'), 0) << "only the low byte counts";
    EXPECT_EQ(Roots(tree).back().name, "\n\" x");
    EXPECT_EQ(Read(text, 0), -1);
    EXPECT_EQ(Roots(tree).size(), 2u);
}

TEST_F(CECadClsTest, StopsOutsideEveryLevelOnDemand) {
    tree.m_bStopAtDepthZero = 1;
    EXPECT_EQ(Read("(A)\n(B)\n(C)"), 0);
    EXPECT_EQ(Roots(tree).size(), 2u);
}

TEST_F(CECadClsTest, AMissingFileGivesAnEmptyTree) {
    tree.m_strFilePath = directory / "nothing";
    tree.m_nLineCount = 7;
    EXPECT_EQ(tree.ReadLevelTree(0), 0);
    EXPECT_THAT(Roots(tree), IsEmpty());
    EXPECT_EQ(tree.m_nLineCount, 0);
}

TEST_F(CECadClsTest, ADirectoryGivesAnEmptyTree) {
    tree.m_strFilePath = directory / "";
    EXPECT_EQ(tree.ReadLevelTree(0), 0);
    EXPECT_THAT(Roots(tree), IsEmpty());
}

TEST_F(CECadClsTest, AReadErrorPassesThrough) {
    if (!std::filesystem::exists("/proc/self/mem")) GTEST_SKIP() << "There is no file that cannot be read.";
    tree.m_strFilePath = "/proc/self/mem";
    EXPECT_THROW(tree.ReadLevelTree(0), CFileException);
}

TEST_F(CECadClsTest, ReadsEveryRealPartAsTheProcedureSays) {
    VEKA_NEEDS_CORPUS();
    for (const test::RealPart& part : test::RealParts()) {
        CECadCls one;
        one.m_strFilePath = veka::FromPath(part.path);
        EXPECT_EQ(one.ReadLevelTree(0), 0) << part.path;
        EXPECT_TRUE(Roots(one) == part.read.roots) << part.path;
    }
}

TEST_F(CECadClsTest, HandsTopLevelLevelsOverAndKeepsNone) {
    const std::string text = "(A 1 (B \"a value that is longer than fourteen bytes\"))\n(C)\n(D (E) x";
    tree.m_strFilePath = directory.Write("part.veka", text);
    std::vector<LevelData> levels;
    EXPECT_EQ(
        tree.ReadTopLevels(0, [&](const CECadClsLvl* level) { levels.push_back(test::ToData(*level)); }), -1);
    EXPECT_EQ(levels, test::ReadByReference(text).roots);
    EXPECT_TRUE(tree.m_pRootLevels->IsEmpty());
    EXPECT_EQ(tree.m_nLineCount, 3);
}

TEST_F(CECadClsTest, HandsNothingOverOfAMissingFile) {
    tree.m_strFilePath = directory / "nothing";
    EXPECT_EQ(tree.ReadTopLevels(0, [](const CECadClsLvl*) { ADD_FAILURE(); }), 0);
}

TEST_F(CECadClsTest, AnExceptionOfWhoTakesTheLevelsEndsTheRead) {
    tree.m_strFilePath = directory.Write("part.veka", "\n(A)(B)\n");
    int taken = 0;
    EXPECT_THROW(tree.ReadTopLevels(0, [&](const CECadClsLvl*) { throw ++taken; }), int);
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(tree.m_nLineCount, 2);
}

TEST_F(CECadClsTest, CountsTheLinesOfEachReadAnewAndKeepsTheLevelsOfTheFormer) {
    Read("(A)\n\n\n(B)\n");
    EXPECT_EQ(tree.m_nLineCount, 4);
    Read("(C)\n");
    EXPECT_EQ(tree.m_nLineCount, 1);
    EXPECT_EQ(tree.m_pRootLevels->GetSize(), 3);
}

}  // namespace
