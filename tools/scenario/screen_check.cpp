#include "scenario/screen_check.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSlider>
#include <optional>

#include "advanced/autolod.h"
#include "controls/masked_edit.h"
#include "controls/scroll_bar.h"
#include "qt/record_values.h"

namespace korvane::scenario {

namespace {

std::string flag(bool value) {
  return value ? "1" : "0";
}

// What a field should show for the record's text: a field with a display
// format shows the formatted text while it does not have the focus.
std::string expectedFieldText(const Control& control, const QWidget& widget, const std::string& text) {
  if (control.Kind() != ControlKind::MaskedEdit) return text;
  if (static_cast<const MaskedEdit&>(control).Settings().format.empty() || widget.hasFocus()) return text;
  return FormatAutoLODForDisplay(text);
}

std::optional<std::string> screenValue(const Control& control, const QWidget& widget,
                                       const std::string& property) {
  if (property == "Enabled") return flag(!widget.testAttribute(Qt::WA_ForceDisabled));
  if (property == "Value") {
    if (auto* box = qobject_cast<const QCheckBox*>(&widget))
      return std::to_string(valueOfCheckState(box->checkState()));
    if (auto* bar = qobject_cast<const QScrollBar*>(&widget)) {
      const auto& record = static_cast<const VScrollBar&>(control);
      return std::to_string(barRecordValue(record.Min(), record.Max(), bar->value()));
    }
    if (auto* slider = qobject_cast<const QSlider*>(&widget)) return std::to_string(slider->value());
  }
  if (property == "Text") {
    if (auto* edit = qobject_cast<const QLineEdit*>(&widget)) return edit->text().toStdString();
  }
  if (property == "Caption") {
    if (auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
  }
  if (property == "BackColor") {
    const QColor color = widget.palette().color(QPalette::Window);
    return std::to_string(color.red()) + "," + std::to_string(color.green()) + "," +
           std::to_string(color.blue());
  }
  return std::nullopt;
}

}  // namespace

std::vector<Disagreement> compareWithScreen(const Control& control, const QWidget& widget,
                                            const std::vector<Property>& printed) {
  std::vector<Disagreement> disagreements;
  for (const Property& property : printed) {
    const std::optional<std::string> screen = screenValue(control, widget, property.name);
    if (!screen) continue;
    const std::string expected =
        property.name == "Text" ? expectedFieldText(control, widget, property.value) : property.value;
    if (*screen != expected) disagreements.push_back({property.name, *screen});
  }
  return disagreements;
}

std::vector<Disagreement> compareWindowWithScreen(const QWidget& window,
                                                  const std::vector<Property>& printed) {
  std::vector<Disagreement> disagreements;
  for (const Property& property : printed) {
    if (property.name != "Visible") continue;
    const std::string screen = flag(window.isVisible());
    if (screen != property.value) disagreements.push_back({property.name, screen});
  }
  return disagreements;
}

}  // namespace korvane::scenario
