#include "leads/Lead.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/objects/LeadObjects.h"
#include "model/objects/SolidObjects.h"
#include "model/objects/UserDefinedObjects.h"
#include "support/Parsing.h"

namespace {

using veka::LeadView;

std::unique_ptr<CVEKA_3DObject> Object(const std::string& text) {
    return test::Parse(&CVEK_AsciiParser::ObjectParser, text);
}

veka::Lead Read(const std::string& text) {
    return veka::ReadLead(*Object(text));
}

struct Bounds {
    double left = INFINITY, low = INFINITY, right = -INFINITY, high = -INFINITY;
};

/// What a lead at its own place covers in a view.
Bounds BoundsOf(const std::string& text, LeadView view, const veka::Placement& place = {}) {
    const veka::Lead lead = Read(text);
    EXPECT_EQ(lead.failure, "") << text;
    Bounds bounds;
    for (const veka::LeadPolygon& polygon : veka::Outlines(lead, place, view))
        for (const veka::ViewPoint& point : polygon) {
            bounds.left = std::min(bounds.left, point.x);
            bounds.right = std::max(bounds.right, point.x);
            bounds.low = std::min(bounds.low, point.y);
            bounds.high = std::max(bounds.high, point.y);
        }
    return bounds;
}

void ExpectBounds(const Bounds& bounds, double left, double low, double right, double high,
                  const std::string& what) {
    EXPECT_NEAR(bounds.left, left, 1e-9) << what;
    EXPECT_NEAR(bounds.low, low, 1e-9) << what;
    EXPECT_NEAR(bounds.right, right, 1e-9) << what;
    EXPECT_NEAR(bounds.high, high, 1e-9) << what;
}

/// The area of a polygon; negative if it runs clockwise.
double Area(const veka::LeadPolygon& polygon) {
    double sum = 0;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const veka::ViewPoint &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
        sum += (a.x * b.y - a.y * b.x) / 2;
    }
    return sum;
}

struct Form {
    const char* text;
    double left, low, right, high;  ///< seen from the front: along X and Z
    double width;                   ///< seen from above: along Y
};

const Form kForms[] = {
    {"(BALL (H 0.4))", -0.2, 0, 0.2, 0.4, 0.4},
    {"(BAR (Z 3) (H 1) (T 0.6))", -0.3, -3, 0.3, 1, 0.6},
    {"(BUTT (H 0.5) (T 0.2) (W 0.3) (Z 0.1) (BL 1))", -1, -0.1, 0.1, 0.6, 0.3},
    {"(CBEND (H 2) (L 1) (W 3) (Z 0.1))", -0.5, 0, 0.5, 2, 3},
    {"(DIP (H1 2) (H2 0.5) (T 0.2) (W1 1.5) (W2 0.5) (Z 3))", -1.5, -3, 0.1, 2.1, 1.5},
    {"(DIPA (H1 2) (H2 0.5) (T1 0.6) (T2 0.4) (Z 3))", -0.3, -3, 0.3, 2, 0.6},
    {"(DIPB (H1 2) (H2 0.5) (W1 1.2) (W2 0.6) (S 2.5) (T 0.4) (Z 3))", -2.5, -3, 0.2, 2.2, 1.2},
    {"(FLAT (L 2) (W 1) (T 0.2))", -1, 0, 1, 0.2, 1},
    {"(GULLWING (H 1) (B 0.8) (W 0.3) (M 0.2) (BL 1.2) (T 0.1))", -1.2, 0, 0.4, 1.05, 0.3},
    {"(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1))", -1.2, 0, 0.4, 1.05, 0.3},
    {"(JBEND (H1 2) (H2 1) (D 0.8) (W1 0.7) (W2 0.5) (BL 0.6) (T 0.2))", -0.6, 0, 0.4, 2.1, 0.7},
    {"(JINVERTED (H1 2) (H2 1) (D 0.8) (T 0.2) (W1 0.7) (W2 0.5) (BL 0.6))", -0.6, 0, 0.4, 2.1, 0.7},
    {"(REVERSEBUTT (H 0.7) (T 0.2) (W 1.5) (B 1))", -0.5, 0, 0.5, 0.7, 1.5},
    {"(ROUNDBAR (Z 3) (BL 1.5) (H 0.5) (T 0.6))", -0.3, -3, 0.3, 2, 0.6},
    {"(ROUNDBARC (H1 2) (H2 0.5) (H 4) (Z 3) (L 2.54) (T 0.6))", -2.84, -3, 0.3, 4.3, 0.6},
    {"(KINKDIP (H 3) (D 0.5) (Z 3) (T 0.4))", -0.2, -3, 0, 3, 0.4},
    {"(KINKDIPA (H 4) (H1 2) (D 0) (Z 3) (T 0.6))", -0.3, -3, 0.3, 4, 0.6},
    {"(ROUNDDIP (H1 2) (H2 0.5) (T 0.6) (W1 0.6) (W2 0.6) (BL 2) (Z 3))", -2, -3, 0.3, 2.3, 0.6},
    {"(ROUNDDIPA (H 4) (H1 2) (H2 0.5) (H3 0.3) (L1 1.5) (L2 0) (T 0.6) (W1 0.8) (W2 0.7) (W3 0.6) (Z 3))",
     -1.5, -3, 0.3, 4.3, 0.8},
    {"(WIRE (T 0.6) (L 3))", -0.3, -3, 0.3, 0, 0.6},
};

