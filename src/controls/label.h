#pragma once

#include <string>

#include "controls/control.h"

namespace korvane {

struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
  bool operator==(const Rgb&) const = default;
};

class Label : public Control {
 public:
  explicit Label(Form& form, ControlDefinition definition)
      : Control(form, definition), m_caption(definition.caption) {}
  const std::string& Caption() const { return m_caption; }
  void SetCaption(const std::string& caption) {
    if (caption == m_caption) return;
    m_caption = caption;
    changed();
  }
  const Rgb& BackColor() const { return m_backColor; }
  void SetBackColor(const Rgb& color) {
    if (color == m_backColor) return;
    m_backColor = color;
    changed();
  }

 private:
  std::string m_caption;
  Rgb m_backColor{};
};

}  // namespace korvane
