#include "host/PartFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/Files.h"

namespace {

using testing::ElementsAre;

class PartFacts : public testing::Test {
protected:
    host::PartFacts Facts(const std::string& text) {
        return host::FactsOf(host::ReadPart(directory.Write("part.veka", text)));
    }
    test::TemporaryDirectory directory;
};

TEST_F(PartFacts, SayWhatAPartIs) {
    const std::string text =
        "(VEK (PARTGENERAL (MPN A/1) (MANUFACTURER Maker) (CPN C1 C2) (PRODUCTFAMILY F) (FUNCTIONALTYPE Amp)"
        " (PACKAGETYPE SO8) (PARTDESC \"An amplifier\") (NUMBEROFPINS 8))"
        " (PACKAGES (PACKAGE (NAME P1)) (PACKAGE)))"
        "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME FP)))";
    const host::PartFacts facts = Facts(text);
    EXPECT_EQ(facts.name, "A&#47;1");
    EXPECT_EQ(facts.fileName, "part.veka");
    EXPECT_EQ(facts.number, "A/1");
    EXPECT_EQ(facts.manufacturer, "Maker");
    EXPECT_EQ(facts.description, "An amplifier");
    EXPECT_EQ(facts.functionalType, "Amp");
    EXPECT_EQ(facts.packageType, "SO8");
    EXPECT_THAT(facts.companyNumbers, ElementsAre("C1", "C2"));
    EXPECT_THAT(facts.families, ElementsAre("F"));
    EXPECT_THAT(facts.footprints, ElementsAre("FP"));
    EXPECT_EQ(facts.pins, 8);
    EXPECT_EQ(facts.size, text.size());
    EXPECT_EQ(facts.hash, host::ContentHash(text));
}

TEST_F(PartFacts, OfTheExamplesNameTheirPackagesFootprintsAndSymbols) {
    const auto path = test::ProjectFolder("examples") / "op-amp.veka";
    const host::PartFacts facts = host::FactsOf(host::ReadPart(veka::FromPath(path)));
    EXPECT_THAT(facts.packages, ElementsAre("SO8"));
    EXPECT_THAT(facts.footprints, ElementsAre("SO8N"));
    EXPECT_THAT(facts.symbols, ElementsAre("OPAMP"));
}

TEST_F(PartFacts, AreNeverLongerThanTheirBounds) {
    std::string text = "(VEK (PARTGENERAL (MPN A) (PARTDESC \"" + std::string(100'000, 'x') + "\") (CPN";
    for (int i = 0; i < 1000; ++i) text += " C";
    const host::PartFacts facts = Facts(text + ")))");
    EXPECT_EQ(facts.description.size(), host::PartFacts::kLongest);
    EXPECT_EQ(facts.companyNumbers.size(), host::PartFacts::kMost);
}

TEST_F(PartFacts, ChangeTheirHashWithTheContent) {
    EXPECT_NE(host::ContentHash("a"), host::ContentHash("b"));
    EXPECT_EQ(host::ContentHash("a stored hash stays valid"), 0x4CBE6EC0CB23BAF3u);
    EXPECT_NE(host::ContentHash(std::string(1, '\0')), host::ContentHash(""));
    const std::string text(100, 'x');
    for (std::size_t place = 0; place < text.size(); ++place) {
        std::string other = text;
        other[place] = 'y';
        EXPECT_NE(host::ContentHash(other), host::ContentHash(text)) << place;
        EXPECT_NE(host::ContentHash(text.substr(place)), host::ContentHash(text.substr(place + 1))) << place;
    }
    std::string turned = "01234567abcdefgh" + std::string(48, 'x');
    const std::uint64_t hash = host::ContentHash(turned);
    std::swap_ranges(turned.begin(), turned.begin() + 8, turned.begin() + 8);
    EXPECT_NE(host::ContentHash(turned), hash) << "words that change places";
}

}  // namespace
