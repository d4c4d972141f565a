#pragma once
// Where the window would read one thing from a source and rewrite another:
// the lookups by section and key against the scan of the stored lines, the
// line ends, values cut by the lookup, ColorKeys the editor refuses or
// changes, NumberOfLOD values it refuses, missing AutoLOD lines and LOD 1
// markers that the reader would not see.

#include <string>
#include <vector>

namespace korvane::cli {

struct Warning {
  int line = 0;  // from 1
  std::string text;
};

struct CheckResult {
  bool readable = true;
  std::string error;              // why not
  std::vector<Warning> warnings;  // in line order
};

CheckResult checkFile(const std::string& path);

}  // namespace korvane::cli
