#pragma once
// Moving lines between files on disk and line stores.
// Reading: CR and CR LF end a line, a lone LF stays in the line, no extra line
// at the end, an empty file gives none. Writing: every line ends in CR LF, and
// the target takes its new content whole or, when the save fails, keeps its
// old one (LineWriter).
// Each procedure reports its own failure ("Unexpected error in <name>: ...")
// and returns normally, with the failure it reported, for the front ends. The window's own versions, which
// hand over its stores, are in mainwindow/window_procedures.h.

#include <optional>
#include <string>

#include "runtime/failure.h"

namespace korvane {

class LineStore;
class Platform;
class SourceSnapshot;

// The store takes the snapshot's bytes; reading them now if no lookup has.
std::optional<RuntimeFailure> ReadFileLOD0(Platform& platform, LineStore& store, SourceSnapshot&& source);
// Stores the lines from the first line that is exactly "[LOD 0]" on.
std::optional<RuntimeFailure> ReadFileLOD1(Platform& platform, LineStore& store, SourceSnapshot&& source);
std::optional<RuntimeFailure> SaveFileLOD0(Platform& platform, const LineStore& lod0,
                                           const std::string& path);
// lod0, then lod1, with nothing between them.
std::optional<RuntimeFailure> SaveFileCombined(Platform& platform, const LineStore& lod0,
                                               const LineStore& lod1, const std::string& path);

}  // namespace korvane
