#include "leveltree/Stack.h"

#include <gmock/gmock.h>

namespace {

TEST(Stack, HoldsWhatWasPushedUntilItIsPopped) {
    veka::Stack<int> stack;
    EXPECT_THAT(stack.Last(0), testing::IsEmpty());
    for (int i = 0; i < 1000; ++i) *stack.Push() = i;
    EXPECT_THAT(stack.Last(3), testing::ElementsAre(997, 998, 999));
    stack.Pop(998);
    *stack.Push() = 7;
    EXPECT_THAT(stack.Last(3), testing::ElementsAre(0, 1, 7));
}

}  // namespace
