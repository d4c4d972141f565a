#include "shell/file_dialog.h"

#include <gtest/gtest.h>

#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"

namespace korvane {
namespace {

const std::pair<std::string, std::string> kDefaultDir{"Software\\Korvane", "DefaultDir"};

class CountingPlatform : public testing::ScriptedPlatform {
 public:
  int writes = 0;
  bool writeUserValue(const std::string& keyPath, const std::string& valueName,
                      const std::string& data) override {
    ++writes;
    return ScriptedPlatform::writeUserValue(keyPath, valueName, data);
  }
};

class FileDialogTest : public ::testing::Test {
 protected:
  FileDialogTest() {
    AppTitleName = "Korvane";
    DefaultDirPath = "/start";
  }
  std::string open(const std::string& title = "Open KOB File (LOD 0)") {
    return ShowFileDialog(frm, title, DefaultDirPath, kKobFilter, 1, false, "");
  }
  CountingPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
};

TEST_F(FileDialogTest, FiltersAreTheTwoFixedTexts) {
  EXPECT_STREQ(kKobFilter, "KOB File (*.kob)|*.kob|All Files (*.*) |*.*");
  EXPECT_STREQ(kTgaFilter, "TGA File (*.tga)|*.tga|All Files (*.*) |*.*");
}

TEST_F(FileDialogTest, EveryCallSetsEveryPropertyAndNothingCarriesOver) {
  platform.answer("/start/first.kob");
  ShowFileDialog(frm, "Open TGA File", "/textures", kTgaFilter, 2, false, "wall.tga");
  platform.cancel();
  ShowFileDialog(frm, "Save KOB File As...", "/out", kKobFilter, 1, true, "");

  ASSERT_EQ(platform.dialogRequests.size(), 2u);
  const FileDialogRequest& first = platform.dialogRequests[0];
  EXPECT_EQ(first.title, "Open TGA File");
  EXPECT_EQ(first.initialDirectory, "/textures");
  EXPECT_EQ(first.filter, kTgaFilter);
  EXPECT_EQ(first.filterIndex, 2);
  EXPECT_FALSE(first.saveMode);
  EXPECT_EQ(first.fileName, "wall.tga");

  const FileDialogRequest& second = platform.dialogRequests[1];
  EXPECT_EQ(second.title, "Save KOB File As...");
  EXPECT_EQ(second.initialDirectory, "/out");
  EXPECT_EQ(second.filter, kKobFilter);
  EXPECT_EQ(second.filterIndex, 1);
  EXPECT_TRUE(second.saveMode);
  EXPECT_EQ(second.fileName, "");  // the earlier choice never shows as the starting name

  const FileDialogControl& control = frm.CommonDialog1;
  EXPECT_TRUE(control.CancelError);
  EXPECT_EQ(control.DialogTitle, "Save KOB File As...");
  EXPECT_EQ(control.InitDir, "/out");
  EXPECT_EQ(control.Filter, kKobFilter);
  EXPECT_EQ(control.FilterIndex, 1);
  EXPECT_EQ(platform.events,
            (std::vector<std::string>{"DIALOG open Open TGA File", "DIALOG save Save KOB File As..."}));
}

struct Chosen {
  const char* name;
  std::string path;
  std::string directory;
};
void PrintTo(const Chosen& row, std::ostream* os) {
  *os << row.name;
}

class ConfirmedFile : public FileDialogTest, public ::testing::WithParamInterface<Chosen> {};

TEST_P(ConfirmedFile, IsGivenBackAndItsDirectoryRemembered) {
  platform.answer(GetParam().path);
  EXPECT_EQ(open(), GetParam().path);
  EXPECT_EQ(DefaultDirPath, GetParam().directory);
  EXPECT_EQ(platform.store.at(kDefaultDir), GetParam().directory);
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Paths, ConfirmedFile,
    ::testing::Values(Chosen{"PlainDirectory", "/home/author/objects/crate.kob", "/home/author/objects"},
                      Chosen{"FileInTheRoot", "/crate.kob", "/"},
                      Chosen{"BlanksInTheDirectory", "/home/author/My Objects/a b.kob",
                             "/home/author/My Objects"},
                      Chosen{"BackslashIsPartOfTheName", "/home/a\\b/crate.kob", "/home/a\\b"},
                      Chosen{"NonAsciiDirectory",
                             "/home/autor/M\xc3\xb6"
                             "bel/tisch.kob",
                             "/home/autor/M\xc3\xb6"
                             "bel"},
                      Chosen{"NameWithoutExtension", "/objects/crate", "/objects"},
                      Chosen{"NameWithoutDirectoryLiesInTheCurrentOne", "crate.kob", "/home/author"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FileDialogTest, CancelGivesEmptyAndRemembersNothing) {
  platform.cancel();
  EXPECT_EQ(open(), "");
  EXPECT_EQ(DefaultDirPath, "/start");
  EXPECT_EQ(platform.writes, 0);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileDialogTest, FailingDialogIsSilentLikeACancel) {
  platform.dialogFails = true;
  EXPECT_EQ(open(), "");
  EXPECT_EQ(DefaultDirPath, "/start");
  EXPECT_EQ(platform.writes, 0);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileDialogTest, EveryConfirmedDialogWritesTheStoreEvenUnchanged) {
  platform.answer("/objects/a.kob");
  platform.answer("/objects/b.kob");
  platform.answer("/textures/wall.tga");
  open();
  open();
  ShowFileDialog(frm, "Open TGA File", DefaultDirPath, kTgaFilter, 1, false, "");
  EXPECT_EQ(platform.writes, 3);
  // A texture's directory is where the next KOB dialog opens.
  EXPECT_EQ(platform.store.at(kDefaultDir), "/textures");
  platform.answer("/textures/crate.kob");
  open();
  EXPECT_EQ(platform.dialogRequests.back().initialDirectory, "/textures");
}

TEST_F(FileDialogTest, UnwritableStoreStillMovesTheDirectoryForThisRun) {
  platform.store[kDefaultDir] = "/old";
  platform.storeWritable = false;
  platform.answer("/new/crate.kob");
  EXPECT_EQ(open(), "/new/crate.kob");
  EXPECT_EQ(DefaultDirPath, "/new");
  EXPECT_EQ(platform.store.at(kDefaultDir), "/old");
  EXPECT_TRUE(platform.messages.empty());
}

TEST(FileDialogAcrossRuns, CancelOnAFirstRunLeavesTheNextStartAFirstRun) {
  CountingPlatform platform;
  {
    Program first(platform);
    first.Main();
    platform.cancel();
    ShowFileDialog(first.MainWindow(), "Open KOB File (LOD 0)", DefaultDirPath, kKobFilter, 1, false, "");
  }
  EXPECT_TRUE(platform.store.empty());
  platform.cwd = "/elsewhere";
  Program second(platform);
  second.Main();
  EXPECT_EQ(DefaultDirPath, "/elsewhere");
}

TEST(FileDialogAcrossRuns, ConfirmedDirectoryIsWhereTheNextRunStarts) {
  CountingPlatform platform;
  {
    Program first(platform);
    first.Main();
    platform.answer("/objects/crates/crate.kob");
    ShowFileDialog(first.MainWindow(), "Open KOB File (LOD 0)", DefaultDirPath, kKobFilter, 1, false, "");
  }
  DefaultDirPath.clear();
  Program second(platform);
  second.Main();
  EXPECT_EQ(DefaultDirPath, "/objects/crates");
}

}  // namespace
}  // namespace korvane
