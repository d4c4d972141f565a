#pragma once
// How long the Qt program takes from its start until its window is up.

#include <optional>
#include <string>

namespace korvane::bench {

// Starts the program under QT_QPA_PLATFORM=offscreen several times and gives
// the median time from the start to the moment its CPU time stops growing:
// the window has been built, shown and painted and the event loop waits.
// nullopt when the program cannot be started or ends by itself.
std::optional<double> timeQtStartUp(const std::string& program);

}  // namespace korvane::bench
