#include "controls/slider.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/form.h"
#include "runtime/failure.h"
#include "support/control_definitions.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::named;

class SliderRecord : public ::testing::Test {
 protected:
  SliderRecord() {
    slider.onChange = [this] { seen.push_back(slider.Value()); };
  }

  testing::ScriptedPlatform platform;
  Form form{platform, FormDefinition{"frmTest", "Test", 1000, 1000}};
  Slider slider{form, named("sldTest", ControlKind::Slider), 0, 255, 1, 5};
  std::vector<int> seen;
};

TEST_F(SliderRecord, SetByCodeRunsNothingAuthorMoveRunsTheHandler) {
  slider.SetValue(40);
  EXPECT_TRUE(seen.empty());
  slider.AuthorMove(41);
  EXPECT_EQ(seen, std::vector<int>{41});
}

TEST_F(SliderRecord, MoveToWhereItStandsRunsNothing) {
  slider.SetValue(40);
  slider.AuthorMove(40);
  EXPECT_TRUE(seen.empty());
}

TEST_F(SliderRecord, OutOfRangeIs380AndKeepsTheOldValue) {
  slider.SetValue(12);
  for (long long bad : {-1LL, 256LL}) {
    try {
      slider.SetValue(bad);
      ADD_FAILURE() << bad << " was taken";
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 380) << bad;
    }
  }
  EXPECT_EQ(slider.Value(), 12);
}

TEST_F(SliderRecord, DisabledSliderStillRunsItsHandler) {
  slider.SetEnabled(false);
  slider.AuthorMove(200);
  EXPECT_EQ(seen, std::vector<int>{200});
}

}  // namespace
}  // namespace korvane
