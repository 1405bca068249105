#include "model/package/CVEKA_MountData.h"

#include <gtest/gtest.h>

namespace {

std::unique_ptr<CVEKA_MountPin> Pin() {
    auto pin = std::make_unique<CVEKA_MountPin>();
    pin->SetNo(1);
    pin->SetPinName("A1");
    pin->SetDirection(2);
    pin->SetSkip(1);
    pin->SetLeadType("GULLWING");
    return pin;
}

void ExpectBlank(const CVEKA_MountPin& pin) {
    EXPECT_EQ(pin.GetNo(), 0);
    EXPECT_EQ(pin.GetPinName(), "");
    EXPECT_EQ(pin.GetDirection(), 0);
    EXPECT_EQ(pin.GetSkip(), 0);
    EXPECT_EQ(pin.GetLeadType(), "");
}

TEST(CVEKA_MountPin, HoldsWhatItIsGiven) {
    const auto pin = Pin();
    EXPECT_EQ(pin->GetNo(), 1);
    EXPECT_EQ(pin->GetPinName(), "A1");
    EXPECT_EQ(pin->GetDirection(), 2);
    EXPECT_EQ(pin->GetSkip(), 1);
    EXPECT_EQ(pin->GetLeadType(), "GULLWING");
}

TEST(CVEKA_MountPin, EveryCopyIsBlank) {
    const auto pin = Pin(), assigned = Pin();
    *assigned = *pin;
    ExpectBlank(*assigned);
    ExpectBlank(CVEKA_MountPin(*pin));
    const std::unique_ptr<CVEKA_MountPin> clone(pin->Clone());
    ExpectBlank(*clone);
    EXPECT_EQ(pin->GetNo(), 1);
}

TEST(CVEKA_MountPin, AssigningItToItselfChangesNothing) {
    const auto pin = Pin();
    const CVEKA_MountPin& same = *pin;
    *pin = same;
    EXPECT_EQ(pin->GetPinName(), "A1");
}

TEST(CVEKA_MountPinArray, ItsCopiesKeepTheirNumberAlone) {
    CVEKA_MountPinArray pins;
    pins.Add(Pin());
    pins.Add(Pin());
    CVEKA_MountPinArray assigned, appended, moved;
    assigned = pins;
    appended.Append(pins);
    for (const auto* copy : {&assigned, &appended}) {
        ASSERT_EQ(copy->GetSize(), 2);
        ExpectBlank(*copy->GetAt(1));
    }
    EXPECT_EQ(pins[0]->GetNo(), 1);
    moved = std::move(pins);
    ASSERT_EQ(moved.GetSize(), 2);
    ExpectBlank(*moved[0]);
    const CVEKA_MountPinArray& same = moved;
    moved[0]->SetNo(5);
    moved = same;
    EXPECT_EQ(moved[0]->GetNo(), 5);
}

}  // namespace
