#include "host/ProgressLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using host::ProgressText;
using std::chrono::milliseconds;

TEST(ProgressLine, TellsCountSpeedTimeLeftAndTheCurrentPart) {
    EXPECT_EQ(ProgressText(250, 1000, milliseconds(500), "BME280"),
              "250/1000  500 parts/s  2 s left  BME280");
    EXPECT_EQ(ProgressText(1, 1000, milliseconds(1000), "A"), "1/1000  1 parts/s  16 min 39 s left  A");
    EXPECT_EQ(ProgressText(1, 10'001, milliseconds(1000), "A"), "1/10001  1 parts/s  2 h 46 min left  A");
}

TEST(ProgressLine, TellsNoSpeedBeforeThereIsOne) {
    EXPECT_EQ(ProgressText(0, 3, milliseconds(0), "A"), "0/3  A");
    EXPECT_EQ(ProgressText(0, 3, milliseconds(700), ""), "0/3  ");
    EXPECT_EQ(ProgressText(3, 3, milliseconds(0), "A"), "3/3  A");
}

TEST(ProgressLine, FitsIntoALineWhateverTheNameIs) {
    EXPECT_EQ(ProgressText(1, 2, milliseconds(1000), std::string(5000, 'x')).size(), 79u);
    std::string wide;
    for (int i = 0; i < 200; ++i) wide += "\xC3\xA4";
    const std::string text = ProgressText(1, 2, milliseconds(1000), wide);
    EXPECT_EQ(text.back(), '\xA4') << "no character is cut";
    EXPECT_EQ(ProgressText(0, 1, milliseconds(0), "\x1B[2J"), "0/1  \\x1B[2J");
}

TEST(ProgressLine, IsWrittenOverAndRemoved) {
    std::ostringstream terminal;
    host::ProgressLine line(terminal);
    line.Clear();
    EXPECT_EQ(terminal.str(), "") << "there was no line";
    line.Show(0, 2, "A");
    EXPECT_THAT(terminal.str(), testing::AllOf(testing::StartsWith("\r0/2"), testing::EndsWith("A\x1B[K")));
    const std::string before = terminal.str();
    line.Show(1, 2, "B");
    EXPECT_EQ(terminal.str(), before) << "too soon";
    line.Clear();
    EXPECT_EQ(terminal.str(), before + "\r\x1B[K");
    line.Show(1, 2, "B");
    EXPECT_THAT(terminal.str(), testing::EndsWith("B\x1B[K"));
}

}  // namespace
