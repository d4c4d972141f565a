#pragma once
// Bringing the LOD 0 source, the LOD 1 source and the texture map name into
// the main window, and deciding which controls are open to the author.

#include <string>

#include "mainwindow/workflow_outcome.h"

namespace korvane {

class frmKorvane;
class SourceSnapshot;

void btnBrowseLOD0_Click(frmKorvane& frm);
void btnBrowseLOD1_Click(frmKorvane& frm);
void btnBrowseTextureMap_Click(frmKorvane& frm);
void chkAddLOD1_Click(frmKorvane& frm);

// The LOD 0 click, the LOD 1 click and the opening branch of the box's
// handler from the moment the dialog has given a path on: an empty path is a
// cancelled dialog. Each says what became of the file.
LoadOutcome OpenSourceLOD0(frmKorvane& frm, const std::string& path);
LoadOutcome SwapSourceLOD1(frmKorvane& frm, const std::string& path);
LoadOutcome AddSourceLOD1(frmKorvane& frm, const std::string& path);
// The author's tick of chkAddLOD1 with path as the dialog's answer.
LoadOutcome TickAddLOD1(frmKorvane& frm, const std::string& path);

// A file handed to a source frame from outside its dialog: named on the
// command line (LOD 0) or dropped on the frame.
enum class SourceFrame { LOD0, LOD1 };
// Whether the frame takes a file now: where the author could choose one
// there. For LOD 1 that is btnBrowseLOD1, or chkAddLOD1 still to be ticked.
bool FrameTakesFile(const frmKorvane& frm, SourceFrame frame);
// What choosing the file in that frame's dialog does, directory remembered
// and all. False, with nothing changed, where the frame takes no file now.
bool HandFileToFrame(frmKorvane& frm, SourceFrame frame, const std::string& path);
void ReadTextureMap(frmKorvane& frm, const SourceSnapshot& source);
void ReadNumberOfLOD(frmKorvane& frm, const SourceSnapshot& source);

}  // namespace korvane
