#include "drawing/SymbolScene.h"

#include <gmock/gmock.h>

#include "drawing/Drawn.h"

namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct Drawn {
    explicit Drawn(const std::string& text)
        : parser(Import(text)),
          part(*parser->GetCVEKA_Manager()),
          symbol(*part.DefaultSymbol()),
          scene(SymbolScene(part, symbol)) {}

    std::unique_ptr<CVEK_AsciiParser> parser;
    Part part;
    const CVEKA_Symbol& symbol;
    Scene scene;
};

std::string Symbol(const std::string& partitions, const std::string& library = "") {
    return "(VEK (LOGICSYMBOLS (SYMBOL (SYMBOLNAME S) " + partitions + ")))" + library;
}

const std::string kLibrary =
    "(NSHAPE IN (PINBODYSHAPE (LINE (PT 0 0) (PT 2 0) (LW 0.1))) (PINCONNSHAPE NET 0.5 (PT 0 0)))"
    "(NSHAPE NC (PINBODYSHAPE (LINE (PT 0 0) (PT 2 0))) (PINCONNSHAPE CROSS 0.5 (PT 0 0)))"
    "(PARTITIONS (PARTITION (PARTITION LIB) (PARTITIONPINS (PARTITIONPIN 1 A (LIBPIN IN) (PT -5 1)) "
    "(PARTITIONPIN 2 B "
    "(LIBPIN IN) (PT 5 1) (ROTATION 180)) (PARTITIONPIN 3 C (LIBPIN LOST) (PT 0 -5) (ROTATION 90))) "
    "(BODYSHAPE "
    "(RECTANGLE (W 6) (H 6) (LW 0.2)))))";

TEST(SymbolScene, AGateIsItsBodyAndItsPins) {
    const Drawn drawn(
        Symbol("(PARTITION (PARTITIONNAME G) (LIBPARTITION LIB 1) (PARTITIONPINS (PARTITIONPIN 11 A TRUE) "
               "(PARTITIONPIN 12 B TRUE (PT 5 2) (ROTATION 180))))",
               kLibrary));
    EXPECT_EQ(WithRole(drawn.scene, Role::Body).size(), 1u);
    EXPECT_THAT(Texts(drawn.scene, Role::PinName), ElementsAre("A", "B"));
    EXPECT_THAT(Texts(drawn.scene, Role::PinNumber), ElementsAre("11", "12"));
    const std::vector<const Shape*> pins = WithRole(drawn.scene, Role::Pin);
    ASSERT_EQ(pins.size(), 4u) << "a line and the mark of its connection each";
    // Where the partition has no place for a pin, it is that of the library.
    const Point shift{drawn.scene.Bounds(*WithRole(drawn.scene, Role::Body)[0]).Center()};
    ExpectPoint(std::get<Line>(pins[0]->form).start - shift, -5, 1);
    ExpectPoint(std::get<Line>(pins[0]->form).end - shift, -3, 1);
    ExpectPoint(std::get<Line>(pins[2]->form).start - shift, 5, 2);
    ExpectPoint(std::get<Line>(pins[2]->form).end - shift, 3, 2);
    EXPECT_EQ(pins[2]->source, Source::Of(*drawn.symbol.GetPartitions()->GetAt(0)->GetPins()->GetAt(1)));
    EXPECT_THAT(drawn.scene.Remarks(), IsEmpty());
    EXPECT_THAT(Texts(drawn.scene, Role::Label), IsEmpty()) << "one gate has no title";
}

TEST(SymbolScene, NamesBeginBehindThePinAndStandUpright) {
    const Drawn drawn(
        Symbol("(PARTITION (LIBPARTITION LIB 1) (PARTITIONPINS (PARTITIONPIN 1 A TRUE (PT -5 1)) "
               "(PARTITIONPIN 2 B TRUE (PT 5 1) (ROTATION 180))))",
               kLibrary));
    const std::vector<const Shape*> names = WithRole(drawn.scene, Role::PinName);
    const auto &left = std::get<Text>(names.at(0)->form), &right = std::get<Text>(names.at(1)->form);
    EXPECT_EQ(left.align, Align::Left);
    EXPECT_EQ(right.align, Align::Right);
    EXPECT_EQ(left.rotation, 0);
    EXPECT_EQ(right.rotation, 0) << "the pin is turned by half a turn, and its name is not";
    EXPECT_LT(left.at.x, right.at.x);
    const std::vector<const Shape*> numbers = WithRole(drawn.scene, Role::PinNumber);
    for (const Shape* shape : numbers)
        EXPECT_GT(std::get<Text>(shape->form).at.y, left.at.y) << "above the pin";
}

TEST(SymbolScene, TheScaleOfALibraryPartitionCounts) {
    const Drawn drawn(Symbol("(PARTITION (LIBPARTITION LIB 2))", kLibrary));
    EXPECT_NEAR(drawn.scene.Bounds().Width(), 12.4, 1e-9);
    const Drawn none(Symbol("(PARTITION (LIBPARTITION LIB 0))", kLibrary));
    EXPECT_NEAR(none.scene.Bounds().Width(), 6.2, 1e-9) << "a scale of 0 is none";
}

TEST(SymbolScene, WhatIsMissingIsACrossWithItsName) {
    const Drawn drawn(
        Symbol("(PARTITION (LIBPARTITION NOLIB 1) (PARTITIONPINS (PARTITIONPIN 1 A TRUE)))"
               "(PARTITION (LIBPARTITION LIB 1) (PARTITIONPINS (PARTITIONPIN 1 A) (PARTITIONPIN 2 B) "
               "(PARTITIONPIN 3 C)))",
               kLibrary));
    EXPECT_THAT(Texts(drawn.scene, Role::Missing), ElementsAre("NOLIB", "LOST"));
    EXPECT_THAT(Texts(drawn.scene, Role::PinNumber), ElementsAre("1", "1", "2", "3"));
}

