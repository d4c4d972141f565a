#include "mainwindow/save_as.h"

#include "desktop/file_dialog.h"
#include "mainwindow/main_window.h"
#include "mainwindow/window_procedures.h"
#include "runtime/message_box.h"
#include "runtime/shared_strings.h"

namespace korvane {

namespace {

// Refuses what cannot be saved, with the focus where the author has to type.
bool inputComplete(frmKorvane& frm) {
  Platform& platform = frm.platform();
  if (frm.txtTextureMap.Text().empty()) {
    MsgBox(platform, "Please enter a TextureMap name");
    frm.txtTextureMap.SetFocus();
    return false;
  }
  if (frm.chkAddColorKey.Value() > 0) {
    bool anyEmpty = false;
    for (int channel = 0; channel < 3; ++channel) anyEmpty |= frm.colorKeyField(channel).Text().empty();
    if (anyEmpty) {
      MsgBox(platform, "Please complete all ColorKey entries");
      // Highest channel first, so that the lowest empty field ends with the focus.
      for (int channel = 2; channel >= 0; --channel) {
        if (frm.colorKeyField(channel).Text().empty()) frm.colorKeyField(channel).SetFocus();
      }
      return false;
    }
  }
  return true;
}

}  // namespace

void btnSaveAs_Click(frmKorvane& frm) {
  if (!inputComplete(frm)) return;
  std::string path = ShowFileDialog(frm, "Save KOB File As...", DefaultDirPath, kKobFilter, 1, true, "");
  // The lines are rewritten only after the dialog, so a cancel leaves them as they were.
  if (path.empty()) return;

  // Each step reports its own failure and returns; the file is written whatever they reported.
  UpdateTextureMapLOD0(frm);
  UpdateColorKeyLOD0(frm);
  if (frm.chkAddLOD1.Value() > 0) {
    UpdateLODInformation(frm);
    UpdateLOD1(frm);
    SaveFileCombined(frm, path);
  } else {
    SaveFileLOD0(frm, path);
  }
}

}  // namespace korvane
