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

// One opening reads its source once: a file deleted or replaced after its
// validation, ahead of the lookups or of the reading of the lines, still
// opens as it was validated, whole.
TEST_F(FaultInjection, ASourceChangedDuringItsOpeningOpensAsValidated) {
  const Lines tower = {"[Material - 0]", "TextureMap=tower.tga", "[LOD Information]",
                       "NumberOfLOD=2",  "AutoLOD#0=0.5",        "AutoLOD#1=0.125"};
  const struct {
    const char* name;
    std::function<bool()> when;
    bool replaced;
  } rows[] = {
      {"deleted ahead of the lookups", [&] { return !frm.txtFilePathLOD0.Text().empty(); }, false},
      {"replaced ahead of the lookups", [&] { return !frm.txtFilePathLOD0.Text().empty(); }, true},
      {"deleted ahead of the lines", [&] { return frm.lblLODnum.Caption() == "2"; }, false},
  };
  for (const auto& row : rows) {
    const std::string path = source("tower.kob", tower);
    strike(row.when, [&, replaced = row.replaced] {
      std::filesystem::remove(path);
      if (replaced) dir.write("tower.kob", crlf(kCrate));
    });
    platform.clearLog();
    click(frm.btnBrowseLOD0, path);
    EXPECT_EQ(platform.messages, Lines{}) << row.name;
    EXPECT_EQ(frm.txtTextureMap.Text(), "tower.tga") << row.name;
    EXPECT_EQ(frm.chkAddLOD1.Value(), 2) << row.name;
    EXPECT_EQ(linesOf(frm.lstDataLOD0.Store()), tower) << row.name;
    expectTheProgramGoesOn();
  }
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
