#pragma once

#include <cstdint>

#include "controls/control.h"

namespace korvane {

// The handler runs only when the author moves the slider; a set by code runs nothing.
class Slider : public Control {
 public:
  Slider(Form& form, ControlDefinition definition, int min, int max, int smallChange, int largeChange)
      : Control(form, std::move(definition)),
        m_min(min),
        m_max(max),
        m_smallChange(smallChange),
        m_largeChange(largeChange) {}
  std::function<void()> onChange;

  std::int32_t Value() const { return m_value; }
  // A value outside Min..Max is refused with failure 380.
  void SetValue(long long value);
  // The author dragged the slider to value: a change runs the handler.
  void AuthorMove(long long value);

  int Min() const { return m_min; }
  int Max() const { return m_max; }
  int SmallChange() const { return m_smallChange; }
  int LargeChange() const { return m_largeChange; }

 private:
  int m_min;
  int m_max;
  int m_smallChange;
  int m_largeChange;
  std::int32_t m_value = 0;
};

}  // namespace korvane
