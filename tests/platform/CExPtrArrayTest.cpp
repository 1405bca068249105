#include "platform/CExPtrArray.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

int g_alive = 0;

/// Counts how many of its kind are alive.
struct Thing {
    Thing() { ++g_alive; }
    virtual ~Thing() { --g_alive; }
    Thing(const Thing&) = delete;
    Thing& operator=(const Thing&) = delete;
};

using Array = CExPtrArray<Thing*, Thing*>;

class ExPtrArray : public testing::Test {
protected:
    ExPtrArray() { g_alive = 0; }
    ~ExPtrArray() override { EXPECT_EQ(g_alive, 0); }

    /// Fills an array with new things and returns them.
    static std::vector<Thing*> Fill(Array& array, int count) {
        std::vector<Thing*> things;
        for (int i = 0; i < count; ++i) {
            things.push_back(new Thing);
            array.Add(things.back());
        }
        return things;
    }
    static std::vector<Thing*> Content(const Array& array) {
        return {array.GetData(), array.GetData() + array.GetSize()};
    }
};

TEST_F(ExPtrArray, GivesNullOutsideItsRange) {
    Array array;
    const auto t = Fill(array, 1);
    EXPECT_EQ(array.GetAt(0), t[0]);
    EXPECT_EQ(array.GetAt(-1), nullptr);
    EXPECT_EQ(array.GetAt(1), nullptr);
    EXPECT_TRUE(array.IsValidIndex(0));
    EXPECT_FALSE(array.IsValidIndex(-1));
    EXPECT_FALSE(array.IsValidIndex(1));
}

TEST_F(ExPtrArray, ItsOperatorsGiveAReferenceAndRaiseOutsideItsRange) {
    Array array;
    const auto t = Fill(array, 2);
    Thing*& first = array[0];
    EXPECT_EQ(&first, array.GetData());
    std::swap(array[0], array[1]);
    EXPECT_EQ(Content(array), (std::vector{t[1], t[0]}));
    EXPECT_THROW(array[2], CInvalidArgException);
    EXPECT_THROW(array[-1], CInvalidArgException);
    EXPECT_THROW(std::as_const(array)[2], CInvalidArgException);
    EXPECT_EQ(&std::as_const(array)[1], array.GetData() + 1);
}

TEST_F(ExPtrArray, DeletesANullElementAsAnyOther) {
    Array array;
    Fill(array, 1);
    array.SetAtGrow(2, nullptr);
    EXPECT_TRUE(array.Delete(nullptr));
    EXPECT_TRUE(array.Delete(nullptr));
    EXPECT_FALSE(array.Delete(nullptr));
    EXPECT_EQ(array.GetSize(), 1);
}

TEST_F(ExPtrArray, SubtractsTheFirstOccurrenceOfAnElementOnly) {
    Array array, other;
    const auto t = Fill(array, 2);
    array.Add(t[0]);
    array.Add(t[0]);
    other.Add(t[0]);
    array.Subtract(other);
    EXPECT_EQ(Content(array), (std::vector{t[1], t[0], t[0]}));
    other.RemoveAll();
    array.RemoveDuplicatedElements();
}

TEST_F(ExPtrArray, KeepsTheFirstOfItsNullElementsWhereItRemovesDuplicates) {
    Array array;
    array.SetAtGrow(1, nullptr);
    Fill(array, 1);
    array.Add(static_cast<Thing*>(nullptr));
    array.RemoveDuplicatedElements();
    ASSERT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array[0], nullptr);
    EXPECT_NE(array[1], nullptr);
}

TEST_F(ExPtrArray, SetAtStoresAtAValidIndexAloneAndDeletesNothing) {
    Array array;
    const auto t = Fill(array, 1);
    Thing other;
    array.SetAt(1, &other);
    array.SetAt(-1, &other);
    EXPECT_EQ(Content(array), t);
    array.SetAt(0, &other);
    EXPECT_EQ(g_alive, 2);
    EXPECT_EQ(array.GetLastElement(), &other);
    EXPECT_EQ(std::as_const(array).GetLastElement(), &other);
    array.RemoveLastElement();
    delete t[0];
}