TEST(ReadLead, EachFormHasTheExtentsThatItsLettersSay) {
    for (const Form& form : kForms) {
        if (std::string(form.text).starts_with("(KINKDIP "))
            continue;  // its bend cuts the corner of the kink
        ExpectBounds(BoundsOf(form.text, LeadView::Front), form.left, form.low, form.right, form.high,
                     form.text);
        ExpectBounds(BoundsOf(form.text, LeadView::Top), form.left, -form.width / 2, form.right,
                     form.width / 2, form.text);
        ExpectBounds(BoundsOf(form.text, LeadView::Side), -form.width / 2, form.low, form.width / 2,
                     form.high, form.text);
    }
}

TEST(ReadLead, EveryFormIsALeadAndNothingElseIs) {
    for (const Form& form : kForms) EXPECT_TRUE(veka::IsLead(*Object(form.text))) << form.text;
    for (const char* text : {"(ROUNDBARA)", "(ROUNDBARB)", "(WRAPAROUND)"})
        EXPECT_TRUE(veka::IsLead(*Object(text))) << text;
    for (const char* text : {"(CUBOID)", "(LINE)", "(USERDEFINED)", "(3DSHAPE)", "(3DLINE)", "(TEXT)"})
        EXPECT_FALSE(veka::IsLead(*Object(text))) << text;
    EXPECT_EQ(Read("(CUBOID (WIDTH 1))").failure, "the object is no lead");
    CVEKA_3DOJ_RotMirror base;
    base.SetType(24);
    EXPECT_FALSE(veka::IsLead(base)) << "the number of a gull wing makes no gull wing";
}

TEST(ReadLead, AnEmptyLeadOfAnyFormGivesAReason) {
    for (const Form& form : kForms) {
        const std::string name(form.text, std::string(form.text).find(' '));
        const veka::Lead lead = Read(name + ")");
        EXPECT_NE(lead.failure, "") << name;
        EXPECT_TRUE(lead.sweeps.empty() && lead.balls.empty()) << name;
        EXPECT_TRUE(veka::Outlines(lead, {}, LeadView::Top).empty()) << name;
    }
}

TEST(ReadLead, EachImpossibleLetterIsNamed) {
    for (const Form& form : kForms) {
        const std::string text = form.text;
        for (size_t at = text.find(" ("); at != std::string::npos; at = text.find(" (", at + 1)) {
            const size_t value = text.find(' ', at + 1) + 1, end = text.find(')', value);
            const std::string letter = text.substr(at + 2, value - at - 3);
            for (const char* impossible : {"-1", "1e300", "1e999"}) {
                const std::string failure =
                    Read(text.substr(0, value) + impossible + text.substr(end)).failure;
                EXPECT_TRUE(failure.starts_with(letter + " is ") || failure.find(letter) != std::string::npos)
                    << letter << ": " << failure << " of " << text;
            }
        }
    }
    CVEKA_3DOJ_FLAT flat;
    flat.L = flat.W = 1;
    flat.T = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(veka::ReadLead(flat).failure, "T is not above 0");
    flat.T = 1e-7;
    EXPECT_EQ(veka::ReadLead(flat).failure, "T is too small");
}

