#include "package/PackageSolids.h"

#include <gtest/gtest.h>

#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TopoDS_Shape.hxx>
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "support/Parsing.h"

namespace {

veka::PackageSolids Make(const std::string& package, const char* unit = "MM") {
    const auto parser = test::Import("(VEK (PARTGENERAL (UNIT " + std::string(unit) +
                                     ")) (PACKAGES (PACKAGE (NAME P) " + package + ")))");
    return veka::MakePackageSolids(*parser->GetCVEKA_Manager());
}

struct Bounds {
    double low[3], high[3];
};

Bounds BoundsOf(const geometry::NamedSolid& named) {
    Bnd_Box box;
    BRepBndLib::AddOptimal(*named.solid->GetShape(), box, false, false);
    Bounds bounds{};
    box.Get(bounds.low[0], bounds.low[1], bounds.low[2], bounds.high[0], bounds.high[1], bounds.high[2]);
    return bounds;
}

void ExpectBounds(const geometry::NamedSolid& named, std::vector<double> low, std::vector<double> high) {
    const Bounds bounds = BoundsOf(named);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(bounds.low[i], low[i], 1e-4) << named.name;
        EXPECT_NEAR(bounds.high[i], high[i], 1e-4) << named.name;
    }
}

double Volume(const geometry::NamedSolid& named) {
    GProp_GProps properties;
    BRepGProp::VolumeProperties(*named.solid->GetShape(), properties);
    return properties.Mass();
}

const std::string kBox = "(CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1))";

TEST(PackageSolids, PinsAreAtTheirPointsAndTurned) {
    const veka::PackageSolids made =
        Make("(BODYGEOMETRY (BODYSHAPE " + kBox + ")) (PKGPINS (PKGPIN 1 (PT 10 0 5) (LEAD " + kBox +
             ")) (PKGPIN 2 (PT 20 0 0) (ROTATION 90) (LEAD (CUBOID (WIDTH 4) (HEIGHT 2) (THICKNESS 1) (PT 3 "
             "0 0)))))"
             " (MECHANICALPINS (A) (MECHANICALPIN M (PT 9 9 9) (LEAD " +
             kBox + ")))");
    ASSERT_EQ(made.solids.size(), 4u);
    EXPECT_TRUE(made.remarks.empty());
    EXPECT_EQ(made.solids[0].name, "P body cuboid 1");
    ExpectBounds(made.solids[0], {-2, -1, 0}, {2, 1, 1});
    EXPECT_EQ(made.solids[1].name, "P pin 1 cuboid 2");
    ExpectBounds(made.solids[1], {8, -1, 5}, {12, 1, 6});
    ExpectBounds(made.solids[2], {19, 1, 0}, {21, 5, 1});
    EXPECT_EQ(made.solids[3].name, "P mechanical pin M cuboid 4");
}

TEST(PackageSolids, TheUnitOfThePartDecides) {
    const std::string pin = "(PKGPINS (PKGPIN 1 (PT 1 0 0) (LEAD " + kBox + " (FLAT (L 4) (W 2) (T 1)))))";
    for (const auto& [unit, scale] : {std::pair{"MM", 1.0}, {"INCH", 25.4}, {"MIL", 0.0254}}) {
        const veka::PackageSolids made = Make(pin, unit);
        ASSERT_EQ(made.solids.size(), 2u) << unit;
        EXPECT_TRUE(made.remarks.empty()) << unit;
        for (const geometry::NamedSolid& solid : made.solids)
            ExpectBounds(solid, {-scale, -scale, 0}, {3 * scale, scale, scale});
    }
}

TEST(PackageSolids, APillarInInchesIsThePillarInMillimetres25TimesAsLarge) {
    const std::string pillar = R"((BODYGEOMETRY (BODYSHAPE (PILLAR
        (THICKNESS 0.5) (PT 1 2 3) (PIVOT 0.5 0 0) (ROTATE 30 40 50)
        (BOUNDARY (LINE (PT -2 -1) (PT 2 -1)) (ARC (PT 2 -1) (PT 2 1) (PT 2 0) (DIR CCW))
                  (LINE (PT 2 1) (PT -2 1)) (LINE (PT -2 1) (PT -2 -1)))
        (VOIDS (VOID (ARC (PT 0.5 0) (PT -0.5 0) (PT 0 0) (DIR CCW))
                     (ARC (PT -0.5 0) (PT 0.5 0) (PT 0 0) (DIR CCW))))))))";
    const veka::PackageSolids small = Make(pillar), large = Make(pillar, "INCH");
    ASSERT_EQ(small.remarks, std::vector<std::string>());
    ASSERT_EQ(large.remarks, std::vector<std::string>());
    constexpr double kPi = 3.14159265358979;
    EXPECT_NEAR(Volume(small.solids.at(0)), (8 + kPi / 2 - kPi / 4) * 0.5, 1e-6);
    EXPECT_NEAR(Volume(large.solids.at(0)), Volume(small.solids[0]) * 25.4 * 25.4 * 25.4, 1e-2);
    Bounds bounds = BoundsOf(small.solids[0]);
    for (double* side : {bounds.low, bounds.high})
        for (int i = 0; i < 3; ++i) side[i] *= 25.4;
    ExpectBounds(large.solids[0], {bounds.low[0], bounds.low[1], bounds.low[2]},
                 {bounds.high[0], bounds.high[1], bounds.high[2]});
}

