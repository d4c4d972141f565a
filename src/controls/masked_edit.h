#pragma once

#include <string>

#include "controls/control.h"

namespace korvane {

struct MaskedEditSettings {
  std::string mask;    // "###": digits only, one a place; empty: any text
  int maxLength = 0;   // binds typing only
  std::string format;  // how the text shows while the field has no focus
};

// Text holds what stands in the field, without prompt characters. A change of
// Text runs the change handler inside the set; the same text runs nothing.
class MaskedEdit : public Control {
 public:
  MaskedEdit(Form& form, ControlDefinition definition, MaskedEditSettings settings)
      : Control(form, std::move(definition)), m_settings(std::move(settings)) {}
  std::function<void()> onChange;
  std::function<void()> onLostFocus;

  const std::string& Text() const { return m_text; }
  // With a mask, anything but the empty text or up to as many digits as the
  // mask has places is refused with failure 380 and the field keeps its text.
  void SetText(const std::string& text);
  // Whether the author's typing may leave this text in the field.
  bool AcceptsTyped(const std::string& text) const;
  // The focus left the field.
  void LostFocus() {
    if (onLostFocus) onLostFocus();
  }
  const MaskedEditSettings& Settings() const { return m_settings; }

 private:
  MaskedEditSettings m_settings;
  std::string m_text;
};

}  // namespace korvane
