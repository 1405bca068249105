#include "model/objects/CVEKA_3DObjectArray.h"

#include <gtest/gtest.h>

#include "model/objects/Objects.h"

namespace {

std::unique_ptr<CVEKA_3DOJ_CUBOID> Cuboid() {
    auto cuboid = std::make_unique<CVEKA_3DOJ_CUBOID>();
    cuboid->WIDTH = 2;
    cuboid->GetColor()->SetGreen(3);
    cuboid->GetPoint()->SetY(4);
    return cuboid;
}

/// An array of a cuboid, a null and a polyline that holds a null and a composite that holds a null.
CVEKA_3DObjectArray WithNulls() {
    auto composite = std::make_unique<CVEKA_3DOJ_COMPOSITE>();
    composite->Elements->SetSize(1);
    auto polyline = std::make_unique<CVEKA_3DOJ_POLYLINE>();
    polyline->Elements->SetSize(2);
    polyline->Elements->SetAt(1, composite.release());
    CVEKA_3DObjectArray array;
    array.Add(Cuboid());
    array.SetSize(2);
    array.Add(std::move(polyline));
    return array;
}

void ExpectNoNulls(const CVEKA_3DObjectArray& array) {
    ASSERT_EQ(array.GetSize(), 2);
    const auto* cuboid = dynamic_cast<const CVEKA_3DOJ_CUBOID*>(array[0]);
    ASSERT_NE(cuboid, nullptr);
    EXPECT_EQ(cuboid->WIDTH, 2);
    const auto* polyline = dynamic_cast<const CVEKA_3DOJ_POLYLINE*>(array[1]);
    ASSERT_NE(polyline, nullptr);
    ASSERT_EQ(polyline->Elements->GetSize(), 1);
    const auto* composite = dynamic_cast<const CVEKA_3DOJ_COMPOSITE*>(polyline->Elements->GetAt(0));
    ASSERT_NE(composite, nullptr);
    EXPECT_EQ(composite->Elements->GetSize(), 0);
}

TEST(CVEKA_3DObjectArray, AssigningAndCloningKeepClassesAndDropNulls) {
    const CVEKA_3DObjectArray source = WithNulls();
    CVEKA_3DObjectArray assigned;
    assigned.Add(Cuboid());
    assigned = source;
    ExpectNoNulls(assigned);
    ExpectNoNulls(CVEKA_3DObjectArray(source));
    const std::unique_ptr<CVEKA_3DObjectArray> clone(source.Clone());
    ExpectNoNulls(*clone);
}

TEST(CVEKA_3DObjectArray, MovingHasTheEffectsOfCopying) {
    CVEKA_3DObjectArray source = WithNulls(), other = WithNulls(), assigned;
    assigned.Add(Cuboid());
    assigned = std::move(source);
    ExpectNoNulls(assigned);
    ExpectNoNulls(CVEKA_3DObjectArray(std::move(other)));
}

TEST(CVEKA_3DObjectArray, AppendFlattensItsElements) {
    CVEKA_3DObjectArray source, array;
    source.Add(Cuboid());
    source.SetSize(2);
    array.Add(Cuboid());
    array.Append(source);
    ASSERT_EQ(array.GetSize(), 2);
    const CVEKA_3DObject& flat = *array[1];
    EXPECT_EQ(typeid(flat), typeid(CVEKA_3DObject));
    EXPECT_EQ(array[1]->GetType(), 0);
    EXPECT_EQ(array[1]->GetColor()->GetGreen(), 3);
    EXPECT_EQ(array[1]->GetPoint()->GetY(), 4);
}

TEST(CVEKA_3DObjectArray, CopyFlattensItsElementsToo) {
    CVEKA_3DObjectArray source, array;
    source.Add(Cuboid());
    source.SetSize(2);
    array.Add(Cuboid());
    array.Add(Cuboid());
    array.Copy(source);
    ASSERT_EQ(array.GetSize(), 1);
    const CVEKA_3DObject& flat = *array[0];
    EXPECT_EQ(typeid(flat), typeid(CVEKA_3DObject));
}

TEST(CVEKA_3DObjectArray, AssigningItToItselfKeepsItsNulls) {
    CVEKA_3DObjectArray array;
    array.SetSize(1);
    const CVEKA_3DObjectArray& same = array;
    array = same;
    EXPECT_EQ(array.GetSize(), 1);
}

TEST(CVEKA_3DObjectArray, EveryKindThatHoldsObjectsLosesItsNullsInAMove) {
    const auto check = [](auto holder) {
        veka::ForEachField(holder, [&](const auto&, auto& field) {
            if constexpr (std::is_same_v<decltype(field), Owned<CVEKA_3DObjectArray>&>) field->SetSize(3);
        });
        CVEKA_3DObjectArray source, target;
        source.Add(std::unique_ptr<CVEKA_3DObject>(holder.Clone()));
        auto& moved = static_cast<decltype(holder)&>(*source[0]);
        veka::ForEachField(moved, [&](const auto&, auto& field) {
            if constexpr (std::is_same_v<decltype(field), Owned<CVEKA_3DObjectArray>&>) field->SetSize(3);
        });
        target = std::move(source);
        veka::ForEachField(static_cast<decltype(holder)&>(*target[0]), [&](const auto& row, auto& field) {
            if constexpr (std::is_same_v<decltype(field), Owned<CVEKA_3DObjectArray>&>) {
                EXPECT_EQ(field->GetSize(), 0) << typeid(holder).name() << row.name;
            }
        });
    };
#define CHECK_KIND(Level, Number, Class, Method) check(Class());
    VEKA_OBJECT_KINDS(CHECK_KIND)
    check(CVEKA_3DOJ_METAKMASKSHAPE());
}

TEST(CVEKA_3DObjectArray, MovingItToItselfKeepsIt) {
    CVEKA_3DObjectArray array;
    array.Add(Cuboid());
    CVEKA_3DObjectArray& same = array;
    array = std::move(same);
    EXPECT_EQ(array.GetSize(), 1);
}

}  // namespace
