#include "mainwindow/placement.h"

#include <gtest/gtest.h>

#include <ostream>

#include "controls/form.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

// A window of 8730 by 4635 twips inside; the frame adds what the case says.
struct PlacementCase {
  const char* name;
  TwipsSize screen;
  TwipsSize frame;
  double left;
  double top;
};

void PrintTo(const PlacementCase& c, std::ostream* os) {
  *os << c.name;
}

class Centring : public ::testing::TestWithParam<PlacementCase> {};

TEST_P(Centring, PlacesTheWindowOnBothAxesIndependently) {
  const PlacementCase& c = GetParam();
  testing::ScriptedPlatform platform;
  platform.screen = c.screen;
  platform.frame = c.frame;
  Form window(platform, FormDefinition{"frmTest", "Test", 8730, 4635});
  window.SetLeft(-1);
  window.SetTop(-1);

  CenterFormHorizontally(window);
  CenterFormVertically(window);

  EXPECT_DOUBLE_EQ(window.Left(), c.left);
  EXPECT_DOUBLE_EQ(window.Top(), c.top);
}

// Outer size with the usual frame: 8820 by 5040.
constexpr TwipsSize kFrame{90, 405};

INSTANTIATE_TEST_SUITE_P(
    Screens, Centring,
    ::testing::Values(
        PlacementCase{"CentredOnAFullHdScreen", {28800, 16200}, kFrame, 9990, 5580},
        PlacementCase{"OddDifferenceKeepsHalfATwip", {28801, 16201}, kFrame, 9990.5, 5580.5},
        PlacementCase{"ExactlyAsLargeAsTheScreenGoesToZero", {8820, 5040}, kFrame, 0, 0},
        PlacementCase{"LargerThanTheScreenGoesToZeroNotBelow", {8000, 4000}, kFrame, 0, 0},
        PlacementCase{"ScreenWiderThan16BitsOnlyThatAxisAtZero", {2185 * 15, 16200}, kFrame, 0, 5580},
        PlacementCase{"ScreenTallerThan16BitsOnlyThatAxisAtZero", {28800, 40000}, kFrame, 9990, 0},
        PlacementCase{"LargestScreenThatFits", {32767, 16200}, kFrame, 11973.5, 5580},
        PlacementCase{"ScreenMeasureRoundedHalfToEvenDown", {8820.5, 16200}, kFrame, 0, 5580},
        PlacementCase{"ScreenMeasureRoundedHalfToEvenUp", {8821.5, 16200}, kFrame, 1, 5580},
        // A window measure beyond 16 bits stays 0: the window is placed as if it had no size.
        PlacementCase{"WindowWiderThan16BitsCountsAsZero", {28800, 16200}, {30000, 405}, 14400, 5580},
        // Screen minus a negative measure leaves 16 bits: the difference stays 0.
        PlacementCase{"DifferenceBeyond16BitsGoesToZero", {30000, 16200}, {-18730, 405}, 0, 5580}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace korvane
