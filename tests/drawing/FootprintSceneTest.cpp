#include "drawing/FootprintScene.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <fstream>

#include "drawing/Drawn.h"

namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A part with one footprint, and its scene.
struct Drawn {
    explicit Drawn(const std::string& text)
        : parser(Import(text)),
          part(*parser->GetCVEKA_Manager()),
          footprint(*part.DefaultFootprint()),
          scene(FootprintScene(part, footprint)) {}

    const Layer& LayerOf(const Shape& shape) const { return scene.Layers()[shape.layer]; }
    std::vector<std::string> LayerNames() const {
        std::vector<std::string> names;
        for (const Layer& layer : scene.Layers()) names.push_back(layer.name);
        return names;
    }

    std::unique_ptr<CVEK_AsciiParser> parser;
    Part part;
    const CVEKA_FootprintDB& footprint;
    Scene scene;
};

const std::string kLibrary =
    "(PADS (PAD (PADNAME P) (FILLRECT (W 2) (H 1) (PT 0 0))) (PAD (PADNAME D) (FILLCIRCLE (D 0.5)))"
    " (PAD (PADNAME S) (OBLONG (W 1) (H 0.5))) (PAD (PADNAME OFF) (OFFSET 1 0) (FILLCIRCLE (D 1))) (PAD "
    "(PADNAME NIL)))"
    "(PADSTACKS (PADSTACK (PADSTACKNAME SMD) (TOP (CON P) (SOLD P) (METL P)))"
    " (PADSTACK (PADSTACKNAME TH) (DRILL (SHAPE D) (PLATING TRUE)) (TOP (CON P) (SOLD P)) (INNERSIGNAL (CON "
    "P))"
    "  (INNERPLANE (CON P)) (BOTTOM (CON P) (SOLD P)))"
    " (PADSTACK (PADSTACKNAME SLOT) (DRILL (SHAPE S)) (TOP (CON P)))"
    " (PADSTACK (PADSTACKNAME OFFSET) (TOP (CON OFF)))"
    " (PADSTACK (PADSTACKNAME LOST) (DRILL (SHAPE ROUND)) (TOP (CON NOPAD) (SOLD NOPAD) (METL NIL))))";

std::string Footprint(const std::string& content) {
    return kLibrary + "(FOOTPRINTS (FOOTPRINT (FOOTPRINTNAME F) " + content + "))";
}

TEST(FootprintScene, APadIsOnEachLayerThatItsPadstackNames) {
    const Drawn drawn(Footprint("(FPINS (FPIN 1 A1 (LIBPADSTACK SMD) (PT 3 4) (ROTATION 90)))"));
    ASSERT_EQ(drawn.scene.Shapes().size(), 4u);
    EXPECT_THAT(drawn.LayerNames(), ElementsAre("Top solder mask", "Top copper", "Top paste", "Pin names"));
    const CVEKA_FootprintPin& pin = *drawn.footprint.GetFPins()->GetAt(0);
    const CVEKA_3DObject& object = *drawn.part.records.Pad("P")->GetCamLayerDrawObjs()->GetAt(0);
    for (size_t i = 0; i < 3; ++i) {
        const Shape& shape = drawn.scene.Shapes()[i];
        ExpectBox(drawn.scene.Bounds(shape), 2.5, 3, 3.5, 5);
        EXPECT_EQ(shape.source, Source::Of(pin));
        EXPECT_EQ(shape.definition, Source::Of(object));
    }
    EXPECT_THAT(Texts(drawn.scene, Role::PinName), ElementsAre("A1"));
    EXPECT_EQ(drawn.scene.ShapesOf(Source::Of(pin)).size(), 4u);
    EXPECT_EQ(drawn.scene.ShapesOf(Source::Of(object)).size(), 3u);
    EXPECT_THAT(drawn.scene.Remarks(), IsEmpty());
}

TEST(FootprintScene, AThroughPinIsOnAllLayersAndHasAHole) {
    const Drawn drawn(Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK TH)))"));
    EXPECT_THAT(drawn.LayerNames(),
                ElementsAre("Bottom solder mask", "Bottom copper", "Inner signal", "Inner plane",
                            "Top solder mask", "Top copper", "Drill", "Pin names"));
    const std::vector<const Shape*> drills = WithRole(drawn.scene, Role::Drill);
    ASSERT_EQ(drills.size(), 1u);
    ExpectBox(drawn.scene.Bounds(*drills[0]), -0.25, -0.25, 0.25, 0.25);
    EXPECT_EQ(drawn.LayerOf(*drills[0]).side, Side::Both);
}

