#include "model/package/CVEKA_Packing.h"

#include <gtest/gtest.h>

namespace {

TEST(CVEKA_Packing, HasNoTypeAtFirst) {
    EXPECT_EQ(CVEKA_Packing().GetPackingType(), -1);
}

TEST(CVEKA_Packing_ReelInfo, EveryCopyHasTheSecondThicknessTwice) {
    CVEKA_Packing_ReelInfo info, assigned;
    info.SetT1(1.5);
    info.SetT2(2.5);
    info.SetW(3);
    EXPECT_EQ(info.GetT1(), 1.5);
    assigned = info;
    const CVEKA_Packing_ReelInfo constructed(info);
    const std::unique_ptr<CVEKA_Packing_ReelInfo> clone(info.Clone());
    for (const CVEKA_Packing_ReelInfo* copy :
         std::vector<const CVEKA_Packing_ReelInfo*>{&assigned, &constructed, clone.get()}) {
        EXPECT_EQ(copy->GetT1(), 2.5);
        EXPECT_EQ(copy->GetT2(), 2.5);
        EXPECT_EQ(copy->GetW(), 3);
    }
    const CVEKA_Packing_ReelInfo& same = info;
    info = same;
    EXPECT_EQ(info.GetT1(), 1.5);
}

}  // namespace
