#include "platform/CStringArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

CStringArray Make(std::initializer_list<const char*> texts) {
    CStringArray array;
    for (const char* text : texts) array.Add(text);
    return array;
}

TEST(CStringArray, GrowsByEmptyStrings) {
    CStringArray array;
    array.SetAtGrow(2, "x");
    EXPECT_EQ(array, Make({"", "", "x"}));
    array.SetAtGrow(0, "y");
    EXPECT_EQ(array[0], "y");
    array.SetAtGrow(3, "z");
    EXPECT_EQ(array, Make({"y", "", "x", "z"}));
    EXPECT_EQ(array.GetUpperBound(), 3);
    array.SetSize(5);
    EXPECT_EQ(array.GetCount(), 5);
    array.SetSize(0);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, RaisesOutsideTheArray) {
    CStringArray array = Make({"a"});
    const CStringArray& same = array;
    EXPECT_THROW(same[1], CInvalidArgException);
    EXPECT_THROW(array[-1], CInvalidArgException);
    EXPECT_THROW(array.SetAt(1, "x"), CInvalidArgException);
    EXPECT_THROW(array.SetAtGrow(-1, "x"), CInvalidArgException);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException);
    EXPECT_THROW(array.InsertAt(-1, "x"), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, 2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(2, 0), CInvalidArgException);
    EXPECT_EQ(array, Make({"a"}));
}

TEST(CStringArray, CopiesAndAppends) {
    CStringArray array = Make({"a", "b"});
    EXPECT_EQ(array.Append(Make({"c"})), 2);
    EXPECT_EQ(array, Make({"a", "b", "c"}));
    array.Copy(Make({"d"}));
    EXPECT_EQ(array, Make({"d"}));
}

TEST(CStringArray, CanBeAppendedToAndCopiedOntoItself) {
    CStringArray array = Make({"a", "b"});
    array.Append(array);
    EXPECT_EQ(array, Make({"a", "b", "a", "b"}));
    array.Copy(array);
    EXPECT_EQ(array.GetSize(), 4);
}

TEST(CStringArray, InsertsAndRemoves) {
    CStringArray array = Make({"a", "c"});
    array.InsertAt(1, "b");
    array.InsertAt(4, "e");
    EXPECT_EQ(array, Make({"a", "b", "c", "", "e"}));
    array.RemoveAt(2, 2);
    EXPECT_EQ(array, Make({"a", "b", "e"}));
    array.SetAt(0, "x");
    array.ElementAt(1) += "y";
    EXPECT_EQ(array, Make({"x", "by", "e"}));
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, IsAsAVectorOfTextsWhateverIsDoneToIt) {
    std::mt19937 random(1);
    const auto below = [&](size_t limit) { return static_cast<INT_PTR>(random() % limit); };
    for (int round = 0; round < 200; ++round) {
        CStringArray array;
        std::vector<std::string> plain;
        for (int step = 0; step < 40; ++step) {
            const std::string text(random() % 30, 'x');
            const INT_PTR at = below(plain.size() + 1),
                          count = below(plain.size() - static_cast<size_t>(at) + 1);
            switch (random() % 7) {
                case 0:
                case 1:
                    array.Add(CString(text));
                    plain.push_back(text);
                    break;
                case 2:
                    array.InsertAt(at, CString(text));
                    plain.insert(plain.begin() + at, text);
                    break;
                case 3:
                    array.RemoveAt(at, count);
                    plain.erase(plain.begin() + at, plain.begin() + at + count);
                    break;
                case 4:
                    array.SetSize(at);
                    plain.resize(static_cast<size_t>(at));
                    break;
                case 5:
                    array = CStringArray(array);
                    break;
                default: {
                    CStringArray other;
                    other.Add(CString(text));
                    other.Append(array);
                    if (plain.size() < 100) {
                        array.Copy(other);
                        plain.insert(plain.begin(), text);
                    }
                }
            }
            ASSERT_TRUE(std::ranges::equal(array, plain, {}, &CString::View));
        }
    }
}

/// Strings in memory of their own, and an array that takes the strings over.
class Place {
public:
    Place(std::initializer_list<const char*> texts)
        : m_memory(new std::byte[texts.size() * sizeof(CString)]),
          array(CStringArray::InMemoryOf(Make(texts), static_cast<std::uint32_t>(texts.size()))) {}
    const CString* begin() const { return reinterpret_cast<const CString*>(m_memory.get()); }

private:
    CString* Make(std::initializer_list<const char*> texts) {
        std::byte* place = m_memory.get();
        for (const char* text : texts) {
            new (place) CString(CString::Borrow(text));
            place += sizeof(CString);
        }
        return reinterpret_cast<CString*>(m_memory.get());
    }

    std::unique_ptr<std::byte[]> m_memory;

public:
    CStringArray array;  // ends before the memory
};

constexpr const char* kLong = "a text that needs memory of its own";

