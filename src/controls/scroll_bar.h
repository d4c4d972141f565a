#pragma once

#include <cstdint>

#include "controls/control.h"

namespace korvane {

// Min stands at the top of the bar, Max at the bottom. Every change of Value
// runs the change handler inside the set; a set to the present value runs nothing.
class VScrollBar : public Control {
 public:
  VScrollBar(Form& form, ControlDefinition definition, int min, int max)
      : Control(form, std::move(definition)), m_min(min), m_max(max) {}
  std::function<void()> onChange;

  std::int16_t Value() const { return m_value; }
  // A value outside Min..Max is refused with failure 380 and the bar keeps its value.
  void SetValue(long long value);
  int Min() const { return m_min; }
  int Max() const { return m_max; }

 private:
  int m_min;
  int m_max;
  std::int16_t m_value = 0;
};

}  // namespace korvane