// To scale the shape took the square of the lines.
TEST(PackageSolids, APillarInInchesMayHaveThousandsOfLines) {
    std::string outline;
    double x = 2500, y = 0;
    for (int i = 1; i <= 4990; ++i) {
        const double angle = i % 4990 * 2 * 3.14159265358979 / 4990, nextX = 2500 * std::cos(angle),
                     nextY = 2500 * std::sin(angle);
        outline += "(LINE (PT " + std::to_string(x) + ' ' + std::to_string(y) + ") (PT " +
                   std::to_string(nextX) + ' ' + std::to_string(nextY) + "))";
        x = nextX, y = nextY;
    }
    const veka::PackageSolids made =
        Make("(BODYGEOMETRY (BODYSHAPE (PILLAR (THICKNESS 1) (BOUNDARY " + outline + "))))", "INCH");
    EXPECT_EQ(made.remarks, std::vector<std::string>());
    EXPECT_EQ(made.solids.size(), 1u);
}

TEST(PackageSolids, AnUnknownUnitCountsAsMillimetresAndIsTold) {
    EXPECT_EQ(Make("", "FURLONG").remarks,
              std::vector<std::string>{
                  "the unit \"FURLONG\" of the part is not known; its numbers were taken as millimetres"});
    EXPECT_EQ(Make("", "\"\"").remarks,
              std::vector<std::string>{"the part names no unit; its numbers were taken as millimetres"});
}

TEST(PackageSolids, WhatIsLeftOutIsToldOnceForEachKind) {
    const veka::PackageSolids made = Make(
        "(BODYGEOMETRY (BODYSHAPE (CUBOID (WIDTH 1) (HEIGHT 1)) (LINE) (3DSHAPE))) (MARKINGGEOMETRIES "
        "(TEXT)) "
        "(PKGPINS (PKGPIN 1 (LEAD (FLAT (L 1) (W 1)))) (PKGPIN 2 (LEAD (FLAT (L 1) (W 1)))) (PKGPIN 3 (LEAD "
        "(FLAT "
        "(L 1) (W 1)))) (PKGPIN 4 (ROTATION 1e999) (LEAD (FLAT (L 1) (W 1) (T 1)))))");
    EXPECT_TRUE(made.solids.empty());
    EXPECT_EQ(
        made.remarks,
        (std::vector<std::string>{
            "package \"P\", body: cuboid: the depth is not above 0",
            "package \"P\", body: LINE has no solid form", "package \"P\", body: CUBOID has no solid form",
            "package \"P\", marking: TEXT has no solid form",
            "package \"P\", pin \"1\" and 2 more: there is no such FLAT lead: T is not above 0",
            "package \"P\", pin \"4\": FLAT lead: the rotation is no number"}));
}

