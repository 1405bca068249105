#include "inspect/Description.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "support/Files.h"
#include "support/Records.h"

namespace {

using veka::FieldDescription;
using veka::FieldKind;
using veka::RecordDescription;

const FieldDescription& Field(const RecordDescription& description, const std::string& name) {
    for (const FieldDescription& field : description.fields)
        if (field.name == name) return field;
    throw std::logic_error("no field " + name);
}

TEST(Description, NamesTheFieldsOfARecordInOrder) {
    const RecordDescription& bom = veka::Describe(typeid(CVEKA_BOM));
    EXPECT_STREQ(bom.name, "CVEKA_BOM");
    EXPECT_EQ(bom.kind, nullptr);
    EXPECT_EQ(bom.base, nullptr);
    EXPECT_FALSE(bom.IsArray());
    ASSERT_EQ(bom.fields.size(), 2u);
    EXPECT_STREQ(bom.fields[0].name, "Unit");
    EXPECT_EQ(bom.fields[0].kind, FieldKind::Text);
    EXPECT_STREQ(bom.fields[1].name, "Cost");
    EXPECT_EQ(bom.fields[1].kind, FieldKind::Real);
}

TEST(Description, TheFieldsOfTheBaseComeFirst) {
    const RecordDescription& cuboid = veka::Describe(typeid(CVEKA_3DOJ_CUBOID));
    EXPECT_STREQ(cuboid.kind, "CUBOID");
    ASSERT_NE(cuboid.base, nullptr);
    EXPECT_STREQ(cuboid.base->name, "CVEKA_3DOJ_AxisPivot");
    EXPECT_STREQ(cuboid.base->base->name, "CVEKA_3DObject");
    ASSERT_EQ(cuboid.inherited, 7u);
    EXPECT_STREQ(cuboid.fields[0].name, "Type");
    EXPECT_STREQ(cuboid.fields[7].name, "WIDTH");
}

TEST(Description, ReachesTheValueOfEveryKindOfField) {
    CVEKA_PartGeneral general;
    general.SetUnit("MM");
    general.SetCPN("A");
    general.SetNumberOfPins(8);
    general.GetBOM()->SetCost(0.5);
    const RecordDescription& type = veka::Describe(typeid(general));
    EXPECT_EQ(Field(type, "Unit").Text(&general), "MM");
    EXPECT_EQ(Field(type, "CPN").kind, FieldKind::TextList);
    EXPECT_EQ(Field(type, "CPN").Texts(&general)[0], "A");
    EXPECT_EQ(Field(type, "NumberOfPins").Whole(&general), 8);
    const FieldDescription& bom = Field(type, "BOM");
    EXPECT_EQ(bom.kind, FieldKind::Record);
    EXPECT_EQ(bom.Content(&general).record, general.GetBOM());
    EXPECT_EQ(bom.Content(&general).description, &veka::Describe(typeid(CVEKA_BOM)));
    EXPECT_EQ(Field(*bom.content, "Cost").Real(general.GetBOM()), 0.5);
    const FieldDescription& comments = Field(type, "CommentArr");
    EXPECT_EQ(comments.kind, FieldKind::Array);
    EXPECT_EQ(comments.content->element, &veka::Describe(typeid(CVEKA_Comment)));
    EXPECT_EQ(comments.content->size(comments.In(&general)), 0);
    CVEKA_3DOJ_BAR bar;
    bar.CLINCH = true;
    EXPECT_EQ(Field(veka::Describe(typeid(bar)), "CLINCH").kind, FieldKind::Flag);
    EXPECT_EQ(Field(veka::Describe(typeid(bar)), "CLINCH").Whole(&bar), 1);
    CVEKA_3DOJ_USERDEFINED lead;
    lead.Reserved2 = 1LL << 40;
    EXPECT_EQ(Field(veka::Describe(typeid(lead)), "Reserved2").Whole(&lead), 1LL << 40);
    CVEKA_PadStack stack;
    stack.AddStandardizationPadName("P");
    const FieldDescription& names = Field(veka::Describe(typeid(stack)), "StandardizationPadNames");
    EXPECT_EQ(names.kind, FieldKind::DistinctNames);
    EXPECT_EQ(names.Texts(&stack)[0], "P");
    EXPECT_EQ(names.set, nullptr);
}

TEST(Description, NamesTheAccessorsOfAField) {
    const RecordDescription& general = veka::Describe(typeid(CVEKA_PartGeneral));
    EXPECT_EQ(Field(general, "Unit").getterName, "GetUnit");
    EXPECT_EQ(Field(general, "Unit").setterName, "SetUnit");
    EXPECT_EQ(Field(general, "CPN").getterName, "GetCPNArr");
    EXPECT_EQ(Field(general, "BOM").getterName, "GetBOM");
    EXPECT_TRUE(Field(general, "BOM").givesConstant);
    EXPECT_FALSE(Field(veka::Describe(typeid(CVEKA_Electrical)), "PowerRails").givesConstant);
    const RecordDescription& cuboid = veka::Describe(typeid(CVEKA_3DOJ_CUBOID));
    EXPECT_EQ(Field(cuboid, "Rotate").getterName, "GetRotate");
    EXPECT_EQ(Field(cuboid, "Rotate").setterName, "");
    EXPECT_EQ(Field(cuboid, "WIDTH").getterName, "");
}

TEST(Description, AFieldKnowsTheClassOfItsRow) {
    const RecordDescription& cuboid = veka::Describe(typeid(CVEKA_3DOJ_CUBOID));
    EXPECT_EQ(Field(cuboid, "WIDTH").owner, &cuboid);
    EXPECT_EQ(Field(cuboid, "Front").owner, cuboid.base);
    EXPECT_EQ(Field(cuboid, "Type").owner, cuboid.base->base);
}

TEST(Description, EveryKindOfObjectIsItsOwnClass) {
    int count = 0;
    const auto check = [&](const CVEKA_3DObject& object, const std::string& kind) {
        const veka::RecordView view = veka::View(object);
        EXPECT_EQ(view.description->kind, kind);
        EXPECT_TRUE(*view.description->type == typeid(object)) << kind;
        EXPECT_EQ(view.record, &object);
        ++count;
    };
#define CHECK_KIND(Level, Number, Class, Method) check(Class(), std::string(#Class).substr(11));
    VEKA_OBJECT_KINDS(CHECK_KIND)
    check(CVEKA_3DOJ_METAKMASKSHAPE(), "METAKMASKSHAPE");
    check(CVEKA_3DObject(), "3DObject");
    EXPECT_EQ(count, 62);
}

TEST(Description, AnObjectOfAHostsClassCountsAsTheNearestBaseThatIsDescribed) {
    struct OfHost : CVEKA_3DObject {};
    struct Crate : CVEKA_3DOJ_CUBOID {};
    struct Turned : CVEKA_3DOJ_AxisPivot {};
    const OfHost object;
    EXPECT_STREQ(veka::View(object).description->name, "CVEKA_3DObject");
    const Crate crate;
    EXPECT_STREQ(veka::View(crate).description->name, "CVEKA_3DOJ_CUBOID");
    EXPECT_EQ(veka::View(crate).record, &crate);
    EXPECT_STREQ(veka::View(Turned()).description->name, "CVEKA_3DOJ_AxisPivot");
}

TEST(Description, ARecordOfAHostsClassCountsAsTheRecordThatItIsDerivedFrom) {
    struct OfHost : CVEKA_Comment {};
    EXPECT_STREQ(veka::View(OfHost()).description->name, "CVEKA_Comment");
}

TEST(Description, ANullElementHasNoRecord) {
    CVEKA_CommentArray comments;
    comments.SetSize(1);
    const veka::RecordView view = veka::View(comments);
    EXPECT_EQ(view.description->size(view.record), 1);
    EXPECT_EQ(view.description->at(view.record, 0).record, nullptr);
}

/// The classes that the headers of the model define.
std::set<std::string> DefinedClasses() {
    std::set<std::string> classes;
    const std::regex definition(R"(^(?:class (?:VEKA_API )?(CVEKA_\w+)[^;]*\{|VEKA_ARRAY\((\w+),.*)$)");
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(test::ProjectFolder("src/model"))) {
        if (entry.path().extension() != ".h") continue;
        std::istringstream lines(test::ReadFile(entry.path()));
        std::smatch match;
        for (std::string line; std::getline(lines, line);)
            if (std::regex_match(line, match, definition)) classes.insert(match[1].str() + match[2].str());
    }
    return classes;
}

