// frmKorvane as data: window properties and the 38 controls with their
// containers, geometry in twips, tab indexes, captions, tool tips and fonts.

#include <map>
#include <stdexcept>

#include "mainwindow/main_window.h"

namespace korvane {

namespace {

using K = ControlKind;

const FontSpec kFieldFont{"Arial", 9.75};
const FontSpec kStripFont{"Arial", 9};
const FontSpec kListFont{"Courier New", 8.25};

ControlDefinition control(std::string name, K kind, std::string container, int left, int top, int width,
                          int height, int tabIndex, bool enabled, std::string caption = {},
                          std::string toolTip = {}) {
  ControlDefinition d;
  d.name = std::move(name);
  d.kind = kind;
  d.container = std::move(container);
  d.left = left;
  d.top = top;
  d.width = width;
  d.height = height;
  d.tabIndex = tabIndex;
  d.enabled = enabled;
  d.caption = std::move(caption);
  d.toolTip = std::move(toolTip);
  return d;
}

std::map<std::string, ControlDefinition> buildTable() {
  std::vector<ControlDefinition> all = {
      // Command column.
      control("btnSaveAs", K::Button, "", 7440, 480, 1095, 375, 14, false, "&Save As"),
      control("btnViewHelp", K::Button, "", 7440, 1080, 1095, 375, 15, true, "View &Help"),
      control("btnExit", K::Button, "", 7440, 1680, 1095, 375, 16, true, "E&xit"),
      control("chkAddColorKey", K::CheckBox, "", 7320, 2280, 1455, 255, 32, false, "Add ColorKey?"),
      control("chkAddLOD1", K::CheckBox, "", 7320, 3120, 1215, 255, 31, false, "Add LOD 1?"),
      control("btnAdvancedSettings", K::Button, "", 7440, 3480, 1095, 375, 22, false, "&Advanced...",
              "Use Caution With These Settings!!"),
      // High-detail source.
      control("Frame1", K::Frame, "", 120, 120, 7095, 855, 1, true, "Source KOB File:  LOD 0"),
      control("btnBrowseLOD0", K::Button, "Frame1", 120, 360, 1095, 375, 10, true, "&Browse",
              "Browse for your high detail KOB file  (LOD 0)"),
      control("txtFilePathLOD0", K::TextBox, "Frame1", 1440, 360, 5535, 360, 11, false, "",
              "Path and File Name of your KOB file  (LOD 0)"),
      // Object data.
      control("Frame2", K::Frame, "", 120, 1200, 7095, 1695, 2, false, "LOD 0  Data:"),
      control("lblTextureMap", K::Label, "Frame2", 360, 360, 975, 255, 7, false, "TextureMap:"),
      control("txtTextureMap", K::TextBox, "", 1560, 1440, 3855, 360, 12, false, "",
              "The Texture Map file name for your object"),
      control("btnBrowseTextureMap", K::Button, "Frame2", 5520, 240, 1095, 375, 13, false, "Browse",
              "Browse for the TGA Texture Map file for your object"),
      control("lblColorKey", K::Label, "Frame2", 480, 1080, 735, 255, 6, false, "ColorKey:"),
      control("lblR", K::Label, "Frame2", 1560, 720, 255, 255, 25, false, "R"),
      control("lblG", K::Label, "Frame2", 2520, 720, 255, 255, 24, false, "G"),
      control("lblB", K::Label, "Frame2", 3480, 720, 255, 255, 23, false, "B"),
      control("mskColorKey0", K::MaskedEdit, "Frame2", 1440, 960, 495, 375, 17, false),
      control("mskColorKey1", K::MaskedEdit, "Frame2", 2400, 960, 495, 375, 18, false),
      control("mskColorKey2", K::MaskedEdit, "Frame2", 3360, 960, 495, 375, 19, false),
      control("vscrlColorKey0", K::VScrollBar, "Frame2", 1920, 960, 255, 375, 28, false),
      control("vscrlColorKey1", K::VScrollBar, "Frame2", 2880, 960, 255, 375, 29, false),
      control("vscrlColorKey2", K::VScrollBar, "Frame2", 3840, 960, 255, 375, 30, false),
      control("sldColorKey0", K::Slider, "Frame2", 1320, 1360, 735, 255, 34, false),
      control("sldColorKey1", K::Slider, "Frame2", 2280, 1360, 735, 255, 35, false),
      control("sldColorKey2", K::Slider, "Frame2", 3240, 1360, 735, 255, 36, false),
      control("lblShowColor", K::Label, "Frame2", 4320, 720, 855, 855, 33, false),
      control("lblNumberOfLOD", K::Label, "Frame2", 5400, 1080, 1215, 255, 8, false, "Number Of LOD:"),
      control("lblLODnum", K::Label, "Frame2", 6720, 1080, 255, 255, 9, false),
      // Low-detail source.
      control("Frame4", K::Frame, "", 120, 3120, 7095, 855, 27, false, "Source KOB File:  LOD 1"),
      control("btnBrowseLOD1", K::Button, "Frame4", 120, 360, 1095, 375, 20, false, "Browse",
              "Browse for your low detail KOB file  (LOD 1)"),
      control("txtFilePathLOD1", K::TextBox, "Frame4", 1440, 360, 5535, 360, 21, false, "",
              "Path and File Name of your KOB file  (LOD 1)"),
      // Bottom strip.
      control("Frame3", K::Frame, "", -120, 4080, 9015, 615, 3, true),
      control("Label1", K::Label, "Frame3", 360, 240, 4215, 255, 4, true,
              "Korvane  -  KOB texture, ColorKey and LOD merge"),
      control("Label2", K::Label, "Frame3", 8040, 240, 735, 255, 5, true, "Ver:  2.0"),
      // Never on screen.
      control("lstDataLOD0", K::List, "", 0, 4800, 8775, 1320, 0, false),
      control("lstDataLOD1", K::List, "", 0, 6600, 8775, 1530, 26, true),
      control("CommonDialog1", K::FileDialog, "", 0, 0, 0, 0, -1, true),
  };
  // What a screen reader says for the controls that no caption or label names alone.
  const std::map<std::string, std::string> spokenNames = {
      {"txtFilePathLOD0", "Path of the LOD 0 file"},
      {"txtFilePathLOD1", "Path of the LOD 1 file"},
      {"mskColorKey0", "ColorKey red"},
      {"mskColorKey1", "ColorKey green"},
      {"mskColorKey2", "ColorKey blue"},
      {"vscrlColorKey0", "ColorKey red arrows"},
      {"vscrlColorKey1", "ColorKey green arrows"},
      {"vscrlColorKey2", "ColorKey blue arrows"},
      {"sldColorKey0", "ColorKey red slider"},
      {"sldColorKey1", "ColorKey green slider"},
      {"sldColorKey2", "ColorKey blue slider"},
      {"lblShowColor", "ColorKey colour"},
  };
  const std::map<std::string, std::string> headings = {
      {"lblTextureMap", "txtTextureMap"}, {"lblColorKey", "mskColorKey0"}, {"lblR", "mskColorKey0"},
      {"lblG", "mskColorKey1"},           {"lblB", "mskColorKey2"},        {"lblNumberOfLOD", "lblLODnum"},
  };
  std::map<std::string, ControlDefinition> table;
  for (auto& d : all) {
    if (auto name = spokenNames.find(d.name); name != spokenNames.end()) d.spokenName = name->second;
    if (auto heads = headings.find(d.name); heads != headings.end()) d.labelFor = heads->second;
    if (d.kind == K::TextBox && (d.name == "txtFilePathLOD0" || d.name == "txtFilePathLOD1")) d.locked = true;
    if (d.name == "lblR" || d.name == "lblG" || d.name == "lblB") d.centred = true;
    if (d.name == "lblShowColor" || d.name == "lblLODnum") d.border = true;
    if (d.name == "txtTextureMap" || d.kind == K::MaskedEdit) d.font = kFieldFont;
    if (d.name == "Label1" || d.name == "Label2") d.font = kStripFont;
    if (d.kind == K::List) {
      d.font = kListFont;
      d.visible = false;
    }
    if (d.kind == K::FileDialog) d.visible = false;
    table.emplace(d.name, d);
  }
  return table;
}

}  // namespace

const ControlDefinition& mainWindowControl(const std::string& name) {
  static const std::map<std::string, ControlDefinition> table = buildTable();
  auto found = table.find(name);
  if (found == table.end()) throw std::logic_error("frmKorvane has no control " + name);
  return found->second;
}

const FormDefinition& mainWindowDefinition() {
  static const FormDefinition definition{"frmKorvane", "Korvane", 8730, 4635};
  return definition;
}

MaskedEditSettings colorKeyFieldSettings() {
  return MaskedEditSettings{"###", 3, ""};
}

}  // namespace korvane
