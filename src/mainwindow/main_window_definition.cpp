// frmKorvane as data: window properties and the 38 controls with their
// containers, geometry in twips, tab indexes, captions, tool tips and fonts,
// what a screen reader says for those that no caption or label names alone,
// and the control each heading label heads.

#include "mainwindow/main_window.h"

namespace korvane {

namespace {

using K = ControlKind;

const FontSpec kFieldFont{"Arial", 9.75};
const FontSpec kStripFont{"Arial", 9};
const FontSpec kListFont{"Courier New", 8.25};

}  // namespace

const WindowDefinition& mainWindowDefinition() {
  // One row per control, as its designer would read it.
  // clang-format off
  static const WindowDefinition definition({"frmKorvane", "Korvane", 8730, 4635}, {
      // Command column.
      {.name = "btnSaveAs", .kind = K::Button, .left = 7440, .top = 480, .width = 1095, .height = 375,
       .tabIndex = 14, .enabled = false, .caption = "&Save As"},
      {.name = "btnViewHelp", .kind = K::Button, .left = 7440, .top = 1080, .width = 1095, .height = 375,
       .tabIndex = 15, .caption = "View &Help"},
      {.name = "btnExit", .kind = K::Button, .left = 7440, .top = 1680, .width = 1095, .height = 375,
       .tabIndex = 16, .caption = "E&xit"},
      {.name = "chkAddColorKey", .kind = K::CheckBox, .left = 7320, .top = 2280, .width = 1455, .height = 255,
       .tabIndex = 32, .enabled = false, .caption = "Add ColorKey?"},
      {.name = "chkAddLOD1", .kind = K::CheckBox, .left = 7320, .top = 3120, .width = 1215, .height = 255,
       .tabIndex = 31, .enabled = false, .caption = "Add LOD 1?"},
      {.name = "btnAdvancedSettings", .kind = K::Button, .left = 7440, .top = 3480, .width = 1095,
       .height = 375, .tabIndex = 22, .enabled = false, .caption = "&Advanced...",
       .toolTip = "Use Caution With These Settings!!"},
      // High-detail source.
      {.name = "Frame1", .kind = K::Frame, .left = 120, .top = 120, .width = 7095, .height = 855, .tabIndex = 1,
       .caption = "Source KOB File:  LOD 0"},
      {.name = "btnBrowseLOD0", .kind = K::Button, .container = "Frame1", .left = 120, .top = 360,
       .width = 1095, .height = 375, .tabIndex = 10, .caption = "&Browse",
       .toolTip = "Browse for your high detail KOB file  (LOD 0)"},
      {.name = "txtFilePathLOD0", .kind = K::TextBox, .container = "Frame1", .left = 1440, .top = 360,
       .width = 5535, .height = 360, .tabIndex = 11, .enabled = false,
       .toolTip = "Path and File Name of your KOB file  (LOD 0)", .locked = true,
       .spokenName = "Path of the LOD 0 file"},
      // Object data.
      {.name = "Frame2", .kind = K::Frame, .left = 120, .top = 1200, .width = 7095, .height = 1695,
       .tabIndex = 2, .enabled = false, .caption = "LOD 0  Data:"},
      {.name = "lblTextureMap", .kind = K::Label, .container = "Frame2", .left = 360, .top = 360, .width = 975,
       .height = 255, .tabIndex = 7, .enabled = false, .caption = "TextureMap:", .labelFor = "txtTextureMap"},
      {.name = "txtTextureMap", .kind = K::TextBox, .left = 1560, .top = 1440, .width = 3855, .height = 360,
       .tabIndex = 12, .enabled = false, .toolTip = "The Texture Map file name for your object",
       .font = kFieldFont},
      {.name = "btnBrowseTextureMap", .kind = K::Button, .container = "Frame2", .left = 5520, .top = 240,
       .width = 1095, .height = 375, .tabIndex = 13, .enabled = false, .caption = "Browse",
       .toolTip = "Browse for the TGA Texture Map file for your object"},
      {.name = "lblColorKey", .kind = K::Label, .container = "Frame2", .left = 480, .top = 1080, .width = 735,
       .height = 255, .tabIndex = 6, .enabled = false, .caption = "ColorKey:", .labelFor = "mskColorKey0"},
      {.name = "lblR", .kind = K::Label, .container = "Frame2", .left = 1560, .top = 720, .width = 255,
       .height = 255, .tabIndex = 25, .enabled = false, .caption = "R", .centred = true,
       .labelFor = "mskColorKey0"},
      {.name = "lblG", .kind = K::Label, .container = "Frame2", .left = 2520, .top = 720, .width = 255,
       .height = 255, .tabIndex = 24, .enabled = false, .caption = "G", .centred = true,
       .labelFor = "mskColorKey1"},
      {.name = "lblB", .kind = K::Label, .container = "Frame2", .left = 3480, .top = 720, .width = 255,
       .height = 255, .tabIndex = 23, .enabled = false, .caption = "B", .centred = true,
       .labelFor = "mskColorKey2"},
      {.name = "mskColorKey0", .kind = K::MaskedEdit, .container = "Frame2", .left = 1440, .top = 960,
       .width = 495, .height = 375, .tabIndex = 17, .enabled = false, .font = kFieldFont,
       .spokenName = "ColorKey red"},
      {.name = "mskColorKey1", .kind = K::MaskedEdit, .container = "Frame2", .left = 2400, .top = 960,
       .width = 495, .height = 375, .tabIndex = 18, .enabled = false, .font = kFieldFont,
       .spokenName = "ColorKey green"},
      {.name = "mskColorKey2", .kind = K::MaskedEdit, .container = "Frame2", .left = 3360, .top = 960,
       .width = 495, .height = 375, .tabIndex = 19, .enabled = false, .font = kFieldFont,
       .spokenName = "ColorKey blue"},
      {.name = "vscrlColorKey0", .kind = K::VScrollBar, .container = "Frame2", .left = 1920, .top = 960,
       .width = 255, .height = 375, .tabIndex = 28, .enabled = false, .spokenName = "ColorKey red arrows"},
      {.name = "vscrlColorKey1", .kind = K::VScrollBar, .container = "Frame2", .left = 2880, .top = 960,
       .width = 255, .height = 375, .tabIndex = 29, .enabled = false, .spokenName = "ColorKey green arrows"},
      {.name = "vscrlColorKey2", .kind = K::VScrollBar, .container = "Frame2", .left = 3840, .top = 960,
       .width = 255, .height = 375, .tabIndex = 30, .enabled = false, .spokenName = "ColorKey blue arrows"},
      {.name = "sldColorKey0", .kind = K::Slider, .container = "Frame2", .left = 1320, .top = 1360,
       .width = 735, .height = 255, .tabIndex = 34, .enabled = false, .spokenName = "ColorKey red slider"},
      {.name = "sldColorKey1", .kind = K::Slider, .container = "Frame2", .left = 2280, .top = 1360,
       .width = 735, .height = 255, .tabIndex = 35, .enabled = false, .spokenName = "ColorKey green slider"},
      {.name = "sldColorKey2", .kind = K::Slider, .container = "Frame2", .left = 3240, .top = 1360,
       .width = 735, .height = 255, .tabIndex = 36, .enabled = false, .spokenName = "ColorKey blue slider"},
      {.name = "lblShowColor", .kind = K::Label, .container = "Frame2", .left = 4320, .top = 720, .width = 855,
       .height = 855, .tabIndex = 33, .enabled = false, .border = true, .spokenName = "ColorKey colour"},
      {.name = "lblNumberOfLOD", .kind = K::Label, .container = "Frame2", .left = 5400, .top = 1080,
       .width = 1215, .height = 255, .tabIndex = 8, .enabled = false, .caption = "Number Of LOD:",
       .labelFor = "lblLODnum"},
      {.name = "lblLODnum", .kind = K::Label, .container = "Frame2", .left = 6720, .top = 1080, .width = 255,
       .height = 255, .tabIndex = 9, .enabled = false, .border = true},
      // Low-detail source.
      {.name = "Frame4", .kind = K::Frame, .left = 120, .top = 3120, .width = 7095, .height = 855,
       .tabIndex = 27, .enabled = false, .caption = "Source KOB File:  LOD 1"},
      {.name = "btnBrowseLOD1", .kind = K::Button, .container = "Frame4", .left = 120, .top = 360,
       .width = 1095, .height = 375, .tabIndex = 20, .enabled = false, .caption = "Browse",
       .toolTip = "Browse for your low detail KOB file  (LOD 1)"},
      {.name = "txtFilePathLOD1", .kind = K::TextBox, .container = "Frame4", .left = 1440, .top = 360,
       .width = 5535, .height = 360, .tabIndex = 21, .enabled = false,
       .toolTip = "Path and File Name of your KOB file  (LOD 1)", .locked = true,
       .spokenName = "Path of the LOD 1 file"},
      // Bottom strip.
      {.name = "Frame3", .kind = K::Frame, .left = -120, .top = 4080, .width = 9015, .height = 615,
       .tabIndex = 3},
      {.name = "Label1", .kind = K::Label, .container = "Frame3", .left = 360, .top = 240, .width = 4215,
       .height = 255, .tabIndex = 4, .caption = "Korvane  -  KOB texture, ColorKey and LOD merge",
       .font = kStripFont},
      {.name = "Label2", .kind = K::Label, .container = "Frame3", .left = 8040, .top = 240, .width = 735,
       .height = 255, .tabIndex = 5, .caption = "Ver:  2.0", .font = kStripFont},
      // Never on screen.
      {.name = "lstDataLOD0", .kind = K::List, .left = 0, .top = 4800, .width = 8775, .height = 1320,
       .tabIndex = 0, .enabled = false, .visible = false, .font = kListFont},
      {.name = "lstDataLOD1", .kind = K::List, .left = 0, .top = 6600, .width = 8775, .height = 1530,
       .tabIndex = 26, .visible = false, .font = kListFont},
      {.name = "CommonDialog1", .kind = K::FileDialog, .left = 0, .top = 0, .width = 0, .height = 0,
       .tabIndex = -1, .visible = false},
  });
  // clang-format on
  return definition;
}

const ControlDefinition& mainWindowControl(const std::string& name) {
  return mainWindowDefinition().control(name);
}

MaskedEditSettings colorKeyFieldSettings() {
  return MaskedEditSettings{"###", 3, ""};
}

}  // namespace korvane
