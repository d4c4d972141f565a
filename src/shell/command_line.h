#pragma once
// What `korvane` makes of its arguments, decided before any window or display
// is needed: nothing, one KOB file to open as the LOD 0 source, or a question.

#include <string>
#include <vector>

namespace korvane {

struct CommandLine {
  enum class Action { Run, Help, Version, Refuse };
  Action action = Action::Run;
  std::string file;  // Run: the file to open, or empty for none
  // Help: the usage for standard output. Refuse: what is wrong and the usage,
  // for standard error, and the program exits with status 2.
  std::string text;
};

inline constexpr int kUsageExitStatus = 2;

// The arguments after the program's name.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace korvane
