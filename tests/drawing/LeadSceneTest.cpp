#include "drawing/LeadScene.h"

#include <gmock/gmock.h>

#include <fstream>

#include "drawing/Drawn.h"
#include "leads/Lead.h"
#include "model/objects/LeadObjects.h"

namespace {

using namespace test;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// The drawing of one lead.
Scene DrawLead(const std::string& lead) {
    const auto array = Parse(&CVEK_AsciiParser::ObjectsParser, "(X " + lead + ")");
    return LeadScene(*array->GetAt(0));
}

TEST(LeadScene, ShowsEachLetterAtItsSize) {
    const Scene scene = DrawLead("(GULLWING (H 1.2) (B 0.8) (W 0.4) (M 0.6) (BL 1.6) (T 0.2))");
    EXPECT_THAT(Texts(scene, Role::Dimension), UnorderedElementsAre("H", "B", "W", "M", "BL", "T"));
    // Each letter has a line as long as its size.
    for (const double size : {1.2, 0.8, 0.4, 0.6, 1.6, 0.2}) {
        const std::vector<const Shape*> shapes = WithRole(scene, Role::Dimension);
        EXPECT_TRUE(std::any_of(shapes.begin(), shapes.end(), [&](const Shape* shape) {
            const auto* line = std::get_if<Line>(&shape->form);
            return line && std::abs(Distance(line->start, line->end) - size) < 1e-9;
        })) << size;
    }
}

TEST(LeadScene, TheDimensionsDoNotCoverTheLead) {
    const Scene scene = DrawLead("(ROUNDBARB (H1 4) (H2 1) (L1 0.8) (L2 1) (L3 1.2) (T 0.5) (Z 2.5))");
    Box lead;
    for (const Shape* shape : WithRole(scene, Role::Lead)) lead.Add(scene.Bounds(*shape));
    for (const Shape* shape : WithRole(scene, Role::Dimension))
        if (std::holds_alternative<Text>(shape->form)) {
            EXPECT_FALSE(lead.Contains(scene.Bounds(*shape).Center()));
        }
}

TEST(LeadScene, ALeadThatCannotBeIsARemark) {
    const Scene scene = DrawLead("(GULLWING (H -1))");
    EXPECT_TRUE(scene.IsEmpty());
    EXPECT_EQ(scene.Remarks().size(), 1u);
}

TEST(LeadScene, EveryFormHasADimensionForEachLetter) {
    CVEK_AsciiParser parser;
    parser.SetVEKAsciiFilePath(veka::FromPath(ProjectFolder("docs") / "pictures" / "leads.veka"));
    parser.Parser();
    const CVEKA_PackagePinArray& pins =
        *parser.GetCVEKA_Manager()->GetVEK()->GetPackages()->GetPackageArr()->GetAt(0)->GetPKGPins();
    EXPECT_EQ(pins.GetSize(), 22) << "all forms but the one that the import turns into another one";
    for (const CVEKA_PackagePin* pin : pins) {
        const CVEKA_3DObject& lead = *pin->Get3DObjects()->GetAt(0);
        const Scene scene = LeadScene(lead);
        const std::vector<std::string> drawn = Texts(scene, Role::Dimension);
        const veka::RecordView view = veka::View(lead);
        std::vector<std::string> letters;
        for (const veka::FieldDescription& field : view.description->fields)
            if (field.kind == veka::FieldKind::Real && std::string_view(field.name).size() <= 2)
                letters.emplace_back(field.name);
        EXPECT_THAT(drawn, testing::UnorderedElementsAreArray(letters)) << pin->GetPKGPinName().GetString();
        EXPECT_TRUE(std::filesystem::exists(ProjectFolder("docs") / "pictures" / "leads" /
                                            (std::string(pin->GetPKGPinName().View()) + ".svg")));
    }
}

}  // namespace