TEST(Description, EveryRecordClassAndEveryArrayClassIsDescribed) {
    std::set<std::string> described;
    for (const RecordDescription* description : veka::AllDescriptions()) described.insert(description->name);
    EXPECT_EQ(described.size(), veka::AllDescriptions().size()) << "two classes have one name";
    EXPECT_EQ(described, DefinedClasses()) << "a class that is in no field is listed in DescribeModel.cpp";
}

TEST(Description, AllDescriptionsAreInTheOrderOfTheirNames) {
    const auto& all = veka::AllDescriptions();
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end(),
                               [](const auto* a, const auto* b) { return std::string(a->name) < b->name; }));
}

TEST(Description, StoresNumbersWithoutTheSetter) {
    CVEKA_3DOJ_USERDEFINED lead;
    Field(veka::Describe(typeid(lead)), "Reserved2").StoreWhole(&lead, -(1LL << 40));
    EXPECT_EQ(lead.Reserved2, -(1LL << 40));
    Field(veka::Describe(typeid(lead)), "Type").StoreWhole(&lead, 7);
    EXPECT_EQ(lead.GetType(), 7);
    CVEKA_3DOJ_BAR bar;
    Field(veka::Describe(typeid(bar)), "CLINCH").StoreWhole(&bar, 2);
    EXPECT_TRUE(bar.CLINCH);
}

