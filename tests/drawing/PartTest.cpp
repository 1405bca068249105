#include "drawing/Part.h"

#include <gtest/gtest.h>

namespace {

using namespace drawing;

TEST(RoleOfNames, ReadsTheWordsOfUsualLayers) {
    const std::pair<const char*, std::pair<Role, Side>> cases[] = {
        {"F.Cu Top Copper", {Role::Copper, Side::Top}},
        {"B.Cu Bottom Copper", {Role::Copper, Side::Bottom}},
        {"TOP", {Role::Copper, Side::Top}},
        {"bottom", {Role::Copper, Side::Bottom}},
        {"SILKTOP Top Silk", {Role::Silk, Side::Top}},
        {"SILKSCREEN_BOT", {Role::Silk, Side::Bottom}},
        {"F.Mask Top Solder Mask", {Role::SolderMask, Side::Top}},
        {"PASTEMASK_TOP", {Role::Paste, Side::Top}},
        {"B.Paste Bottom Paste", {Role::Paste, Side::Bottom}},
        {"F.CrtYd Top Courtyard", {Role::Courtyard, Side::Top}},
        {"F.Fab Top Assembly", {Role::Assembly, Side::Top}},
        {"ASSEMBLY_TOP", {Role::Assembly, Side::Top}},
        {"KEEPOUT Keep-out", {Role::KeepOut, Side::Both}},
        {"Drill", {Role::Drill, Side::Both}},
        {"Edge.Cuts Board Outline", {Role::Other, Side::Both}},
        {"Inner Signal 1", {Role::Copper, Side::Inner}},
        {"", {Role::Other, Side::Both}},
    };
    for (const auto& [name, expected] : cases) EXPECT_EQ(RoleOfNames(name), expected) << name;
}

TEST(Palette, PaleAndDarkColoursAreMadeReadable) {
    EXPECT_EQ(Readable({242, 237, 161}, Theme::Dark), (Color{242, 237, 161}));
    EXPECT_LT(Readable({242, 237, 161}, Theme::Light).red, 200);
    EXPECT_GT(Readable({0, 0, 30}, Theme::Dark).red, 40);
    EXPECT_EQ(HtmlColor({1, 171, 255}), "#01abff");
    EXPECT_STREQ(NameOf(Role::KeepOut), "keep-out");
    EXPECT_STREQ(NameOf(static_cast<Role>(200)), "other");
}

}  // namespace