TEST_F(ExPtrArray, HasNoLastElementWhileEmpty) {
    Array array;
    EXPECT_EQ(array.GetLastElement(), nullptr);
    EXPECT_EQ(array.RemoveLastElement(), nullptr);
    EXPECT_FALSE(array.DeleteLastElement());
}

TEST_F(ExPtrArray, SearchesFromTheFront) {
    Array array;
    const auto t = Fill(array, 2);
    array.Add(t[1]);
    EXPECT_EQ(array.FindIndex(t[1]), 1);
    EXPECT_TRUE(array.Exists(t[0]));
    EXPECT_EQ(array.FindIndex(nullptr), -1);
    EXPECT_FALSE(array.Exists(nullptr));
    array.RemoveLastElement();
}

TEST_F(ExPtrArray, AddsOnlyWhatIsNotThere) {
    Array array;
    const auto t = Fill(array, 1);
    auto* other = new Thing;
    EXPECT_EQ(array.Add_if_only_do_not_exists(t[0]), -1);
    EXPECT_EQ(array.Add_if_only_do_not_exists(other), 1);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST_F(ExPtrArray, RemoveTakesTheFirstOccurrenceOutWithoutDeletingIt) {
    Array array;
    const auto t = Fill(array, 2);
    array.Add(t[0]);
    EXPECT_TRUE(array.Remove(t[0]));
    EXPECT_EQ(Content(array), (std::vector{t[1], t[0]}));
    EXPECT_FALSE(array.Remove(nullptr));
    EXPECT_EQ(g_alive, 2);
}

TEST_F(ExPtrArray, RemoveLastElementHandsItOut) {
    Array array;
    const auto t = Fill(array, 2);
    EXPECT_EQ(array.RemoveLastElement(), t[1]);
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(g_alive, 2);
    delete t[1];
}

TEST_F(ExPtrArray, DeleteDeletesTheElement) {
    Array array;
    const auto t = Fill(array, 2);
    EXPECT_TRUE(array.Delete(t[0]));
    EXPECT_EQ(g_alive, 1);
    EXPECT_FALSE(array.Delete(t[0]));
    EXPECT_EQ(Content(array), (std::vector{t[1]}));
}

TEST_F(ExPtrArray, DeleteAtDeletesAndClosesTheGapCountTimes) {
    Array array;
    const auto t = Fill(array, 4);
    array.SetAt(1, nullptr);
    delete t[1];
    array.DeleteAt(1, 2);
    EXPECT_EQ(Content(array), (std::vector{t[0], t[3]}));
    EXPECT_EQ(g_alive, 2);
    array.DeleteAt(0, 0);
    array.DeleteAt(7, -1);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST_F(ExPtrArray, DeleteAtRaisesOutsideTheArray) {
    Array array;
    Fill(array, 2);
    EXPECT_THROW(array.DeleteAt(-1), CInvalidArgException);
    EXPECT_THROW(array.DeleteAt(2), CInvalidArgException);
    EXPECT_THROW(array.DeleteAt(1, 2), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 1) << "what came before the end is deleted";
}

TEST_F(ExPtrArray, DeleteLastElementShortensTheArray) {
    Array array;
    Fill(array, 2);
    EXPECT_TRUE(array.DeleteLastElement());
    EXPECT_EQ(array.GetSize(), 1);
    EXPECT_EQ(g_alive, 1);
}

TEST_F(ExPtrArray, DeleteAllLeavesNothing) {
    Array array;
    array.DeleteAll();
    Fill(array, 3);
    array.Add(static_cast<Thing*>(nullptr));
    array.DeleteAll();
    EXPECT_EQ(g_alive, 0);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST_F(ExPtrArray, MovesElementsToTheEndOfAnother) {
    Array from, to;
    const auto t = Fill(from, 4);
    const auto u = Fill(to, 1);
    EXPECT_TRUE(from.MoveElementTo(to, 1, 2));
    EXPECT_EQ(Content(from), (std::vector{t[0], t[3]}));
    EXPECT_EQ(Content(to), (std::vector{u[0], t[1], t[2]}));
    EXPECT_FALSE(from.MoveElementTo(to, 1, 0));
    EXPECT_TRUE(from.MoveElementTo(to, 1, 1));
    EXPECT_EQ(Content(from), (std::vector{t[0]}));
    EXPECT_EQ(Content(to), (std::vector{u[0], t[1], t[2], t[3]}));
    EXPECT_THROW(from.MoveElementTo(to, 0, 2), CInvalidArgException);
    EXPECT_THROW(from.MoveElementTo(to, -1, 0), CInvalidArgException);
}

TEST_F(ExPtrArray, MovesElementsToItsOwnEnd) {
    Array array;
    const auto t = Fill(array, 4);
    EXPECT_TRUE(array.MoveElementTo(array, 0, 1));
    EXPECT_EQ(Content(array), (std::vector{t[2], t[3], t[0], t[1]}));
}

TEST_F(ExPtrArray, SubtractsTheElementsOfAnother) {
    Array array, other;
    const auto t = Fill(array, 3);
    other.Add(t[1]);
    other.Add(static_cast<Thing*>(nullptr));
    array.Subtract(other);
    EXPECT_EQ(Content(array), (std::vector{t[0], t[2]}));
    Array same;
    same.Add(t[0]);
    same.Subtract(same);
    EXPECT_TRUE(same.IsEmpty());
}

TEST_F(ExPtrArray, LooksAtNoElementBehindTheLast) {
    // Without room behind the last element the sanitizers see it.
    Array array, other, one;
    for (Array* exact : {&array, &other, &one}) exact->SetSize(0, 1);
    const auto t = Fill(array, 4);
    one.Add(t[0]);
    array.Subtract(one);
    EXPECT_TRUE(array.MoveElementTo(other, 0, 1));
    EXPECT_TRUE(array.MoveElementTo(array, 0, 0));
    EXPECT_EQ(Content(array), (std::vector{t[3]}));
    EXPECT_EQ(Content(other), (std::vector{t[1], t[2]}));
    EXPECT_EQ(one.RemoveLastElement(), t[0]);
    delete t[0];
}

TEST_F(ExPtrArray, Reverses) {
    Array array;
    const auto t = Fill(array, 3);
    array.Reverse();
    EXPECT_EQ(Content(array), (std::vector{t[2], t[1], t[0]}));
}

TEST_F(ExPtrArray, ComparesPointersInOrder) {
    Array a, b;
    const auto t = Fill(a, 2);
    b.Add(t[0]);
    EXPECT_FALSE(a.IsElementEqual(b));
    b.Add(t[1]);
    EXPECT_TRUE(a.IsElementEqual(b));
    b.Reverse();
    EXPECT_FALSE(a.IsElementEqual(b));
    b.RemoveAll();
}

TEST_F(ExPtrArray, TakesNullElementsOut) {
    Array array;
    const auto t = Fill(array, 1);
    array.SetAtGrow(3, nullptr);
    array.InsertAt(0, nullptr);
    array.RemoveNullElement();
    EXPECT_EQ(Content(array), t);
}

TEST_F(ExPtrArray, KeepsTheFirstOfEqualPointers) {
    Array array;
    const auto t = Fill(array, 2);
    array.Add(t[0]);
    array.Add(t[1]);
    array.Add(t[0]);
    array.RemoveDuplicatedElements();
    EXPECT_EQ(Content(array), t);
}

TEST_F(ExPtrArray, TakesOverAnOwnedElement) {
    Array array;
    EXPECT_EQ(array.Add(std::make_unique<Thing>()), 0);
    EXPECT_EQ(g_alive, 1);
    EXPECT_STREQ(array.GetRuntimeClass()->m_lpszClassName, "CExPtrArray");
}

}  // namespace