TEST(ReadLead, SizesThatExcludeEachOtherGiveAReason) {
    const auto failure = [](const char* text) { return Read(text).failure; };
    EXPECT_EQ(failure("(GULLWING (H 1) (B 2) (W 1) (M 1) (BL 1) (T 0.1))"), "BL is not above half of B");
    EXPECT_EQ(failure("(GULLWINGA (H 0.1) (B 1) (W 1) (BL 1) (T 0.1))"), "H is not above T");
    EXPECT_EQ(failure("(DIP (H1 1) (H2 1) (T 0.2) (W1 1) (W2 1) (Z 1))"), "H1 is not above H2 by half of T");
    EXPECT_EQ(failure("(JBEND (H1 2) (H2 1) (D 0.4) (W1 1) (W2 1) (BL 1) (T 0.2))"),
              "D is not above twice T");
    EXPECT_EQ(failure("(JINVERTED (H1 2) (H2 1) (D 1) (W1 1) (W2 1) (BL 0.5) (T 0.2))"),
              "BL is not above half of D");
    EXPECT_EQ(failure("(CBEND (H 1) (L 1) (W 1) (Z 0.5))"), "H is not above twice Z");
    EXPECT_EQ(failure("(BAR (T 1))"), "H and Z are both 0");
    EXPECT_EQ(failure("(ROUNDBARB (H1 2) (H2 1) (L1 1) (L2 1.1) (L3 1) (T 0.5) (Z 1))"),
              "H1 is not above H2 by L2");
    EXPECT_EQ(failure("(KINKDIPA (H 2) (H1 2) (D 1) (T 0.5))"), "H1 is not between 0 and H");
    EXPECT_EQ(failure("(BAR (H 1) (Z 1) (T 3) (CLINCH 1) (CLINCHLENGTH 2))"),
              "Z leaves no room for the clinch");
}

TEST(ReadLead, AShoulderThatReachesBeyondTheHeelEndsAboveIt) {
    const veka::Lead lead = Read("(GULLWING (H 1) (B 0.8) (W 0.3) (M 9) (BL 1.2) (T 0.1))");
    EXPECT_EQ(lead.sweeps[0].path[1], (veka::LeadPoint{-0.4, 1}));
    EXPECT_EQ(Read("(GULLWING (H 1) (B 0.8) (W 0.3) (M 0.2) (BL 1.2) (T 0.1))").sweeps[0].path[1],
              (veka::LeadPoint{-1, 1}));
}

TEST(ReadLead, AStepHasAWidthAboveItAndAnotherBelowIt) {
    const veka::Lead lead = Read("(DIP (H1 2) (H2 0.5) (T 0.2) (W1 1.5) (W2 0.5) (Z 3))");
    ASSERT_EQ(lead.sweeps.size(), 2u);
    EXPECT_EQ(lead.sweeps[0].width, 1.5);
    EXPECT_EQ(lead.sweeps[0].path.back(), (veka::LeadPoint{0, 0.5}));
    EXPECT_EQ(lead.sweeps[1].width, 0.5);
    EXPECT_EQ(lead.sweeps[1].path.front(), (veka::LeadPoint{0, 0.5}));
    EXPECT_EQ(Read("(DIP (H1 2) (H2 0.5) (T 0.2) (W1 1) (W2 1) (Z 3))").sweeps.size(), 1u)
        << "equal widths make no step";
    EXPECT_EQ(Read(kForms[18].text).sweeps.size(), 3u) << "three widths make two steps";
}

