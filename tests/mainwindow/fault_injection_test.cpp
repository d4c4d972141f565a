// Files that fail under the program's feet: each procedure that meets the
// failure reports it, the workflow runs to its end, and the next job works.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "mainwindow/main_window.h"
#include "shell/program.h"
#include "support/scripted_platform.h"
#include "support/store_lines.h"
#include "support/temp_files.h"

namespace korvane {
namespace {

using namespace testing;
using Lines = std::vector<std::string>;

const Lines kCrate = {"[Material - 0]", "TextureMap=crate.tga", "[LOD Information]", "NumberOfLOD=1",
                      "[LOD 0]",        "NumberOfSurfaces=1",   "Surface0=0 1 2"};

class FaultInjection : public ::testing::Test {
 protected:
  FaultInjection() { program.Main(); }

  std::string source(const std::string& name, const Lines& lines = kCrate) {
    return dir.write(name, crlf(lines));
  }
  void click(Button& button, const std::string& path) {
    platform.answer(path);
    button.Click();
  }

  // Strikes once, at the first change of the window after which `when` holds.
  void strike(std::function<bool()> when, std::function<void()> fault) {
    frm.SetObserver([when = std::move(when), fault = std::move(fault)](Control*) mutable {
      if (fault && when()) std::exchange(fault, nullptr)();
    });
  }

  // The author carries on: a good source opens and saves to the same bytes.
  void expectTheProgramGoesOn() {
    platform.clearLog();
    frm.SetObserver(nullptr);
    click(frm.btnBrowseLOD0, source("after.kob"));
    click(frm.btnSaveAs, dir.file("after-saved.kob"));
    EXPECT_EQ(platform.messages, Lines{});
    EXPECT_EQ(readBytes(dir.file("after-saved.kob")), crlf(kCrate));
  }

  testing::ScriptedPlatform platform;
  Program program{platform};
  frmKorvane& frm = program.MainWindow();
  testing::TempDir dir;
};

// Every lookup and the reading of the lines meet the changed file; the load
// runs to its end as one LOD with whatever could be read.
TEST_F(FaultInjection, ALOD0SourceChangedRightAfterItsValidation) {
  const Lines barrel = {"[Material - 0]", "TextureMap=barrel.tga", "[LOD Information]", "NumberOfLOD=1"};
  for (const bool replaced : {false, true}) {
    std::string path = source(replaced ? "replaced.kob" : "deleted.kob");
    // Right behind the validation, ahead of every lookup that fills the window.
    strike([&] { return !frm.txtFilePathLOD0.Text().empty(); },
           [&] {
             std::filesystem::remove(path);
             if (replaced) dir.write("replaced.kob", crlf(barrel));
           });
    platform.clearLog();
    click(frm.btnBrowseLOD0, path);
    EXPECT_EQ(platform.messages,
              (replaced ? Lines{}
                        : Lines{"Error Reading the KOB file",
                                "Unexpected error in ReadFileLOD0: File not found ( 53)"}));
    EXPECT_EQ(frm.txtFilePathLOD0.Text(), path);
    EXPECT_EQ(frm.txtTextureMap.Text(), replaced ? "barrel.tga" : "");
    EXPECT_EQ(frm.lblLODnum.Caption(), replaced ? "1" : "0");
    EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), replaced ? barrel : Lines{});
    EXPECT_TRUE(frm.chkAddLOD1.Enabled() && frm.btnSaveAs.Enabled());
    expectTheProgramGoesOn();
  }
}

// After the lookups of the text fields, before the AutoLOD values and the lines.
TEST_F(FaultInjection, ASourceDeletedJustBeforeItsLinesAreReadStillSavesEveryStep) {
  std::string path = source("tower.kob", {"[Material - 0]", "TextureMap=tower.tga", "[LOD Information]",
                                          "NumberOfLOD=2", "[LOD 0]", "[LOD 1]"});
  strike([&] { return frm.lblLODnum.Caption() == "2"; }, [&] { std::filesystem::remove(path); });
  click(frm.btnBrowseLOD0, path);
  EXPECT_EQ(platform.messages, (Lines{"AutoLOD#0 not found.  Using default value...",
                                      "AutoLOD#1 not found.  Using default value...",
                                      "Unexpected error in ReadFileLOD0: File not found ( 53)"}));
  EXPECT_EQ(frm.txtTextureMap.Text(), "tower.tga");
  EXPECT_EQ(frm.chkAddLOD1.Value(), 2);
  EXPECT_EQ(frm.lstDataLOD0.Store().ListCount(), 0);

  // Nothing to rewrite, each step says so or not, and an empty file is written.
  platform.clearLog();
  click(frm.btnSaveAs, dir.file("tower-saved.kob"));
  EXPECT_EQ(platform.messages, Lines{"The TextureMap keyword was not found in your KOB file"});
  EXPECT_TRUE(std::filesystem::exists(dir.file("tower-saved.kob")) &&
              readBytes(dir.file("tower-saved.kob")).empty());
  expectTheProgramGoesOn();
}

// The lines were rewritten before the write and stay so; the next save to a
// good place writes what the stores hold.
TEST_F(FaultInjection, ASaveTargetThatCannotBeWrittenKeepsTheRewrittenLines) {
  for (const bool withLOD1 : {false, true}) {
    click(frm.btnBrowseLOD0, source("crate.kob"));
    if (withLOD1) {
      platform.answer(source("low.kob"));
      frm.chkAddLOD1.AuthorClick();
    }
    frm.txtTextureMap.SetText("wood.tga");
    platform.clearLog();
    click(frm.btnSaveAs, dir.file("gone/out.kob"));
    EXPECT_EQ(platform.messages,
              Lines{std::string("Unexpected error in ") + (withLOD1 ? "SaveFileCombined" : "SaveFileLOD0") +
                    ": Path not found ( 76)"});
    const Lines rewritten = linesOf(frm.lstDataLOD0.Store());
    EXPECT_EQ(rewritten.at(1), "TextureMap=wood.tga");
    EXPECT_EQ(rewritten.at(3), withLOD1 ? "NumberOfLOD=2" : "NumberOfLOD=1");
    platform.clearLog();
    click(frm.btnSaveAs, dir.file("second.kob"));
    EXPECT_EQ(platform.messages, Lines{});
    EXPECT_EQ(readBytes(dir.file("second.kob")),
              crlf(linesOf(frm.lstDataLOD0.Store())) + crlf(linesOf(frm.lstDataLOD1.Store())));
  }
  expectTheProgramGoesOn();
}

}  // namespace
}  // namespace korvane
