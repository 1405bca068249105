#include "platform/Owned.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Owned, IsUsedAsAPointerThatIsNeverNull) {
    Owned<std::string> text;
    std::string* pointer = text;
    ASSERT_NE(pointer, nullptr);
    *text = "abc";
    EXPECT_EQ(text->size(), 3u);
    EXPECT_EQ(text.get(), pointer);
}

TEST(Owned, CopiesItsContent) {
    Owned<std::string> a;
    *a = "abc";
    const Owned<std::string> b = a;
    *a = "x";
    EXPECT_EQ(*b, "abc");
    EXPECT_NE(a.get(), b.get());
    *b = "y";
    EXPECT_EQ(*b, "y") << "as through a pointer field of a const owner";
}

}  // namespace
