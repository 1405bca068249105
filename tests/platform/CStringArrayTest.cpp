#include "platform/CStringArray.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
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
    EXPECT_EQ(array.GetUpperBound(), 2);
    array.SetSize(4);
    EXPECT_EQ(array.GetCount(), 4);
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

TEST(CStringArray, AViewShowsStringsAndCannotGrow) {
    CString strings[] = {"a", "b"};
    CStringArray view = CStringArray::View(strings, 2);
    EXPECT_EQ(&view[0], strings);
    EXPECT_THROW(view.Add("c"), CInvalidArgException);
    EXPECT_THROW(view.Append(view), CInvalidArgException);
    EXPECT_THROW(view.SetSize(1), CInvalidArgException);
    EXPECT_THROW(view.InsertAt(0, "c"), CInvalidArgException);
    EXPECT_THROW(view.RemoveAt(0), CInvalidArgException);
    CStringArray copy = view;
    copy.Add("c");
    EXPECT_EQ(copy.GetSize(), 3);
    strings[0] = "changed";
    EXPECT_EQ(copy[0], "a");
    view = copy;
    EXPECT_EQ(view[0], "a");
    EXPECT_EQ(strings[0], "changed") << "what was shown is not assigned to";
    EXPECT_THROW(CStringArray::View(nullptr, 0).Add("a"), CInvalidArgException);
}

TEST(CStringArray, HasASizeBelowTwoToThe31) {
    CStringArray array;
    EXPECT_THROW(array.SetSize(INT_PTR{1} << 31), std::length_error);
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CStringArray, RemovesNoNegativeRange) {
    CStringArray array;
    array.SetSize(3);
    EXPECT_THROW(array.RemoveAt(-1), CInvalidArgException);
    EXPECT_THROW(array.RemoveAt(0, -1), CInvalidArgException);
    EXPECT_EQ(array.GetSize(), 3);
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
