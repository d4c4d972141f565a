// frmAdvancedSettings as data.

#include <map>
#include <stdexcept>

#include "advanced/advanced_settings_window.h"

namespace korvane {

namespace {

std::map<std::string, ControlDefinition> buildTable() {
  using K = ControlKind;
  auto control = [](std::string name, K kind, std::string container, int left, int top, int width, int height,
                    int tabIndex, std::string caption = {}, std::string toolTip = {}) {
    ControlDefinition d;
    d.name = std::move(name);
    d.kind = kind;
    d.container = std::move(container);
    d.left = left;
    d.top = top;
    d.width = width;
    d.height = height;
    d.tabIndex = tabIndex;
    d.caption = std::move(caption);
    d.toolTip = std::move(toolTip);
    if (kind == K::MaskedEdit) d.font = FontSpec{"Arial", 9.75};
    return d;
  };
  std::vector<ControlDefinition> all = {
      control("OKButton", K::Button, "", 1680, 1800, 1215, 375, 0, "OK"),
      control("btnUseDefault", K::Button, "", 240, 1800, 1215, 375, 1, "Use &Default",
              "Load Defaults Which Approximate Vastmere's Stock Objects"),
      control("mskAutoLOD0", K::MaskedEdit, "Frame1", 1440, 360, 855, 375, 2),
      control("mskAutoLOD1", K::MaskedEdit, "Frame1", 1440, 840, 855, 375, 3),
      control("Frame1", K::Frame, "", 240, 120, 2655, 1455, 4, "LOD Transition Point"),
      control("lblAutoLOD0", K::Label, "Frame1", 360, 480, 975, 255, 5, "AutoLOD#0:"),
      control("lblAutoLOD1", K::Label, "Frame1", 360, 960, 975, 255, 6, "AutoLOD#1:"),
  };
  std::map<std::string, ControlDefinition> table;
  const std::map<std::string, std::string> headings = {{"lblAutoLOD0", "mskAutoLOD0"},
                                                       {"lblAutoLOD1", "mskAutoLOD1"}};
  for (auto& d : all) {
    if (auto heads = headings.find(d.name); heads != headings.end()) d.labelFor = heads->second;
    table.emplace(d.name, d);
  }
  return table;
}

}  // namespace

const ControlDefinition& advancedSettingsControl(const std::string& name) {
  static const std::map<std::string, ControlDefinition> table = buildTable();
  auto found = table.find(name);
  if (found == table.end()) throw std::logic_error("frmAdvancedSettings has no control " + name);
  return found->second;
}

const FormDefinition& advancedSettingsDefinition() {
  static const FormDefinition definition{"frmAdvancedSettings", "Advanced Settings", 3135, 2370};
  return definition;
}

MaskedEditSettings autoLodFieldSettings() {
  return MaskedEditSettings{"", 6, "0.000"};
}

}  // namespace korvane
