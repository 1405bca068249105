#include "leveltree/CECadClsLvl.h"

#include <gtest/gtest.h>

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

}  // namespace
