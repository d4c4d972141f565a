// frmAdvancedSettings as data: window properties and its seven controls.

#include "advanced/advanced_settings_window.h"

namespace korvane {

namespace {

using K = ControlKind;

const FontSpec kFieldFont{"Arial", 9.75};

}  // namespace

const WindowDefinition& advancedSettingsDefinition() {
  // One row per control, as its designer would read it.
  // clang-format off
  static const WindowDefinition definition({"frmAdvancedSettings", "Advanced Settings", 3135, 2370}, {
      {.name = "OKButton", .kind = K::Button, .left = 1680, .top = 1800, .width = 1215, .height = 375,
       .tabIndex = 0, .caption = "OK"},
      {.name = "btnUseDefault", .kind = K::Button, .left = 240, .top = 1800, .width = 1215, .height = 375,
       .tabIndex = 1, .caption = "Use &Default", .toolTip = "Load Defaults Which Approximate Vastmere's Stock Objects"},
      {.name = "mskAutoLOD0", .kind = K::MaskedEdit, .container = "Frame1", .left = 1440, .top = 360,
       .width = 855, .height = 375, .tabIndex = 2, .font = kFieldFont},
      {.name = "mskAutoLOD1", .kind = K::MaskedEdit, .container = "Frame1", .left = 1440, .top = 840,
       .width = 855, .height = 375, .tabIndex = 3, .font = kFieldFont},
      {.name = "Frame1", .kind = K::Frame, .left = 240, .top = 120, .width = 2655, .height = 1455,
       .tabIndex = 4, .caption = "LOD Transition Point"},
      {.name = "lblAutoLOD0", .kind = K::Label, .container = "Frame1", .left = 360, .top = 480, .width = 975,
       .height = 255, .tabIndex = 5, .caption = "AutoLOD#0:", .labelFor = "mskAutoLOD0"},
      {.name = "lblAutoLOD1", .kind = K::Label, .container = "Frame1", .left = 360, .top = 960, .width = 975,
       .height = 255, .tabIndex = 6, .caption = "AutoLOD#1:", .labelFor = "mskAutoLOD1"},
  });
  // clang-format on
  return definition;
}

const ControlDefinition& advancedSettingsControl(const std::string& name) {
  return advancedSettingsDefinition().control(name);
}

MaskedEditSettings autoLodFieldSettings() {
  return MaskedEditSettings{"", 6, "0.000"};
}

}  // namespace korvane
