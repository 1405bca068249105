#include "host/FindingSums.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using host::FindingSums;
using veka::Code;

constexpr const char* kClean = "(VEK (PARTGENERAL (MPN A)))\n";
constexpr const char* kSurplus = "(VEK (PARTGENERAL (MPN A B) (MANUFACTURER M N)))\n";
constexpr const char* kSurplusAndEmpty = "(VEK (PARTGENERAL (MPN A B) (BOM)))\n";

FindingSums Of(const std::vector<const char*>& files, std::size_t most = 0) {
    FindingSums sums;
    veka::ReportOptions options;
    options.most = most;
    for (const char* file : files) sums.Add(veka::ReportImport(file, options));
    return sums;
}

template <class Write>
std::string Written(Write write, const FindingSums& sums) {
    std::ostringstream out;
    write(out, sums);
    return out.str();
}

TEST(FindingSums, CountFilesAndFindingsMostFrequentFirst) {
    const FindingSums sums = Of({kSurplusAndEmpty, kClean, kSurplus});
    EXPECT_EQ(sums.Files(), 3u);
    const std::vector<FindingSums::Sum> found = sums.Sums();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].code, Code::SurplusValue);
    EXPECT_EQ(found[0].files, 2u);
    EXPECT_EQ(found[0].count, 3u);
    EXPECT_EQ(found[1].code, Code::GivesNothing);
    EXPECT_EQ(found[1].files, 1u);
    EXPECT_EQ(found[1].count, 1u);
}

TEST(FindingSums, AreTheSameHoweverManyFindingsAReportKeeps) {
    for (std::size_t most : {0u, 1u, 100u})
        EXPECT_EQ(Of({kSurplus, kSurplus}, most).Sums()[0].count, 4u) << most;
}

TEST(FindingSums, OfOneFrequencyComeInTheOrderOfTheirNumbers) {
    const std::vector<FindingSums::Sum> found = Of({kSurplusAndEmpty}).Sums();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].code, Code::SurplusValue);
    EXPECT_EQ(found[1].code, Code::GivesNothing);
}

TEST(FindingSums, AreATableWithALineForEachCode) {
    EXPECT_EQ(Written(host::WriteTable, Of({kSurplusAndEmpty, kClean, kSurplus})),
              "findings in 3 files:\n"
              "  findings     files  code       severity  kind          name\n"
              "         3         2  VEKA-W005  warning   not-read      surplus-value\n"
              "         1         1  VEKA-W007  note      not-read      gives-nothing\n");
    EXPECT_EQ(Written(host::WriteTable, Of({kClean})), "findings in 1 file: none\n");
    EXPECT_EQ(Written(host::WriteTable, {}), "findings in 0 files: none\n");
}

TEST(FindingSums, AreMembersOfAJsonObject) {
    EXPECT_EQ(
        Written(host::WriteJsonMembers, Of({kSurplusAndEmpty, kSurplus})),
        ",\"reports\":2,\"findings\":[\n"
        "{\"code\":\"VEKA-W005\",\"name\":\"surplus-value\",\"severity\":\"warning\",\"kind\":"
        "\"not-read\",\"files\":2,\"count\":3},\n"
        "{\"code\":\"VEKA-W007\",\"name\":\"gives-nothing\",\"severity\":\"note\",\"kind\":\"not-read\","
        "\"files\":1,\"count\":1}\n]");
    EXPECT_EQ(Written(host::WriteJsonMembers, {}), ",\"reports\":0,\"findings\":[\n]");
}

}  // namespace
