#include "inspect/Description.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"
#include "support/Files.h"

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

TEST(Description, AClassThatIsNoRecordHasNone) {
    EXPECT_EQ(veka::FindDescription(typeid(int)), nullptr);
    EXPECT_THROW(veka::Describe(typeid(int)), CInvalidArgException);
}

}  // namespace
