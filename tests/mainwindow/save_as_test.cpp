#include "mainwindow/save_as.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/file_dialog.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using testing::crlf;
using Lines = std::vector<std::string>;

// Runs a hook while the file dialog is up, to look at the window at that moment.
class WatchedPlatform : public testing::ScriptedPlatform {
 public:
  std::function<void()> duringDialog;
  std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
    if (duringDialog) duringDialog();
    return ScriptedPlatform::fileDialog(request);
  }
};

Lines linesIn(const LineStore& store) {
  Lines lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

class SaveAsTest : public ::testing::Test {
 protected:
  SaveAsTest() {
    AppTitleName = "Korvane";
    program.Main();
    DefaultDirPath = "/remembered";
    frm.btnSaveAs.SetEnabled(true);
    frm.txtTextureMap.SetText("new.tga");
    platform.clearLog();
  }

  // Puts the loading state in place without running the loading workflow.
  void setLoad(int value, const Lines& lod0, const Lines& lod1 = {}) {
    frm.chkAddLOD1.onClick = nullptr;
    frm.chkAddLOD1.SetValue(value);
    for (const auto& line : lod0) frm.lstDataLOD0.Store().AddItem(line);
    for (const auto& line : lod1) frm.lstDataLOD1.Store().AddItem(line);
  }

  void setColorKey(bool on, const std::string& red, const std::string& green, const std::string& blue) {
    frm.chkAddColorKey.SetValue(on ? 1 : 0);
    frm.mskColorKey0.SetText(red);
    frm.mskColorKey1.SetText(green);
    frm.mskColorKey2.SetText(blue);
  }

  WatchedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
};

const Lines kOneLod = {
    "[Material - 0]", "TextureMap=old.tga", "[LOD Information]", "NumberOfLOD=1", "[LOD 0]", "Faces=1"};

// ---- Refusals and where the focus goes --------------------------------------

struct InputCase {
  const char* name;
  std::string textureMap;
  bool colorKeyOn;
  std::string red, green, blue;
  Lines events;  // what the click shows, asks for and focuses, in order
};

void PrintTo(const InputCase& row, std::ostream* os) {
  *os << row.name;
}

class SaveAsInput : public SaveAsTest, public ::testing::WithParamInterface<InputCase> {};

TEST_P(SaveAsInput, IsRefusedWithItsMessageAndFocusOrPassesToTheDialog) {
  setLoad(0, kOneLod);
  const InputCase& row = GetParam();
  setColorKey(row.colorKeyOn, row.red, row.green, row.blue);
  frm.txtTextureMap.SetText(row.textureMap);
  platform.clearLog();
  platform.cancel();
  frm.btnSaveAs.Click();
  EXPECT_EQ(platform.events, row.events);
  EXPECT_EQ(linesIn(frm.lstDataLOD0.Store()), kOneLod);
  platform.dialogAnswers.clear();
}

const char* const kTextureMessage = "MSGBOX Please enter a TextureMap name";
const char* const kColorKeyMessage = "MSGBOX Please complete all ColorKey entries";
const char* const kSaveDialog = "DIALOG save Save KOB File As...";

INSTANTIATE_TEST_SUITE_P(
    Cases, SaveAsInput,
    ::testing::Values(
        InputCase{"EmptyTextureMap", "", false, "1", "2", "3", {kTextureMessage, "FOCUS txtTextureMap"}},
        InputCase{"EmptyTextureMapIsTheOnlyMessage",
                  "",
                  true,
                  "",
                  "2",
                  "",
                  {kTextureMessage, "FOCUS txtTextureMap"}},
        InputCase{"BlankTextureMapPasses", " ", false, "1", "2", "3", {kSaveDialog}},
        InputCase{"AllThreeEmptyEndsOnRed",
                  "a.tga",
                  true,
                  "",
                  "",
                  "",
                  {kColorKeyMessage, "FOCUS mskColorKey2", "FOCUS mskColorKey1", "FOCUS mskColorKey0"}},
        InputCase{"RedAndBlueEmptyEndsOnRed",
                  "a.tga",
                  true,
                  "",
                  "2",
                  "",
                  {kColorKeyMessage, "FOCUS mskColorKey2", "FOCUS mskColorKey0"}},
        InputCase{"GreenAndBlueEmptyEndsOnGreen",
                  "a.tga",
                  true,
                  "1",
                  "",
                  "",
                  {kColorKeyMessage, "FOCUS mskColorKey2", "FOCUS mskColorKey1"}},
        InputCase{"OnlyGreenEmpty", "a.tga", true, "1", "", "3", {kColorKeyMessage, "FOCUS mskColorKey1"}},
        InputCase{"OnlyBlueEmpty", "a.tga", true, "1", "2", "", {kColorKeyMessage, "FOCUS mskColorKey2"}},
        InputCase{"ColorKeyOffIgnoresEmptyFields", "a.tga", false, "", "", "", {kSaveDialog}},
        InputCase{"CompleteInputPasses", "a.tga", true, "0", "00", "255", {kSaveDialog}}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- The dialog -------------------------------------------------------------

TEST_F(SaveAsTest, AsksForTheTargetInSaveMode) {
  setLoad(0, kOneLod);
  platform.cancel();
  frm.btnSaveAs.Click();
  ASSERT_EQ(platform.dialogRequests.size(), 1u);
  const FileDialogRequest& request = platform.dialogRequests[0];
  EXPECT_EQ(request.title, "Save KOB File As...");
  EXPECT_EQ(request.initialDirectory, "/remembered");
  EXPECT_EQ(request.filter, kKobFilter);
  EXPECT_EQ(request.filterIndex, 1);
  EXPECT_TRUE(request.saveMode);
  EXPECT_EQ(request.fileName, "");
}

TEST_F(SaveAsTest, CancelLeavesStoresDirectoryAndDiskUntouched) {
  Lines lod1 = {"[LOD 0]", "Faces=LOD 0"};
  setLoad(1, kOneLod, lod1);
  program.AdvancedSettings().mskAutoLOD0.SetText("0.250");
  setColorKey(true, "1", "2", "3");
  platform.clearLog();
  platform.cancel();
  frm.btnSaveAs.Click();
  EXPECT_EQ(linesIn(frm.lstDataLOD0.Store()), kOneLod);
  EXPECT_EQ(linesIn(frm.lstDataLOD1.Store()), lod1);
  EXPECT_EQ(DefaultDirPath, "/remembered");
  EXPECT_TRUE(platform.store.empty());
  EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
  EXPECT_EQ(platform.events, Lines{kSaveDialog});
}

TEST_F(SaveAsTest, LinesAreRewrittenOnlyAfterTheDialog) {
  setLoad(1, kOneLod, {"[LOD 0]"});
  Lines atDialog;
  platform.duringDialog = [&] { atDialog = linesIn(frm.lstDataLOD0.Store()); };
  platform.answer(dir.file("out.kob"));
  frm.btnSaveAs.Click();
  EXPECT_EQ(atDialog, kOneLod);
  EXPECT_NE(linesIn(frm.lstDataLOD0.Store()), kOneLod);
  EXPECT_EQ(DefaultDirPath, dir.path().string());
}

// ---- The steps after the dialog, by the value of chkAddLOD1 -----------------

struct WriteCase {
  const char* name;
  int value;
  Lines lod0;
  Lines lod1;
  std::string expected;
};

void PrintTo(const WriteCase& row, std::ostream* os) {
  *os << row.name;
}

class SaveAsWrites : public SaveAsTest, public ::testing::WithParamInterface<WriteCase> {};

TEST_P(SaveAsWrites, RewritesInOrderAndTakesTheWriterByTheBox) {
  setLoad(GetParam().value, GetParam().lod0, GetParam().lod1);
  frmAdvancedSettings& settings = program.AdvancedSettings();
  settings.mskAutoLOD0.SetText("0.500");
  settings.mskAutoLOD1.SetText("0.125");
  setColorKey(true, "1", "2", "3");
  platform.clearLog();
  std::string out = dir.file("out.kob");
  platform.answer(out);
  frm.btnSaveAs.Click();
  EXPECT_EQ(testing::readBytes(out), GetParam().expected);
  EXPECT_TRUE(platform.messages.empty());  // success says nothing
  EXPECT_EQ(frm.txtTextureMap.Text(), "new.tga");
  EXPECT_EQ(frm.chkAddLOD1.Value(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Values, SaveAsWrites,
    ::testing::Values(
        // The ColorKey line lands behind a TextureMap line that already carries the new name.
        WriteCase{"UncheckedWritesLOD0AloneEvenWithLod1Lines",
                  0,
                  kOneLod,
                  {"[LOD 0]", "Faces=LOD 0"},
                  crlf({"[Material - 0]", "TextureMap=new.tga", "ColorKey=1,2,3", "[LOD Information]",
                        "NumberOfLOD=1", "[LOD 0]", "Faces=1"})},
        WriteCase{"CheckedExtendsAndAppendsRenamedLod1",
                  1,
                  kOneLod,
                  {"[LOD 0]", "Faces=LOD 0"},
                  crlf({"[Material - 0]", "TextureMap=new.tga", "ColorKey=1,2,3", "[LOD Information]",
                        "NumberOfLOD=2", "UseAutoLOD=T", "AutoLOD#0=0.500", "AutoLOD#1=0.125", "[LOD 0]",
                        "Faces=1", "[LOD 1]", "Faces=LOD 1"})},
        WriteCase{"GrayedUpdatesAutoLODAndTakesTheCombinedWriter",
                  2,
                  {"[Material - 0]", "TextureMap=old.tga", "ColorKey=9,9,9", "[LOD Information]",
                   "NumberOfLOD=2", "AutoLOD#0=0.1", "AutoLOD#1=0.2", "[LOD 0]", "[LOD 1]"},
                  {},
                  crlf({"[Material - 0]", "TextureMap=new.tga", "ColorKey=1,2,3", "[LOD Information]",
                        "NumberOfLOD=2", "AutoLOD#0=0.500", "AutoLOD#1=0.125", "[LOD 0]", "[LOD 1]"})}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(SaveAsTest, MissingTextureMapKeywordIsReportedAndTheFileStillWritten) {
  setLoad(0, {"[Material - 0]", "TextureMap = old.tga", "[LOD Information]", "NumberOfLOD=1"});
  setColorKey(true, "1", "2", "3");
  platform.clearLog();
  std::string out = dir.file("out.kob");
  platform.answer(out);
  frm.btnSaveAs.Click();
  EXPECT_EQ(platform.messages, Lines{"The TextureMap keyword was not found in your KOB file"});
  EXPECT_EQ(testing::readBytes(out),
            crlf({"[Material - 0]", "TextureMap = old.tga", "[LOD Information]", "NumberOfLOD=1"}));
}

TEST_F(SaveAsTest, FailedWriteLeavesTheLinesRewritten) {
  setLoad(0, kOneLod);
  platform.answer((dir.path() / "no such directory" / "out.kob").string());
  frm.btnSaveAs.Click();
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].rfind("Unexpected error in SaveFileLOD0: ", 0), 0u) << platform.messages[0];
  EXPECT_EQ(frm.lstDataLOD0.Store().List(1), "TextureMap=new.tga");
}

}  // namespace
}  // namespace korvane
