#include "advanced/advanced_settings_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "advanced/autolod.h"
#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

class SettingsWindow : public ::testing::Test {
 protected:
  SettingsWindow() : frm(program.MainWindow()) {
    AppTitleName = "Korvane";
    frm.Form_Load();
    platform.clearLog();
  }

  // Plays the author during the modal visit.
  void duringVisit(std::function<void(frmAdvancedSettings&)> author) {
    platform.whileModal = [author](Form& window) { author(static_cast<frmAdvancedSettings&>(window)); };
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm;
};

TEST_F(SettingsWindow, FirstTouchCreatesItHiddenCentredOnTheScreenAndEmpty) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  EXPECT_FALSE(settings.Visible());
  // 3135 by 2370 inside, 3225 by 2775 outside, on the screen and not on the main window.
  EXPECT_DOUBLE_EQ(settings.Left(), (28800 - 3225) / 2.0);
  EXPECT_DOUBLE_EQ(settings.Top(), (16200 - 2775) / 2.0);
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "");
  EXPECT_TRUE(platform.events.empty());
}

TEST_F(SettingsWindow, LoadRunsOnceSoPlacementIsNotWorkedOutAgain) {
  frmAdvancedSettings& first = program.AdvancedSettings();
  const double left = first.Left();
  platform.screen = {40000, 40000};
  btnAdvancedSettings_Click(frm);
  EXPECT_EQ(&program.AdvancedSettings(), &first);
  EXPECT_DOUBLE_EQ(first.Left(), left);
}

TEST_F(SettingsWindow, AdvancedButtonShowsItModallyAndComesBackWhenOkHidesIt) {
  frm.btnAdvancedSettings.SetEnabled(true);
  bool visibleDuringVisit = false;
  duringVisit([&](frmAdvancedSettings& settings) {
    visibleDuringVisit = settings.Visible();
    settings.OKButton.Click();
  });

  frm.btnAdvancedSettings.Click();

  EXPECT_TRUE(visibleDuringVisit);
  EXPECT_FALSE(program.AdvancedSettings().Visible());
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{"SHOW frmAdvancedSettings", "HIDE frmAdvancedSettings"}));
}

TEST_F(SettingsWindow, OkKeepsTheValuesForTheNextVisit) {
  UseDefaultAutoLOD(program);
  duringVisit([](frmAdvancedSettings& settings) {
    settings.mskAutoLOD0.SetText("0.3");
    settings.mskAutoLOD0.LostFocus();  // the click on OK takes the focus first
    settings.OKButton.Click();
  });
  btnAdvancedSettings_Click(frm);

  std::vector<std::string> seen;
  duringVisit([&](frmAdvancedSettings& settings) {
    seen = {settings.mskAutoLOD0.Text(), settings.mskAutoLOD1.Text()};
    settings.OKButton.Click();
  });
  btnAdvancedSettings_Click(frm);
  EXPECT_EQ(seen, (std::vector<std::string>{"0.300", "0.000"}));
}

TEST_F(SettingsWindow, CloseBoxHidesLikeOkAndKeepsTheValues) {
  UseDefaultAutoLOD(program);
  duringVisit([](frmAdvancedSettings& settings) { settings.Form_QueryUnload(); });
  btnAdvancedSettings_Click(frm);
  frmAdvancedSettings& settings = program.AdvancedSettings();
  EXPECT_FALSE(settings.Visible());
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
  EXPECT_EQ(platform.events.back(), "HIDE frmAdvancedSettings");
}

TEST_F(SettingsWindow, UseDefaultAfterATypedValueLeavesDefaultsAndTheWindowOpen) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  settings.SetVisible(true);
  settings.mskAutoLOD1.SetText("0.9");
  settings.mskAutoLOD1.LostFocus();
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.900");
  settings.btnUseDefault.Click();
  EXPECT_EQ(settings.mskAutoLOD0.Text(), "0.250");
  EXPECT_EQ(settings.mskAutoLOD1.Text(), "0.000");
  EXPECT_TRUE(settings.Visible());
}

struct LeaveCase {
  const char* name;
  std::string typed;
  std::string left;
};

void PrintTo(const LeaveCase& c, std::ostream* os) {
  *os << c.name;
}

class LeavingAField : public SettingsWindow, public ::testing::WithParamInterface<LeaveCase> {};

TEST_P(LeavingAField, PutsTheTextIntoItsNormalFormOrKeepsWhatCannotBeConverted) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  for (MaskedEdit* field : {&settings.mskAutoLOD0, &settings.mskAutoLOD1}) {
    field->SetText(GetParam().typed);
    field->LostFocus();
    EXPECT_EQ(field->Text(), GetParam().left) << field->Name();
  }
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Typed, LeavingAField,
                         ::testing::Values(LeaveCase{"Emptied", "", "0.000"},
                                           LeaveCase{"Rounded", "0.2506", "0.251"},
                                           LeaveCase{"Negative", "-1", "-1.000"},
                                           LeaveCase{"LongerThanSixCharacters", "100", "100.000"},
                                           LeaveCase{"BeyondTheRealRange", "1e999", "1e999"}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace korvane
