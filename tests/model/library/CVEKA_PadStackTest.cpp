#include "model/library/CVEKA_PadStack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "model/library/CVEKA_Pad.h"
#include "support/Parsing.h"

namespace {

using testing::ElementsAre;

std::vector<std::string> Names(const CVEKA_PadStackArray& array) {
    return test::Strings(array, &CVEKA_PadStackArray::GetStandardizationPadNames);
}

TEST(CVEKA_PadStackArray, AHostMayAddTheNamesOfPads) {
    CVEKA_PadStackArray array;
    CVEKA_Pad pad;
    pad.SetPadName("P");
    array.AddStandardizationPadName(&pad);
    array.AddStandardizationPadName(&pad);
    EXPECT_THAT(Names(array), ElementsAre("P"));
}

TEST(CVEKA_PadStackArray, NullIsNoSourceOfNames) {
    CVEKA_PadStackArray array;
    CVEKA_PadStack stack;
    EXPECT_THROW(array.AddStandardizationPadName(static_cast<CVEKA_Pad*>(nullptr)), CInvalidArgException);
    EXPECT_THROW(array.AddStandardizationPadName(static_cast<CVEKA_PadStack*>(nullptr)),
                 CInvalidArgException);
    EXPECT_THROW(stack.AddStandardizationPadName(static_cast<CVEKA_Padstack_LayerInfo*>(nullptr)),
                 CInvalidArgException);
}

TEST(CVEKA_PadStackArray, CopiesItsNamesToo) {
    CVEKA_PadStackArray array, assigned, moved;
    CVEKA_PadStack stack;
    stack.AddStandardizationPadName("A");
    stack.AddStandardizationPadName("B");
    array.AddStandardizationPadName(&stack);
    assigned = array;
    EXPECT_THAT(Names(assigned), ElementsAre("A", "B"));
    EXPECT_THAT(Names(CVEKA_PadStackArray(array)), ElementsAre("A", "B"));
    assigned.Append(array);
    EXPECT_THAT(Names(assigned), ElementsAre("A", "B", "A", "B")) << "appended as they stand";
    assigned.AddStandardizationPadName(&stack);
    EXPECT_EQ(Names(assigned).size(), 4u);
    assigned.Copy(array);
    EXPECT_THAT(Names(assigned), ElementsAre("A", "B"));
    moved = std::move(assigned);
    EXPECT_THAT(Names(moved), ElementsAre("A", "B"));
    moved.Copy(moved);
    EXPECT_THAT(Names(moved), ElementsAre());
}

TEST(CVEKA_PadStackArray, MovingItToItselfKeepsItAndACopyDropsNulls) {
    CVEKA_PadStackArray array;
    array.Add(std::make_unique<CVEKA_PadStack>());
    array.SetSize(2);
    CVEKA_PadStackArray& same = array;
    array = std::move(same);
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(CVEKA_PadStackArray(array).GetSize(), 1);
}

}  // namespace
