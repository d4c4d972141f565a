#include "bench_job.h"

#include <chrono>
#include <numeric>
#include <optional>
#include <utility>

#include "advanced/autolod.h"
#include "desktop/headless_platform.h"
#include "mainwindow/color_key_editor.h"
#include "mainwindow/source_loading.h"
#include "mainwindow/window_procedures.h"
#include "objectfile/source_snapshot.h"
#include "objectfile/source_validation.h"
#include "rewrite/lod_merge.h"
#include "rewrite/material_lines.h"
#include "shell/program.h"

namespace korvane::bench {

const std::array<const char*, kStepCount> kStepNames = {"lookups0", "read0",   "lookups1", "read1", "texmap",
                                                        "colorkey", "lodinfo", "lod1",     "save"};

double StepTimes::total() const {
  return std::accumulate(seconds.begin(), seconds.end(), 0.0);
}

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

template <class Body>
double timed(Body&& body) {
  auto start = Clock::now();
  body();
  return secondsSince(start);
}

void finish(JobOutcome& outcome, Program& program, HeadlessPlatform& platform) {
  outcome.messages = std::move(platform.messages);
  frmAdvancedSettings& settings = program.AdvancedSettings();
  outcome.autoLOD0 = settings.mskAutoLOD0.Text();
  outcome.autoLOD1 = settings.mskAutoLOD1.Text();
}

}  // namespace

JobOutcome runJobInSteps(const JobFiles& files) {
  HeadlessPlatform platform;
  JobOutcome outcome;
  {
    Program program(platform);
    program.Main();
    frmKorvane& frm = program.MainWindow();
    auto& t = outcome.steps.seconds;

    std::optional<SourceSnapshot> lod0;
    std::optional<SourceSnapshot> lod1;
    // What btnBrowseLOD0_Click does once the dialog has given the path.
    t[kLookupsLOD0] = timed([&] {
      lod0.emplace(files.lod0);
      if (!ValidateFileLOD0(platform, *lod0)) return;
      frm.txtFilePathLOD0.SetText(files.lod0);
      ReadTextureMap(frm, *lod0);
      ReadColorKeyINI(frm, *lod0);
      ReadNumberOfLOD(frm, *lod0);
    });
    t[kReadLOD0] = timed([&] { ReadFileLOD0(frm, std::move(*lod0)); });

    // The opening branch of chkAddLOD1_Click. The box goes to 1 with its
    // handler held back, since the handler is what these steps replay.
    // Without a LOD 1 source, the LOD 0 source holds two LODs already.
    if (!files.lod1.empty())
      t[kLookupsLOD1] = timed([&] {
        lod1.emplace(files.lod1);
        if (!ValidateFileLOD1(platform, *lod1)) return;
        auto handler = std::exchange(frm.chkAddLOD1.onClick, nullptr);
        frm.chkAddLOD1.SetValue(1);
        frm.chkAddLOD1.onClick = std::move(handler);
        UseDefaultAutoLOD(frm);
        frm.txtFilePathLOD1.SetText(files.lod1);
      });
    if (!files.lod1.empty()) t[kReadLOD1] = timed([&] { ReadFileLOD1(frm, std::move(*lod1)); });

    // btnSaveAs_Click once the dialog has given the path.
    t[kTextureMap] = timed([&] { UpdateTextureMapLOD0(frm); });
    t[kColorKey] = timed([&] { UpdateColorKeyLOD0(frm); });
    t[kLODInformation] = timed([&] { UpdateLODInformation(frm); });
    t[kLOD1] = timed([&] { UpdateLOD1(frm); });
    t[kSaveCombined] = timed([&] { SaveFileCombined(frm, files.output); });

    finish(outcome, program, platform);
  }
  outcome.seconds = outcome.steps.total();
  return outcome;
}

JobOutcome runJobByClicks(const JobFiles& files) {
  HeadlessPlatform platform;
  JobOutcome outcome;
  {
    Program program(platform);
    program.Main();
    frmKorvane& frm = program.MainWindow();
    platform.answer(files.lod0);
    platform.answer(files.lod1);
    platform.answer(files.output);
    outcome.seconds = timed([&] {
      frm.btnBrowseLOD0.Click();
      frm.chkAddLOD1.AuthorClick();
      frm.btnSaveAs.Click();
    });
    finish(outcome, program, platform);
  }
  return outcome;
}

double timeStartUp() {
  HeadlessPlatform platform;
  Program program(platform);
  return timed([&] { program.Main(); });
}

}  // namespace korvane::bench
