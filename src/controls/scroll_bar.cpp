#include "controls/scroll_bar.h"

#include <algorithm>

#include "runtime/failure.h"

namespace korvane {

void VScrollBar::SetValue(long long value) {
  if (value < std::min(m_min, m_max) || value > std::max(m_min, m_max)) {
    throw RuntimeFailure(failure_number::InvalidPropertyValue);
  }
  if (value == m_value) return;
  m_value = static_cast<std::int16_t>(value);
  changed();
  if (onChange) onChange();
}

}  // namespace korvane
