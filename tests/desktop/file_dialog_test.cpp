#include "desktop/file_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "mainwindow/window_procedures.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

class FileDialog : public ::testing::Test {
 protected:
  FileDialog() {
    AppTitleName = "Korvane";
    DefaultDirPath = "/start";
  }
  std::string open() { return ShowFileDialog(frm, "Open", DefaultDirPath, kKobFilter, 1, false, ""); }
  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

// Whatever the dialog gives, the directory remembered is absolute.
TEST_F(FileDialog, ConfirmedFileIsGivenBackAndItsAbsoluteDirectoryRemembered) {
  const std::pair<std::string, std::string> rows[] = {
      {"/crate.kob", "/"}, {"/home/a\\b/crate", "/home/a\\b"}, {"../other/./crate.kob", "/home/other"}};
  for (const auto& [path, directory] : rows) {
    platform.answer(path);
    EXPECT_EQ(open(), path);
    // On Windows a backslash separates too, and the directory is written with it.
    const std::string expected = std::filesystem::path(directory).make_preferred().string();
    EXPECT_EQ(DefaultDirPath, expected) << path;
    EXPECT_EQ(platform.store.begin()->second, expected) << path;
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileDialog, CancelOrFailureGivesEmptyAndRemembersNothingSilently) {
  platform.cancel();
  EXPECT_EQ(open(), "");
  platform.dialogFails = true;
  EXPECT_EQ(open(), "");
  EXPECT_EQ(DefaultDirPath, "/start");
  EXPECT_TRUE(platform.store.empty());
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace korvane
