#include "mainwindow/window_procedures.h"

#include "advanced/advanced_settings_window.h"
#include "advanced/autolod.h"
#include "desktop/file_dialog.h"
#include "mainwindow/main_window.h"
#include "objectfile/file_transfer.h"
#include "objectfile/source_snapshot.h"
#include "rewrite/lod_merge.h"
#include "rewrite/material_lines.h"
#include "runtime/failure_handling.h"
#include "runtime/platform.h"

namespace korvane {

std::string ShowFileDialog(frmKorvane& frm, const std::string& title, const std::string& initialDirectory,
                           const std::string& filter, std::int16_t filterIndex, bool saveMode,
                           const std::string& fileName) {
  return ShowFileDialog(frm.CommonDialog1, title, initialDirectory, filter, filterIndex, saveMode, fileName);
}

std::optional<RuntimeFailure> ReadFileLOD0(frmKorvane& frm, SourceSnapshot&& source) {
  return ReadFileLOD0(frm.platform(), frm.lstDataLOD0.Store(), std::move(source));
}

std::optional<RuntimeFailure> ReadFileLOD1(frmKorvane& frm, SourceSnapshot&& source) {
  return ReadFileLOD1(frm.platform(), frm.lstDataLOD1.Store(), std::move(source));
}

std::optional<RuntimeFailure> SaveFileLOD0(frmKorvane& frm, const std::string& path) {
  return SaveFileLOD0(frm.platform(), frm.lstDataLOD0.Store(), path);
}

std::optional<RuntimeFailure> SaveFileCombined(frmKorvane& frm, const std::string& path) {
  return SaveFileCombined(frm.platform(), frm.lstDataLOD0.Store(), frm.lstDataLOD1.Store(), path);
}

void UpdateTextureMapLOD0(frmKorvane& frm) {
  UpdateTextureMapLOD0(frm.platform(), frm.lstDataLOD0.Store(), frm.txtTextureMap.Text());
}

void UpdateColorKeyLOD0(frmKorvane& frm) {
  UpdateColorKeyLOD0(frm.platform(), frm.lstDataLOD0.Store(), frm.chkAddColorKey.Value() != 0,
                     {frm.mskColorKey0.Text(), frm.mskColorKey1.Text(), frm.mskColorKey2.Text()});
}

void UpdateLODInformation(frmKorvane& frm) {
  // Both points are read before any line is touched; asking for them brings
  // the settings window into being, hidden, if it is not there yet, and a
  // failure of that is this procedure's too.
  reportAndLeave(frm.platform(), "UpdateLODInformation", [&] {
    const frmAdvancedSettings& settings = frm.program().AdvancedSettings();
    UpdateLODInformation(frm.platform(), frm.lstDataLOD0.Store(), frm.chkAddLOD1.Value(),
                         settings.mskAutoLOD0.Text(), settings.mskAutoLOD1.Text());
  });
}

void UpdateLOD1(frmKorvane& frm) {
  UpdateLOD1(frm.platform(), frm.lstDataLOD1.Store());
}

// Bringing the settings window into being is a step of the procedure, under
// its failure handling.
void ReadAutoLODinfo(frmKorvane& frm, const SourceSnapshot& source) {
  reportAndLeave(frm.platform(), "ReadAutoLODinfo",
                 [&] { ReadAutoLODinfo(frm.program().AdvancedSettings(), source); });
}

void UseDefaultAutoLOD(frmKorvane& frm) {
  reportAndLeave(frm.platform(), "UseDefaultAutoLOD",
                 [&] { UseDefaultAutoLOD(frm.program().AdvancedSettings()); });
}

// The window is shown modally over the main window; the call comes back once
// OK or the close box has hidden it. The fields are the live values already.
void btnAdvancedSettings_Click(frmKorvane& frm) {
  frmAdvancedSettings& settings = frm.program().AdvancedSettings();
  settings.SetVisible(true);
  frm.platform().showModal(settings, frm);
}

}  // namespace korvane
