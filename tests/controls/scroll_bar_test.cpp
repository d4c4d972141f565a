#include "controls/scroll_bar.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/form.h"
#include "runtime/failure.h"
#include "support/control_definitions.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::named;

// As the ColorKey bars stand: Min 255 at the top, Max 0 at the bottom.
class ScrollBarRecord : public ::testing::Test {
 protected:
  ScrollBarRecord() {
    bar.onChange = [this] { seen.push_back(bar.Value()); };
  }

  testing::ScriptedPlatform platform;
  Form form{platform, FormDefinition{"frmTest", "Test", 1000, 1000}};
  VScrollBar bar{form, named("vscrlTest", ControlKind::VScrollBar), 255, 0};
  std::vector<int> seen;
};

TEST_F(ScrollBarRecord, ReversedRangeStillTakesZeroTo255) {
  bar.SetValue(255);
  bar.SetValue(0);
  bar.SetValue(128);
  EXPECT_EQ(seen, (std::vector<int>{255, 0, 128}));
}

TEST_F(ScrollBarRecord, SameValueRunsNothing) {
  bar.SetValue(0);  // where it starts
  bar.SetValue(7);
  bar.SetValue(7);
  EXPECT_EQ(seen, std::vector<int>{7});
}

TEST_F(ScrollBarRecord, OutOfRangeIs380AndKeepsTheOldValue) {
  bar.SetValue(9);
  for (long long bad : {-1LL, 256LL, 300LL, 999LL, 70000LL}) {
    try {
      bar.SetValue(bad);
      ADD_FAILURE() << bad << " was taken";
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 380) << bad;
    }
  }
  EXPECT_EQ(bar.Value(), 9);
  EXPECT_EQ(seen, std::vector<int>{9});
}

TEST_F(ScrollBarRecord, DisabledBarStillRunsItsHandler) {
  bar.SetEnabled(false);
  bar.SetValue(3);
  EXPECT_EQ(seen, std::vector<int>{3});
}

}  // namespace
}  // namespace korvane
