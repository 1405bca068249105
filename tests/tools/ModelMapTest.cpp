#include "tools/ModelMap.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "inspect/Description.h"
#include "support/Files.h"

namespace {

std::string Map() {
    std::ostringstream text;
    WriteModelMap(text);
    return text.str();
}

TEST(ModelMap, ShowsARecordWithItsFields) {
    EXPECT_NE(
        Map().find(
            "<b>BOM</b></td></tr><tr><td align=\"left\">Unit, Cost<br align=\"left\"/></td></tr></table>>];"),
        std::string::npos);
}

TEST(ModelMap, PointsFromAFieldToTheRecordThatItHolds) {
    const std::string map = Map();
    EXPECT_NE(map.find(" CVEKA_PartGeneral:BOM:e -> CVEKA_BOM;\n"), std::string::npos);
    EXPECT_NE(map.find(" CVEKA_PartGeneral:CommentArr:e -> CVEKA_Comment [style=dashed];\n"),
              std::string::npos);
    EXPECT_NE(map.find("<td port=\"CommentArr\" align=\"left\">CommentArr *</td>"), std::string::npos);
    EXPECT_NE(map.find(" CVEKA_Electrical:PowerRails:e -> CVEKA_PowerRail [style=dashed];\n"),
              std::string::npos);
}

TEST(ModelMap, DrawsEachRecordOnceAndSmallOnesNowhere) {
    const std::string map = Map();
    const std::regex box(R"(\n (\w+) \[label=)");
    std::multiset<std::string> drawn;
    for (std::sregex_iterator match(map.begin(), map.end(), box), end; match != end; ++match)
        drawn.insert((*match)[1].str());
    EXPECT_GT(drawn.size(), 50u);
    EXPECT_EQ(drawn.size(), std::set<std::string>(drawn.begin(), drawn.end()).size());
    EXPECT_EQ(drawn.count("CVEKA_Coordinate"), 0u);
}

TEST(ModelMap, TheCommittedPictureShowsTheseRecordsAndArrows) {
    const std::string picture = test::ReadFile(test::ProjectFolder("docs/model.svg"));
    const std::string map = Map();
    std::multiset<std::string> shown, expected{"model"};
    const std::regex title(R"(<title>([^<]*)</title>)");
    for (std::sregex_iterator match(picture.begin(), picture.end(), title), end; match != end; ++match)
        shown.insert((*match)[1].str());
    const std::regex line(R"(\n (\w+) \[label=|\n (\w+):\w+:e -> (\w+))");
    for (std::sregex_iterator match(map.begin(), map.end(), line), end; match != end; ++match)
        expected.insert((*match)[1].matched ? (*match)[1].str()
                                            : (*match)[2].str() + ":e&#45;&gt;" + (*match)[3].str());
    EXPECT_EQ(shown, expected) << "run scripts/renew";
    for (const veka::RecordDescription* record : veka::AllDescriptions()) {
        if (expected.count(record->name) == 0) continue;
        for (const veka::FieldDescription& field : record->fields)
            EXPECT_NE(picture.find(field.name), std::string::npos) << field.name << " of " << record->name;
    }
}

}  // namespace
