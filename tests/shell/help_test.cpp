#include "shell/help.h"

#include <gtest/gtest.h>

#include "runtime/failure.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

class ThrowingOpen : public testing::ScriptedPlatform {
 public:
  bool openDocument(const std::string& path) override {
    ScriptedPlatform::openDocument(path);
    throw RuntimeFailure(failure_number::FileNotFound);
  }
};

class HelpTest : public ::testing::Test {
 protected:
  HelpTest() { AppTitleName = "Korvane"; }
  testing::ScriptedPlatform platform;
};

TEST_F(HelpTest, DocumentLiesBesideTheProgram) {
  EXPECT_EQ(HelpDocumentPath(platform), "/opt/korvane/Korvane_Help.html");
  platform.programDir = "/";
  EXPECT_EQ(HelpDocumentPath(platform), "/Korvane_Help.html");
}

TEST_F(HelpTest, LaunchedDocumentShowsNoMessage) {
  ViewHelp(platform);
  EXPECT_EQ(platform.events, std::vector<std::string>{"OPEN /opt/korvane/Korvane_Help.html"});
}

TEST_F(HelpTest, FailedLaunchSaysSoOncePerClick) {
  platform.openSucceeds = false;
  Program program(platform);
  program.Main();
  platform.clearLog();
  frmKorvane& frm = program.MainWindow();
  // Open from the first screen on, with no source loaded.
  ASSERT_TRUE(frm.btnViewHelp.TakesInput());
  frm.btnViewHelp.Click();
  frm.btnViewHelp.Click();
  EXPECT_EQ(platform.messages,
            (std::vector<std::string>{"Error launching help file.", "Error launching help file."}));
  EXPECT_EQ(platform.messageTitles[0], "Korvane");
  EXPECT_FALSE(frm.btnSaveAs.Enabled());
}

TEST_F(HelpTest, FailureInsideTheLaunchCountsAsNotLaunched) {
  ThrowingOpen throwing;
  ViewHelp(throwing);
  EXPECT_EQ(throwing.messages, std::vector<std::string>{"Error launching help file."});
}

}  // namespace
}  // namespace korvane
