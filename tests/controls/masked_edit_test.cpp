#include "controls/masked_edit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/form.h"
#include "runtime/failure.h"
#include "support/control_definitions.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

using testing::named;

class MaskedEditRecord : public ::testing::Test {
 protected:
  MaskedEditRecord() {
    digits.onChange = [this] { seen.push_back(digits.Text()); };
  }

  testing::ScriptedPlatform platform;
  Form form{platform, FormDefinition{"frmTest", "Test", 1000, 1000}};
  MaskedEdit digits{form, named("mskDigits", ControlKind::MaskedEdit), MaskedEditSettings{"###", 3, ""}};
  MaskedEdit free{form, named("mskFree", ControlKind::MaskedEdit), MaskedEditSettings{"", 6, "0.000"}};
  std::vector<std::string> seen;
};

TEST_F(MaskedEditRecord, ChangeRunsTheHandlerInsideTheSet) {
  std::vector<std::string> order;
  digits.onChange = [&] { order.push_back("handler saw " + digits.Text()); };
  digits.SetText("12");
  order.push_back("after the set");
  EXPECT_EQ(order, (std::vector<std::string>{"handler saw 12", "after the set"}));
}

TEST_F(MaskedEditRecord, SameTextRunsNothing) {
  digits.SetText("5");
  digits.SetText("5");
  digits.SetText("");
  digits.SetText("");
  EXPECT_EQ(seen, (std::vector<std::string>{"5", ""}));
}

TEST_F(MaskedEditRecord, DigitMaskRefusesAnythingButUpToThreeDigits) {
  digits.SetText("7");
  for (const std::string bad : {"1000", "-1", "1.5", "a", " 1", "1 "}) {
    try {
      digits.SetText(bad);
      ADD_FAILURE() << '"' << bad << "\" was taken";
    } catch (const RuntimeFailure& failure) {
      EXPECT_EQ(failure.number(), 380) << bad;
    }
  }
  EXPECT_EQ(digits.Text(), "7");
  EXPECT_EQ(seen, std::vector<std::string>{"7"});
}

TEST_F(MaskedEditRecord, WithoutMaskTheProgramMaySetLongerTextsThanTyping) {
  free.SetText("1234567.000");
  EXPECT_EQ(free.Text(), "1234567.000");
  EXPECT_TRUE(free.AcceptsTyped("abc.de"));
  EXPECT_FALSE(free.AcceptsTyped("0.12345"));
  EXPECT_TRUE(digits.AcceptsTyped("007"));
  EXPECT_FALSE(digits.AcceptsTyped("1a"));
}

TEST_F(MaskedEditRecord, DisabledFieldStillRunsItsHandler) {
  digits.SetEnabled(false);
  digits.SetText("9");
  EXPECT_EQ(seen, std::vector<std::string>{"9"});
}

}  // namespace
}  // namespace korvane
