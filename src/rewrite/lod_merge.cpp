#include "rewrite/lod_merge.h"

#include <string>

#include "mainwindow/main_window.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure_handling.h"
#include "shell/program.h"
#include "text/delimited_text.h"

namespace korvane {

namespace {

constexpr std::string_view kNumberOfLodKeyword = "NUMBEROFLOD=";
constexpr std::string_view kAutoLod0Keyword = "AUTOLOD#0=";
constexpr std::string_view kAutoLod1Keyword = "AUTOLOD#1=";

struct TransitionPoints {
  std::string autoLod0Line;
  std::string autoLod1Line;
};

// A one-LOD source: the first NumberOfLOD line becomes the head of the
// two-LOD block. Lines already standing behind it are left alone, so a save
// repeated with a LOD 1 source puts its newer block ahead of the older one.
void extendToTwoLods(LineStore& lines, const TransitionPoints& points) {
  const std::optional<std::int32_t> at = findKeyword(lines, kNumberOfLodKeyword);
  if (!at) return;
  replaceLine(lines, *at, "NumberOfLOD=2");
  lines.AddItem("UseAutoLOD=T", *at + 1);
  lines.AddItem(points.autoLod0Line, *at + 2);
  lines.AddItem(points.autoLod1Line, *at + 3);
}

// A two-LOD source: the AutoLOD lines are rewritten where they stand, and a
// missing one is put behind NumberOfLOD (point 0) or behind AutoLOD#0 (point 1).
void updateTransitionPoints(LineStore& lines, const TransitionPoints& points) {
  bool autoLod0Found = false;
  bool autoLod1Found = false;
  // The scan goes on until both keywords have been met, so every AutoLOD#0
  // line ahead of the first AutoLOD#1 line is rewritten.
  for (std::int32_t index = 0; index <= lines.ListCount() && !(autoLod0Found && autoLod1Found); ++index) {
    // Both tests look at the line as read: the view dies with the first replace,
    // and a line holding both keywords ends up as the AutoLOD#1 line.
    const std::string_view line = lines.List(index);
    const bool holdsAutoLod0 = holdsKeyword(line, kAutoLod0Keyword);
    const bool holdsAutoLod1 = holdsKeyword(line, kAutoLod1Keyword);
    if (holdsAutoLod0) {
      replaceLine(lines, index, points.autoLod0Line);
      autoLod0Found = true;
    }
    if (holdsAutoLod1) {
      replaceLine(lines, index, points.autoLod1Line);
      autoLod1Found = true;
    }
  }
  if (!autoLod0Found) {
    if (const std::optional<std::int32_t> at = findKeyword(lines, kNumberOfLodKeyword)) {
      lines.AddItem(points.autoLod0Line, *at + 1);
    }
  }
  if (!autoLod1Found) {
    if (const std::optional<std::int32_t> at = findKeyword(lines, kAutoLod0Keyword)) {
      lines.AddItem(points.autoLod1Line, *at + 1);
    }
  }
}

}  // namespace

void UpdateLODInformation(frmKorvane& frm) {
  reportAndLeave(frm.platform(), "UpdateLODInformation", [&] {
    // Both points are read before any line is touched; asking for them
    // brings the settings window into being, hidden, if it is not there yet.
    const frmAdvancedSettings& settings = frm.program().AdvancedSettings();
    TransitionPoints points;
    points.autoLod0Line = "AutoLOD#0=" + settings.mskAutoLOD0.Text();
    points.autoLod1Line = "AutoLOD#1=" + settings.mskAutoLOD1.Text();
    LineStore& lines = frm.lstDataLOD0.Store();
    if (frm.chkAddLOD1.Value() == 2) {
      updateTransitionPoints(lines, points);
    } else {
      extendToTwoLods(lines, points);
    }
  });
}

void UpdateLOD1(frmKorvane& frm) {
  reportAndLeave(frm.platform(), "UpdateLOD1", [&] {
    LineStore& lines = frm.lstDataLOD1.Store();
    for (std::int32_t index = 0; index <= lines.ListCount(); ++index) {
      const std::string_view line = lines.List(index);
      if (line.find("LOD 0") == std::string_view::npos) continue;
      const std::string renamed = Substitute(frm.platform(), line, "LOD 0", "LOD 1");
      // A line that holds "LOD 0" never renames to nothing: an empty result is
      // Substitute's failure, already shown, and the author's line must stay.
      if (renamed.empty()) continue;
      replaceLine(lines, index, renamed);
    }
  });
}

}  // namespace korvane
