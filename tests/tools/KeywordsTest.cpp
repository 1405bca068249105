#include "tools/Keywords.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "support/Files.h"

namespace {

std::string Page() {
    std::ostringstream text;
    WriteKeywordsPage(text);
    return text.str();
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST(Keywords, ThePageSaysWhereAKeywordIsKnownAndWhatItMeans) {
    EXPECT_EQ(Count(Page(),
                    "\n| `MPN` | `PARTGENERAL` | first value | `CVEKA_PartGeneral::MPN` | "
                    "manufacturer's part number, which names the part in a library |\n"),
              1u);
    EXPECT_EQ(
        Count(Page(), "\n| `WIDTH` | `CUBOID` | last value | `CVEKA_3DOJ_CUBOID::WIDTH` | size along X |\n"),
        1u);
    EXPECT_EQ(Count(Page(), "\n| the level itself | `LOGICPIN` | by position |"), 1u);
}

TEST(Keywords, TheCommittedPageIsThatOfTheRows) {
    EXPECT_EQ(Page(), test::ReadFile(test::ProjectFolder("docs/keywords.md")))
        << "run scripts/renew, and look at what has changed in the page";
}

TEST(Keywords, ThePageShowsTheKeywordsOfABaseClassOnce) {
    const std::string page = Page();
    EXPECT_EQ(Count(page, "| `FRONT` |"), 1u);
    EXPECT_EQ(Count(page, "| `MIRROR` | last value | `CVEKA_3DOJ_RotMirror::Mirror` |"), 1u);
    EXPECT_EQ(Count(page, "## Keywords of all kinds of `"), 2u);
    const std::size_t leads = page.find("## Keywords of all kinds of `CVEKA_3DOJ_RotMirror`");
    ASSERT_NE(leads, std::string::npos);
    EXPECT_NE(page.find("`GULLWING`,", leads), std::string::npos);
}

TEST(Keywords, NoTableHasALineTwice) {
    std::istringstream lines(Page());
    std::set<std::string> rows;
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("## ")) rows.clear();
        if (!line.starts_with("| `")) continue;
        EXPECT_TRUE(rows.insert(line).second) << line;
        ++count;
    }
    EXPECT_GT(count, 500u);
}

TEST(Keywords, TheDictionaryHasEachKeywordInQuotes) {
    std::ostringstream text;
    WriteDictionary(text);
    EXPECT_EQ(Count(text.str(), "\"MPN\"\n"), 1u);
    EXPECT_EQ(Count(text.str(), "\"PT\"\n"), 1u);
    EXPECT_EQ(Count(text.str(), "\"//\"\n"), 1u);
    EXPECT_EQ(Count(text.str(), "*"), 0u);
    EXPECT_EQ(Count(text.str(), "\n\"\"\n"), 0u);
}

}  // namespace
