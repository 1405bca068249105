#include "parser/KeywordLister.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "leveltree/CECadCls.h"
#include "model/CVEKA_Color.h"
#include "model/objects/ObjectKinds.h"
#include "support/Files.h"
#include "support/Parsing.h"

namespace {

using veka::KeywordLister;
using veka::KeywordRow;

std::vector<KeywordRow> Find(const std::string& parent, const std::string& keyword) {
    std::vector<KeywordRow> found;
    for (const KeywordRow& row : KeywordLister::AllKeywords())
        if (row.parent == parent && row.keyword == keyword) found.push_back(row);
    return found;
}

TEST(KeywordLister, NamesTheFormAndTheFieldOfAKeyword) {
    ASSERT_EQ(Find("PARTGENERAL", "MPN").size(), 1u);
    EXPECT_EQ(Find("PARTGENERAL", "MPN")[0].form, "first value");
    EXPECT_EQ(Find("PARTGENERAL", "MPN")[0].target, "CVEKA_PartGeneral::MPN");
    EXPECT_EQ(Find("LAY", "COLOR")[0].form, "by position");
    EXPECT_EQ(Find("LAY", "COLOR")[0].target,
              "CVEKA_Layer::Color.Red, CVEKA_Layer::Color.Green, CVEKA_Layer::Color.Blue");
    EXPECT_EQ(Find("ELECTRICAL", "PINMAPPINGMODE")[0].target, "CVEKA_Electrical::PinMappingMode.Mode");
    EXPECT_EQ(Find("", "VEK")[0].target, "CVEKA_Manager::VEK");
}

TEST(KeywordLister, SaysWhatTheFieldsMean) {
    EXPECT_EQ(Find("PARTGENERAL", "MPN")[0].meaning,
              "manufacturer's part number, which names the part in a library");
    EXPECT_EQ(Find("BOM", "COST")[0].meaning, "currency of the cost; price of one piece");
    EXPECT_EQ(Find("RL", "R")[0].meaning,
              "target of resistance and inductance; its capacitance stays 0: resistance");
    EXPECT_EQ(Find("FOOTPRINTSPEC", "TOE")[0].meaning,
              "tolerance at the toe of a lead: smallest value; largest value");
    EXPECT_EQ(Find("FONTS", "FONT")[0].meaning, "one element");
    EXPECT_EQ(Find("HISTORY", "DATE")[0].meaning, "");
}

TEST(KeywordLister, AValueThatNoFieldKeepsHasNoName) {
    EXPECT_EQ(Find("SIGNALNAME", "")[0].target, "CVEKA_SignalName::StrSignalName");
    EXPECT_EQ(Find("SIGNALNAME", "")[0].meaning, "name of the signal");
}

TEST(KeywordLister, SaysWhichFieldsOfAKindBelongToTheBaseClass) {
    EXPECT_EQ(Find("CUBOID", "WIDTH")[0].kind, "CUBOID");
    EXPECT_EQ(Find("CUBOID", "WIDTH")[0].base, "");
    EXPECT_EQ(Find("CUBOID", "FRONT")[0].base, "CVEKA_3DOJ_AxisPivot");
    EXPECT_EQ(Find("CUBOID", "FRONT")[0].target, "CVEKA_3DOJ_AxisPivot::Front");
    EXPECT_EQ(Find("PARTGENERAL", "MPN")[0].kind, "");
}

TEST(KeywordLister, ListsTheKeywordsOfObjects) {
    ASSERT_EQ(Find("GULLWING", "BL").size(), 1u);
    EXPECT_EQ(Find("GULLWING", "BL")[0].target, "CVEKA_3DOJ_GULLWING::BL");
    EXPECT_EQ(Find("GULLWING", "MIRROR").size(), 1u);
    EXPECT_EQ(Find("LINE", "PT")[0].form, "at place 0: point");
    EXPECT_EQ(Find("USERDEFINED", "LEADSHAPE")[0].form, "levels within");
}

TEST(KeywordLister, EveryLevelOfTheCompleteFileIsAKeywordOrHasAnyName) {
    const auto tree = test::ReadTree(test::ReadFile(test::ProjectFolder("tests/data/complete.veka")));
    std::set<std::pair<std::string, std::string>> known;
    std::set<std::string> anyName;
    for (const KeywordRow& row : KeywordLister::AllKeywords()) {
        known.emplace(row.parent, row.keyword);
        if (row.keyword == "*") anyName.insert(row.parent);
    }
    const std::function<void(const CECadClsLvlArray&, const std::string&)> look =
        [&](const CECadClsLvlArray& levels, const std::string& parent) {
            for (const CECadClsLvl* level : levels) {
                const std::string name(level->m_strName.View());
                // A level without a name takes a place among its siblings, and nothing else.
                EXPECT_TRUE(name.empty() || known.count({parent, name}) || anyName.count(parent))
                    << name << " in " << parent;
                look(*level->m_pChildren, name);
            }
        };
    look(*tree->m_pRootLevels, "");
}

TEST(KeywordLister, AParserMethodWithoutALevelGivesARecordOfDefaults) {
    CVEK_AsciiParser parser;
    const std::unique_ptr<CVEKA_Color> color(parser.ColorParser(nullptr));
    EXPECT_EQ(color->GetRed(), 0);
}

}  // namespace
