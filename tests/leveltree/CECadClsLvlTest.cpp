#include "leveltree/CECadClsLvl.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>

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

constexpr const char* kLong = "a text that needs memory of its own";

/// A level in one line.
std::string Text(const CECadClsLvl& level) {
    std::string text = "(" + std::string(level.m_strName);
    for (const CString& value : level.m_aValues) (text += ' ') += value.View();
    for (const CECadClsLvl* child : *level.m_pChildren) text += child ? ' ' + Text(*child) : " null";
    return text + ')';
}
std::string Text(const CECadClsLvlArray& levels) {
    std::string text;
    for (const CECadClsLvl* level : levels) text += Text(*level);
    return text;
}

std::unique_ptr<CECadClsLvl> Make(const char* name) {
    auto level = std::make_unique<CECadClsLvl>();
    level->m_strName = name;
    level->m_aValues.Add(kLong);
    return level;
}

/// A tree that was read, with its first level. Level `A` has children, level `B` has none.
struct ReadLevels : testing::Test {
    std::unique_ptr<CECadCls> tree =
        test::ReadTree("(A v \"a value of more than fourteen bytes\" (B w) (C (D x) (E)) (F y))");
    CECadClsLvl* a = tree->m_pRootLevels->GetAt(0);
    CECadClsLvlArray& children = *a->m_pChildren;
};

TEST(CECadClsLvl, HasAsManyValuesAndChildrenAsTheFile) {
    for (int count = 0; count < 300; count = count < 20 ? count + 1 : count * 2) {
        std::string text = "(N";
        for (int i = 0; i < count; ++i) text += " v" + std::to_string(i);
        for (int i = 0; i < count; ++i) text += " (C" + std::to_string(i) + ")";
        text += ')';
        // With levels before and after it: none is written over.
        const std::string all = "(T " + text + ' ' + text + " (E v) " + text + ')';
        const auto tree = test::ReadTree(all);
        EXPECT_EQ(Text(*tree->m_pRootLevels), all) << count;
    }
}

TEST_F(ReadLevels, TakeMoreValues) {
    for (CECadClsLvl* level : {a, children[0], children[1]}) {
        const INT_PTR size = level->m_aValues.GetSize();
        for (int i = 0; i < 100; ++i) EXPECT_EQ(level->m_aValues.Add(kLong), size + i);
        level->m_aValues.InsertAt(0, "first");
        level->m_aValues.SetAtGrow(size + 200, "last");
        EXPECT_EQ(level->m_aValues.GetSize(), size + 201);
        EXPECT_EQ(level->m_aValues[0], "first");
    }
}

TEST_F(ReadLevels, LoseValues) {
    a->m_aValues.RemoveAt(0);
    EXPECT_EQ(a->m_aValues[0], "a value of more than fourteen bytes");
    a->m_aValues.RemoveAll();
    EXPECT_EQ(Text(*a), "(A (B w) (C (D x) (E)) (F y))");
    a->m_aValues.Append(children[0]->m_aValues);
    EXPECT_EQ(a->m_aValues[0], "w");
}

TEST_F(ReadLevels, ChangeTheirTextsInPlace) {
    a->m_strName = kLong;
    a->m_aValues.SetAt(0, kLong);
    a->m_aValues[1] += kLong;
    children[0]->m_strName.Format("%s of a level without children", kLong);
    children[1]->m_pChildren->GetAt(1)->m_strName = kLong;
    EXPECT_EQ(a->m_aValues[0], kLong);
    EXPECT_EQ(children[0]->m_strName, "a text that needs memory of its own of a level without children");
}

TEST_F(ReadLevels, TakeMoreChildren) {
    for (CECadClsLvl* level : {a, children[0], children[1]->m_pChildren->GetAt(1)}) {
        const INT_PTR size = level->m_pChildren->GetSize();
        for (int i = 0; i < 20; ++i) level->m_pChildren->Add(Make("N"));
        level->m_pChildren->InsertAt(0, Make("M").release());
        EXPECT_EQ(level->m_pChildren->GetSize(), size + 21);
        EXPECT_EQ(level->m_pChildren->GetAt(0)->m_strName, "M");
        EXPECT_EQ(level->m_pChildren->GetLastElement()->m_aValues[0], kLong);
    }
}

