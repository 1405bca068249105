#include "model/Record.h"

#include <gtest/gtest.h>

#include "model/CVEKA_Comment.h"
#include "model/CVEKA_Type.h"
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
    EXPECT_EQ(FieldNames<CVEKA_PartGeneral>(),
              "Unit Manufacturer MPN CPN Preference ProductFamily FunctionalType PackageType PartDescription "
              "Layout "
              "NumberOfPins BOM History CommentArr ReferenceURLArr ");
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
