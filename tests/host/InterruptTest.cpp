#include "host/Interrupt.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

using host::Interrupt;

TEST(Interrupt, NotesThatCtrlCWasPressed) {
    Interrupt::Forget();
    {
        const Interrupt interrupt;
        EXPECT_FALSE(Interrupt::Happened());
        std::raise(SIGINT);
        EXPECT_TRUE(Interrupt::Happened());
    }
    EXPECT_TRUE(Interrupt::Happened());
    Interrupt::Forget();
    EXPECT_FALSE(Interrupt::Happened());
}

TEST(Interrupt, LeavesWhatCtrlCDidBefore) {
    void (*const former)(int) = std::signal(SIGINT, SIG_IGN);
    {
        const Interrupt interrupt;
        std::raise(SIGINT);
        EXPECT_FALSE(Interrupt::Happened()) << "a program that ignores it goes on doing so";
    }
    EXPECT_EQ(std::signal(SIGINT, former), SIG_IGN);
}

}  // namespace