TEST_F(ReadLevels, LoseChildren) {
    children.DeleteAt(0);
    EXPECT_TRUE(children[0]->m_pChildren->Delete(children[0]->m_pChildren->GetAt(0)));
    EXPECT_TRUE(children.DeleteLastElement());
    EXPECT_EQ(Text(children), "(C (E))");
    children.DeleteAll();
    EXPECT_TRUE(children.IsEmpty());
    children.Add(Make("N"));
    EXPECT_EQ(children.GetSize(), 1);
}

TEST_F(ReadLevels, ArePutInOtherOrderAndReplaced) {
    children.Reverse();
    EXPECT_EQ(Text(children), "(F y)(C (D x) (E))(B w)");
    CECadClsLvl* former = children[0];
    children.SetAt(0, Make("N").release());
    delete former;
    delete children[1];
    children.SetAt(1, nullptr);
    EXPECT_EQ(children.GetSize(), 3);
    children.RemoveNullElement();
    children.Add(children[0]);
    children.RemoveDuplicatedElements();
    EXPECT_EQ(Text(children), "(N a text that needs memory of its own)(B w)");
}

TEST_F(ReadLevels, OutliveTheirTreeWhereTheyWereTakenOut) {
    const std::unique_ptr<CECadClsLvl> first(children[0]);
    EXPECT_TRUE(children.Remove(first.get()));
    const std::unique_ptr<CECadClsLvl> last(children.RemoveLastElement());
    CECadClsLvlArray taken;
    EXPECT_TRUE(children.MoveElementTo(taken, 0, 0));
    const std::unique_ptr<CECadClsLvl> root(tree->m_pRootLevels->RemoveLastElement());
    tree.reset();
    EXPECT_EQ(Text(*first) + Text(*last) + Text(taken), "(B w)(F y)(C (D x) (E))");
    EXPECT_EQ(Text(*root), "(A v a value of more than fourteen bytes)");
    taken[0]->m_pChildren->DeleteAt(0);
    taken[0]->m_pChildren->Add(Make("N"));
    first->m_aValues.Add(kLong);
    EXPECT_EQ(taken[0]->m_pChildren->GetSize(), 2);
}

TEST_F(ReadLevels, MoveToAnotherTree) {
    auto other = test::ReadTree("(X (Y))");
    CECadClsLvl* x = other->m_pRootLevels->GetAt(0);
    EXPECT_TRUE(children.MoveElementTo(*x->m_pChildren, 1, 2));
    EXPECT_TRUE(other->m_pRootLevels->MoveElementTo(*children[0]->m_pChildren, 0, 0));
    other.reset();
    EXPECT_EQ(Text(*a), "(A v a value of more than fourteen bytes (B w (X (Y) (C (D x) (E)) (F y))))");
    other = test::ReadTree("(Z)");
    EXPECT_TRUE(tree->m_pRootLevels->MoveElementTo(*other->m_pRootLevels, 0, 0));
    tree.reset();
    EXPECT_EQ(other->m_pRootLevels->GetSize(), 2);
}

TEST_F(ReadLevels, GiveTheirValuesAway) {
    const CStringArray copy = a->m_aValues;
    const CString name = std::move(a->m_strName);
    CStringArray moved = std::move(a->m_aValues);
    CStringArray assigned;
    assigned = std::move(children[0]->m_aValues);
    CString value = std::move(children[2]->m_aValues[0]);
    EXPECT_TRUE(a->m_aValues.IsEmpty());
    tree.reset();
    moved.Add(kLong);
    EXPECT_EQ(copy[1], "a value of more than fourteen bytes");
    EXPECT_EQ(moved[1], "a value of more than fourteen bytes");
    EXPECT_EQ(assigned[0], "w");
    EXPECT_EQ(name, "A");
    EXPECT_EQ(value, "y");
}

