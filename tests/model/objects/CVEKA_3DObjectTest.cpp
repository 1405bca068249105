#include "model/objects/CVEKA_3DObject.h"

#include <gtest/gtest.h>

#include <map>

#include "model/objects/Objects.h"

namespace {

TEST(CVEKA_3DObject, StartsWithNoKind) {
    const CVEKA_3DObject object;
    EXPECT_EQ(object.GetType(), -1);
    EXPECT_EQ(object.GetColor()->GetRed(), 0);
    EXPECT_EQ(object.GetPoint()->GetZ(), 0);
}

TEST(CVEKA_3DObject, KnowsTheNamesOfAllNumbers) {
    const char* names[] = {"CUBOID",      "HOLECUBOID",   "CYLINDER",      "DONUT",       "PYRAMID",
                           "SPHERE",      "ELLIPSE",      "3DSHAPE",       "3DLINE",      "3DARC",
                           "3DCIRCLE",    "3DFILLCIRCLE", "3DFILLRECT",    "3DOBLONG",    "3DPOLYGON",
                           "3DTEXT",      "BALL",         "BAR",           "BUTT",        "CBEND",
                           "DIP",         "DIPA",         "DIPB",          "FLAT",        "GULLWING",
                           "GULLWINGA",   "JBEND",        "JINVERTED",     "REVERSEBUTT", "ROUNDBAR",
                           "ROUNDBARA",   "ROUNDBARB",    "ROUNDDIP",      "WRAPAROUND",  "WIRE",
                           "USERDEFINED", "PILLAR",       "LINE",          "ARC",         "CIRCLE",
                           "FILLCIRCLE",  "RECTANGLE",    "CHAMPEREDRECT", "FILLRECT",    "ROUNDEDRECTANGLE",
                           "COMPOSITE",   "CONTOUR",      "OBLONG",        "POLYGON",     "POLYLINE",
                           "VOID",        "TAPERED",      "THERMAL",       "TEXT",        "NONE",
                           "NONE",        "ROUNDBARC",    "KINKDIP",       "KINKDIPA",    "ROUNDDIPA",
                           "PROPTEXT",    "PINPOINT"};
    const CVEKA_3DObject object;
    for (int number = -2; number <= 63; ++number)
        EXPECT_EQ(object.GetType(number), number >= 0 && number < 62 ? names[number] : "NONE") << number;
    EXPECT_EQ(CVEKA_3DOJ_SPHERE().GetType(7), "3DSHAPE") << "it looks at its argument alone";
}

TEST(CVEKA_3DObject, EveryKindHasItsNumber) {
    const std::map<std::string, int> others = {{"3DSHAPE", 0}, {"STEP", 54}, {"PTEXT", 60}};
#define CHECK_NUMBER(Level, Number, Class, Method)                                                          \
    {                                                                                                       \
        const Class object;                                                                                 \
        const auto other = others.find(Level);                                                              \
        if (other == others.end())                                                                          \
            EXPECT_EQ(static_cast<const CVEKA_3DObject&>(object).GetType(object.CVEKA_3DObject::GetType()), \
                      Level);                                                                               \
        else                                                                                                \
            EXPECT_EQ(object.CVEKA_3DObject::GetType(), other->second);                                     \
    }
    VEKA_OBJECT_KINDS(CHECK_NUMBER)
    EXPECT_EQ(CVEKA_3DOJ_METAKMASKSHAPE().GetType(), 55);
}

TEST(CVEKA_3DObject, AssigningThroughTheBaseCopiesNumberColourAndPointAlone) {
    CVEKA_3DOJ_CUBOID source;
    source.WIDTH = 3;
    source.GetColor()->SetRed(7);
    source.GetPoint()->SetX(8);
    CVEKA_3DOJ_SPHERE target;
    target.RADIUS = 5;
    static_cast<CVEKA_3DObject&>(target) = source;
    EXPECT_EQ(target.GetType(), 0);
    EXPECT_EQ(target.GetColor()->GetRed(), 7);
    EXPECT_EQ(target.GetPoint()->GetX(), 8);
    EXPECT_EQ(target.RADIUS, 5);
}

TEST(CVEKA_3DObject, ACloneKeepsItsClassAndFields) {
    CVEKA_3DOJ_STEP step;
    step.PATH = "a.stp";
    const CVEKA_3DObject& object = step;
    const std::unique_ptr<CVEKA_3DObject> clone(object.Clone());
    ASSERT_NE(dynamic_cast<CVEKA_3DOJ_STEP*>(clone.get()), nullptr);
    EXPECT_EQ(static_cast<CVEKA_3DOJ_STEP&>(*clone).PATH, "a.stp");
    const std::unique_ptr<CVEKA_3DObject> plain(CVEKA_3DObject().Clone());
    EXPECT_EQ(plain->GetType(), -1);
}

TEST(CVEKA_3DObject, ACopyThroughABaseIsAnObjectOfTheBase) {
    CVEKA_3DOJ_COMPOSITE composite;
    composite.Elements->SetSize(2);
    composite.GetPoint()->SetX(8);
    CVEKA_3DOJ_PILLAR pillar;
    pillar.BOUNDARY->SetSize(2);
    pillar.GetUp()->SetX(9);
    CVEKA_3DObjectArray objects, moved;
    objects.Add(std::make_unique<CVEKA_3DObject>(composite));
    objects.Add(std::make_unique<CVEKA_3DOJ_AxisPivot>(pillar));
    objects.Add(std::make_unique<CVEKA_3DObject>(std::move(composite)));
    moved = std::move(objects);  // works on the lists of the objects that have some
    ASSERT_EQ(moved.GetSize(), 3);
    const CVEKA_3DObject &first = *moved[0], &second = *moved[1];
    EXPECT_EQ(typeid(first), typeid(CVEKA_3DObject));
    EXPECT_EQ(first.GetType(), 45);
    EXPECT_EQ(first.GetPoint()->GetX(), 8);
    ASSERT_EQ(typeid(second), typeid(CVEKA_3DOJ_AxisPivot));
    EXPECT_EQ(static_cast<const CVEKA_3DOJ_AxisPivot&>(second).GetUp()->GetX(), 9);
    const CVEKA_3DObjectArray copy(moved);
    EXPECT_EQ(copy.GetSize(), 3);
}

TEST(CVEKA_3DObject, AHostsClassThatIsDerivedFromAKindLosesItsNullsInAMoveToo) {
    struct Drawing : CVEKA_3DOJ_COMPOSITE {};
    auto drawing = std::make_unique<Drawing>();
    drawing->Elements->SetSize(2);
    CVEKA_3DObjectArray objects, moved;
    objects.Add(std::move(drawing));
    moved = std::move(objects);
    EXPECT_EQ(dynamic_cast<CVEKA_3DOJ_COMPOSITE&>(*moved[0]).Elements->GetSize(), 0);
}

TEST(CVEKA_3DObject, ACopyHasTheNumberThatTheVirtualGetterOfItsSourceGives) {
    struct Numbered : CVEKA_3DOJ_SPHERE {
        int GetType() const override { return 99; }
    };
    const Numbered source;
    CVEKA_3DObject assigned;
    assigned = source;
    EXPECT_EQ(assigned.GetType(), 99);
    EXPECT_EQ(CVEKA_3DObject(source).GetType(), 99);
    const CVEKA_3DOJ_SPHERE sphere(source);
    EXPECT_EQ(sphere.CVEKA_3DObject::GetType(), 99);
    CVEKA_3DOJ_SPHERE target;
    target = source;
    EXPECT_EQ(target.CVEKA_3DObject::GetType(), 99);
    CVEKA_3DOJ_SPHERE moved;
    moved = Numbered();
    EXPECT_EQ(moved.CVEKA_3DObject::GetType(), 99);
}

TEST(CVEKA_3DObject, InitSetsTheNumberThroughTheVirtualSetter) {
    struct Watching : CVEKA_3DOJ_SPHERE {
        using CVEKA_3DOJ_SPHERE::Init;
        using CVEKA_3DOJ_SPHERE::operator=;
        std::vector<int> numbers;
        void SetType(int number) override {
            numbers.push_back(number);
            CVEKA_3DOJ_SPHERE::SetType(number);
        }
    } object;
    object.RADIUS = 3;
    object.Init();
    ASSERT_FALSE(object.numbers.empty());
    EXPECT_EQ(object.numbers.front(), -1);
    EXPECT_EQ(object.numbers.back(), 5);
    EXPECT_EQ(object.RADIUS, 0);
    object.numbers.clear();
    object = CVEKA_3DOJ_SPHERE();
    EXPECT_FALSE(object.numbers.empty()) << "assigning calls Init";
}

TEST(CVEKA_3DObject, HasItsVirtualOperationsInOrder) {
    // Destructor (two entries of the platform's), assignment of the base, clone, number, setter of the
    // number, and then the assignment of each class on the way to the leaf.
    CVEKA_3DOJ_SPHERE object, other;
    other.RADIUS = 3;
    other.GetPivot()->SetX(4);
    other.CVEKA_3DObject::SetType(9);
    void** table = *reinterpret_cast<void***>(&object);
    using Assign = CVEKA_3DObject& (*)(CVEKA_3DObject*, const CVEKA_3DObject&);
    reinterpret_cast<Assign>(table[2])(&object, other);
    EXPECT_EQ(object.CVEKA_3DObject::GetType(), 9);
    EXPECT_EQ(object.GetPivot()->GetX(), 0);
    using Clone = CVEKA_3DObject* (*)(const CVEKA_3DObject*);
    const std::unique_ptr<CVEKA_3DObject> clone(reinterpret_cast<Clone>(table[3])(&other));
    EXPECT_NE(dynamic_cast<CVEKA_3DOJ_SPHERE*>(clone.get()), nullptr);
    using GetNumber = int (*)(const CVEKA_3DObject*);
    EXPECT_EQ(reinterpret_cast<GetNumber>(table[4])(&object), 9);
    using SetNumber = void (*)(CVEKA_3DObject*, int);
    reinterpret_cast<SetNumber>(table[5])(&object, 7);
    EXPECT_EQ(object.CVEKA_3DObject::GetType(), 7);
    using AssignPivot = CVEKA_3DOJ_AxisPivot& (*)(CVEKA_3DOJ_AxisPivot*, const CVEKA_3DOJ_AxisPivot&);
    reinterpret_cast<AssignPivot>(table[6])(&object, other);
    EXPECT_EQ(object.GetPivot()->GetX(), 4);
    EXPECT_EQ(object.RADIUS, 0);
    using AssignSphere = CVEKA_3DOJ_SPHERE& (*)(CVEKA_3DOJ_SPHERE*, const CVEKA_3DOJ_SPHERE&);
    reinterpret_cast<AssignSphere>(table[7])(&object, other);
    EXPECT_EQ(object.RADIUS, 3);
}

TEST(CVEKA_3DObject, ItsNumberCanBeSet) {
    CVEKA_3DOJ_SPHERE sphere;
    sphere.SetType(99);
    EXPECT_EQ(sphere.CVEKA_3DObject::GetType(), 99);
    const CVEKA_3DOJ_SPHERE copy(sphere);
    EXPECT_EQ(copy.CVEKA_3DObject::GetType(), 99);
}

TEST(CVEKA_3DObject, InitGivesItItsDefaultsAgain) {
    struct Opened : CVEKA_3DObject {
        using CVEKA_3DObject::Init;
    };
    Opened object;
    object.SetType(5);
    object.GetColor()->SetRed(7);
    object.GetPoint()->SetX(8);
    object.Init();
    EXPECT_EQ(object.GetType(), CVEKA_3DObject().GetType());
    EXPECT_EQ(object.GetColor()->GetRed(), 0);
    EXPECT_EQ(object.GetPoint()->GetX(), 0);
}

}  // namespace
