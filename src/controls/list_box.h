#pragma once

#include "controls/control.h"
#include "objectfile/line_store.h"

namespace korvane {

// A list that is never shown: it only holds lines.
class ListBox : public Control {
 public:
  using Control::Control;
  LineStore& Store() { return m_store; }
  const LineStore& Store() const { return m_store; }

 private:
  LineStore m_store;
};

}  // namespace korvane
