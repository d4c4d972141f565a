#include "desktop/placement.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

constexpr TwipsSize kFrame{90, 405};

// A window of 8730 by 4635 twips inside, 8820 by 5040 outside with the usual
// frame. Each axis is worked out by itself, in 16-bit twips; a measure that
// does not fit stays 0, and a window that does not fit goes to 0, never below.
const struct {
  const char* name;
  TwipsSize screen;
  TwipsSize frame;
  double left;
  double top;
} kCases[] = {
    {"CentredOnAFullHdScreen", {28800, 16200}, kFrame, 9990, 5580},
    {"OddDifferenceKeepsHalfATwip", {28801, 16201}, kFrame, 9990.5, 5580.5},
    {"LargerThanTheScreen", {8000, 4000}, kFrame, 0, 0},
    {"ScreenWiderThan16Bits", {2185 * 15, 16200}, kFrame, 0, 5580},
    {"LargestScreenThatFits", {32767, 16200}, kFrame, 11973.5, 5580},
    {"ScreenRoundedHalfToEvenDown", {8820.5, 16200}, kFrame, 0, 5580},
    {"ScreenRoundedHalfToEvenUp", {8821.5, 16200}, kFrame, 1, 5580},
    {"WindowWiderThan16BitsCountsAsZero", {28800, 16200}, {30000, 405}, 14400, 5580},
    {"DifferenceBeyond16BitsStaysZero", {30000, 16200}, {-18730, 405}, 0, 5580},
};

TEST(Centring, PlacesTheWindowOnEachAxisByItself) {
  for (const auto& c : kCases) {
    testing::ScriptedPlatform platform;
    platform.screen = c.screen;
    platform.frame = c.frame;
    Form window(platform, FormDefinition{"frmTest", "Test", 8730, 4635});
    window.SetLeft(-1);
    window.SetTop(-1);
    CenterFormHorizontally(window);
    CenterFormVertically(window);
    EXPECT_DOUBLE_EQ(window.Left(), c.left) << c.name;
    EXPECT_DOUBLE_EQ(window.Top(), c.top) << c.name;
  }
}

TEST(Centring, TheMainWindowIsCentredWhenItLoads) {
  testing::ScriptedPlatform platform;
  Program program{platform};
  program.Main();
  EXPECT_DOUBLE_EQ(program.MainWindow().Left(), 9990);
  EXPECT_DOUBLE_EQ(program.MainWindow().Top(), 5580);
}

}  // namespace
}  // namespace korvane
