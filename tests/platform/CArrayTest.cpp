#include "platform/CArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <memory>
#include <span>
#include <sstream>

namespace {

/// Shows the capacity.
struct Opened : CArrayN {
    INT_PTR Capacity() const { return m_nMaxSize; }
    using CArrayN::Swap;
};

TEST(CArray, GrowsByAnEighthAtLeastFourAndAtMost1024) {
    Opened array;
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 4);
    array.SetSize(4);
    EXPECT_EQ(array.Capacity(), 4);
    array.SetSize(5);
    EXPECT_EQ(array.Capacity(), 8);
    array.SetSize(800);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 800);
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 900);
    array.SetSize(100'000);
    EXPECT_EQ(array.Capacity(), 100'000);
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 101'024);
}

TEST(CArray, GrowsByItsOwnStepWhereOneIsSet) {
    Opened array;
    array.SetSize(0, 10);
    array.Add(1);
    EXPECT_EQ(array.Capacity(), 10);
    array.SetSize(11);
    EXPECT_EQ(array.Capacity(), 20);
    array.SetSize(21, 0);
    EXPECT_EQ(array.Capacity(), 24) << "a step of 0 is none";
}

TEST(CArray, CanGrowByOneElementAtATime) {
    Opened array;
    array.SetSize(0, 1);
    for (int i = 0; i < 10; ++i) {
        array.Add(i);
        EXPECT_EQ(array.Capacity(), i + 1);
        array.AssertValid();
    }
    EXPECT_EQ(array[9], 9);
}

TEST(CArray, KeepsItsElementsThroughAllItsSizes) {
    Opened array;
    for (int i = 0; i < 70'000; ++i) array.Add(i);
    for (int i = 0; i < 70'000; ++i) ASSERT_EQ(array[i], i);
    array.SetSize(9'000);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 9'000);
    array.SetSize(8'000);
    array.FreeExtra();
    array.SetAtGrow(40'000, 7);
    EXPECT_EQ(array[7'999], 7'999);
    EXPECT_EQ(array[8'000], 0);
    EXPECT_EQ(array[40'000], 7);
}

TEST(CArray, FillsWithZeros) {
    CArrayN array;
    array.SetAtGrow(2, 7);
    EXPECT_EQ(array[0], 0);
    EXPECT_EQ(array[1], 0);
    EXPECT_EQ(array[2], 7);
    array.SetSize(1);
    array.SetSize(3);
    EXPECT_EQ(array[2], 0);
}

TEST(CArray, RaisesOutsideTheArray) {
    CArrayN array;
    array.Add(1);
    const CArrayN& same = array;
    EXPECT_THROW(same[1], CInvalidArgException);
    EXPECT_THROW(array[-1], CInvalidArgException);
    EXPECT_THROW(array.GetAt(1), CInvalidArgException);
    EXPECT_THROW(array.ElementAt(1), CInvalidArgException);
    EXPECT_THROW(array.SetAt(1, 2), CInvalidArgException);
    EXPECT_THROW(array.SetAtGrow(-1, 2), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(-1, 2), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(0, 2, 0), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, 2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(-1), CInvalidArgException);
    EXPECT_EQ(array.GetCount(), 1);
}

TEST(CArray, RaisesForASizeThatCannotExist) {
    CArrayN array;
    array.Add(1);
    EXPECT_THROW(array.SetSize(std::numeric_limits<INT_PTR>::max()), std::bad_alloc);
    EXPECT_EQ(array[0], 1);
}

TEST(CArray, InsertsAndRemoves) {
    CArrayN array;
    array.Add(1);
    array.InsertAt(0, 2);
    array.InsertAt(1, 3, 2);
    array.InsertAt(5, 4);
    const int expected[] = {2, 3, 3, 1, 0, 4};
    ASSERT_EQ(array.GetSize(), 6);
    for (INT_PTR i = 0; i < 6; ++i) EXPECT_EQ(array[i], expected[i]);
    array.RemoveAt(1, 4);
    EXPECT_EQ(array.GetUpperBound(), 1);
    EXPECT_EQ(array[1], 4);
    array.SetAt(1, 9);
    EXPECT_EQ(*array.GetData(), 2);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(CArray, AppendsAnElementOfItsOwn) {
    CArrayN array;
    for (int i = 0; i < 4; ++i) array.Add(i);
    array.Add(array[3]);
    array.InsertAt(0, array[4]);
    EXPECT_EQ(array[5], 3);
    EXPECT_EQ(array[0], 3);
}

TEST(CArray, FreesWhatItDoesNotUse) {
    Opened array;
    array.Add(1);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 1);
    array.RemoveAt(0);
    array.FreeExtra();
    EXPECT_EQ(array.Capacity(), 0);
}

TEST(CArray, ExchangesItsStorage) {
    Opened a, b;
    a.Add(1);
    a.Swap(b);
    EXPECT_EQ(a.GetSize(), 0);
    EXPECT_EQ(b[0], 1);
}

TEST(CArray, ExchangesItsGrowStep) {
    Opened a, b;
    a.SetSize(0, 100);
    a.Swap(b);
    a.Add(1);
    b.Add(1);
    EXPECT_EQ(a.Capacity(), 4);
    EXPECT_EQ(b.Capacity(), 100);
}

TEST(CArray, IsConsistentWhileItHasNoStorage) {
    EXPECT_NO_THROW(CArrayN().AssertValid());
}

TEST(CArray, TellsAboutItself) {
    CArrayN array;
    array.Add(1);
    array.AssertValid();
    std::ostringstream out;
    array.Dump(out);
    EXPECT_EQ(out.str(), "CArray with 1 elements\n");
}

/// An array of elements in memory that is not its own.
struct Borrowing : CArrayN {
    explicit Borrowing(std::span<int> elements) {
        Borrow(elements.data(), static_cast<int>(elements.size()));
    }
    using CArrayN::OwnsMemory;
    using CArrayN::Swap;
};

bool Holds(const CArrayN& array, std::initializer_list<int> expected) {
    return std::equal(array.begin(), array.end(), expected.begin(), expected.end());
}

TEST(CArray, ShowsBorrowedElementsWhereTheyAre) {
    int elements[] = {1, 2, 3};
    Borrowing array(elements);
    EXPECT_EQ(array.GetData(), elements);
    EXPECT_FALSE(array.OwnsMemory());
    array.AssertValid();
    array.SetAt(0, 4);
    EXPECT_EQ(elements[0], 4);
}

TEST(CArray, MovesBorrowedElementsToMemoryOfItsOwnWhenItGrows) {
    const auto after = [](auto change) {
        int elements[] = {1, 2, 3};
        auto array = std::make_unique<Borrowing>(elements);
        change(*array);
        EXPECT_TRUE(array->OwnsMemory());
        EXPECT_EQ(elements[0], 1);
        elements[1] = 9;
        array->AssertValid();
        return array;
    };
    EXPECT_TRUE(Holds(*after([](Borrowing& a) { a.Add(4); }), {1, 2, 3, 4}));
    EXPECT_TRUE(Holds(*after([](Borrowing& a) { a.Add(a[1]); }), {1, 2, 3, 2}));
    EXPECT_TRUE(Holds(*after([](Borrowing& a) { a.InsertAt(0, 0); }), {0, 1, 2, 3}));
    EXPECT_TRUE(Holds(*after([](Borrowing& a) { a.SetAtGrow(4, 5); }), {1, 2, 3, 0, 5}));
    EXPECT_TRUE(Holds(*after([](Borrowing& a) { a.SetSize(5); }), {1, 2, 3, 0, 0}));
}

TEST(CArray, ShortensBorrowedElementsInPlaceAndGrowsAgain) {
    int elements[] = {1, 2, 3};
    Borrowing array(elements);
    array.SetSize(3);
    EXPECT_EQ(array.GetData(), elements) << "its own size is no growth";
    array.RemoveAt(0);
    EXPECT_TRUE(Holds(array, {2, 3}));
    array.SetSize(1);
    array.FreeExtra();
    EXPECT_TRUE(Holds(array, {2}));
    EXPECT_EQ(array.GetData(), elements);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
    array.Add(7);
    EXPECT_TRUE(Holds(array, {7}));
    EXPECT_EQ(elements[0], 2);
}

TEST(CArray, ExchangesBorrowedElements) {
    int elements[] = {1};
    Borrowing array(elements), other({});
    other.Add(2);
    array.Swap(other);
    other.Add(3);
    EXPECT_TRUE(Holds(array, {2}));
    EXPECT_TRUE(Holds(other, {1, 3}));
}

TEST(CArray, RaisesForAPlaceThatCannotExist) {
    constexpr INT_PTR largest = std::numeric_limits<INT_PTR>::max();
    CArrayN array;
    array.Add(1);
    for (const INT_PTR place : {largest, INT_PTR{1} << 31, (INT_PTR{1} << 31) - 1}) {
        EXPECT_THROW(array.SetAtGrow(place, 1), std::bad_alloc);
        EXPECT_THROW(array.InsertAt(place, 1), std::bad_alloc);
        EXPECT_THROW(array.InsertAt(0, 1, place), std::bad_alloc);
    }
    array.SetSize(1, largest);
    array.FreeExtra();
    EXPECT_TRUE(Holds(array, {1}));
}

TEST(CArray, KnowsWhenItIsNotConsistent) {
    struct Broken : CArrayN {
        using CArrayN::m_nSize;
    };
    Broken array;
    array.SetSize(3);
    EXPECT_NO_THROW(array.AssertValid());
    array.m_nSize = -1;
    EXPECT_THROW(array.AssertValid(), CInvalidArgException);
    array.m_nSize = 1000;
    EXPECT_THROW(array.AssertValid(), CInvalidArgException);
    array.m_nSize = 3;

    Broken empty;
    empty.m_nSize = 1;
    EXPECT_THROW(empty.AssertValid(), CInvalidArgException);
    empty.m_nSize = 0;
}

TEST(CArray, RemovesNoNegativeRange) {
    CArrayN array;
    array.SetSize(3);
    EXPECT_THROW(array.RemoveAt(-1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 3);
}

TEST(CArray, RemovesNoRangeThatBeginsInsideAndEndsOutside) {
    CArrayN array;
    array.SetSize(3);
    EXPECT_THROW(array.RemoveAt(2, 2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(3, 1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(4, 0), CInvalidArgException);
    array.RemoveAt(3, 0);
    array.RemoveAt(0, 0);
    EXPECT_EQ(array.GetSize(), 3);
}

}  // namespace
