#include "inspect/Tree.h"

#include <gtest/gtest.h>

#include "model/CVEKA_Manager.h"
#include "model/objects/Objects.h"

namespace {

/// A tree in one line: name=value{children}.
std::string Text(const veka::TreeNode& node) {
    std::string text = node.name + "=" + node.value;
    if (node.children.empty()) return text;
    text += "{";
    for (const veka::TreeNode& child : node.children)
        text += (&child == &node.children[0] ? "" : " ") + Text(child);
    return text + "}";
}

TEST(Tree, ARecordHasItsFieldsAsChildren) {
    CVEKA_PartGeneral general;
    general.SetUnit("MM");
    general.SetCPN("A");
    general.SetCPN("B");
    general.SetNumberOfPins(8);
    general.GetBOM()->SetCost(0.5);
    EXPECT_EQ(Text(veka::Tree().Make("Part", general)),
              "Part={Unit=MM CPN=A | B NumberOfPins=8 BOM={Cost=0.5}}");
}

TEST(Tree, AnArrayHasItsSizeAndNumbersItsElements) {
    CVEKA_PartGeneral general;
    for (int i = 1; i < 3; ++i) {
        auto comment = std::make_unique<CVEKA_Comment>();
        comment->SetIndex(i);
        general.GetCommentArr()->Add(std::move(comment));
    }
    EXPECT_EQ(Text(veka::Tree().Make("Part", general)), "Part={CommentArr=2{[0]={Index=1} [1]={Index=2}}}");
}

TEST(Tree, AnElementOfAnArrayShowsItsOwnName) {
    CVEKA_Electrical electrical;
    for (const char* name : {"1", ""}) {
        auto pin = std::make_unique<CVEKA_ElectricalPin>();
        pin->SetType("IN");
        pin->SetName(name);
        electrical.GetElectricalPins()->Add(std::move(pin));
    }
    EXPECT_EQ(Text(veka::Tree().Make("Electrical", electrical)),
              "Electrical={ElectricalPins=2{[0] 1={Name=1 Type=IN} [1]={Type=IN}}}");
}

TEST(Tree, AnObjectHasItsKindAsItsName) {
    CVEKA_Pad pad;
    auto circle = std::make_unique<CVEKA_3DOJ_FILLCIRCLE>();
    circle->D = 0.5;
    pad.GetCamLayerDrawObjs()->Add(std::move(circle));
    EXPECT_EQ(Text(veka::Tree().Make("Pad", pad)), "Pad={CamLayerDrawObjs=1{FILLCIRCLE={Type=40 D=0.5}}}");
}

TEST(Tree, WhatHoldsNothingIsShownOnDemand) {
    EXPECT_EQ(Text(veka::Tree().Make("Part", CVEKA_Manager())), "Part=");
    EXPECT_EQ(Text(veka::Tree(true).Make("BOM", CVEKA_BOM())), "BOM={Unit= Cost=0}");
}

TEST(Tree, ControlBytesAreShownByTheirNumbers) {
    CVEKA_BOM bom;
    bom.SetUnit("a\n");
    EXPECT_EQ(Text(veka::Tree().Make("BOM", bom)), "BOM={Unit=a\\x0A}");
}

}  // namespace