TEST(FootprintScene, ASlotTurnsWithItsPin) {
    const Drawn drawn(Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK SLOT) (ROTATION 90)))"));
    ExpectBox(drawn.scene.Bounds(*WithRole(drawn.scene, Role::Drill).at(0)), -0.25, -0.5, 0.25, 0.5);
}

TEST(FootprintScene, TheOffsetOfAPadTurnsWithThePin) {
    const Drawn drawn(Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK OFFSET) (PT 5 5) (ROTATION 90)))"));
    ExpectBox(drawn.scene.Bounds(*WithRole(drawn.scene, Role::Copper).at(0)), 4.5, 5.5, 5.5, 6.5);
}

TEST(FootprintScene, WhatIsMissingIsACrossWithItsName) {
    const Drawn drawn(Footprint(
        "(FPINS (FPIN 1 1 (LIBPADSTACK NOSTACK) (PT 9 0)) (FPIN 2 2 (LIBPADSTACK LOST)) (FPIN 3 3))"));
    EXPECT_THAT(Texts(drawn.scene, Role::Missing),
                ElementsAre("NOSTACK", "NOPAD, NIL, ROUND", "no padstack"));
    const std::vector<const Shape*> missing = WithRole(drawn.scene, Role::Missing);
    ASSERT_EQ(missing.size(), 9u) << "two lines and a name each";
    Box cross = drawn.scene.Bounds(*missing[0]);
    cross.Add(drawn.scene.Bounds(*missing[1]));
    ExpectPoint(cross.Center(), 9, 0);
    EXPECT_LT(cross.Width(), 1);
    EXPECT_EQ(missing[0]->source, Source::Of(*drawn.footprint.GetFPins()->GetAt(0)));
    EXPECT_THAT(Texts(drawn.scene, Role::PinName), ElementsAre("1", "2", "3"));
}

TEST(FootprintScene, TheUnitOfThePartCounts) {
    for (const auto& [unit, factor] :
         {std::pair{"MM", 1.0}, {"MIL", 0.0254}, {"inch", 25.4}, {"UM", 0.001}, {"", 1.0}}) {
        const Drawn drawn("(VEK (PARTGENERAL (UNIT \"" + std::string(unit) + "\")))" +
                          Footprint("(FPINS (FPIN 1 \"\" (LIBPADSTACK SMD) (PT 10 0)))"));
        ExpectBox(drawn.scene.Bounds(), 9 * factor, -0.5 * factor, 11 * factor, 0.5 * factor);
        EXPECT_THAT(drawn.scene.Remarks(), IsEmpty());
    }
    const Drawn unknown("(VEK (PARTGENERAL (UNIT FURLONG)))" +
                        Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK SMD)))"));
    EXPECT_THAT(unknown.scene.Remarks(),
                ElementsAre("the unit \"FURLONG\" is not known; it counts as millimetres"));
}

TEST(FootprintScene, ALayerHasTheNameAndTheColourOfThePart) {
    const Drawn drawn(
        "(VEK (LAYERS (LAY (ARN 38) (NAME \"Top Silk\") (ELAYNAME F.SilkS) (COLOR 242 237 161))"
        " (LAY (ARN 1) (NAME \"Upper metal\") (ELAYNAME F.Cu) (VISIBLE FALSE))))" +
        Footprint("(FPINS (FPIN 1 \"\" (LIBPADSTACK SMD)))"
                  "(CAMLAYERS (LAYER (ANO 38) (LNAME F.SilkS) (LINE (PT 0 0) (PT 1 0))) (LAYER (ANO 1) "
                  "(LNAME F.Cu) "
                  "(FILLCIRCLE (D 1))) (LAYER (ANO 77) (LNAME KEEPOUT) (FILLCIRCLE (D 1))))"));
    EXPECT_THAT(drawn.LayerNames(),
                ElementsAre("Top solder mask", "Upper metal", "Top paste", "KEEPOUT", "Top Silk"))
        << "pads and drawn copper are one layer";
    EXPECT_EQ(drawn.scene.Layers()[4].color, (Color{242, 237, 161}));
    EXPECT_FALSE(drawn.scene.Layers()[1].color.has_value()) << "a layer without a colour";
    EXPECT_FALSE(drawn.scene.Layers()[1].shown);
    EXPECT_EQ(drawn.scene.Layers()[3].role, Role::KeepOut);
    EXPECT_EQ(drawn.scene.Layers()[3].side, Side::Both);
}

