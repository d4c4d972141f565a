#include "bench_job.h"

#include <chrono>
#include <numeric>
#include <utility>

#include "advanced/advanced_settings_window.h"
#include "desktop/headless_platform.h"
#include "mainwindow/save_as.h"
#include "mainwindow/source_loading.h"
#include "shell/program.h"

namespace korvane::bench {

const std::array<const char*, kStepCount> kStepNames = {"open0", "add1", "save"};

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

    // The steps of the three handlers once their dialogs have given the paths.
    // Without a LOD 1 source, the LOD 0 source holds two LODs already.
    t[kOpenLOD0] = timed([&] { OpenSourceLOD0(frm, files.lod0); });
    if (!files.lod1.empty()) t[kAddLOD1] = timed([&] { TickAddLOD1(frm, files.lod1); });
    t[kSaveAs] = timed([&] { SaveAs(frm, files.output); });

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
