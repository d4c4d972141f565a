// Files that fail under the program's feet, met through the main window's own
// workflows: a source that is no file, that cannot be read, or that changes
// between its validation and its reading, and a save target that cannot be
// written. Each gives the message of the procedure that met it, leaves the
// state that procedure leaves, and the next action of the author works.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "advanced/advanced_settings_window.h"
#include "mainwindow/main_window.h"
#include "runtime/shared_strings.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;
using testing::crlf;
using testing::readBytes;
using Lines = std::vector<std::string>;

const Lines kCrateLines = {"[Material - 0]", "TextureMap=crate.tga", "[LOD Information]", "NumberOfLOD=1",
                           "[LOD 0]",        "NumberOfSurfaces=1",   "Surface0=0 1 2"};

const Lines kBarrelLines = {"[Material - 0]",    "TextureMap=barrel.tga", "ColorKey=1,2,3",
                            "[LOD Information]", "NumberOfLOD=1",         "[LOD 0]",
                            "NumberOfSurfaces=4"};

// Two LODs without AutoLOD lines: reading it shows a message between the
// lookups and the reading of the lines, which is where the tests strike.
const Lines kTowerLines = {
    "[Material - 0]", "TextureMap=tower.tga", "[LOD Information]", "NumberOfLOD=2",
    "[LOD 0]",        "NumberOfSurfaces=1",   "[LOD 1]",           "NumberOfSurfaces=1"};

const Lines kLowLines = {"[Material - 0]", "TextureMap=low.tga", "[LOD Information]", "NumberOfLOD=1",
                         "[LOD 0]",        "NumberOfSurfaces=1", "Surface0=2 1 0"};

