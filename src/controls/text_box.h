#pragma once

#include <string>

#include "controls/control.h"

namespace korvane {

class TextBox : public Control {
 public:
  using Control::Control;
  const std::string& Text() const { return m_text; }
  void SetText(const std::string& text) {
    if (text == m_text) return;
    m_text = text;
    changed();
  }
  bool Locked() const { return Definition().locked; }

 private:
  std::string m_text;
};

}  // namespace korvane