TEST(FootprintScene, DrawnObjectsAreTheirOwnSources) {
    const Drawn drawn(
        Footprint("(CAMLAYERS (LAYER (LNAME SILKTOP) (LINE (PT 0 0) (PT 1 0)) (CIRCLE (D 1))))"));
    const CVEKA_3DObjectArray& objects = *drawn.footprint.GetCAMLayers()->GetAt(0)->GetCamLayerDrawObjs();
    ASSERT_EQ(drawn.scene.Shapes().size(), 2u);
    EXPECT_EQ(drawn.scene.Shapes()[0].source, Source::Of(*objects.GetAt(0)));
    EXPECT_EQ(drawn.scene.Shapes()[1].source, Source::Of(*objects.GetAt(1)));
    EXPECT_FALSE(drawn.scene.Shapes()[0].definition);
}

TEST(FootprintScene, ANameIsAsLargeAsItsPadHasRoomFor) {
    const Drawn drawn(
        Footprint("(FPINS (FPIN 1 LONGNAME (LIBPADSTACK SMD)) (FPIN 2 LONGNAME (LIBPADSTACK SMD) (PT 0 9) "
                  "(ROTATION 90)))"));
    for (const Shape* shape : WithRole(drawn.scene, Role::PinName)) {
        const Box text = drawn.scene.Bounds(*shape);
        const Box pad = drawn.scene.Bounds(
            *WithRole(drawn.scene, Role::Copper)
                 .at(shape->source == Source::Of(*drawn.footprint.GetFPins()->GetAt(0)) ? 0 : 1));
        EXPECT_TRUE(pad.Contains({text.left, text.bottom}) && pad.Contains({text.right, text.top}));
    }
}

TEST(FootprintScene, ManyPinsAreDrawnInAMoment) {
    std::string pins;
    for (int i = 0; i < 20000; ++i) pins += "(FPIN 1 A (LIBPADSTACK SMD)(PT " + std::to_string(i) + " 0))";
    const Drawn drawn(Footprint("(FPINS " + pins + ")"));
    EXPECT_EQ(drawn.scene.Shapes().size(), 80000u);
}

/// A footprint of many pins, which all have one pad of many discs.
std::unique_ptr<CVEK_AsciiParser> ManyPinsOfManyDiscs(const std::string& diameter) {
    std::string discs, pins;
    for (int i = 0; i < 3000; ++i) discs += "(FILLCIRCLE(D " + diameter + "))";
    for (int i = 0; i < 3000; ++i) pins += "(FPIN 1 A(LIBPADSTACK B))";
    return Import("(PADS(PAD(PADNAME B)" + discs +
                  "))(PADSTACKS(PADSTACK(PADSTACKNAME B)(TOP(CON B))))(FOOTPRINTS(FOOTPRINT(FPINS" + pins +
                  ")))");
}

TEST(FootprintScene, ADrawingThatIsTooLargeIsOneSentence) {
    const auto parser = ManyPinsOfManyDiscs("1");
    const Part part(*parser->GetCVEKA_Manager());
    try {
        FootprintScene(part, *part.DefaultFootprint());
        FAIL();
    } catch (const TooLarge& error) {
        EXPECT_STREQ(error.what(), "the drawing has more than 4000000 shapes and corners");
    }
}

TEST(FootprintScene, WhatIsNeverDrawnCountsToo) {
    const auto parser = ManyPinsOfManyDiscs("-1");
    const Part part(*parser->GetCVEKA_Manager());
    EXPECT_THROW(FootprintScene(part, *part.DefaultFootprint()), TooLarge);
}

