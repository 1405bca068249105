#include "leveltree/Stack.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

void Push(veka::Stack<int>& stack, int number) {
    *stack.Top() = number;
    stack.Push();
}

TEST(Stack, HoldsWhatWasPushedUntilItIsPopped) {
    veka::Stack<int> stack;
    EXPECT_THAT(stack.Last(0), testing::IsEmpty());
    for (int i = 0; i < 1000; ++i) Push(stack, i);
    EXPECT_THAT(stack.Last(3), ElementsAre(997, 998, 999));
    stack.Pop(998);
    Push(stack, 7);
    EXPECT_THAT(stack.Last(3), ElementsAre(0, 1, 7));
}

TEST(Stack, PutsOneElementInThePlaceOfItsLastOnes) {
    veka::Stack<int> stack;
    for (int i = 0; i < 200; ++i) stack.Replace(0, i);
    stack.Replace(1, 7);
    EXPECT_THAT(stack.Last(2), ElementsAre(198, 7));
    stack.Replace(199, 8);
    EXPECT_THAT(stack.Last(2), ElementsAre(0, 8));
}

TEST(Stack, HeightsStayWhileItGrows) {
    veka::Stack<int> stack;
    for (int i = 0; i < 10; ++i) Push(stack, i);
    const auto ten = stack.HeightOf(stack.Top());
    for (int i = 10; i < 1000; ++i) Push(stack, i);
    EXPECT_EQ(*stack.At(ten), 10);
    stack.SetTop(stack.At(ten));
    EXPECT_THAT(stack.Last(2), ElementsAre(8, 9));
}

TEST(Stack, GrowsForACallerThatKeepsTheTopItself) {
    veka::Stack<int> stack;
    int* top = stack.Top();
    for (int i = 0; i < 1000; ++i) {
        *top = i;
        top = stack.Pushed(top);
    }
    stack.SetTop(top);
    EXPECT_THAT(stack.Last(2), ElementsAre(998, 999));
    EXPECT_EQ(*stack.At({}), 0);
}

}  // namespace
