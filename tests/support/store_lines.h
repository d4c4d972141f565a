#pragma once
// A LineStore filled from lines, and read back whole to compare in one assertion.

#include <string>
#include <vector>

#include "objectfile/line_store.h"

namespace korvane::testing {

inline void addLines(LineStore& store, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) store.AddItem(line);
}

inline std::vector<std::string> linesOf(const LineStore& store) {
  std::vector<std::string> lines;
  for (std::int32_t index = 0; index < store.ListCount(); ++index) lines.emplace_back(store.List(index));
  return lines;
}

}  // namespace korvane::testing
