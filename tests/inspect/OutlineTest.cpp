#include "inspect/Outline.h"

#include <gtest/gtest.h>

#include <sstream>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"

namespace {

template <class Record>
std::string Text(const Record& record) {
    std::ostringstream out;
    veka::Outline(out).Write(record);
    return out.str();
}

TEST(Outline, WritesOneFieldALineBelowItsHeadings) {
    CVEKA_Manager part;
    CVEKA_PartGeneral& general = *part.GetVEK()->GetPartGeneral();
    general.SetUnit("MM");
    general.SetCPN("A");
    general.SetCPN("B");
    general.GetBOM()->SetCost(0.5);
    general.SetNumberOfPins(8);
    EXPECT_EQ(Text(part),
              "  VEK\n"
              "    PartGeneral\n"
              "      Unit              MM\n"
              "      CPN               A | B\n"
              "      NumberOfPins      8\n"
              "      BOM\n"
              "        Cost            0.5\n");
}

TEST(Outline, WritesTheElementsOfAnArrayUnderItsName) {
    CVEKA_PartGeneral general;
    for (int i = 1; i < 3; ++i) {
        auto comment = std::make_unique<CVEKA_Comment>();
        comment->SetIndex(i);
        general.GetCommentArr()->Add(std::move(comment));
    }
    EXPECT_EQ(Text(general),
              "  CommentArr\n    Index               1\n  CommentArr\n    Index               2\n");
}

TEST(Outline, LeavesOutWhatHoldsNothing) {
    EXPECT_EQ(Text(CVEKA_Manager()), "");
}

TEST(Outline, WritesEverythingOnDemand) {
    CVEKA_BOM bom;
    std::ostringstream out;
    veka::Outline(out, true).Write(bom);
    EXPECT_EQ(out.str(), "  Unit                  \n  Cost                  0\n");
}

TEST(Outline, WritesObjectsAsTheirOwnClass) {
    CVEKA_Pad pad;
    auto circle = std::make_unique<CVEKA_3DOJ_FILLCIRCLE>();
    circle->D = 0.5;
    pad.GetCamLayerDrawObjs()->Add(std::move(circle));
    EXPECT_EQ(Text(pad),
              "  CamLayerDrawObjs FILLCIRCLE\n    Type                40\n    D                   0.5\n");
}

TEST(Outline, ShowsControlBytesByTheirNumbers) {
    CVEKA_BOM bom;
    bom.SetUnit("a\nb\x1B");
    std::ostringstream out;
    veka::Outline(out).Write(bom);
    EXPECT_EQ(out.str(), "  Unit                  a\\x0Ab\\x1B\n");
}

}  // namespace
