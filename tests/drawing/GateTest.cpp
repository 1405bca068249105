#include "drawing/Gate.h"

#include <gtest/gtest.h>

#include "drawing/Drawn.h"

namespace {

using namespace test;

const std::string kLibrary =
    "(NSHAPE LEAD (PINBODYSHAPE (LINE (PT 0 0) (PT 2 0) (LW 0.1))))"
    "(PARTITIONS (PARTITION (PARTITION BODY) (PARTITIONPINS (PARTITIONPIN 1 A (LIBPIN LEAD) (PT 1 2 0) "
    "(ROTATION 90))"
    " (PARTITIONPIN 2 B (LIBPIN NONE) (PT 3 4 0))) (BODYSHAPE (FILLCIRCLE (D 1)))) (PARTITION (PARTITION "
    "EMPTY)))";

std::string Part(const std::string& library, const std::string& pins) {
    return "(VEK (LOGICSYMBOLS (SYMBOL (SYMBOLNAME S) (PARTITION (PARTITIONNAME A) (LIBPARTITION " + library +
           ") (PARTITIONPINS " + pins + ") (BODYSHAPE (FILLCIRCLE (D 9)))))))" + kLibrary;
}

TEST(Gate, APinStandsWhereThePartitionOrElseTheLibraryHasIt) {
    const auto parser = Import(
        Part("BODY 2", "(PARTITIONPIN 1 A TRUE) (PARTITIONPIN 2 B TRUE (PT 7 8 0)) (PARTITIONPIN 3 C TRUE)"));
    const drawing::Part part(*parser->GetCVEKA_Manager());
    const CVEKA_Partition& partition = *part.DefaultSymbol()->GetPartitions()->GetAt(0);
    drawing::GateReader reader(part);
    const Gate gate = reader.Read(partition);
    ASSERT_EQ(gate.pins.size(), 3u);
    EXPECT_EQ(gate.place.Scale(), 2);
    ExpectPoint(gate.pins[0].place(Point{}), 2, 4);
    EXPECT_EQ(gate.pins[0].place.Angle(), 90);
    EXPECT_EQ(gate.pins[0].shape, part.records.PinShape("LEAD"));
    ExpectPoint(gate.pins[1].place(Point{}), 14, 16);
    EXPECT_TRUE(gate.pins[1].MissesShape());
    EXPECT_EQ(gate.pins[2].library, nullptr);
    EXPECT_FALSE(gate.pins[2].MissesShape());
    EXPECT_EQ(gate.body, gate.library->GetBodyShape());
}

TEST(Gate, ThePartitionsOwnBodyIsDrawnWhereTheLibraryHasNone) {
    for (const char* library : {"EMPTY 1", "LOST 1"}) {
        const auto parser = Import(Part(library, ""));
        const drawing::Part part(*parser->GetCVEKA_Manager());
        const CVEKA_Partition& partition = *part.DefaultSymbol()->GetPartitions()->GetAt(0);
        const Gate gate = drawing::GateReader(part).Read(partition);
        EXPECT_EQ(gate.body, partition.GetBodyShape());
        EXPECT_EQ(gate.MissesLibrary(), std::string(library) == "LOST 1");
    }
}

}  // namespace
