#pragma once
// korvane-cli's own part of main: the system's entry (main_posix.cpp,
// main_win32.cpp) hands it the arguments as UTF-8, the program's name left
// out, with standard output writing bytes as they are.

#include <string>
#include <vector>

namespace korvane::cli {

// The exit status.
int runCli(std::vector<std::string> args);

}  // namespace korvane::cli