TEST(Description, StoresTextsWithAllRepetitions) {
    CStringArray texts;
    for (const char* text : {"A", "B", "A"}) texts.Add(text);
    CVEKA_PadStack stack;
    stack.AddStandardizationPadName("P");
    const FieldDescription& names = Field(veka::Describe(typeid(stack)), "StandardizationPadNames");
    names.StoreTexts(&stack, texts);
    EXPECT_EQ(names.Texts(&stack), texts);
    names.AppendText(&stack, "B");
    texts.Add("B");
    EXPECT_EQ(names.Texts(&stack), texts);
    CVEKA_PartGeneral general;
    const FieldDescription& numbers = Field(veka::Describe(typeid(general)), "CPN");
    numbers.StoreTexts(&general, texts);
    numbers.AppendText(&general, "C");
    texts.Add("C");
    EXPECT_EQ(numbers.Texts(&general), texts);
}

TEST(Description, AClassIsItselfAndWhatItIsDerivedFrom) {
    const RecordDescription& cuboid = veka::Describe(typeid(CVEKA_3DOJ_CUBOID));
    EXPECT_TRUE(cuboid.IsA(cuboid));
    EXPECT_TRUE(cuboid.IsA(veka::Describe(typeid(CVEKA_3DObject))));
    EXPECT_FALSE(veka::Describe(typeid(CVEKA_3DObject)).IsA(cuboid));
}

/// The properties of the comments of an array, separated by spaces; a null element is a dash.
std::string Properties(const CVEKA_CommentArray& comments) {
    std::string result;
    for (const CVEKA_Comment* comment : comments)
        result += (result.empty() ? "" : " ") + (comment ? std::string(comment->GetProperty().View()) : "-");
    return result;
}

veka::RecordView NewComment(const char* property) {
    auto* comment = new CVEKA_Comment;
    comment->SetProperty(property);
    return veka::View(*comment);
}

TEST(Description, ExchangesElementsOfAnArrayForOthers) {
    CVEKA_CommentArray comments;
    const RecordDescription& type = veka::Describe(typeid(comments));
    EXPECT_TRUE(type.exchange(&comments, 0, 0, {NewComment("a"), NewComment("b"), NewComment("c")}).empty());
    EXPECT_EQ(Properties(comments), "a b c");
    const CVEKA_Comment* b = comments[1];
    auto taken = type.exchange(&comments, 1, 1, {NewComment("x"), {}, NewComment("y")});
    EXPECT_EQ(Properties(comments), "a x - y c");
    ASSERT_EQ(taken.size(), 1u);
    EXPECT_EQ(taken[0].record, b);
    EXPECT_EQ(type.exchange(&comments, 5, 0, taken).size(), 0u);
    EXPECT_EQ(Properties(comments), "a x - y c b");
    for (const veka::RecordView& element : type.exchange(&comments, 1, 3, {NewComment("z")}))
        veka::DeleteRecord()(element);
    EXPECT_EQ(Properties(comments), "a z c b");
    taken = type.exchange(&comments, 0, 4, {});
    EXPECT_EQ(comments.GetSize(), 0);
    for (const veka::RecordView& element : taken) veka::DeleteRecord()(element);
}

