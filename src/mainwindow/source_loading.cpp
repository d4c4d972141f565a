#include "mainwindow/source_loading.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "advanced/autolod.h"
#include "desktop/file_dialog.h"
#include "mainwindow/color_key_editor.h"
#include "mainwindow/main_window.h"
#include "mainwindow/window_procedures.h"
#include "objectfile/profile_lookup.h"
#include "objectfile/source_snapshot.h"
#include "objectfile/source_validation.h"
#include "runtime/failure_handling.h"
#include "runtime/message_box.h"
#include "runtime/shared_strings.h"
#include "text/delimited_text.h"
#include "text/number_conversion.h"

namespace korvane {

namespace {

std::string askForFile(frmKorvane& frm, const char* title, const char* filter) {
  return ShowFileDialog(frm, title, DefaultDirPath, filter, 1, false, "");
}

std::string askForLOD1Source(frmKorvane& frm) {
  return askForFile(frm, "Open KOB File (LOD 1)", kKobFilter);
}

// The name rule splits at backslashes only; paths from the dialog may use
// forward slashes.
std::string withBackslashes(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

// Ticking the box runs its handler inside the set, and the handler asks for
// a file. For a file handed in, the set goes without the handler.
void tickWithoutHandler(CheckBox& box) {
  struct Detached {
    CheckBox& box;
    std::function<void()> handler = std::exchange(box.onClick, nullptr);
    ~Detached() { box.onClick = std::move(handler); }
  } detached{box};
  box.SetValue(1);
}

LoadOutcome refused(const SourceVerdict& verdict) {
  LoadOutcome outcome;
  outcome.result = LoadOutcome::Result::Refused;
  outcome.refusal = verdict.refusal;
  return outcome;
}

// The lines are read last: what became of them is what became of the load.
LoadOutcome read(std::optional<RuntimeFailure> failure) {
  LoadOutcome outcome;
  outcome.result = failure ? LoadOutcome::Result::ReadFailed : LoadOutcome::Result::Loaded;
  outcome.failure = std::move(failure);
  return outcome;
}

}  // namespace

void btnBrowseLOD0_Click(frmKorvane& frm) {
  OpenSourceLOD0(frm, askForFile(frm, "Open KOB File (LOD 0)", kKobFilter));
}

LoadOutcome OpenSourceLOD0(frmKorvane& frm, const std::string& path) {
  if (path.empty()) return {};
  // One opening reads the file once: its validation, lookups and store all
  // see the bytes of this snapshot.
  SourceSnapshot source(path);
  // Every change to the window comes after the validation, so a refused file
  // leaves whatever was loaded as it was.
  SourceVerdict verdict = ValidateSourceLOD0(frm.platform(), source);
  if (!verdict.accepted) return refused(verdict);

  frm.lstDataLOD1.Store().Clear();
  // Dropping a loaded LOD 1 (or a grayed box) runs the box's closing branch.
  frm.chkAddLOD1.SetValue(0);
  frm.chkAddLOD1.SetEnabled(false);
  Control* opened[] = {&frm.txtFilePathLOD0,     &frm.Frame2,         &frm.lblTextureMap, &frm.txtTextureMap,
                       &frm.btnBrowseTextureMap, &frm.lblNumberOfLOD, &frm.lblLODnum,     &frm.btnSaveAs,
                       &frm.chkAddColorKey};
  for (Control* control : opened) control->SetEnabled(true);
  frm.txtFilePathLOD0.SetText(path);

  // The lines are read last; each step runs whatever became of the one before.
  ReadTextureMap(frm, source);
  ReadColorKeyINI(frm, source);
  ReadNumberOfLOD(frm, source);
  return read(ReadFileLOD0(frm, std::move(source)));
}

void btnBrowseLOD1_Click(frmKorvane& frm) {
  SwapSourceLOD1(frm, askForLOD1Source(frm));
}

LoadOutcome SwapSourceLOD1(frmKorvane& frm, const std::string& path) {
  if (path.empty()) return {};
  SourceSnapshot source(path);
  SourceVerdict verdict = ValidateSourceLOD1(frm.platform(), source);
  if (!verdict.accepted) return refused(verdict);
  // A swap of the LOD 1 source keeps the AutoLOD values the author set.
  frm.txtFilePathLOD1.SetText(path);
  return read(ReadFileLOD1(frm, std::move(source)));
}

LoadOutcome AddSourceLOD1(frmKorvane& frm, const std::string& path) {
  std::optional<SourceSnapshot> source;
  if (!path.empty()) source.emplace(path);
  LoadOutcome outcome;
  if (source) {
    SourceVerdict verdict = ValidateSourceLOD1(frm.platform(), *source);
    if (!verdict.accepted) outcome = refused(verdict);
  }
  if (!source || outcome.result == LoadOutcome::Result::Refused) {
    // Unchecking runs the box's handler again, inside the set, on its closing
    // branch; nothing is left to do here afterwards.
    frm.lstDataLOD1.Store().Clear();
    frm.chkAddLOD1.SetValue(0);
    return outcome;
  }
  frm.Frame4.SetEnabled(true);
  frm.btnBrowseLOD1.SetEnabled(true);
  frm.txtFilePathLOD1.SetEnabled(true);
  UseDefaultAutoLOD(frm);
  frm.btnAdvancedSettings.SetEnabled(true);
  frm.txtFilePathLOD1.SetText(path);
  return read(ReadFileLOD1(frm, std::move(*source)));
}

LoadOutcome TickAddLOD1(frmKorvane& frm, const std::string& path) {
  tickWithoutHandler(frm.chkAddLOD1);
  return AddSourceLOD1(frm, path);
}

void btnBrowseTextureMap_Click(frmKorvane& frm) {
  std::string path = askForFile(frm, "Open TGA File", kTgaFilter);
  if (path.empty()) return;
  // The texture is never opened: only its name reaches the field.
  frm.txtTextureMap.SetText(GetFileName(frm.platform(), withBackslashes(path)));
}

void chkAddLOD1_Click(frmKorvane& frm) {
  if (frm.chkAddLOD1.Value() == 1) {
    AddSourceLOD1(frm, askForLOD1Source(frm));
    return;
  }
  // Unchecked or grayed: no LOD 1 source is in play.
  frm.Frame4.SetEnabled(false);
  frm.btnBrowseLOD1.SetEnabled(false);
  frm.txtFilePathLOD1.SetEnabled(false);
  frm.btnAdvancedSettings.SetEnabled(false);
  frm.txtFilePathLOD1.SetText("");
  frm.lstDataLOD1.Store().Clear();
}

bool FrameTakesFile(const frmKorvane& frm, SourceFrame frame) {
  if (frame == SourceFrame::LOD0) return frm.btnBrowseLOD0.Enabled();
  return frm.btnBrowseLOD1.Enabled() || (frm.chkAddLOD1.Enabled() && frm.chkAddLOD1.Value() == 0);
}

bool HandFileToFrame(frmKorvane& frm, SourceFrame frame, const std::string& path) {
  if (path.empty() || !FrameTakesFile(frm, frame)) return false;
  const std::string fullPath = FullPathOf(frm.platform(), path);
  const bool ticking = frame == SourceFrame::LOD1 && !frm.btnBrowseLOD1.Enabled();
  // The box is ticked before its dialog opens; the handed file answers the dialog.
  if (ticking) tickWithoutHandler(frm.chkAddLOD1);
  // A dialog remembers the directory before any validation.
  RememberDirectoryOf(frm.platform(), fullPath);
  if (frame == SourceFrame::LOD0)
    OpenSourceLOD0(frm, fullPath);
  else if (ticking)
    AddSourceLOD1(frm, fullPath);
  else
    SwapSourceLOD1(frm, fullPath);
  return true;
}

void ReadTextureMap(frmKorvane& frm, const SourceSnapshot& source) {
  Platform& platform = frm.platform();
  reportAndLeave(platform, "ReadTextureMap", [&] {
    frm.txtTextureMap.SetText("");
    // A path in the value stays in the field as it stands.
    frm.txtTextureMap.SetText(GetINIString(platform, "Material - 0", "TextureMap", source));
  });
}

void ReadNumberOfLOD(frmKorvane& frm, const SourceSnapshot& source) {
  Platform& platform = frm.platform();
  reportAndLeave(platform, "ReadNumberOfLOD", [&] {
    std::string text = GetINIString(platform, "LOD Information", "NumberOfLOD", source);
    // The validation found the key in these very bytes; should the lookup
    // fail all the same, the load goes on as for one LOD, with the number 0.
    if (text.empty()) MsgBox(platform, "Error Reading the KOB file");
    std::int32_t number = RoundToWhole(LeadingNumber(text), WholeWidth::Bits32);
    frm.lblLODnum.SetCaption("");
    frm.lblLODnum.SetCaption(std::to_string(number));
    if (number >= 2) {
      // The box stays disabled from the LOD 0 click: a grayed box is not the author's to change.
      frm.chkAddLOD1.SetValue(2);
      ReadAutoLODinfo(frm, source);
      // Only now: the closing branch run by the set above has just disabled it.
      frm.btnAdvancedSettings.SetEnabled(true);
    } else {
      frm.chkAddLOD1.SetEnabled(true);
      frm.btnAdvancedSettings.SetEnabled(false);
    }
  });
}

}  // namespace korvane
