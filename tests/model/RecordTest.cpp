#include "model/Record.h"

#include <gtest/gtest.h>

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_Type.h"
#include "model/electrical/CVEKA_Electrical.h"
#include "model/library/CVEKA_Font.h"
#include "model/objects/CVEKA_3DOJ_AxisPivot.h"
#include "model/objects/LeadObjects.h"
#include "model/part/CVEKA_PartGeneral.h"

namespace {

template <class Record>
std::string FieldNames() {
    std::string names;
    Record record;
    veka::ForEachField(record,
                       [&](const auto& field, const auto&) { names += std::string(field.name) + " "; });
    return names;
}

TEST(Record, DescribesItsFieldsInOrder) {
    EXPECT_EQ(FieldNames<CVEKA_Comment>(), "Index Property Comment ");
    EXPECT_EQ(FieldNames<CVEKA_Type>(), "Name Value1 Value2 ");
    EXPECT_EQ(FieldNames<CVEKA_Preference>(), "TempCPN Status ");
}

template <class Record>
std::string Descriptions() {
    std::string descriptions;
    Record record;
    veka::ForEachField(record, [&](const auto& row, const auto&) {
        descriptions += std::string(row.name) + ": " + row.doc + "\n";
    });
    return descriptions;
}

TEST(Record, DescribesTheMeaningOfEachField) {
    EXPECT_EQ(Descriptions<CVEKA_BOM>(), "Unit: currency of the cost\nCost: price of one piece\n");
    EXPECT_EQ(Descriptions<CVEKA_3DOJ_BAR>(),
              "Type: number of the kind; -1 for none\n"
              "Color: display colour\n"
              "Point: reference point of the object\n"
              "Rotation: rotation about X, Y and Z in degrees\n"
              "Mirror: mirror word as the file writes it\n"
              "Z: dimension Z of the form\n"
              "H: dimension H of the form\n"
              "T: dimension T of the form\n"
              "CLINCH: true if the end of the lead is clinched\n"
              "CLINCHLENGTH: length of the clinched end\n"
              "CLINCHROTATE: rotation of the clinched end in degrees\n");
}

TEST(Record, HasItsVirtualOperationsInOrder) {
    // A table of three: destructor (two entries of the platform's), assignment, clone.
    CVEKA_Comment comment, other;
    other.SetIndex(7);
    using Assign = CVEKA_Comment& (*)(CVEKA_Comment*, const CVEKA_Comment&);
    using Clone = CVEKA_Comment* (*)(const CVEKA_Comment*);
    void** table = *reinterpret_cast<void***>(&comment);
    reinterpret_cast<Assign>(table[2])(&comment, other);
    EXPECT_EQ(comment.GetIndex(), 7);
    const std::unique_ptr<CVEKA_Comment> clone(reinterpret_cast<Clone>(table[3])(&comment));
    EXPECT_EQ(clone->GetIndex(), 7);
}

TEST(Record, AnArrayHasItsVirtualOperationsInOrder) {
    // Five of the toolkit's (the destructor has two entries of the platform's), the two removals, and the
    // four of each array.
    CVEKA_CommentArray array, other;
    other.Add(new CVEKA_Comment);
    void** table = *reinterpret_cast<void***>(&array);
    using GetClass = const CRuntimeClass* (*)(const CVEKA_CommentArray*);
    EXPECT_STREQ(reinterpret_cast<GetClass>(table[0])(&array)->m_lpszClassName, "CVEKA_CommentArray");
    using Remove = void (*)(CVEKA_CommentArray*);
    array.SetSize(2);
    reinterpret_cast<Remove>(table[7])(&array);
    EXPECT_EQ(array.GetSize(), 1) << "the second of two equal elements is removed";
    reinterpret_cast<Remove>(table[6])(&array);
    EXPECT_EQ(array.GetSize(), 0) << "null elements are removed";
    using Assign = CVEKA_CommentArray& (*)(CVEKA_CommentArray*, const CVEKA_CommentArray&);
    reinterpret_cast<Assign>(table[8])(&array, array);
    reinterpret_cast<Assign>(table[8])(&array, other);
    EXPECT_EQ(array.GetSize(), 1);
    using Clone = CVEKA_CommentArray* (*)(const CVEKA_CommentArray*);
    const std::unique_ptr<CVEKA_CommentArray> clone(reinterpret_cast<Clone>(table[9])(&array));
    EXPECT_EQ(clone->GetSize(), 1);
    using Take = void (*)(CVEKA_CommentArray*, const CVEKA_CommentArray&);
    reinterpret_cast<Take>(table[11])(&array, other);
    EXPECT_EQ(array.GetSize(), 2) << "Append";
    reinterpret_cast<Take>(table[10])(&array, other);
    EXPECT_EQ(array.GetSize(), 1) << "Copy";
}

TEST(Record, ACopyOfAnArrayHasElementsOfTheRecordsOwnClass) {
    struct OfAHost : CVEKA_Comment {};
    CVEKA_CommentArray array, appended;
    array.Add(std::make_unique<OfAHost>());
    array[0]->SetIndex(7);
    const CVEKA_CommentArray copy(array);
    appended.Append(array);
    for (const CVEKA_CommentArray* each : std::vector<const CVEKA_CommentArray*>{&copy, &appended}) {
        const CVEKA_Comment& element = *each->GetAt(0);
        EXPECT_EQ(typeid(element), typeid(CVEKA_Comment));
        EXPECT_EQ(element.GetIndex(), 7);
    }
}

TEST(Record, TheGetterOfAListReplacesTheListThatItFills) {
    CVEKA_PartGeneral general;
    general.SetCPN("a");
    general.SetCPN("b");
    CStringArray list;
    list.Add("of the caller");
    general.GetCPNArr(list);
    ASSERT_EQ(list.GetSize(), 2);
    EXPECT_EQ(list[0], "a");
}

/// True if a call compiles on an object of the type.
template <class T>
concept GivesAVariableBOM = requires(T& general) {
    general.GetBOM()->SetCost(1);
};
template <class T>
concept GivesAVariableElement = requires(T& array) {
    array.GetAt(0)->SetIndex(1);
};
template <class T>
concept GivesAVariableLastElement = requires(T& array) {
    array.GetLastElement()->SetIndex(1);
};
template <class T>
concept LoopsOverVariableElements = requires(T& array) {
    (*array.begin())->SetIndex(1);
};
template <class T>
concept GivesAVariableFont = requires(T& fonts) {
    fonts.GetFontByID(1)->SetFontID(1);
};
template <class T>
concept GivesAVariableRotation = requires(T& solid) {
    solid.GetRotate()->SetX(1);
};
template <class T>
concept GivesVariableRails = requires(T& electrical) {
    electrical.GetPowerRails()->DeleteAll();
};

TEST(Record, CannotBeChangedThroughAConstantOne) {
    EXPECT_TRUE(GivesAVariableBOM<CVEKA_PartGeneral>);
    EXPECT_FALSE(GivesAVariableBOM<const CVEKA_PartGeneral>);
    EXPECT_TRUE(GivesAVariableElement<CVEKA_CommentArray>);
    EXPECT_FALSE(GivesAVariableElement<const CVEKA_CommentArray>);
    EXPECT_TRUE(GivesAVariableLastElement<CVEKA_CommentArray>);
    EXPECT_FALSE(GivesAVariableLastElement<const CVEKA_CommentArray>);
    EXPECT_TRUE(LoopsOverVariableElements<CVEKA_CommentArray>);
    EXPECT_FALSE(LoopsOverVariableElements<const CVEKA_CommentArray>);
    EXPECT_TRUE(GivesAVariableFont<CVEKA_FontArray>);
    EXPECT_FALSE(GivesAVariableFont<const CVEKA_FontArray>);
    EXPECT_TRUE(GivesAVariableRotation<CVEKA_3DOJ_AxisPivot>);
    EXPECT_FALSE(GivesAVariableRotation<const CVEKA_3DOJ_AxisPivot>);
}

TEST(Record, TheElectricalSectionGivesVariableRecordsEvenWhereItIsConstant) {
    EXPECT_TRUE(GivesVariableRails<const CVEKA_Electrical>);
}

TEST(Record, ASetterTakesATextByValue) {
    void (CVEKA_DeviceModel::*setter)(CString) = &CVEKA_DeviceModel::SetFilePath;
    void (CVEKA_3DOJ_RotMirror::*mirror)(CString) = &CVEKA_3DOJ_RotMirror::SetMirror;
    void (CVEKA_PartGeneral::*append)(CString) = &CVEKA_PartGeneral::SetCPN;
    CVEKA_DeviceModel model;
    (model.*setter)("a.lib");
    EXPECT_EQ(model.GetFilePath(), "a.lib");
    CVEKA_3DOJ_BAR bar;
    (bar.*mirror)("N");
    EXPECT_EQ(bar.GetMirror(), "N");
    CVEKA_PartGeneral general;
    (general.*append)("1");
    CStringArray list;
    general.GetCPNArr(list);
    EXPECT_EQ(list[0], "1");
}

TEST(Record, ACopyPassesOverNullElements) {
    CVEKA_CommentArray array, copy;
    array.Add(new CVEKA_Comment);
    array.Add(static_cast<CVEKA_Comment*>(nullptr));
    copy = array;
    EXPECT_EQ(copy.GetSize(), 1);
    copy.Append(array);
    EXPECT_EQ(copy.GetSize(), 2);
}

TEST(Record, AnArrayAppendedToItselfDoublesAndEnds) {
    CVEKA_CommentArray array;
    array.Add(new CVEKA_Comment);
    array.Append(array);
    EXPECT_EQ(array.GetSize(), 2);
}

}  // namespace
