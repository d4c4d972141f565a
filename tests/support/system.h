#pragma once
// What a test does differently per system: system_posix.cpp and
// system_win32.cpp, one of them chosen by the build.

#include <string>
#include <vector>

namespace korvane::testing {

// The kinds of file that are not regular files which the system offers.
std::vector<std::string> specialFileKinds();
// A file of that kind for role (as a source or "AsTarget"), made at path or
// standing for itself (a device); its path.
std::string makeSpecialFile(const std::string& kind, const std::string& role, const std::string& path);

// Ends the process if it still runs after that many seconds, so that a hang
// fails the test instead of blocking the suite; 0 calls it off.
void endProcessAfter(unsigned seconds);

}  // namespace korvane::testing
