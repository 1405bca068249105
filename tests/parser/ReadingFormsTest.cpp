#include "parser/ReadingForms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Parsing.h"

namespace {

using namespace veka;

/// A level with values.
CECadClsLvl* Level(const CECadCls& tree) {
    return tree.m_pRootLevels->GetAt(0);
}

TEST(ReadingForms, TheFirstValueCounts) {
    int number = 7;
    CString text = "kept";
    const auto tree = test::ReadTree("(N 12mm 3)"), empty = test::ReadTree("(N)");
    First(Level(*tree), number);
    EXPECT_EQ(number, 12);
    First(Level(*empty), number);
    First(Level(*empty), text);
    EXPECT_EQ(number, 12);
    EXPECT_EQ(text, "kept");
}

TEST(ReadingForms, TheLastValueCounts) {
    double number = 7;
    const auto tree = test::ReadTree("(N 1 2.5mm)"), empty = test::ReadTree("(N)");
    Last(Level(*tree), number);
    EXPECT_EQ(number, 2.5);
    Last(Level(*empty), number);
    EXPECT_EQ(number, 2.5);
}

TEST(ReadingForms, ValuesGoToFieldsByPosition) {
    CString text;
    int number = 7;
    double real = 8;
    const auto two = test::ReadTree("(N a 2)"), four = test::ReadTree("(N b 3 4.5 5)");
    ByPosition(Level(*two), text, number, real);
    EXPECT_EQ(text, "a");
    EXPECT_EQ(number, 2);
    EXPECT_EQ(real, 8);
    ByPosition(Level(*four), text, number, real);
    EXPECT_EQ(real, 4.5);
}

TEST(ReadingForms, AListGrows) {
    CStringArray list;
    const auto tree = test::ReadTree("(N a \"\" b)");
    List(Level(*tree), list);
    List(Level(*tree), list);
    EXPECT_THAT(test::Strings(list), testing::ElementsAre("a", "", "b", "a", "", "b"));
}

TEST(ReadingForms, OnlyTheExactWordSetsAFlag) {
    for (const char* text : {"(N true)", "(N 1)", "(N \"\")", "(N \"TRUE \")", "(N FALSE TRUE)"}) {
        int flag = 1;
        const auto tree = test::ReadTree(text);
        First(Level(*tree), Flag{flag});
        EXPECT_EQ(flag, 0) << text;
    }
    int flag = 5;
    const auto empty = test::ReadTree("(N)"), set = test::ReadTree("(N TRUE)");
    First(Level(*empty), Flag{flag});
    EXPECT_EQ(flag, 5);
    First(Level(*set), Flag{flag});
    EXPECT_EQ(flag, 1);
}

TEST(ReadingForms, AFreshResultIsTakenOverAndFreed) {
    Owned<CVEKA_CommentArray> field;
    auto* fresh = new CVEKA_CommentArray;
    fresh->Add(std::make_unique<CVEKA_Comment>());
    Take(field, fresh);
    EXPECT_EQ(field->GetSize(), 1);
    Take(field, static_cast<CVEKA_CommentArray*>(nullptr));
    EXPECT_EQ(field->GetSize(), 1);
}

TEST(ReadingForms, AFreshElementIsAppended) {
    CVEKA_CommentArray array;
    auto* fresh = new CVEKA_Comment;
    Append(array, fresh);
    Append(array, static_cast<CVEKA_Comment*>(nullptr));
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array[0], fresh);
}

}  // namespace