TEST(CStringArray, ShowsStringsInOtherMemoryWhereTheyAre) {
    Place place{"a", kLong};
    CStringArray& array = place.array;
    EXPECT_EQ(&array[1], place.begin() + 1);
    EXPECT_EQ(array, Make({"a", kLong}));
    EXPECT_FALSE(array.OwnsMemory());
    array.SetAt(0, kLong);
    array[1] += " and more";
    EXPECT_EQ(&array[0], place.begin());
    EXPECT_EQ(array, Make({kLong, "a text that needs memory of its own and more"}));
    EXPECT_TRUE(array.OwnsMemory());
}

TEST(CStringArray, MovesStringsToMemoryOfItsOwnWhenItGrows) {
    const auto after = [](auto change) {
        auto place = std::make_unique<Place>(std::initializer_list<const char*>{"a", kLong});
        CStringArray& array = place->array;
        change(array);
        EXPECT_TRUE(array.OwnsMemory());
        EXPECT_NE(&array[0], place->begin());
        CStringArray moved(std::move(array));
        place.reset();
        return moved;
    };
    EXPECT_EQ(after([](CStringArray& a) { a.Add("b"); }), Make({"a", kLong, "b"}));
    EXPECT_EQ(after([](CStringArray& a) { a.Add(a[1]); }), Make({"a", kLong, kLong}));
    EXPECT_EQ(after([](CStringArray& a) { a.Append(a); }), Make({"a", kLong, "a", kLong}));
    EXPECT_EQ(after([](CStringArray& a) { a.InsertAt(1, "b"); }), Make({"a", "b", kLong}));
    EXPECT_EQ(after([](CStringArray& a) { a.SetAtGrow(3, "b"); }), Make({"a", kLong, "", "b"}));
    EXPECT_EQ(after([](CStringArray& a) { a.SetSize(3); }), Make({"a", kLong, ""}));
    EXPECT_EQ(after([](CStringArray& a) { a.Copy(Make({"b", "c", "d"})); }), Make({"b", "c", "d"}));
    EXPECT_EQ(after([](CStringArray& a) { a = Make({"b"}); }), Make({"b"}));
}

TEST(CStringArray, ShortensStringsInOtherMemoryInPlaceAndGrowsAgain) {
    Place place{"a", kLong, "c"};
    CStringArray& array = place.array;
    array.SetSize(3);
    EXPECT_EQ(&array[0], place.begin()) << "its own size is no growth";
    array[1] += "!";
    array.RemoveAt(0);
    EXPECT_EQ(array, Make({"a text that needs memory of its own!", "c"}));
    EXPECT_EQ(&array[0], place.begin());
    array.SetSize(1);
    EXPECT_EQ(array.GetSize(), 1);
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_FALSE(array.OwnsMemory());
    array.Add(kLong);
    EXPECT_EQ(array, Make({kLong}));
    array.Copy(CStringArray());
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CStringArray, IsCopiedAndMovedOutOfOtherMemory) {
    std::optional<Place> place(std::in_place, std::initializer_list<const char*>{"a", kLong});
    const CStringArray copy = place->array;
    CStringArray assigned = Make({"x"});
    assigned = place->array;
    CStringArray moved = std::move(place->array);
    EXPECT_TRUE(place->array.IsEmpty());
    place->array.Add("again");
    EXPECT_EQ(place->array, Make({"again"}));
    place.reset();
    moved.Add("b");
    EXPECT_EQ(copy, Make({"a", kLong}));
    EXPECT_EQ(assigned, Make({"a", kLong}));
    EXPECT_EQ(moved, Make({"a", kLong, "b"}));
}

TEST(CStringArray, IsMovedOntoAnArrayInOtherMemory) {
    Place place{"a", kLong}, other{"b"};
    place.array = std::move(other.array);
    EXPECT_EQ(place.array, Make({"b"}));
    EXPECT_NE(&place.array[0], other.begin());
    place.array = Make({});
    EXPECT_TRUE(place.array.IsEmpty());
}

TEST(CStringArray, HasASizeBelowTwoToThe31) {
    CStringArray array;
    EXPECT_THROW(array.SetSize(INT_PTR{1} << 31), std::length_error);
    EXPECT_THROW(array.SetAtGrow(std::numeric_limits<INT_PTR>::max(), "x"), std::length_error);
    EXPECT_THROW(array.InsertAt(std::numeric_limits<INT_PTR>::max(), "x"), std::length_error);
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CStringArray, RemovesNoNegativeRange) {
    CStringArray array;
    array.SetSize(3);
    EXPECT_THROW(array.RemoveAt(-1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 3);
}

TEST(CStringArray, RemovesNoRangeThatBeginsInsideAndEndsOutside) {
    CStringArray array = Make({"a", "b", "c"});
    EXPECT_THROW(array.RemoveAt(2, 2), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(3, 1), CInvalidArgException);
    EXPECT_EQ(array, Make({"a", "b", "c"}));
}

TEST(CStringArray, DiffersInItsSizeOrInAString) {
    CStringArray array, longer, other;
    array.Add("a");
    longer.Add("a");
    longer.Add("b");
    other.Add("c");
    EXPECT_FALSE(array == longer);
    EXPECT_FALSE(array == other);
    EXPECT_TRUE(array == array);
}

}  // namespace
