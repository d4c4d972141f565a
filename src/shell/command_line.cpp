#include "shell/command_line.h"

namespace korvane {

namespace {

constexpr const char* kUsage =
    "Usage: korvane [FILE]\n"
    "       korvane --help | --version\n"
    "Opens the window; with FILE, loads it as the LOD 0 (high-detail) source.\n";

CommandLine refuse(const std::string& what) {
  return {CommandLine::Action::Refuse, "", "korvane: " + what + "\n" + kUsage};
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  std::vector<std::string> files;
  bool optionsEnded = false;
  for (const std::string& argument : arguments) {
    if (optionsEnded || argument.empty() || argument[0] != '-') {
      files.push_back(argument);
    } else if (argument == "--") {
      optionsEnded = true;
    } else if (argument == "--help" || argument == "-h") {
      return {CommandLine::Action::Help, "", kUsage};
    } else if (argument == "--version") {
      return {CommandLine::Action::Version, "", ""};
    } else {
      return refuse("unknown option \"" + argument + "\"");
    }
  }
  if (files.size() > 1)
    return refuse("too many files (" + std::to_string(files.size()) + "): give one at most");
  if (files.empty()) return {};
  if (files[0].empty()) return refuse("the file name is empty");
  return {CommandLine::Action::Run, files[0], ""};
}

}  // namespace korvane
