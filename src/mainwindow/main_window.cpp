#include "mainwindow/main_window.h"

#include "advanced/autolod.h"
#include "desktop/help.h"
#include "desktop/placement.h"
#include "mainwindow/color_key_editor.h"
#include "mainwindow/save_as.h"
#include "mainwindow/source_loading.h"
#include "mainwindow/window_procedures.h"

namespace korvane {

frmKorvane::frmKorvane(ProgramServices& program)
    : Form(program.platform(), mainWindowDefinition().form()), m_program(program) {
  connectHandlers();
}

void frmKorvane::connectHandlers() {
  btnSaveAs.onClick = [this] { btnSaveAs_Click(*this); };
  btnViewHelp.onClick = [this] { ViewHelp(platform()); };
  btnExit.onClick = [this] { m_program.ExitProgram(); };
  chkAddColorKey.onClick = [this] { chkAddColorKey_Click(*this); };
  chkAddLOD1.onClick = [this] { chkAddLOD1_Click(*this); };
  btnAdvancedSettings.onClick = [this] { btnAdvancedSettings_Click(*this); };
  btnBrowseLOD0.onClick = [this] { btnBrowseLOD0_Click(*this); };
  btnBrowseLOD1.onClick = [this] { btnBrowseLOD1_Click(*this); };
  btnBrowseTextureMap.onClick = [this] { btnBrowseTextureMap_Click(*this); };
  for (int channel = 0; channel < 3; ++channel) {
    colorKeyField(channel).onChange = [this, channel] { mskColorKey_Change(*this, channel); };
    colorKeyBar(channel).onChange = [this, channel] { vscrlColorKey_Change(*this, channel); };
    colorKeySlider(channel).onChange = [this, channel] { sldColorKey_Change(*this, channel); };
  }
}

void frmKorvane::Form_Load() {
  CenterFormHorizontally(*this);
  CenterFormVertically(*this);
  for (int channel = 0; channel < 3; ++channel) colorKeyField(channel).SetText("128");
  for (int channel = 0; channel < 3; ++channel) colorKeyBar(channel).SetValue(128);
  for (int channel = 0; channel < 3; ++channel) colorKeySlider(channel).SetValue(128);
}

void frmKorvane::Form_QueryUnload() {
  m_program.ExitProgram();
}

void frmKorvane::RequestClose() {
  if (closing) return;
  closing = true;
  Form_QueryUnload();
}

MaskedEdit& frmKorvane::colorKeyField(int channel) {
  MaskedEdit* fields[] = {&mskColorKey0, &mskColorKey1, &mskColorKey2};
  return *fields[channel];
}

VScrollBar& frmKorvane::colorKeyBar(int channel) {
  VScrollBar* bars[] = {&vscrlColorKey0, &vscrlColorKey1, &vscrlColorKey2};
  return *bars[channel];
}

Slider& frmKorvane::colorKeySlider(int channel) {
  Slider* sliders[] = {&sldColorKey0, &sldColorKey1, &sldColorKey2};
  return *sliders[channel];
}

}  // namespace korvane
