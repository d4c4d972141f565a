#include "controls/check_box.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/form.h"
#include "runtime/failure.h"
#include "support/control_definitions.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::named;

class CheckBoxRecord : public ::testing::Test {
 protected:
  CheckBoxRecord() {
    box.onClick = [this] { seen.push_back(box.Value()); };
  }

  testing::ScriptedPlatform platform;
  Form form{platform, FormDefinition{"frmTest", "Test", 1000, 1000}};
  CheckBox box{form, named("chkTest", ControlKind::CheckBox)};
  std::vector<int> seen;  // the value each click handler run found
};

TEST_F(CheckBoxRecord, EveryChangeRunsTheHandlerWithTheNewValueInPlace) {
  box.SetValue(1);
  box.SetValue(2);
  box.SetValue(0);
  EXPECT_EQ(seen, (std::vector<int>{1, 2, 0}));
}

TEST_F(CheckBoxRecord, PresentValueRunsNothing) {
  box.SetValue(0);
  box.SetValue(1);
  box.SetValue(1);
  EXPECT_EQ(seen, std::vector<int>{1});
}

TEST_F(CheckBoxRecord, RefusedValueIs380AndKeepsTheOldValue) {
  box.SetValue(2);
  for (int bad : {-1, 3}) {
    try {
      box.SetValue(bad);
      ADD_FAILURE() << bad << " was taken";
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 380);
      EXPECT_EQ(failure.description(), "Invalid property value");
    }
  }
  EXPECT_EQ(box.Value(), 2);
  EXPECT_EQ(seen, std::vector<int>{2});
}

TEST_F(CheckBoxRecord, DisabledBoxStillRunsItsHandlerOnASet) {
  box.SetEnabled(false);
  box.SetValue(1);
  EXPECT_EQ(seen, std::vector<int>{1});
}

}  // namespace
}  // namespace korvane