/// A part with all forms of leads, a pin each.
const char* const kLeads[] = {
    "(BALL (H 0.4))",
    "(BAR (Z 3) (H 1) (T 0.6))",
    "(BAR (Z 3) (H 1) (T 0.6) (CLINCH 1) (CLINCHLENGTH 1.2) (CLINCHROTATE 30))",
    "(BUTT (H 0.5) (T 0.2) (W 0.3) (Z 0.1) (BL 1))",
    "(CBEND (H 2) (L 1) (W 3) (Z 0.1))",
    "(DIP (H1 2) (H2 0.5) (T 0.2) (W1 1.5) (W2 0.5) (Z 3))",
    "(DIPA (H1 2) (H2 0.5) (T1 0.6) (T2 0.4) (Z 3))",
    "(DIPA (H1 2) (H2 0.5) (T1 0.6) (T2 0.4) (Z 3) (CLINCH 1) (CLINCHLENGTH 1.2) (CLINCHROTATE 45))",
    "(DIPB (H1 2) (H2 0.5) (W1 1.2) (W2 0.6) (S 2.5) (T 0.4) (Z 3))",
    "(FLAT (L 2) (W 1) (T 0.2))",
    "(GULLWING (H 1) (B 0.8) (W 0.3) (M 0.2) (BL 1.2) (T 0.1))",
    "(GULLWING (H 0.8) (B 0.885) (W 0.24) (M 1.475) (BL 1.03) (T 0.15))",
    "(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1))",
    "(JBEND (H1 2) (H2 1) (D 0.8) (W1 0.7) (W2 0.5) (BL 0.6) (T 0.2))",
    "(JINVERTED (H1 2) (H2 1) (D 0.8) (T 0.2) (W1 0.7) (W2 0.5) (BL 0.6))",
    "(REVERSEBUTT (H 0.7) (T 0.2) (W 1.5) (B 1))",
    "(ROUNDBAR (Z 3) (BL 1.5) (H 0.5) (T 0.6))",
    "(ROUNDBAR (Z 3) (BL 1.5) (H 0.5) (T 0.6) (CLINCH 1) (CLINCHLENGTH 1.2) (CLINCHROTATE 45))",
    "(ROUNDBARA (H1 1.5) (H2 1) (Z 3) (L 1.2) (T 0.6))",
    "(ROUNDBARA (H1 1.5) (H2 1) (Z 3) (L 1.2) (T 0.6) (CLINCH 1) (CLINCHLENGTH 1.2) (CLINCHROTATE 45))",
    "(ROUNDBARB (H1 3) (H2 1) (L1 0.5) (L2 1) (L3 0.75) (T 0.6) (Z 3))",
    "(ROUNDBARB (H1 3) (H2 2) (L1 0.6) (L2 0.8) (L3 0.6) (T 0.6) (Z 3))",
    "(ROUNDBARC (H1 2) (H2 0.5) (H 4) (Z 3) (L 2.54) (T 0.6))",
    "(KINKDIP (H 3) (D 0.5) (Z 3) (T 0.4))",
    "(KINKDIP (H 1.5) (D 0.3825) (Z 3) (T 0.6375) (CLINCH 1) (CLINCHLENGTH 1.2) (CLINCHROTATE 90))",
    "(KINKDIPA (H 4) (H1 2.6) (D 0.36) (Z 3) (T 0.6))",
    "(ROUNDDIP (H1 2) (H2 0.5) (T 0.6) (W1 0.6) (W2 0.6) (BL 2) (Z 3))",
    "(ROUNDDIP (H1 2) (H2 0.5) (T 0.4) (W1 0.8) (W2 0.6) (BL 2) (Z 3))",
    ("(ROUNDDIPA (H 4.25) (H1 2.125) (H2 0.5) (H3 0.3) (L1 1.5) (L2 1) (T 0.75) (W1 0.75) (W2 0.75) (W3 0.6) "
     "(Z 3))"),
    "(WRAPAROUND (H 1) (L 0.5) (W 2))",
    "(WIRE (T 0.6) (L 3))"};

TEST(PackageSolids, EveryFormOfLeadIsASoundBody) {
    for (const char* lead : kLeads) {
        const veka::PackageSolids made = Make("(PKGPINS (PKGPIN 1 (LEAD " + std::string(lead) + ")))");
        EXPECT_TRUE(made.remarks.empty()) << lead << ": " << (made.remarks.empty() ? "" : made.remarks[0]);
        ASSERT_EQ(made.solids.size(), 1u) << lead;
        EXPECT_GT(Volume(made.solids[0]), 0.01) << lead;
    }
}

TEST(PackageSolids, ALeadFollowsItsPointItsRotationAndItsMirror) {
    const veka::PackageSolids made = Make(
        "(PKGPINS (PKGPIN 1 (PT 10 0 0) (ROTATION 180) (LEAD (GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T "
        "0.1))))"
        "(PKGPIN 2 (PT 10 0 0) (ROTATION 180) (LEAD (GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1) "
        "(ROTATION 0 0 "
        "180))))"
        "(PKGPIN 3 (PT 10 0 0) (LEAD (GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1) (MIRROR Y) (PT 0 5 "
        "0)))))");
    ASSERT_EQ(made.solids.size(), 3u);
    ExpectBounds(made.solids[0], {9.6, -0.15, 0}, {11.2, 0.15, 1.05});
    ExpectBounds(made.solids[1], {9.6, -0.15, 0}, {11.2, 0.15, 1.05});
    ExpectBounds(made.solids[2], {9.6, 4.85, 0}, {11.2, 5.15, 1.05});
    EXPECT_TRUE(made.solids[0].solid->GetShape()->IsPartner(*made.solids[1].solid->GetShape()))
        << "equal leads share their shape";
    EXPECT_GT(Volume(made.solids[2]), 0);
}