TEST(Description, AnArrayOfObjectsExchangesObjectsOfAnyKind) {
    CVEKA_3DObjectArray objects;
    const RecordDescription& type = veka::Describe(typeid(objects));
    const RecordDescription& ball = veka::Describe(typeid(CVEKA_3DOJ_BALL));
    type.exchange(&objects, 0, 0, {{&ball, ball.make()}, veka::View(*new CVEKA_3DObject)});
    EXPECT_EQ(type.at(&objects, 0).description, &ball);
    EXPECT_EQ(type.at(&objects, 1).description, &veka::Describe(typeid(CVEKA_3DObject)));
}

TEST(Description, AnExchangeThatIsRefusedChangesNothing) {
    CVEKA_CommentArray comments;
    comments.Add(std::make_unique<CVEKA_Comment>());
    const RecordDescription& type = veka::Describe(typeid(comments));
    const CVEKA_BOM bom;
    const CVEKA_3DObject object;
    for (const auto& [first, count] : {std::pair<INT_PTR, INT_PTR>{-1, 1}, {0, -1}, {0, 2}, {2, 0}, {1, 1}})
        EXPECT_THROW(type.exchange(&comments, first, count, {}), CInvalidArgException);
    EXPECT_THROW(type.exchange(&comments, PTRDIFF_MAX, PTRDIFF_MAX, {}), CInvalidArgException);
    EXPECT_THROW(type.exchange(&comments, 0, 1, {veka::View(bom)}), CInvalidArgException);
    EXPECT_THROW(type.exchange(&comments, 0, 1, {veka::View(object)}), CInvalidArgException);
    EXPECT_EQ(comments.GetSize(), 1);
    CVEKA_3DObjectArray objects;
    EXPECT_THROW(veka::Describe(typeid(objects)).exchange(&objects, 0, 0, {veka::View(bom)}),
                 CInvalidArgException);
}

TEST(Description, RecordsAreEqualByTheirFields) {
    CVEKA_PartGeneral a;
    CVEKA_PartGeneral b;
    const auto equal = [&] { return veka::AreEqual(veka::View(a), veka::View(b)); };
    EXPECT_TRUE(equal());
    a.GetBOM()->SetCost(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(equal());
    b.GetBOM()->SetCost(a.GetBOM()->GetCost());
    EXPECT_TRUE(equal());
    a.SetCPN("X");
    EXPECT_FALSE(equal());
    b.SetCPN("X");
    a.GetCommentArr()->Add(std::make_unique<CVEKA_Comment>());
    EXPECT_FALSE(equal());
    b.GetCommentArr()->SetSize(1);
    EXPECT_FALSE(equal()) << "a null element is no record";
    a.GetCommentArr()->DeleteAll();
    a.GetCommentArr()->SetSize(1);
    EXPECT_TRUE(equal());
    EXPECT_FALSE(veka::AreEqual(veka::View(a), veka::View(CVEKA_BOM())));
}

TEST(Description, EveryRecordEqualsOneThatIsFilledAlikeAndNoOther) {
    for (const RecordDescription* type : veka::AllDescriptions()) {
        const test::RecordOwner one = test::Filled(*type, 0);
        const test::RecordOwner same = test::Filled(*type, 0);
        const test::RecordOwner other = test::Filled(*type, 1);
        const test::RecordOwner fresh = test::Own(*type, type->make());
        EXPECT_TRUE(veka::AreEqual({type, one.get()}, {type, same.get()})) << type->name;
        EXPECT_FALSE(veka::AreEqual({type, one.get()}, {type, other.get()})) << type->name;
        EXPECT_FALSE(veka::AreEqual({type, one.get()}, {type, fresh.get()})) << type->name;
    }
}

TEST(Description, AClassThatIsNoRecordHasNone) {
    EXPECT_EQ(veka::FindDescription(typeid(int)), nullptr);
    EXPECT_THROW(veka::Describe(typeid(int)), CInvalidArgException);
}

}  // namespace
