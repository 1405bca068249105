#include "platform/Assert.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/CString.h"
#include "platform/CStringArray.h"

namespace {

TEST(Assert, LetsATrueConditionPass) {
    int evaluated = 0;
    VEKA_ASSERT(++evaluated > 0);
    VEKA_ASSERT(std::pair<int, int>(1, 2).first == 1);
#ifdef NDEBUG
    EXPECT_EQ(evaluated, 0) << "a release does not evaluate the condition";
#else
    EXPECT_EQ(evaluated, 1);
#endif
}

#ifndef NDEBUG
TEST(AssertDeathTest, EndsTheProgramWhereAPreconditionDoesNotHold) {
    EXPECT_DEATH(VEKA_ASSERT(1 > 2), "1 > 2");
    EXPECT_DEATH((void)CString::Inside("a text of more than 14 bytes", 15), "length <= kMaximumInside");
    const std::string_view withoutZero = std::string_view("a text of more than 14 bytes").substr(0, 20);
    EXPECT_DEATH((void)CString::Borrow(withoutZero), "'.0'");
    EXPECT_DEATH((void)CStringArray::InMemoryOf(nullptr, 1), "strings");
}
#endif

}  // namespace
