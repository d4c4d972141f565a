#pragma once
// Moving lines between files on disk and the main window's line stores.
// Reading: CR and CR LF end a line, a lone LF stays in the line, no extra line
// at the end, an empty file gives none. Writing: every line ends in CR LF, and
// the target takes its new content whole or, when the save fails, keeps its
// old one (LineWriter).
// Each procedure reports its own failure ("Unexpected error in <name>: ...")
// and returns normally.

#include <string>

namespace korvane {

class frmKorvane;

void ReadFileLOD0(frmKorvane& frm, const std::string& path);
// Stores the lines from the first line that is exactly "[LOD 0]" on.
void ReadFileLOD1(frmKorvane& frm, const std::string& path);
void SaveFileLOD0(frmKorvane& frm, const std::string& path);
// lstDataLOD0, then lstDataLOD1, with nothing between them.
void SaveFileCombined(frmKorvane& frm, const std::string& path);

}  // namespace korvane
