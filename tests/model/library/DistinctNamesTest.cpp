#include "model/library/DistinctNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

TEST(DistinctNames, ListsANameOnceHoweverLongTheListIs) {
    DistinctNames names;
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 1000; ++i) names.Add(CString(std::to_string(i)));
    ASSERT_EQ(names.Names().GetSize(), 1000);
    EXPECT_EQ(names.Names()[999], "999");
    const DistinctNames copy(names);
    names.Add(names);
    names.Add(copy);
    EXPECT_EQ(names.Names().GetSize(), 1000);
    names.Append(copy);
    EXPECT_EQ(names.Names().GetSize(), 2000) << "appended as it stands";
    names.Add("5");
    names.Add("new");
    EXPECT_EQ(names.Names().GetSize(), 2001);
}

TEST(DistinctNames, ForgetsWhatItKnewWhenItIsReplaced) {
    DistinctNames names, other;
    for (int i = 0; i < 100; ++i) names.Add(CString(std::to_string(i)));
    other.Add("a");
    names = other;
    names.Add("5");
    EXPECT_EQ(names.Names().GetSize(), 2);
    names.RemoveAll();
    names.Add("a");
    EXPECT_EQ(names.Names().GetSize(), 1);
    const DistinctNames& same = names;
    names = same;
    EXPECT_EQ(names.Names().GetSize(), 1);
}

TEST(DistinctNames, AreThoseOfAPlainSearchThroughTheList) {
    std::mt19937 random(1);
    for (int round = 0; round < 30; ++round) {
        DistinctNames names;
        std::vector<std::string> plain;
        const auto kinds = 1 + random() % 400;
        for (int i = 0; i < 500; ++i) {
            const std::string name(random() % 20, static_cast<char>('a' + random() % kinds % 20));
            names.Add(CString(name));
            if (std::ranges::find(plain, name) == plain.end()) plain.push_back(name);
            if (random() % 300 == 0) {
                names.RemoveAll();
                plain.clear();
            }
        }
        ASSERT_TRUE(std::ranges::equal(names.Names(), plain, {}, &CString::View));
    }
}

}  // namespace
