// The control records the handler chains rest on: a value out of range is
// failure 380 that leaves the old one and runs no handler.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "controls/check_box.h"
#include "controls/form.h"
#include "controls/masked_edit.h"
#include "controls/scroll_bar.h"
#include "controls/slider.h"
#include "support/failures.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

ControlDefinition named(const char* name, ControlKind kind) {
  ControlDefinition definition;
  definition.name = name;
  definition.kind = kind;
  return definition;
}

class Records : public ::testing::Test {
 protected:
  Records() {
    box.onClick = [this] { seen.push_back("box " + std::to_string(box.Value())); };
    bar.onChange = [this] { seen.push_back("bar " + std::to_string(bar.Value())); };
    slider.onChange = [this] { seen.push_back("slider " + std::to_string(slider.Value())); };
    digits.onChange = [this] { seen.push_back("digits " + digits.Text()); };
    for (Control* control : form.Controls()) control->SetEnabled(false);
  }

  testing::ScriptedPlatform platform;
  Form form{platform, FormDefinition{"frmTest", "Test", 1000, 1000}};
  CheckBox box{form, named("chkTest", ControlKind::CheckBox)};
  // As the ColorKey bars stand: Min 255 at the top, Max 0 at the bottom.
  VScrollBar bar{form, named("vscrlTest", ControlKind::VScrollBar), 255, 0};
  Slider slider{form, named("sldTest", ControlKind::Slider), 0, 255, 1, 5};
  MaskedEdit digits{form, named("mskDigits", ControlKind::MaskedEdit), MaskedEditSettings{"###", 3, ""}};
  std::vector<std::string> seen;  // each handler run, with the value it found
};

TEST_F(Records, ValuesOutOfRangeAreFailure380AndKeepTheOldValue) {
  box.SetValue(2);
  bar.SetValue(9);
  slider.SetValue(12);
  digits.SetText("7");
  seen.clear();
  const std::vector<std::pair<std::string, std::function<void()>>> refused = {
      {"box -1", [&] { box.SetValue(-1); }},          {"box 3", [&] { box.SetValue(3); }},
      {"bar -1", [&] { bar.SetValue(-1); }},          {"bar 256", [&] { bar.SetValue(256); }},
      {"bar 70000", [&] { bar.SetValue(70000); }},    {"slider -1", [&] { slider.SetValue(-1); }},
      {"slider 256", [&] { slider.AuthorMove(256); }}};
  for (const auto& [what, set] : refused) EXPECT_EQ(testing::failureNumberOf(set), 380) << what;
  for (const char* text : {"1000", "-1", "1.5", "a", " 1"}) {
    EXPECT_EQ(testing::failureNumberOf([&] { digits.SetText(text); }), 380) << '"' << text << '"';
  }
  EXPECT_EQ(box.Value(), 2);
  EXPECT_EQ(bar.Value(), 9);
  EXPECT_EQ(slider.Value(), 12);
  EXPECT_EQ(digits.Text(), "7");
  EXPECT_EQ(seen, std::vector<std::string>{});
}

}  // namespace
}  // namespace korvane