std::string bytesOf(const Lines& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

void overwrite(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

Lines linesOf(const LineStore& store) {
  Lines lines;
  for (std::int32_t i = 0; i < store.ListCount(); ++i) lines.emplace_back(store.List(i));
  return lines;
}

// Message boxes are where the program waits for the author, so that is where
// the outside world can change a file behind its back.
class FaultingPlatform : public testing::ScriptedPlatform {
 public:
  // Runs once, after the next message box has been recorded.
  std::function<void()> afterNextMessage;

  void messageBox(const std::string& prompt, const std::string& title) override {
    ScriptedPlatform::messageBox(prompt, title);
    if (auto hook = std::move(afterNextMessage)) {
      afterNextMessage = nullptr;
      hook();
    }
  }
};

// Whether permission bits stop this process: they do not for root.
bool permissionsBind(const std::string& path, int mode) {
  return ::access(path.c_str(), mode) != 0;
}

constexpr const char* kPermissionsIgnored =
    "this process reads and writes regardless of permission bits (it runs as root), so no file can be "
    "made unreadable or read-only for it";

class FaultInjection : public ::testing::Test {
 protected:
  FaultInjection() {
    AppTitleName = "Korvane";
    program.Main();
    platform.clearLog();
  }

  ~FaultInjection() override {
    // Lets TempDir remove what a test locked.
    std::error_code ignored;
    for (auto it = fs::recursive_directory_iterator(dir.path(), ignored);
         it != fs::recursive_directory_iterator(); it.increment(ignored)) {
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }

  std::string source(const std::string& name, const Lines& lines) { return dir.write(name, bytesOf(lines)); }

  void openLOD0(const std::string& path) {
    platform.answer(path);
    frm.btnBrowseLOD0.Click();
  }
  void checkLOD1(const std::string& path) {
    platform.answer(path);
    frm.chkAddLOD1.AuthorClick();
  }
  void saveAs(const std::string& path) {
    platform.answer(path);
    frm.btnSaveAs.Click();
  }

  // Strikes once the window shows the chosen path: right behind the
  // validation, ahead of every lookup that fills the window.
  void onPathShown(TextBox& pathField, std::function<void()> fault) {
    frm.SetObserver([this, &pathField, fault = std::move(fault), done = false](Control* control) mutable {
      if (done || control != &pathField || pathField.Text().empty()) return;
      done = true;
      fault();
    });
  }

  // The author carries on: a good source opens and saves to the same bytes.
  void expectTheProgramGoesOn() {
    platform.clearLog();
    frm.SetObserver(nullptr);
    std::string crate = source("after.kob", kCrateLines);
    openLOD0(crate);
    saveAs(dir.file("after-saved.kob"));
    EXPECT_EQ(platform.messages, Lines{});
    EXPECT_EQ(readBytes(dir.file("after-saved.kob")), bytesOf(kCrateLines));
  }

  FaultingPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
};

// ---------------------------------------------------------------------------
// Sources that are refused: the lookups find no key in them, so the validator
// speaks and whatever was loaded stays.

struct RefusedSource {
  const char* name;
  // Makes the bad source in dir and gives its path; "" when it cannot be made.
  std::string (*make)(const testing::TempDir& dir);
  bool asLOD1;
  friend void PrintTo(const RefusedSource& c, std::ostream* os) { *os << c.name; }
};

class RefusedSources : public FaultInjection, public ::testing::WithParamInterface<RefusedSource> {};

TEST_P(RefusedSources, ShowTheValidatorsMessageAndLeaveTheLoadedSourceAsItWas) {
  std::string crate = source("crate.kob", kCrateLines);
  openLOD0(crate);
  std::string bad = GetParam().make(dir);
  if (bad.empty()) GTEST_SKIP() << kPermissionsIgnored;
  platform.clearLog();

  if (GetParam().asLOD1) {
    checkLOD1(bad);
  } else {
    openLOD0(bad);
  }

  EXPECT_EQ(platform.messages, Lines{"Error Reading KOB File: TextureMap Not Found"});
  EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), kCrateLines);
  EXPECT_EQ(frm.lstDataLOD1.Store().ListCount(), 0);
  EXPECT_EQ(frm.txtFilePathLOD0.Text(), crate);
  EXPECT_EQ(frm.txtTextureMap.Text(), "crate.tga");
  EXPECT_EQ(frm.chkAddLOD1.Value(), 0);
  EXPECT_TRUE(frm.chkAddLOD1.Enabled());
  expectTheProgramGoesOn();
}

std::string aDirectory(const testing::TempDir& dir) {
  fs::create_directory(dir.path() / "folder.kob");
  return dir.file("folder.kob");
}

std::string anUnreadableFile(const testing::TempDir& dir) {
  std::string path = dir.write("locked.kob", bytesOf(kBarrelLines));
  fs::permissions(path, fs::perms::none);
  return permissionsBind(path, R_OK) ? path : "";
}

std::string aFileInAMissingDirectory(const testing::TempDir& dir) {
  return dir.file("gone/crate.kob");
}

INSTANTIATE_TEST_SUITE_P(Cases, RefusedSources,
                         ::testing::Values(RefusedSource{"DirectoryAsLOD0", aDirectory, false},
                                           RefusedSource{"DirectoryAsLOD1", aDirectory, true},
                                           RefusedSource{"UnreadableLOD0", anUnreadableFile, false},
                                           RefusedSource{"UnreadableLOD1", anUnreadableFile, true},
                                           RefusedSource{"MissingDirectoryAsLOD0", aFileInAMissingDirectory,
                                                         false}),
                         [](const auto& info) { return std::string(info.param.name); });

// ---------------------------------------------------------------------------
// A LOD 0 source that changes right after it was accepted: every lookup and
// the reading of the lines meet the changed file.

struct ChangedSource {
  const char* name;
  // Changes the file at path; false when it cannot be done for this process.
  bool (*fault)(const std::string& path);
  Lines messages;
  const char* textureMap;
  const char* numberOfLOD;
  Lines stored;
  friend void PrintTo(const ChangedSource& c, std::ostream* os) { *os << c.name; }
};

class ChangedAfterValidation : public FaultInjection, public ::testing::WithParamInterface<ChangedSource> {};

TEST_P(ChangedAfterValidation, EveryStepMeetsTheChangedFileAndTheLoadRunsToItsEnd) {
  std::string path = source("crate.kob", kCrateLines);
  bool struck = true;
  onPathShown(frm.txtFilePathLOD0, [&] { struck = GetParam().fault(path); });

  openLOD0(path);
  if (!struck) GTEST_SKIP() << kPermissionsIgnored;

  EXPECT_EQ(platform.messages, GetParam().messages);
  EXPECT_EQ(frm.txtFilePathLOD0.Text(), path);
  EXPECT_EQ(frm.txtTextureMap.Text(), GetParam().textureMap);
  EXPECT_EQ(frm.lblLODnum.Caption(), GetParam().numberOfLOD);
  EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), GetParam().stored);
  // Loaded as one LOD, with whatever lines could be read.
  EXPECT_EQ(frm.chkAddLOD1.Value(), 0);
  EXPECT_TRUE(frm.chkAddLOD1.Enabled());
  EXPECT_TRUE(frm.btnSaveAs.Enabled());
  expectTheProgramGoesOn();
}

bool deleteIt(const std::string& path) {
  return fs::remove(path);
}

