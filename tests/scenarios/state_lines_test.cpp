#include "scenario/state_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane::scenario {
namespace {

class StateLines : public ::testing::Test {
 protected:
  StateLines() { AppTitleName = "Korvane"; }

  std::string line(const Control& control) { return printLine(control.Name(), printedProperties(control)); }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

TEST_F(StateLines, EachKindHasItsForm) {
  frm.btnSaveAs.SetEnabled(true);
  frm.chkAddLOD1.SetValue(2);
  frm.txtTextureMap.SetText("wood.tga");
  frm.lblLODnum.SetCaption("2");
  frm.lstDataLOD0.Store().AddItem("[Object]");
  frm.lstDataLOD0.Store().AddItem("Name=Barrel");
  EXPECT_EQ(line(frm.btnSaveAs), "btnSaveAs Enabled=1");
  EXPECT_EQ(line(frm.Frame2), "Frame2 Enabled=0");
  EXPECT_EQ(line(frm.chkAddLOD1), "chkAddLOD1 Value=2 Enabled=0");
  EXPECT_EQ(line(frm.txtTextureMap), "txtTextureMap Text=wood.tga Enabled=0");
  EXPECT_EQ(line(frm.lblLODnum), "lblLODnum Caption=2 Enabled=0");
  EXPECT_EQ(line(frm.lstDataLOD0), "lstDataLOD0 ListCount=2");
}

TEST_F(StateLines, ScrollBarSliderAndFieldShowTheirValuesAfterFormLoad) {
  frm.Form_Load();
  EXPECT_EQ(line(frm.vscrlColorKey1), "vscrlColorKey1 Value=128 Enabled=0");
  EXPECT_EQ(line(frm.sldColorKey2), "sldColorKey2 Value=128 Enabled=0");
  EXPECT_EQ(line(frm.mskColorKey0), "mskColorKey0 Text=128 Enabled=0");
}

TEST_F(StateLines, TheSwatchShowsItsBackColorInsteadOfACaption) {
  frm.lblShowColor.SetBackColor(Rgb{255, 0, 64});
  EXPECT_EQ(line(frm.lblShowColor), "lblShowColor BackColor=255,0,64 Enabled=0");
}

TEST_F(StateLines, EnabledIsTheControlsOwnFlagNotItsFrames) {
  frm.mskColorKey0.SetEnabled(true);
  ASSERT_FALSE(frm.Frame2.Enabled());
  EXPECT_EQ(line(frm.mskColorKey0), "mskColorKey0 Text= Enabled=1");
}

TEST_F(StateLines, TextsAreEscaped) {
  frm.txtTextureMap.SetText(" a\tb\\c\r\n");
  EXPECT_EQ(line(frm.txtTextureMap), "txtTextureMap Text= a\\tb\\\\c\\r\\n Enabled=0");
}

TEST_F(StateLines, ASettingsControlBeforeItsWindowExistsShowsItsFirstState) {
  EXPECT_EQ(printLine("mskAutoLOD0", printedProperties(advancedSettingsControl("mskAutoLOD0"))),
            "mskAutoLOD0 Text= Enabled=1");
  EXPECT_EQ(printLine("lblAutoLOD1", printedProperties(advancedSettingsControl("lblAutoLOD1"))),
            "lblAutoLOD1 Caption=AutoLOD#1: Enabled=1");
  EXPECT_FALSE(program.AdvancedSettingsLoaded());
}

TEST_F(StateLines, AFirstStateMatchesTheRecordOfANewWindow) {
  frmAdvancedSettings& settings = program.AdvancedSettings();
  for (const Control* control : settings.Controls()) {
    EXPECT_EQ(printedProperties(control->Definition()), printedProperties(*control)) << control->Name();
  }
}

TEST(WindowLines, LoadedAndVisible) {
  EXPECT_EQ(printLine("frmAdvancedSettings", windowProperties(true, false)),
            "frmAdvancedSettings Loaded=1 Visible=0");
}

TEST(PrintForms, OnlyTheFileDialogHasNone) {
  EXPECT_FALSE(hasPrintForm(ControlKind::FileDialog));
  EXPECT_TRUE(hasPrintForm(ControlKind::List));
}

}  // namespace
}  // namespace korvane::scenario
