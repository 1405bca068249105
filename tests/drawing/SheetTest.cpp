#include "drawing/Sheet.h"

#include <gmock/gmock.h>

#include "drawing/Drawn.h"

namespace {

using namespace test;

TEST(Sheet, ASceneByItselfFillsTheSheet) {
    std::vector<View> views;
    views.push_back({Draw("(FILLCIRCLE (D 10) (PT 3 4))"), Side::Top, Theme::Dark});
    const Sheet sheet(std::move(views));
    EXPECT_NEAR(sheet.Width(), 11, 1e-9);
    ASSERT_EQ(sheet.Frames().size(), 1u);
    EXPECT_EQ(sheet.Frames()[0].titleHeight, 0);
    ExpectPoint(sheet.Frames()[0]({3, 4}), 5.5, 5.5);
}

TEST(Sheet, ScenesDoNotOverlap) {
    std::vector<View> views;
    for (int i = 1; i <= 12; ++i)
        views.push_back({Draw("(FILLCIRCLE (D " + std::to_string(i) + "))"), Side::Top, Theme::Dark});
    const Sheet sheet(std::move(views));
    for (const Frame& a : sheet.Frames()) {
        EXPECT_LE(a.left + a.width, sheet.Width());
        EXPECT_LE(a.top + a.height, sheet.Height());
        EXPECT_GE(a.top, 2 * a.titleHeight);
        for (const Frame& b : sheet.Frames())
            if (&a != &b) {
                EXPECT_TRUE(a.left + a.width <= b.left || b.left + b.width <= a.left ||
                            a.top + a.height <= b.top || b.top + b.height <= a.top);
            }
    }
}

TEST(Sheet, WhatIsNotSeenIsLeftOut) {
    std::vector<View> views;
    views.push_back({Draw(""), Side::Top, Theme::Dark});
    views.push_back({Draw("(FILLCIRCLE (D 1))"), Side::Bottom, Theme::Dark});
    EXPECT_TRUE(Sheet(std::move(views)).IsEmpty());
}

TEST(Frame, ANameStaysReadableFromBelow) {
    Frame frame;
    frame.mirrored = true;
    Text text;
    text.rotation = 30;
    text.align = Align::Left;
    const Text drawn = frame.Seen(text, Role::Silk), name = frame.Seen(text, Role::PinName);
    EXPECT_TRUE(drawn.mirrored);
    EXPECT_EQ(drawn.rotation, -30);
    EXPECT_FALSE(name.mirrored);
    EXPECT_EQ(name.align, Align::Right);
    text.mirrored = true;
    EXPECT_FALSE(frame.Seen(text, Role::Silk).mirrored);
}

}  // namespace
