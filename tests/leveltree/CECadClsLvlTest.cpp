#include "leveltree/CECadClsLvl.h"

#include <gtest/gtest.h>

#include "platform/Exceptions.h"
#include "support/Parsing.h"

namespace {

TEST(CECadClsLvl, StartsEmpty) {
    const CECadClsLvl level;
    EXPECT_TRUE(level.m_pChildren->IsEmpty());
    EXPECT_TRUE(level.m_aValues.IsEmpty());
    EXPECT_TRUE(level.m_strName.IsEmpty());
    EXPECT_EQ(level.m_nDepth, 0);
}

TEST(CECadClsLvlArray, GivesNullOutsideItsRange) {
    CECadClsLvl level;
    level.m_pChildren->Add(std::make_unique<CECadClsLvl>());
    EXPECT_NE(level.m_pChildren->GetAt(0), nullptr);
    EXPECT_EQ(level.m_pChildren->GetAt(1), nullptr);
    EXPECT_EQ(level.m_pChildren->GetAt(-1), nullptr);
}

TEST(CECadClsLvl, OfATreeCannotGrow) {
    const auto tree = test::ReadTree("(A v (B) (C))");
    CECadClsLvl* level = tree->m_pRootLevels->GetAt(0);
    EXPECT_THROW(level->m_aValues.Add("w"), CInvalidArgException);
    EXPECT_THROW(level->m_pChildren->Add(nullptr), CInvalidArgException);
    EXPECT_THROW(level->m_pChildren->GetAt(0)->m_pChildren->Add(nullptr), CInvalidArgException);
    EXPECT_EQ(level->m_pChildren->GetSize(), 2);
}

TEST(CECadClsLvl, OfATreeLivesAsLongAsTheTree) {
    const auto tree = test::ReadTree("(A (B v)) (C)");
    CECadClsLvl* level = tree->m_pRootLevels->GetAt(0);
    tree->m_pRootLevels->DeleteAll();
    EXPECT_TRUE(tree->m_pRootLevels->IsEmpty());
    EXPECT_EQ(level->m_pChildren->GetAt(0)->m_aValues[0], "v");
}

TEST(CECadClsLvl, MadeByItselfOwnsItsChildren) {
    auto level = std::make_unique<CECadClsLvl>();
    for (int i = 0; i < 3; ++i) {
        auto child = std::make_unique<CECadClsLvl>();
        child->m_aValues.Add("a value with memory of its own");
        level->m_pChildren->Add(std::move(child));
    }
    level->m_pChildren->DeleteAt(1);
    EXPECT_EQ(level->m_pChildren->GetSize(), 2);
}

TEST(CECadClsLvl, ItsChildrenArePassedOnAsAPointer) {
    const CECadClsLvl level;
    CECadClsLvlArray* children = level.m_pChildren;
    EXPECT_EQ(children, level.m_pChildren.get());
    EXPECT_EQ(children, &*level.m_pChildren);
}

}  // namespace
