#include "report/RecordPlaces.h"

#include <gtest/gtest.h>

#include <set>

#include "support/Files.h"
#include "support/Parsing.h"

namespace {

using veka::RecordPlaces;

constexpr const char* kFile =
    "(VEK (PARTGENERAL (MPN A))\n"
    " (PACKAGES (PACKAGE (NAME SO8)\n"
    "  (PKGPINS (PKGPIN 1 (PT 1 2)\n"
    "    (ROTATON 90))\n"
    "   (PKGPIN 2 (LEAD (BALL (H 0.6))))))))\n"
    "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F)))\n";

TEST(RecordPlaces, FindsTheInnermostRecordOfAPlace) {
    const auto parser = test::Import(kFile);
    const CVEKA_Manager& part = *parser->GetCVEKA_Manager();
    const RecordPlaces places(kFile, part);
    const CVEKA_Package& package = *part.GetVEK()->GetPackages()->GetPackageArr()->GetAt(0);
    EXPECT_EQ(places.At({4, 6}).record, package.GetPKGPins()->GetAt(0));
    EXPECT_EQ(places.At({4, 6}).description, &veka::Describe(typeid(CVEKA_PackagePin)));
    EXPECT_EQ(places.At({2, 30}).record, &package);
    EXPECT_EQ(places.At({5, 24}).record, package.GetPKGPins()->GetAt(1)->Get3DObjects()->GetAt(0));
    EXPECT_EQ(places.At({6, 25}).record, part.GetFootprintDBArr()->GetAt(0));
}

TEST(RecordPlaces, OutsideOfAllRecordsThereIsNone) {
    const auto parser = test::Import(kFile);
    const RecordPlaces places(kFile, *parser->GetCVEKA_Manager());
    for (const veka::Place place :
         {veka::Place{1, 10}, veka::Place{0, 0}, veka::Place{7, 1}, veka::Place{-3, 5}})
        EXPECT_EQ(places.At(place).record, nullptr);
}

TEST(RecordPlaces, TheBytesOfAnotherFileFindNothing) {
    const auto parser = test::Import("(VEK (PARTGENERAL (MPN A)))");
    EXPECT_EQ(RecordPlaces(kFile, *parser->GetCVEKA_Manager()).At({4, 6}).record, nullptr);
    EXPECT_EQ(RecordPlaces("(((", *parser->GetCVEKA_Manager()).At({1, 1}).record, nullptr);
}

TEST(RecordPlaces, OfTheExampleEachPinIsFound) {
    const std::string bytes = test::ReadFile(test::ProjectFolder("examples") / "op-amp.veka");
    const auto parser = test::Import(bytes);
    const CVEKA_Manager& part = *parser->GetCVEKA_Manager();
    const RecordPlaces places(bytes, part);
    std::set<const void*> found;
    int line = 1, column = 1;
    for (const char c : bytes) {
        found.insert(places.At({line, column}).record);
        ++column;
        if (c == '\n') ++line, column = 1;
    }
    for (const CVEKA_FootprintPin* pin : *part.GetFootprintDBArr()->GetAt(0)->GetFPins())
        EXPECT_TRUE(found.count(pin));
    for (const CVEKA_PackagePin* pin : *part.GetVEK()->GetPackages()->GetPackageArr()->GetAt(0)->GetPKGPins())
        EXPECT_TRUE(found.count(pin));
}

}  // namespace