bool replaceByADirectory(const std::string& path) {
  fs::remove(path);
  return fs::create_directory(path);
}

bool makeUnreadable(const std::string& path) {
  fs::permissions(path, fs::perms::none);
  return permissionsBind(path, R_OK);
}

bool replaceByAnotherSource(const std::string& path) {
  // A new file under the old name, as an exporter writes it.
  std::string fresh = path + ".new";
  overwrite(fresh, bytesOf(kBarrelLines));
  fs::rename(fresh, path);
  return true;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ChangedAfterValidation,
    ::testing::Values(
        ChangedSource{
            "Deleted",
            deleteIt,
            {"Error Reading the KOB file", "Unexpected error in ReadFileLOD0: File not found ( 53)"},
            "",
            "0",
            {}},
        ChangedSource{
            "ReplacedByADirectory",
            replaceByADirectory,
            {"Error Reading the KOB file", "Unexpected error in ReadFileLOD0: Path/File access error ( 75)"},
            "",
            "0",
            {}},
        ChangedSource{
            "MadeUnreadable",
            makeUnreadable,
            {"Error Reading the KOB file", "Unexpected error in ReadFileLOD0: Path/File access error ( 75)"},
            "",
            "0",
            {}},
        ChangedSource{
            "ReplacedByAnotherSource", replaceByAnotherSource, {}, "barrel.tga", "1", kBarrelLines}),
    [](const auto& info) { return std::string(info.param.name); });

// ---------------------------------------------------------------------------
// A LOD 0 source that changes after its lookups, just before its lines are
// read: the window shows the old file, the store holds what the disk holds.

TEST_F(FaultInjection, SourceDeletedJustBeforeItsLinesAreReadLeavesAnEmptyStoreThatStillSaves) {
  std::string path = source("tower.kob", kTowerLines);
  platform.afterNextMessage = [&] { fs::remove(path); };

  openLOD0(path);

  EXPECT_EQ(platform.messages, (Lines{"AutoLOD#0 not found.  Using default value...",
                                      "AutoLOD#1 not found.  Using default value...",
                                      "Unexpected error in ReadFileLOD0: File not found ( 53)"}));
  EXPECT_EQ(frm.txtTextureMap.Text(), "tower.tga");
  EXPECT_EQ(frm.lblLODnum.Caption(), "2");
  EXPECT_EQ(frm.chkAddLOD1.Value(), 2);
  EXPECT_EQ(program.AdvancedSettings().mskAutoLOD0.Text(), "0.250");
  EXPECT_EQ(program.AdvancedSettings().mskAutoLOD1.Text(), "0.000");
  EXPECT_EQ(frm.lstDataLOD0.Store().ListCount(), 0);
  ASSERT_TRUE(frm.btnSaveAs.Enabled());

  // The save runs every step whatever the one before reported: nothing to
  // rewrite, and an empty file written.
  platform.clearLog();
  saveAs(dir.file("tower-saved.kob"));
  EXPECT_EQ(platform.messages, Lines{"The TextureMap keyword was not found in your KOB file"});
  EXPECT_TRUE(fs::exists(dir.file("tower-saved.kob")));
  EXPECT_EQ(readBytes(dir.file("tower-saved.kob")), "");
  expectTheProgramGoesOn();
}

TEST_F(FaultInjection, SourceCutShortJustBeforeItsLinesAreReadStoresTheShortFile) {
  std::string path = source("tower.kob", kTowerLines);
  const Lines half(kTowerLines.begin(), kTowerLines.begin() + 4);
  platform.afterNextMessage = [&] { overwrite(path, bytesOf(half) + "[LOD 0]\r\nNumberOf"); };

  openLOD0(path);

  Lines expected = half;
  expected.insert(expected.end(), {"[LOD 0]", "NumberOf"});
  EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), expected);
  EXPECT_EQ(platform.messages.back(), "AutoLOD#1 not found.  Using default value...");
  expectTheProgramGoesOn();
}

// ---------------------------------------------------------------------------
// A LOD 1 source that goes right after it was accepted.

