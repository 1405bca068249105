#include "platform/Watch.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace {

using veka::Watch;

/// Counts how often it was asked, and ends the work at one of these times.
class CountingWatch : public Watch {
public:
    explicit CountingWatch(int endAt = 0) : m_endAt(endAt) {}
    int checks = 0;

protected:
    void Check() override {
        EXPECT_FALSE(HasEnded());
        Watch::Tick();  // sees no watch
        if (++checks == m_endAt) throw std::runtime_error("over");
    }

private:
    int m_endAt;
};

TEST(Watch, WorkThatNobodyWatchesGoesOn) {
    Watch::Tick();
    Watch::Take(1 << 20);
    Watch::Free(1 << 20);
    EXPECT_FALSE(Watch::HasEnded());
}

TEST(Watch, CountsTheMemoryThatIsTakenAndTheMostOfIt) {
    CountingWatch watch;
    const Watch::Scope scope(&watch);
    Watch::Take(100);
    Watch::Take(20);
    Watch::Free(50);
    Watch::Take(10);
    EXPECT_EQ(watch.Taken(), 80);
    EXPECT_EQ(watch.MostTaken(), 120);
    EXPECT_EQ(watch.checks, 3) << "memory that is freed ends no work";
}

TEST(Watch, WhatItRaisesEndsTheWork) {
    CountingWatch watch(2);
    const Watch::Scope scope(&watch);
    Watch::Tick();
    EXPECT_FALSE(Watch::HasEnded());
    EXPECT_THROW(Watch::Tick(), std::runtime_error);
    EXPECT_TRUE(Watch::HasEnded());
}

TEST(Watch, IsThatOfItsThreadAndOfItsScope) {
    CountingWatch outer, inner;
    const Watch::Scope scope(&outer);
    {
        const Watch::Scope innerScope(&inner);
        Watch::Tick();
        const Watch::Scope none(nullptr);
        Watch::Tick();
    }
    std::thread([] { Watch::Tick(); }).join();
    EXPECT_EQ(inner.checks, 1);
    EXPECT_EQ(outer.checks, 0);
    Watch::Tick();
    EXPECT_EQ(outer.checks, 1);
}

TEST(Watch, ALoopTicksOnceInManySteps) {
    CountingWatch watch;
    const Watch::Scope scope(&watch);
    for (std::size_t step = 1; step <= 200'000; ++step) veka::TickAtStep(step);
    EXPECT_EQ(watch.checks, 3);
}

TEST(WatchedMemory, IsCountedForAsLongAsItLives) {
    CountingWatch watch;
    const Watch::Scope scope(&watch);
    {
        veka::WatchedMemory memory;
        memory.Replace(100);
        memory.Replace(300);
        EXPECT_EQ(watch.Taken(), 300);
        EXPECT_EQ(watch.MostTaken(), 400) << "for a while there is both";
        memory.Follow(300);
        EXPECT_EQ(watch.checks, 2);
        memory.Follow(310);
        EXPECT_EQ(watch.Taken(), 310);
    }
    EXPECT_EQ(watch.Taken(), 0);
}

}  // namespace