TEST(FootprintScene, ALongNameOfAMissingPadIsCutAndCostsItsLengthOnce) {
    const std::string name(1'000'000, 'N');
    std::string pins;
    for (int i = 0; i < 10000; ++i) pins += "(FPIN 1 A(LIBPADSTACK B))";
    const auto parser = Import("(PADSTACKS(PADSTACK(PADSTACKNAME B)(TOP(CON " + name +
                               "))))(FOOTPRINTS(FOOTPRINT(FPINS" + pins + ")))");
    const Part part(*parser->GetCVEKA_Manager());
    const Scene scene = FootprintScene(part, *part.DefaultFootprint());
    EXPECT_EQ(Texts(scene, Role::Missing).at(0).size(), 100u);
}

TEST(PadStackScene, ShowsTheLayersOneBelowAnother) {
    const Drawn drawn(Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK TH)))"));
    const Scene scene = PadStackScene(drawn.part, *drawn.part.records.PadStack("TH"));
    EXPECT_THAT(scene.Remarks(), IsEmpty());
    const std::vector<const Shape*> copper = WithRole(scene, Role::Copper);
    ASSERT_EQ(copper.size(), 4u);
    std::vector<double> heights;
    for (const Shape* shape : copper) {
        EXPECT_NEAR(scene.Bounds(*shape).Width(), 2, 1e-9);
        heights.push_back(scene.Bounds(*shape).Center().y);
    }
    std::sort(heights.begin(), heights.end());
    for (size_t i = 1; i < 4; ++i) EXPECT_GT(heights[i] - heights[i - 1], 1) << "they do not overlap";
    EXPECT_THAT(Texts(scene, Role::Label),
                testing::IsSupersetOf({"Top", "Inner signal", "Inner plane", "Bottom", "Drill, plated",
                                       "connected", "solder mask", "P", "D"}));
    EXPECT_EQ(copper[0]->source, Source::Of(*drawn.part.records.PadStack("TH")));
}

TEST(PadStackScene, AMissingPadIsACross) {
    const Drawn drawn(Footprint(""));
    const Scene scene = PadStackScene(drawn.part, *drawn.part.records.PadStack("LOST"));
    EXPECT_THAT(Texts(scene, Role::Missing), UnorderedElementsAre("NOPAD", "NOPAD", "NIL", "ROUND"));
}

TEST(PadStacksOf, ListsEachPadstackOnce) {
    const Drawn drawn(
        Footprint("(FPINS (FPIN 1 1 (LIBPADSTACK TH)) (FPIN 2 2 (LIBPADSTACK SMD)) (FPIN 3 3 (LIBPADSTACK "
                  "TH)) (FPIN 4 4 (LIBPADSTACK NO)))"));
    EXPECT_THAT(PadStacksOf(drawn.part, drawn.footprint),
                ElementsAre(drawn.part.records.PadStack("TH"), drawn.part.records.PadStack("SMD")));
}

/// The points of the model that a footprint's shapes may not leave: the ends of its lines and arcs and the
/// corners of its pads, roughly, by a walk of its own over the records.
Box RoughExtents(const Part& part, const CVEKA_FootprintDB& footprint) {
    Box box;
    const auto reach = [&](const CVEKA_3DObjectArray& objects) {
        // How far a pad can reach from its pin.
        double far = 0;
        const std::function<void(const CVEKA_3DObjectArray&)> walk = [&](const CVEKA_3DObjectArray& list) {
            for (const CVEKA_3DObject* object : list) {
                const veka::RecordView view = veka::View(*object);
                double size = 0, place = 0;
                for (const veka::FieldDescription& field : view.description->fields) {
                    if (field.kind == veka::FieldKind::Real && std::string(field.name) != "ROTATION")
                        size = std::max(size, std::fabs(field.Real(view.record)));
                    if (field.kind == veka::FieldKind::Record && std::string(field.name) != "Color") {
                        const auto* point =
                            static_cast<const CVEKA_Coordinate*>(field.Content(view.record).record);
                        place = std::max({place, std::hypot(point->GetX(), point->GetY())});
                    }
                    if (field.kind == veka::FieldKind::Array)
                        walk(*static_cast<const CVEKA_3DObjectArray*>(field.Content(view.record).record));
                }
                far = std::max(far, place + size * 1.5);
            }
        };
        walk(objects);
        return far;
    };
    for (const CVEKA_FootprintPin* pin : *footprint.GetFPins()) {
        double far = 0;
        const CVEKA_PadStack* stack = part.records.PadStack(pin->GetLibPadstackName().View());
        const auto take = [&](const CString& name) {
            if (const CVEKA_Pad* pad = part.records.Pad(name.View()))
                far = std::max(far, reach(*pad->GetCamLayerDrawObjs()) +
                                        std::hypot(pad->GetOffsetX(), pad->GetOffsetY()));
        };
        if (stack)
            for (const auto* info :
                 {stack->GetTop(), stack->GetInnerSignal(), stack->GetInnerPlane(), stack->GetBottom()})
                for (const CString& name : {info->GetCon(), info->GetSolder(), info->GetMetal()}) take(name);
        if (stack) take(stack->GetDrill_ShapeName());
        box.Add(Point{pin->GetPoint()->GetX(), pin->GetPoint()->GetY()}, far);
    }
    for (const CVEKA_CAMLayer* layer : *footprint.GetCAMLayers()) {
        double far = reach(*layer->GetCamLayerDrawObjs());
        box.Add(Point{}, far);
    }
    return box;
}