TEST_F(FaultInjection, LOD1SourceDeletedAfterItsValidationLeavesTheBoxOnAndNoLOD1Lines) {
  std::string crate = source("crate.kob", kCrateLines);
  std::string low = source("low.kob", kLowLines);
  openLOD0(crate);
  platform.clearLog();
  onPathShown(frm.txtFilePathLOD1, [&] { fs::remove(low); });

  checkLOD1(low);

  EXPECT_EQ(platform.messages, Lines{"Unexpected error in ReadFileLOD1: File not found ( 53)"});
  EXPECT_EQ(frm.chkAddLOD1.Value(), 1);
  EXPECT_EQ(frm.txtFilePathLOD1.Text(), low);
  EXPECT_EQ(frm.lstDataLOD1.Store().ListCount(), 0);
  EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), kCrateLines);

  // The save merges what there is: the LOD information, and no LOD 1 lines.
  platform.clearLog();
  frm.SetObserver(nullptr);
  saveAs(dir.file("merged.kob"));
  EXPECT_EQ(platform.messages, Lines{});
  EXPECT_EQ(
      readBytes(dir.file("merged.kob")),
      crlf({"[Material - 0]", "TextureMap=crate.tga", "[LOD Information]", "NumberOfLOD=2", "UseAutoLOD=T",
            "AutoLOD#0=0.250", "AutoLOD#1=0.000", "[LOD 0]", "NumberOfSurfaces=1", "Surface0=0 1 2"}));
  expectTheProgramGoesOn();
}

// ---------------------------------------------------------------------------
// Save targets that cannot be written. The lines were rewritten before the
// write and stay so; the target is not made or changed where it cannot be.

struct BadTarget {
  const char* name;
  // Gives the target's path; "" when it cannot be made for this process.
  std::string (*make)(const testing::TempDir& dir);
  bool withLOD1;
  std::string message;
  friend void PrintTo(const BadTarget& c, std::ostream* os) { *os << c.name; }
};

class SaveTargetFailure : public FaultInjection, public ::testing::WithParamInterface<BadTarget> {};

TEST_P(SaveTargetFailure, ShowsTheWritersMessageKeepsTheRewrittenLinesAndSavesElsewhere) {
  openLOD0(source("crate.kob", kCrateLines));
  if (GetParam().withLOD1) checkLOD1(source("low.kob", kLowLines));
  frm.txtTextureMap.SetText("wood.tga");
  std::string target = GetParam().make(dir);
  if (target.empty()) GTEST_SKIP() << kPermissionsIgnored;
  const bool existed = fs::exists(target);
  const std::string before = existed && fs::is_regular_file(target) ? readBytes(target) : "";
  platform.clearLog();

  saveAs(target);

  EXPECT_EQ(platform.messages, Lines{GetParam().message});
  const Lines rewritten0 = linesOf(frm.lstDataLOD0.Store());
  const Lines rewritten1 = linesOf(frm.lstDataLOD1.Store());
  EXPECT_EQ(rewritten0.at(1), "TextureMap=wood.tga");
  EXPECT_EQ(rewritten0.at(3), GetParam().withLOD1 ? "NumberOfLOD=2" : "NumberOfLOD=1");
  EXPECT_EQ(rewritten1.empty(), !GetParam().withLOD1);
  EXPECT_EQ(fs::exists(target), existed);
  if (existed && fs::is_regular_file(target)) {
    EXPECT_EQ(readBytes(target), before);
  }

  // The next save, to a good place, writes the lines as the failed one left them.
  platform.clearLog();
  saveAs(dir.file("second.kob"));
  EXPECT_EQ(platform.messages, Lines{});
  Lines written = linesOf(frm.lstDataLOD0.Store());
  for (const std::string& line : linesOf(frm.lstDataLOD1.Store())) written.push_back(line);
  EXPECT_EQ(readBytes(dir.file("second.kob")), bytesOf(written));
  expectTheProgramGoesOn();
}

std::string aReadOnlyFile(const testing::TempDir& dir) {
  std::string path = dir.write("locked.kob", "keep me\r\n");
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  return permissionsBind(path, W_OK) ? path : "";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SaveTargetFailure,
    ::testing::Values(BadTarget{"ReadOnlyFile", aReadOnlyFile, false,
                                "Unexpected error in SaveFileLOD0: Path/File access error ( 75)"},
                      BadTarget{"ReadOnlyFileCombined", aReadOnlyFile, true,
                                "Unexpected error in SaveFileCombined: Path/File access error ( 75)"},
                      BadTarget{"MissingDirectory", aFileInAMissingDirectory, false,
                                "Unexpected error in SaveFileLOD0: Path not found ( 76)"},
                      BadTarget{"MissingDirectoryCombined", aFileInAMissingDirectory, true,
                                "Unexpected error in SaveFileCombined: Path not found ( 76)"},
                      BadTarget{"Directory", aDirectory, false,
                                "Unexpected error in SaveFileLOD0: Path/File access error ( 75)"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace korvane
