#pragma once
// The author's whole job on two sources, as the program runs it: open the
// LOD 0 source, add the LOD 1 source, save the combined file. Timed two ways
// on a fresh Program each time: step by step through the workflow steps the
// handlers call with the dialogs' paths, and as three clicks on the records.

#include <array>
#include <string>
#include <vector>

namespace korvane::bench {

struct JobFiles {
  std::string lod0;
  std::string lod1;
  std::string output;
};

// The steps the window's handlers take once their dialogs have given a path.
enum Step {
  kOpenLOD0,  // OpenSourceLOD0: validation, lookups, the lines stored
  kAddLOD1,   // TickAddLOD1: the box ticked, validation, defaults, the lines stored
  kSaveAs,    // SaveSourcesAs: the rewriting of the stored lines and the write
  kStepCount
};

extern const std::array<const char*, kStepCount> kStepNames;

struct StepTimes {
  std::array<double, kStepCount> seconds{};
  double total() const;
};

struct JobOutcome {
  double seconds = 0;
  StepTimes steps;                    // only for the step-by-step run
  std::vector<std::string> messages;  // any message box is a sign the job went wrong
  std::string autoLOD0;               // the AutoLOD texts that were written
  std::string autoLOD1;
};

JobOutcome runJobInSteps(const JobFiles& files);
JobOutcome runJobByClicks(const JobFiles& files);

// Program::Main with nothing to load, on a fresh Program: seconds.
double timeStartUp();

}  // namespace korvane::bench