TEST(SymbolScene, APartitionWithoutALibraryDrawsItself) {
    const Drawn drawn(
        Symbol("(PARTITION (PARTITIONPINS (PARTITIONPIN 1 A TRUE (PT 3 0) (CIRCLE (PT 3 0) (D 1)))) "
               "(BODYSHAPE (CIRCLE (D 4))))"));
    EXPECT_EQ(WithRole(drawn.scene, Role::Body).size(), 1u);
    EXPECT_EQ(WithRole(drawn.scene, Role::Pin).size(), 1u);
    EXPECT_THAT(Texts(drawn.scene, Role::Missing), IsEmpty());
}

TEST(SymbolScene, GatesStandSideBySideWithTheirNames) {
    const Drawn drawn(
        Symbol("(PARTITION (PARTITIONNAME A) (LIBPARTITION LIB 1)) (PARTITION (PARTITIONNAME B) "
               "(LIBPARTITION LIB 1))",
               kLibrary));
    const std::vector<const Shape*> bodies = WithRole(drawn.scene, Role::Body);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_GT(drawn.scene.Bounds(*bodies[1]).left, drawn.scene.Bounds(*bodies[0]).right);
    EXPECT_THAT(Texts(drawn.scene, Role::Label), ElementsAre("A", "B"));
    const Scene gate = GateScene(drawn.part, *drawn.symbol.GetPartitions()->GetAt(1));
    EXPECT_EQ(gate.Title(), "Gate B");
    EXPECT_EQ(WithRole(gate, Role::Body).size(), 1u);
}

TEST(SymbolScene, AConnectionMarkedByACrossIsACross) {
    const Drawn drawn(
        Symbol("(PARTITION (LIBPARTITION X 1) (PARTITIONPINS (PARTITIONPIN 1 A)))",
               kLibrary + "(PARTITIONS (PARTITION (PARTITION X) (PARTITIONPINS (PARTITIONPIN 1 A (LIBPIN "
                          "NC)))))"));
    EXPECT_EQ(WithRole(drawn.scene, Role::Pin).size(), 3u);
}

TEST(SymbolScene, ALabelThatIsNotVisibleIsOnAHiddenLayer) {
    const auto parser = Import(Symbol("(PARTITION (PARTITIONNAME A))"));
    CVEKA_Partition& partition = *parser->GetCVEKA_Manager()
                                      ->GetVEK()
                                      ->GetLogicSymbols()
                                      ->GetSymbol()
                                      ->GetAt(0)
                                      ->GetPartitions()
                                      ->GetAt(0);
    for (const bool visible : {true, false}) {
        auto label = std::make_unique<CVEKA_PropertyLabel>();
        label->SetProperty(visible ? "REFDES" : "VALUE");
        label->SetVisible(visible);
        partition.GetPropertyLabels()->Add(std::move(label));
    }
    const Part part(*parser->GetCVEKA_Manager());
    const Scene scene = GateScene(part, partition);
    ASSERT_EQ(scene.Shapes().size(), 2u);
    EXPECT_TRUE(scene.Layers()[scene.Shapes()[0].layer].shown);
    EXPECT_FALSE(scene.Layers()[scene.Shapes()[1].layer].shown);
    EXPECT_THAT(Texts(scene, Role::Label), ElementsAre("REFDES", "VALUE"));
}

TEST(SymbolScene, EveryPinOfARealPartHasItsNameAndItsNumber) {
    VEKA_NEEDS_CORPUS();
    ForEachRealPart([](const Part& part, const std::filesystem::path&) {
        const CVEKA_Symbol& symbol = *part.DefaultSymbol();
        const Scene scene = SymbolScene(part, symbol);
        EXPECT_THAT(scene.Remarks(), IsEmpty());
        EXPECT_THAT(Texts(scene, Role::Missing), IsEmpty());
        std::vector<std::string> names, numbers;
        for (const CVEKA_Partition* partition : *symbol.GetPartitions()) {
            const Scene gate = GateScene(part, *partition);
            for (const CVEKA_PartitionPin* pin : *partition->GetPins()) {
                if (!pin->GetGatePinName().IsEmpty()) names.emplace_back(pin->GetGatePinName().View());
                if (!pin->GetPinName().IsEmpty()) numbers.emplace_back(pin->GetPinName().View());
                // The place where a net attaches is the pin's point.
                const Point at{pin->GetPoint()->GetX(), pin->GetPoint()->GetY()};
                bool attached = false;
                for (const size_t index : gate.ShapesOf(Source::Of(*pin)))
                    attached = attached || gate.Distance(gate.Shapes()[index], at) < 1;
                EXPECT_TRUE(attached) << pin->GetPinName().GetString();
            }
        }
        EXPECT_EQ(Texts(scene, Role::PinName), names);
        EXPECT_EQ(Texts(scene, Role::PinNumber), numbers);
    });
}

TEST(SymbolScene, ALibraryPartitionThatManyGatesUseIsLookedUpOnce) {
    std::string gates, pins;
    for (int i = 0; i < 20000; ++i) gates += "(PARTITION(LIBPARTITION L 1))";
    for (int i = 0; i < 20000; ++i) pins += "(PARTITIONPIN 1 A)";
    const auto parser =
        Import(Symbol(gates, "(PARTITIONS(PARTITION(PARTITION L)(PARTITIONPINS" + pins + ")))"));
    const Part part(*parser->GetCVEKA_Manager());
    EXPECT_TRUE(SymbolScene(part, *part.DefaultSymbol()).IsEmpty());
}

}  // namespace
