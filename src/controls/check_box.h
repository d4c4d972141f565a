#pragma once

#include "controls/control.h"

namespace korvane {

// Value 0 unchecked, 1 checked, 2 grayed. Every change of Value runs the click
// handler at once, inside the set; a set to the present value runs nothing.
class CheckBox : public Control {
 public:
  using Control::Control;
  std::function<void()> onClick;

  int Value() const { return m_value; }
  // Refuses anything but 0, 1 and 2 with failure 380.
  void SetValue(int value);
  // The author's click toggles between unchecked and checked only.
  void AuthorClick() { SetValue(m_value == 0 ? 1 : 0); }

 private:
  int m_value = 0;
};

}  // namespace korvane