TEST(ReadLead, AFormedRoundBarGoesSidewaysToItsPin) {
    const veka::Lead a = Read("(ROUNDBARA (H1 1.5) (H2 1) (Z 3) (L 1.2) (T 0.6))");
    EXPECT_EQ(a.sweeps[0].path, (std::vector<veka::LeadPoint>{{-1.2, 1.5}, {0, 1}, {0, -3}}));
    const veka::Lead b = Read("(ROUNDBARB (H1 3) (H2 1) (L1 0.5) (L2 1) (L3 0.75) (T 0.6) (Z 3))");
    EXPECT_EQ(b.sweeps[0].path,
              (std::vector<veka::LeadPoint>{{0.25, 3}, {0.75, 2.5}, {0.75, 1.5}, {0, 1}, {0, -3}}));
}

TEST(ReadLead, AKinkGoesAwayFromTheBodyAndBack) {
    const Bounds bounds = BoundsOf("(KINKDIP (H 3) (D 0.5) (Z 3) (T 0.4))", LeadView::Front);
    EXPECT_GT(bounds.right, 0.5);
    EXPECT_LE(bounds.right, 0.5 + 0.4);
    EXPECT_NEAR(bounds.left, -0.2, 1e-9);
}

TEST(ReadLead, AClinchBendsTheEndInItsDirection) {
    const char* bar = "(BAR (H 1) (Z 3) (T 0.5) (CLINCH 1) (CLINCHLENGTH 1.5) (CLINCHROTATE ";
    ExpectBounds(BoundsOf(bar + std::string("0))"), LeadView::Front), -0.25, -3, 1.5, 1, "ahead");
    ExpectBounds(BoundsOf(bar + std::string("90))"), LeadView::Top), -0.25, -0.25, 0.25, 1.5, "to the left");
    const veka::Lead kink =
        Read("(KINKDIP (H 3) (D 0.5) (Z 3) (T 0.4) (CLINCH 1) (CLINCHLENGTH 1.5) (CLINCHROTATE 90))");
    ASSERT_EQ(kink.sweeps.size(), 2u) << "the end has a plane of its own";
    EXPECT_LT(kink.sweeps[0].path.back().up, kink.sweeps[1].path.front().up) << "and overlaps the rest";
    EXPECT_EQ(Read("(BAR (H 1) (Z 3) (T 0.5) (CLINCH 1))").sweeps[0].path.size(), 2u)
        << "a clinch without a length is none";
    EXPECT_EQ(Read("(BAR (H 1) (Z 3) (T 0.5) (CLINCH 1) (CLINCHLENGTH 1) (CLINCHROTATE 1e999))").failure,
              "CLINCHROTATE is no number");
}

TEST(SideOutline, IsClosedAndHoldsTheMetal) {
    for (const Form& form : kForms)
        for (const veka::LeadSweep& sweep : Read(form.text).sweeps) {
            const std::vector<veka::LeadPiece> outline = veka::SideOutline(sweep);
            ASSERT_GE(outline.size(), 4u) << form.text;
            for (size_t i = 0; i < outline.size(); ++i) {
                const veka::LeadPoint &end = outline[i].end, &next = outline[(i + 1) % outline.size()].start;
                EXPECT_LT(std::hypot(end.along - next.along, end.up - next.up), 1e-9) << form.text;
            }
            double length = 0;
            for (const veka::LeadPiece& piece : veka::MiddleLine(sweep))
                length += std::hypot(piece.end.along - piece.start.along, piece.end.up - piece.start.up);
            const veka::Lead alone{{sweep}, {}, ""};
            const double area = std::fabs(Area(veka::Outlines(alone, {}, LeadView::Front).at(0)));
            EXPECT_NEAR(area, length * sweep.thickness, area * 0.15) << form.text;
        }
}

TEST(SideOutline, ABendHasTheThicknessAsItsRadius) {
    const std::vector<veka::LeadPiece> line =
        veka::MiddleLine({false, 1, 0.2, {{-2, 1}, {0, 1}, {0, -1}}, 0.2, 0});
    ASSERT_EQ(line.size(), 3u);
    EXPECT_NEAR(line[1].radius, 0.2, 1e-12);
    EXPECT_TRUE(line[1].clockwise);
    EXPECT_NEAR(line[1].center.along, -0.2, 1e-12);
    EXPECT_NEAR(line[1].center.up, 0.8, 1e-12);
}

