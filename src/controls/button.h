#pragma once

#include "controls/control.h"

namespace korvane {

class Button : public Control {
 public:
  using Control::Control;
  std::function<void()> onClick;
  // A click, by the author or by code: runs the click handler.
  void Click() {
    if (onClick) onClick();
  }
};

}  // namespace korvane