TEST(FootprintScene, EveryPadOfARealPartIsThereOnceAndAtItsPlace) {
    VEKA_NEEDS_CORPUS();
    ForEachRealPart([](const Part& part, const std::filesystem::path&) {
        const CVEKA_FootprintDB& footprint = *part.DefaultFootprint();
        const Scene scene = FootprintScene(part, footprint);
        EXPECT_THAT(scene.Remarks(), IsEmpty());
        EXPECT_THAT(Texts(scene, Role::Missing), IsEmpty()) << "everything that a real part names is there";

        // How often each pin's pads are drawn, by layer, and where.
        std::map<std::pair<const void*, std::string>, int> drawn;
        std::map<const void*, Box> boxes;
        std::map<const void*, std::vector<std::string>> names;
        for (const Shape& shape : scene.Shapes()) {
            if (*shape.source.type != typeid(CVEKA_FootprintPin)) continue;
            if (shape.role == Role::PinName) {
                names[shape.source.record].push_back(scene.String(std::get<Text>(shape.form)));
                continue;
            }
            ++drawn[{shape.source.record, scene.Layers()[shape.layer].name}];
            boxes[shape.source.record].Add(scene.Bounds(shape));
        }
        size_t expected = 0, found = 0;
        for (const auto& [key, count] : drawn) found += static_cast<size_t>(count);
        for (const CVEKA_FootprintPin* pin : *footprint.GetFPins()) {
            const CVEKA_PadStack* stack = part.records.PadStack(pin->GetLibPadstackName().View());
            ASSERT_NE(stack, nullptr);
            const auto count = [&](const CString& name) {
                if (name.IsEmpty()) return;
                // A pad whose objects are a group is as many shapes as the group has.
                size_t shapes = 0;
                for (const CVEKA_3DObject* object : *part.records.Pad(name.View())->GetCamLayerDrawObjs()) {
                    const auto* group = dynamic_cast<const CVEKA_3DOJ_COMPOSITE*>(object);
                    shapes += group ? static_cast<size_t>(group->Elements->GetSize()) : 1;
                }
                expected += shapes;
            };
            for (const auto* info :
                 {stack->GetTop(), stack->GetInnerSignal(), stack->GetInnerPlane(), stack->GetBottom()})
                for (const CString& name : {info->GetCon(), info->GetSolder(), info->GetMetal()}) count(name);
            count(stack->GetDrill_ShapeName());
            const Point at{pin->GetPoint()->GetX(), pin->GetPoint()->GetY()};
            EXPECT_TRUE(boxes[pin].Grown(3).Contains(at)) << pin->GetPinName().GetString();
            std::vector<std::string> name;
            if (!pin->GetPinName().IsEmpty()) name.emplace_back(pin->GetPinName().View());
            EXPECT_EQ(names[pin], name);
        }
        EXPECT_EQ(found, expected);

        Box shapes;
        for (const Shape& shape : scene.Shapes())
            if (!std::holds_alternative<Text>(shape.form)) shapes.Add(scene.Bounds(shape));
        const Box extents = RoughExtents(part, footprint);
        EXPECT_TRUE(extents.Contains({shapes.left, shapes.bottom}) &&
                    extents.Contains({shapes.right, shapes.top}))
            << "nothing lies outside of what the file says";
    });
}

}  // namespace
