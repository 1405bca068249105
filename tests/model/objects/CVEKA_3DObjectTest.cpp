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
