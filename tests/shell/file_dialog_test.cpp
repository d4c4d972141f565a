#include "shell/file_dialog.h"

#include <gtest/gtest.h>

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

TEST_F(FileDialog, EveryCallSetsEveryPropertyAndNothingCarriesOver) {
  platform.answer("/start/first.kob");
  ShowFileDialog(frm, "Open TGA File", "/textures", kTgaFilter, 2, false, "wall.tga");
  platform.cancel();
  ShowFileDialog(frm, "Save KOB File As...", "/out", kKobFilter, 1, true, "");
  std::vector<std::string> seen;
  for (const FileDialogRequest& r : platform.dialogRequests) {
    seen.push_back((r.saveMode ? "save " : "open ") + r.title + "|" + r.initialDirectory + "|" +
                   r.filter.substr(0, 3) + "|" + std::to_string(r.filterIndex) + "|" + r.fileName);
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"open Open TGA File|/textures|TGA|2|wall.tga",
                                            "save Save KOB File As...|/out|KOB|1|"}));
}

// Whatever the dialog gives, the directory remembered is absolute.
TEST_F(FileDialog, ConfirmedFileIsGivenBackAndItsAbsoluteDirectoryRemembered) {
  const std::pair<std::string, std::string> rows[] = {
      {"/crate.kob", "/"}, {"/home/a\\b/crate", "/home/a\\b"}, {"../other/./crate.kob", "/home/other"}};
  for (const auto& [path, directory] : rows) {
    platform.answer(path);
    EXPECT_EQ(open(), path);
    EXPECT_EQ(DefaultDirPath, directory) << path;
    EXPECT_EQ(platform.store.begin()->second, directory) << path;
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
