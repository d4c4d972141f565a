#include "mainwindow/main_window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

class MainWindowLoad : public ::testing::Test {
 protected:
  MainWindowLoad() : frm(program.MainWindow()) { AppTitleName = "Korvane"; }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm;
};

TEST_F(MainWindowLoad, CentresThenBringsEveryChannelTo128FieldByField) {
  std::vector<std::string> changes;
  frm.SetObserver([&](Control* c) { changes.push_back(c ? c->Name() : "form"); });

  frm.Form_Load();

  // Each field's handler carries its channel along, so the later bar and
  // slider sets find 128 already and run nothing.
  std::vector<std::string> expected = {"form", "form"};
  for (const char* n : {"0", "1", "2"}) {
    for (const char* kind : {"mskColorKey", "vscrlColorKey", "sldColorKey"})
      expected.push_back(kind + std::string(n));
    expected.push_back("lblShowColor");
  }
  EXPECT_EQ(changes, expected);
  EXPECT_DOUBLE_EQ(frm.Left(), (28800 - 8820) / 2.0);
  EXPECT_DOUBLE_EQ(frm.Top(), (16200 - 5040) / 2.0);
}

TEST_F(MainWindowLoad, FirstScreenShowsMidGreyWithTheEditorOff) {
  frm.Form_Load();
  for (int channel = 0; channel < 3; ++channel) {
    EXPECT_EQ(frm.colorKeyField(channel).Text(), "128");
    EXPECT_EQ(frm.colorKeyBar(channel).Value(), 128);
    EXPECT_EQ(frm.colorKeySlider(channel).Value(), 128);
  }
  EXPECT_EQ(frm.lblShowColor.BackColor(), (Rgb{128, 128, 128}));
  EXPECT_EQ(frm.chkAddColorKey.Value(), 0);
  EXPECT_FALSE(frm.chkAddColorKey.Enabled());
  EXPECT_FALSE(frm.Frame2.Enabled());
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(program.AdvancedSettingsLoaded());
}

}  // namespace
}  // namespace korvane
