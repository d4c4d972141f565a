#pragma once
// Holds what `print` read from a record against the widget on screen. The
// record is the program's state; the widget only mirrors it, so any
// difference is a fault of the mirror, reported as a MISMATCH line.

#include <string>
#include <vector>

#include "scenario/state_lines.h"

class QWidget;

namespace korvane {
class Control;
}

namespace korvane::scenario {

struct Disagreement {
  std::string property;
  std::string screen;  // unescaped
};

std::vector<Disagreement> compareWithScreen(const Control& control, const QWidget& widget,
                                            const std::vector<Property>& printed);

// Visible of a window against whether its widget is on screen.
std::vector<Disagreement> compareWindowWithScreen(const QWidget& window,
                                                  const std::vector<Property>& printed);

}  // namespace korvane::scenario
