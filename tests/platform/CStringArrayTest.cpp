#include "platform/CStringArray.h"

#include <gtest/gtest.h>

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

}  // namespace