TEST(PackageSolids, TheShapesOfAUserDefinedLeadAreTakenAsTheyAre) {
    const veka::PackageSolids made = Make("(PKGPINS (PKGPIN 1 (PT 10 0 0) (LEAD (USERDEFINED (MAINSHAPE " +
                                          kBox + ") (LEADSHAPE (LEAD (FLAT (L 2) (W 1) (T 0.2))))))))");
    ASSERT_EQ(made.solids.size(), 2u);
    ExpectBounds(made.solids[0], {8, -1, 0}, {12, 1, 1});
    ExpectBounds(made.solids[1], {9, -0.5, 0}, {11, 0.5, 0.2});
}

TEST(PackageSolids, AStepBodyKeepsItsOwnMillimetres) {
    const test::TemporaryDirectory directory;
    const geometry::vector zero;
    geometry::WriteStep(
        static_cast<const char*>(directory / "box.step"),
        {{"box", std::make_shared<geometry::cuboid>(zero, zero, zero, 2, 4, 6, zero, false)}});
    const auto parser = test::Import(
        "(VEK (PARTGENERAL (UNIT INCH)) (PACKAGES (PACKAGE (NAME P) (BODYGEOMETRY (BODYSHAPE (STEP (PATH "
        "box.step) (PT 1 "
        "0 0)) (STEP (PATH ../box.step)))))))");
    const veka::PackageSolids made = veka::MakePackageSolids(
        *parser->GetCVEKA_Manager(),
        std::make_shared<geometry::step_files>(std::vector<std::string>{std::string(directory / "")}));
    ASSERT_EQ(made.solids.size(), 1u) << (made.remarks.empty() ? "" : made.remarks[0]);
    ExpectBounds(made.solids[0], {24.4, -2, 0}, {26.4, 2, 6});
    ASSERT_EQ(made.remarks.size(), 1u);
    EXPECT_EQ(made.remarks[0],
              "package \"P\", body: step: the STEP file \"../box.step\" lies outside of the part's folders "
              "and is not read");
}

TEST(PackageSolids, AHostMaySeeTheProgressAndEndIt) {
    const auto parser =
        test::Import("(VEK (PACKAGES (PACKAGE (BODYGEOMETRY (BODYSHAPE " + kBox + kBox + kBox + ")))))");
    veka::PackageSolidsOptions options;
    std::vector<std::pair<size_t, size_t>> calls;
    options.progress = [&](size_t done, size_t all) {
        calls.emplace_back(done, all);
        return done < 2;
    };
    const CVEKA_Package& package =
        *parser->GetCVEKA_Manager()->GetVEK()->GetPackages()->GetPackageArr()->GetAt(0);
    EXPECT_EQ(veka::MakePackageSolids(package, options).solids.size(), 2u);
    EXPECT_EQ(calls, (std::vector<std::pair<size_t, size_t>>{{1, 3}, {2, 3}}));
}

TEST(PackageSolids, TheQuadPackOfTheCorpusHasItsLeads) {
    VEKA_NEEDS_CORPUS();
    const std::vector<std::filesystem::path> files = test::CorpusFiles();
    const auto file = std::find_if(files.begin(), files.end(), [](const std::filesystem::path& path) {
        return path.filename().string().starts_with("LQFP-144");
    });
    ASSERT_NE(file, files.end());
    const auto parser = test::Import(test::ReadFile(*file));
    const veka::PackageSolids made = veka::MakePackageSolids(*parser->GetCVEKA_Manager());
    size_t leads = 0;
    for (const geometry::NamedSolid& solid : made.solids) {
        if (std::string(solid.solid->GetKind()) != "lead") continue;
        ++leads;
        const Bounds bounds = BoundsOf(solid);
        const double out = std::max({-bounds.low[0], -bounds.low[1], bounds.high[0], bounds.high[1]});
        ASSERT_NEAR(out, 11.105, 0.01) << solid.name << " ends where the package ends";
        ASSERT_NEAR(bounds.low[2], 0, 1e-4) << solid.name << " stands on the board";
    }
    EXPECT_EQ(leads, 144u);
}

}  // namespace
