#include "model/objects/UserDefinedObjects.h"

#include <gtest/gtest.h>

#include "model/objects/SolidObjects.h"

namespace {

TEST(CVEKA_3DOJ_USERDEFINED, ItsSettersCopy) {
    CVEKA_3DOJ_USERDEFINED object;
    CVEKA_3DObjectArray objects;
    objects.Add(std::make_unique<CVEKA_3DOJ_SPHERE>());
    object.SetDrawObj(&objects);
    object.SetLead(&objects);
    EXPECT_NE(object.DrawObj->GetAt(0), objects[0]);
    EXPECT_NE(dynamic_cast<CVEKA_3DOJ_SPHERE*>(object.Lead->GetAt(0)), nullptr);
    EXPECT_THROW(object.SetDrawObj(nullptr), CInvalidArgException);
    EXPECT_THROW(object.SetLead(nullptr), CInvalidArgException);
}

TEST(CVEKA_3DOJ_USERDEFINED, TakesMaskShapesOverAndIgnoresNull) {
    CVEKA_3DOJ_USERDEFINED object;
    auto* mask = new CVEKA_3DOJ_METAKMASKSHAPE;
    object.AddMetalMaskShape(mask);
    object.AddMetalMaskShape(nullptr);
    ASSERT_EQ(object.MetalMaskShapes->GetSize(), 1);
    EXPECT_EQ(object.MetalMaskShapes->GetAt(0), mask);
}

TEST(CVEKA_3DOJ_METAKMASKSHAPE, ItsLayerIsTheTopOne) {
    EXPECT_EQ(CVEKA_3DOJ_METAKMASKSHAPE().LAYER, "TOP");
}

TEST(CVEKA_3DOJ_METAKMASKSHAPE, ItsPointIsNotTheBases) {
    CVEKA_3DOJ_METAKMASKSHAPE mask;
    CVEKA_Coordinate point;
    point.SetX(3);
    mask.SetPoint(&point);
    EXPECT_EQ(mask.PT->GetX(), 3);
    EXPECT_EQ(mask.GetPoint()->GetX(), 0);
    EXPECT_THROW(mask.SetPoint(nullptr), CInvalidArgException);
}

TEST(CVEKA_3DOJ_METAKMASKSHAPE, TakesShapesOverNullToo) {
    CVEKA_3DOJ_METAKMASKSHAPE mask;
    mask.AddShapeObject(new CVEKA_3DOJ_SPHERE);
    mask.AddShapeObject(nullptr);
    EXPECT_EQ(mask.Shapes->GetSize(), 2);
    const CVEKA_3DOJ_METAKMASKSHAPE copy(mask);
    EXPECT_EQ(copy.Shapes->GetSize(), 1);
}

}  // namespace
