#include "advanced/advanced_settings_window.h"

#include <gtest/gtest.h>

#include <string>

#include "advanced/autolod.h"
#include "mainwindow/main_window.h"
#include "mainwindow/window_procedures.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

class SettingsWindow : public ::testing::Test {
 protected:
  testing::ScriptedPlatform platform;
  Program program{platform};
};

TEST_F(SettingsWindow, FirstTouchCreatesItHiddenEmptyAndCentredOnceOnTheScreen) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  EXPECT_FALSE(settings.Visible());
  EXPECT_EQ(settings.mskAutoLOD0.Text() + settings.mskAutoLOD1.Text(), "");
  EXPECT_TRUE(platform.events.empty());
  // 3135 by 2370 inside, 3225 by 2775 outside, on the screen and not on the main window.
  EXPECT_DOUBLE_EQ(settings.Left(), (28800 - 3225) / 2.0);
  EXPECT_DOUBLE_EQ(settings.Top(), (16200 - 2775) / 2.0);

  // Shown later on another screen: the same window, not placed again.
  platform.screen = {40000, 40000};
  btnAdvancedSettings_Click(program.MainWindow());
  EXPECT_EQ(&program.AdvancedSettings(), &settings);
  EXPECT_DOUBLE_EQ(settings.Left(), (28800 - 3225) / 2.0);
}

// Leaving a field must not end the program, whatever the program can put there.
TEST_F(SettingsWindow, LeavingAFieldSurvivesATextBeyondTheRealRange) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  for (MaskedEdit* field : {&settings.mskAutoLOD0, &settings.mskAutoLOD1}) {
    field->SetText("1e999");
    field->LostFocus();
    EXPECT_EQ(field->Text(), "1e999") << field->Name();
  }
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace korvane
