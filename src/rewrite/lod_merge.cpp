#include "rewrite/lod_merge.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "objectfile/line_store.h"
#include "rewrite/keyword_scan.h"
#include "runtime/failure_handling.h"
#include "text/byte_scan.h"
#include "text/delimited_text.h"

namespace korvane {

namespace {

constexpr std::string_view kLod0 = "LOD 0";
constexpr std::string_view kLod1 = "LOD 1";
constexpr std::string_view kNumberOfLodKeyword = "NUMBEROFLOD=";
constexpr std::string_view kAutoLod0Keyword = "AUTOLOD#0=";
constexpr std::string_view kAutoLod1Keyword = "AUTOLOD#1=";
constexpr std::string_view kAutoLodHead = "AUTOLOD#";
// Substitute works in 16-bit positions: a "LOD 0" that starts beyond this
// one-based position makes it fail.
constexpr std::size_t kLastRenamedPosition = 32767 - 5;

struct TransitionPoints {
  std::string autoLod0Line;
  std::string autoLod1Line;
};

// A one-LOD source: the first NumberOfLOD line becomes the head of the
// two-LOD block. Lines already standing behind it are left alone, so a save
// repeated with a LOD 1 source puts its newer block ahead of the older one.
void extendToTwoLods(LineStore& lines, const TransitionPoints& points) {
  const std::optional<LineStore::Index> at = findKeyword(lines, kNumberOfLodKeyword);
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
  // line ahead of the first AutoLOD#1 line is rewritten. Both keywords share
  // their head, which one search over the stored text finds.
  for (LineStore::Index from = 0; !(autoLod0Found && autoLod1Found);) {
    const std::optional<LineStore::Index> at = findKeyword(lines, kAutoLodHead, from);
    if (!at) break;
    // Both tests look at the line as read: the view dies with the first replace,
    // and a line holding both keywords ends up as the AutoLOD#1 line.
    const std::string_view line = lines.List(*at);
    const bool holdsAutoLod0 = holdsKeyword(line, kAutoLod0Keyword);
    const bool holdsAutoLod1 = holdsKeyword(line, kAutoLod1Keyword);
    if (holdsAutoLod0) {
      replaceLine(lines, *at, points.autoLod0Line);
      autoLod0Found = true;
    }
    if (holdsAutoLod1) {
      replaceLine(lines, *at, points.autoLod1Line);
      autoLod1Found = true;
    }
    from = *at + 1;
  }
  if (!autoLod0Found) {
    if (const std::optional<LineStore::Index> at = findKeyword(lines, kNumberOfLodKeyword)) {
      lines.AddItem(points.autoLod0Line, *at + 1);
    }
  }
  if (!autoLod1Found) {
    if (const std::optional<LineStore::Index> at = findKeyword(lines, kAutoLod0Keyword)) {
      lines.AddItem(points.autoLod1Line, *at + 1);
    }
  }
}

}  // namespace

void UpdateLODInformation(Platform& platform, LineStore& lod0, int addLOD1, const std::string& autoLOD0,
                          const std::string& autoLOD1) {
  reportAndLeave(platform, "UpdateLODInformation", [&] {
    TransitionPoints points;
    points.autoLod0Line = "AutoLOD#0=" + autoLOD0;
    points.autoLod1Line = "AutoLOD#1=" + autoLOD1;
    LineStore& lines = lod0;
    if (addLOD1 == 2) {
      updateTransitionPoints(lines, points);
    } else {
      extendToTwoLods(lines, points);
    }
  });
}

void UpdateLOD1(Platform& platform, LineStore& lod1) {
  reportAndLeave(platform, "UpdateLOD1", [&] {
    LineStore& lines = lod1;
    // "LOD 1" neither holds "LOD 0" nor forms it with its neighbours, and
    // "LOD 0" cannot overlap itself: renaming each occurrence where it stands
    // gives what Substitute gives, as long as Substitute's positions hold.
    const std::vector<LineStore::Index> beyondLimit =
        lines.EditLinesHolding(kLod0, detail::findText, [](std::span<char> line, std::size_t offset) {
          const char* const end = line.data() + line.size();
          if (line.size() > kLastRenamedPosition - 1 + kLod0.size() &&
              detail::findText(line.data() + kLastRenamedPosition, end, kLod0) != nullptr) {
            return false;
          }
          char* const limit = line.data() + std::min(line.size(), kLastRenamedPosition - 1 + kLod0.size());
          detail::replaceEach(line.data() + offset, limit, kLod0, kLod1);
          return true;
        });
    // Such a line goes through Substitute, which tells the author.
    for (LineStore::Index index : beyondLimit) {
      const std::string renamed = Substitute(platform, lines.List(index), kLod0, kLod1);
      // A line that holds "LOD 0" never renames to nothing: an empty result is
      // Substitute's failure, already shown, and the author's line must stay.
      if (!renamed.empty()) replaceLine(lines, index, renamed);
    }
  });
}

}  // namespace korvane
