// The parts in examples/, from which newcomers learn the format.

#include <gtest/gtest.h>

#include "support/Parsing.h"

namespace {

TEST(Examples, AreBalancedAndWholeParts) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(test::ProjectFolder("examples"))) {
        CECadCls tree;
        tree.m_strFilePath = veka::FromPath(entry.path());
        EXPECT_EQ(tree.ReadLevelTree(0), 0) << entry.path();
        const auto parser = test::Import(test::ReadFile(entry.path()));
        const CVEKA_Manager& part = *parser->GetCVEKA_Manager();
        EXPECT_NE(part.GetVEK()->GetPartGeneral()->GetMPN(), "") << entry.path();
        ASSERT_EQ(part.GetVEK()->GetPackages()->GetPackageArr()->GetSize(), 1) << entry.path();
        const CVEKA_Package& package = *part.GetVEK()->GetPackages()->GetPackageArr()->GetAt(0);
        const INT_PTR pins = part.GetVEK()->GetPartGeneral()->GetNumberOfPins();
        EXPECT_EQ(package.GetPKGPins()->GetSize(), pins) << entry.path();
        EXPECT_EQ(part.GetVEK()->GetElectrical()->GetElectricalPins()->GetSize(), pins) << entry.path();
        ASSERT_EQ(part.GetFootprintDBArr()->GetSize(), 1) << entry.path();
        EXPECT_EQ(part.GetFootprintDBArr()->GetAt(0)->GetFootprintName(), package.GetDefaultFootprintName());
        EXPECT_EQ(part.GetFootprintDBArr()->GetAt(0)->GetFPins()->GetSize(), pins) << entry.path();
        ++count;
    }
    EXPECT_GE(count, 3);
}

}  // namespace
