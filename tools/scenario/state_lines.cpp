#include "scenario/state_lines.h"

#include "controls/button.h"
#include "controls/check_box.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/masked_edit.h"
#include "controls/scroll_bar.h"
#include "controls/slider.h"
#include "controls/text_box.h"
#include "scenario/escapes.h"

namespace korvane::scenario {

namespace {

std::string flag(bool value) {
  return value ? "1" : "0";
}

std::string color(const Rgb& rgb) {
  return std::to_string(rgb.red) + "," + std::to_string(rgb.green) + "," + std::to_string(rgb.blue);
}

}  // namespace

bool hasPrintForm(ControlKind kind) {
  return kind != ControlKind::FileDialog;
}

std::vector<Property> printedProperties(const Control& control) {
  const Property enabled{"Enabled", flag(control.Enabled())};
  switch (control.Kind()) {
    case ControlKind::Button:
    case ControlKind::Frame:
      return {enabled};
    case ControlKind::CheckBox:
      return {{"Value", std::to_string(static_cast<const CheckBox&>(control).Value())}, enabled};
    case ControlKind::VScrollBar:
      return {{"Value", std::to_string(static_cast<const VScrollBar&>(control).Value())}, enabled};
    case ControlKind::Slider:
      return {{"Value", std::to_string(static_cast<const Slider&>(control).Value())}, enabled};
    case ControlKind::TextBox:
      return {{"Text", static_cast<const TextBox&>(control).Text()}, enabled};
    case ControlKind::MaskedEdit:
      return {{"Text", static_cast<const MaskedEdit&>(control).Text()}, enabled};
    case ControlKind::Label: {
      const auto& label = static_cast<const Label&>(control);
      if (control.Name() == kSwatchName) return {{"BackColor", color(label.BackColor())}, enabled};
      return {{"Caption", label.Caption()}, enabled};
    }
    case ControlKind::List:
      return {{"ListCount", std::to_string(static_cast<const ListBox&>(control).Store().ListCount())}};
    case ControlKind::FileDialog:
      break;
  }
  return {};
}

std::vector<Property> printedProperties(const ControlDefinition& definition) {
  const Property enabled{"Enabled", flag(definition.enabled)};
  switch (definition.kind) {
    case ControlKind::Button:
    case ControlKind::Frame:
      return {enabled};
    case ControlKind::CheckBox:
    case ControlKind::VScrollBar:
    case ControlKind::Slider:
      return {{"Value", "0"}, enabled};
    case ControlKind::TextBox:
    case ControlKind::MaskedEdit:
      return {{"Text", ""}, enabled};
    case ControlKind::Label:
      if (definition.name == kSwatchName) return {{"BackColor", color(Rgb{})}, enabled};
      return {{"Caption", definition.caption}, enabled};
    case ControlKind::List:
      return {{"ListCount", "0"}};
    case ControlKind::FileDialog:
      break;
  }
  return {};
}

std::vector<Property> windowProperties(bool loaded, bool visible) {
  return {{"Loaded", flag(loaded)}, {"Visible", flag(visible)}};
}

std::string printLine(std::string_view name, const std::vector<Property>& properties) {
  std::string line(name);
  for (const Property& property : properties) line += " " + property.name + "=" + escapeText(property.value);
  return line;
}

}  // namespace korvane::scenario
