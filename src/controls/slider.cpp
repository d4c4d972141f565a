#include "controls/slider.h"

#include "runtime/failure.h"

namespace korvane {

void Slider::SetValue(long long value) {
  if (value < m_min || value > m_max) throw RuntimeFailure(failure_number::InvalidPropertyValue);
  if (value == m_value) return;
  m_value = static_cast<std::int32_t>(value);
  changed();
}

void Slider::AuthorMove(long long value) {
  if (value == m_value) return;
  SetValue(value);
  if (onChange) onChange();
}

}  // namespace korvane
