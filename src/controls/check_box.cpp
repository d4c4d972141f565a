#include "controls/check_box.h"

#include "runtime/failure.h"

namespace korvane {

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw RuntimeFailure(failure_number::InvalidPropertyValue);
  if (value == m_value) return;
  m_value = value;
  changed();
  if (onClick) onClick();
}

}  // namespace korvane