TEST_F(ReadLevels, EndInAnotherThread) {
    std::unique_ptr<CECadClsLvl> taken(children[1]);
    children.RemoveAt(1);
    std::thread other([&] { taken.reset(); });
    tree.reset();
    other.join();
    EXPECT_EQ(taken, nullptr);
}

TEST_F(ReadLevels, EndWithTheirTreeHoweverOftenItIsRead) {
    veka::MemoryLines lines("(A (B)) (C");
    EXPECT_EQ(tree->ReadLevelTreeFrom(lines, 0), -1);
    EXPECT_EQ(tree->m_pRootLevels->GetSize(), 2);
    tree->m_pRootLevels->DeleteAt(0);
    EXPECT_EQ(Text(*tree->m_pRootLevels), "(A (B))");
    tree->m_pRootLevels->DeleteAll();
    veka::MemoryLines more("(G)");
    EXPECT_EQ(tree->ReadLevelTreeFrom(more, 0), 0);
    EXPECT_EQ(Text(*tree->m_pRootLevels), "(G)");
}

/// Whatever is done to a tree that was read has the same effect as on a tree of levels made by themselves.
TEST(CECadClsLvl, ThatWasReadIsAsOneMadeByItselfWhateverIsDoneToIt) {
    struct Copy {
        static std::unique_ptr<CECadClsLvl> Of(const CECadClsLvl& level) {
            auto copy = std::make_unique<CECadClsLvl>();
            copy->m_strName = level.m_strName;
            copy->m_aValues = level.m_aValues;
            for (const CECadClsLvl* child : *level.m_pChildren) copy->m_pChildren->Add(Of(*child));
            return copy;
        }
    };
    std::mt19937 random(1);
    for (int round = 0; round < 100; ++round) {
        auto tree = test::ReadTree(
            "(A v \"a value of more than fourteen bytes\" (B w) (C (D x y z) (E)) (F \"another value of such "
            "a length\"))");
        std::unique_ptr<CECadClsLvl> read(tree->m_pRootLevels->RemoveLastElement());
        const auto made = Copy::Of(*read);
        if (round % 2 == 0) tree.reset();
        for (int step = 0; step < 30; ++step) {
            CECadClsLvl *one = read.get(), *other = made.get();
            while (!one->m_pChildren->IsEmpty() && random() % 3 != 0) {
                const auto at = static_cast<INT_PTR>(random()) % one->m_pChildren->GetSize();
                one = one->m_pChildren->GetAt(at);
                other = other->m_pChildren->GetAt(at);
            }
            const auto place = static_cast<INT_PTR>(random() % 4), what = static_cast<INT_PTR>(random() % 10);
            for (CECadClsLvl* level : {one, other}) {
                const bool child = place < level->m_pChildren->GetSize(),
                           value = place < level->m_aValues.GetSize();
                switch (what) {
                    case 0:
                        level->m_aValues.InsertAt(place, kLong);
                        break;
                    case 1:
                        level->m_aValues.SetAtGrow(place, "s");
                        break;
                    case 2:
                        if (value) level->m_aValues.RemoveAt(place);
                        break;
                    case 3:
                        if (value) level->m_aValues[place] += kLong;
                        break;
                    case 4:
                        level->m_aValues.Append(level->m_aValues);
                        level->m_aValues.SetSize(place);
                        break;
                    case 5:
                        level->m_strName += kLong;
                        break;
                    case 6:
                        level->m_pChildren->Add(Make("N"));
                        break;
                    case 7:
                        if (child) level->m_pChildren->DeleteAt(place);
                        break;
                    case 8:
                        level->m_pChildren->Reverse();
                        break;
                    default:
                        if (child) level->m_pChildren->MoveElementTo(*level->m_pChildren, 0, place);
                }
            }
            ASSERT_EQ(Text(*read), Text(*made));
        }
    }
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
