#include "desktop/help.h"

#include <gtest/gtest.h>

#include "runtime/failure.h"
#include "shell/program.h"
#include "support/faulty_platform.h"

namespace korvane {
namespace {

TEST(Help, OpensBesideTheProgramAndAFailedOrFailingLaunchIsToldOncePerClick) {
  testing::FaultyPlatform platform;
  Program program(platform);
  program.Main();
  platform.clearLog();
  program.MainWindow().btnViewHelp.Click();
  platform.onOpen = [] { throw RuntimeFailure(failure_number::FileNotFound); };
  program.MainWindow().btnViewHelp.Click();
  platform.onOpen = [] {};
  platform.openSucceeds = false;
  program.MainWindow().btnViewHelp.Click();
  const std::string open = "OPEN /opt/korvane/Korvane_Help.html", told = "MSGBOX Error launching help file.";
  EXPECT_EQ(platform.events, (std::vector<std::string>{open, open, told, open, told}));
  EXPECT_EQ(platform.messageTitles[0], "Korvane");
  platform.programDir = "/";
  EXPECT_EQ(HelpDocumentPath(platform), "/Korvane_Help.html");
}

}  // namespace
}  // namespace korvane
