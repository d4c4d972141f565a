#pragma once

#include "controls/control.h"

namespace korvane {

// While a frame is disabled nothing inside it takes input; code may still
// change what it holds, and the handlers still run.
class Frame : public Control {
 public:
  using Control::Control;
  const std::string& Caption() const { return Definition().caption; }
};

}  // namespace korvane