TEST(SideOutline, ACornerWithoutRoomStaysSharp) {
    const std::vector<veka::LeadPiece> line =
        veka::MiddleLine({false, 1, 0.2, {{-0.05, 1}, {0, 1}, {0, -1}}, 0.2, 0});
    ASSERT_EQ(line.size(), 2u);
    EXPECT_EQ(line[0].end, (veka::LeadPoint{0, 1}));
    EXPECT_TRUE(veka::SideOutline({false, 1, 1, {}, 1, 0}).empty());
    EXPECT_TRUE(veka::SideOutline({false, 1, 1, {{1, 1}, {1, 1}}, 1, 0}).empty());
}

TEST(Outlines, ALeadOnItsSideIsSeenInItsTrueShapeFromAbove) {
    const auto lead = Object("(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1) (ROTATION 90 0 0))");
    const veka::Placement place = veka::PlaceOfLead(*lead, CVEKA_Coordinate(), 0);
    const auto polygons = veka::Outlines(veka::ReadLead(*lead), place, LeadView::Top);
    ASSERT_EQ(polygons.size(), 1u);
    EXPECT_GT(polygons[0].size(), 8u) << "with its bends";
    EXPECT_LT(std::fabs(Area(polygons[0])), 0.4) << "and no more than its metal";
}

TEST(Outlines, ATiltedLeadIsSeenPieceByPiece) {
    const auto lead = Object("(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1) (ROTATION 30 0 0))");
    const veka::Placement place = veka::PlaceOfLead(*lead, CVEKA_Coordinate(), 0);
    EXPECT_GT(veka::Outlines(veka::ReadLead(*lead), place, LeadView::Top).size(), 3u);
    veka::Placement nowhere;
    nowhere.rows[0][3] = INFINITY;
    EXPECT_TRUE(veka::Outlines(veka::ReadLead(*lead), nowhere, LeadView::Top).empty());
}

TEST(Outlines, AMirroredLeadPointsTheOtherWay) {
    const auto lead = Object("(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1) (MIRROR Y))");
    const veka::Placement place = veka::PlaceOfLead(*lead, CVEKA_Coordinate(), 0);
    ExpectBounds(BoundsOf("(GULLWINGA (H 1) (B 0.8) (W 0.3) (BL 1.2) (T 0.1))", LeadView::Top, place), -0.4,
                 -0.15, 1.2, 0.15, "mirrored");
}

TEST(ShapesOf, EntersUserDefinedLeadsAndDropsNulls) {
    const auto array = test::Parse(
        &CVEK_AsciiParser::ObjectsParser,
        "(X (FLAT) (USERDEFINED (MAINSHAPE (CUBOID) (SPHERE)) (LEADSHAPE (LEAD (USERDEFINED (MAINSHAPE "
        "(BALL))))) (METALMASKSHAPE (METALMASKSHAPEDATA (FILLRECT)))) (WIRE))");
    array->SetSize(array->GetSize() + 1);
    std::vector<std::string> kinds;
    for (const CVEKA_3DObject* object : veka::ShapesOf(*array))
        kinds.emplace_back(object->GetType(object->GetType()).View());
    EXPECT_EQ(kinds, (std::vector<std::string>{"FLAT", "CUBOID", "SPHERE", "BALL", "WIRE"}));
}

TEST(ShapesOf, NeedsNoStackForNestedLeads) {
    auto inner = std::make_unique<CVEKA_3DOJ_USERDEFINED>();
    inner->DrawObj->Add(std::make_unique<CVEKA_3DOJ_WIRE>());
    for (int depth = 0; depth < 200; ++depth) {
        auto outer = std::make_unique<CVEKA_3DOJ_USERDEFINED>();
        outer->DrawObj->Add(std::move(inner));
        inner = std::move(outer);
    }
    CVEKA_3DObjectArray array;
    array.Add(std::move(inner));
    EXPECT_EQ(veka::ShapesOf(array).size(), 1u);
}

}  // namespace
