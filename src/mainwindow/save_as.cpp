#include "mainwindow/save_as.h"

#include "desktop/file_dialog.h"
#include "mainwindow/main_window.h"
#include "mainwindow/window_procedures.h"
#include "runtime/message_box.h"
#include "runtime/shared_strings.h"

namespace korvane {

namespace {

constexpr const char* kNoTextureMap = "Please enter a TextureMap name";
constexpr const char* kColorKeyIncomplete = "Please complete all ColorKey entries";

}  // namespace

std::optional<std::string> RefuseIncompleteInput(frmKorvane& frm) {
  Platform& platform = frm.platform();
  if (frm.txtTextureMap.Text().empty()) {
    MsgBox(platform, kNoTextureMap);
    frm.txtTextureMap.SetFocus();
    return kNoTextureMap;
  }
  if (frm.chkAddColorKey.Value() > 0) {
    bool anyEmpty = false;
    for (int channel = 0; channel < 3; ++channel) anyEmpty |= frm.colorKeyField(channel).Text().empty();
    if (anyEmpty) {
      MsgBox(platform, kColorKeyIncomplete);
      // Highest channel first, so that the lowest empty field ends with the focus.
      for (int channel = 2; channel >= 0; --channel) {
        if (frm.colorKeyField(channel).Text().empty()) frm.colorKeyField(channel).SetFocus();
      }
      return kColorKeyIncomplete;
    }
  }
  return std::nullopt;
}

void btnSaveAs_Click(frmKorvane& frm) {
  if (RefuseIncompleteInput(frm)) return;
  SaveSourcesAs(frm, ShowFileDialog(frm, "Save KOB File As...", DefaultDirPath, kKobFilter, 1, true, ""));
}

SaveOutcome SaveSourcesAs(frmKorvane& frm, const std::string& path) {
  // The lines are rewritten only after the dialog, so a cancel leaves them as they were.
  if (path.empty()) return {};

  // Each step reports its own failure and returns; the file is written whatever they reported.
  UpdateTextureMapLOD0(frm);
  UpdateColorKeyLOD0(frm);
  std::optional<RuntimeFailure> failure;
  if (frm.chkAddLOD1.Value() > 0) {
    UpdateLODInformation(frm);
    UpdateLOD1(frm);
    failure = SaveFileCombined(frm, path);
  } else {
    failure = SaveFileLOD0(frm, path);
  }
  SaveOutcome outcome;
  outcome.result = failure ? SaveOutcome::Result::Failed : SaveOutcome::Result::Saved;
  outcome.failure = std::move(failure);
  return outcome;
}

SaveOutcome SaveAs(frmKorvane& frm, const std::string& path) {
  if (std::optional<std::string> refusal = RefuseIncompleteInput(frm)) {
    SaveOutcome outcome;
    outcome.result = SaveOutcome::Result::Incomplete;
    outcome.refusal = *refusal;
    return outcome;
  }
  return SaveSourcesAs(frm, path);
}

}  // namespace korvane
