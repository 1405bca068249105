#include "model/objects/SolidObjects.h"

#include <gtest/gtest.h>

namespace {

TEST(CVEKA_3DOJ_STEP, KeepsItsPathOnInit) {
    struct Opened : CVEKA_3DOJ_STEP {
        using CVEKA_3DOJ_STEP::Init;
    } step;
    step.PATH = "a.stp";
    step.GetPoint()->SetX(1);
    step.SetType(3);
    step.Init();
    EXPECT_EQ(step.PATH, "a.stp");
    EXPECT_EQ(step.GetPoint()->GetX(), 0);
    EXPECT_EQ(step.CVEKA_3DObject::GetType(), 54);
}

TEST(CVEKA_3DOJ_STEP, AssignsThePathAllTheSame) {
    CVEKA_3DOJ_STEP step, other;
    step.PATH = "a.stp";
    step = other;
    EXPECT_EQ(step.PATH, "");
}

}  // namespace
