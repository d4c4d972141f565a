#pragma once
// The procedures that take the main window: each hands the stores and values
// of the window to the procedure of the lower layer that works on them, under
// the same name, with the same messages.

#include <string>

namespace korvane {

class frmKorvane;
class SourceSnapshot;

void ReadFileLOD0(frmKorvane& frm, SourceSnapshot&& source);
void ReadFileLOD1(frmKorvane& frm, SourceSnapshot&& source);
void SaveFileLOD0(frmKorvane& frm, const std::string& path);
void SaveFileCombined(frmKorvane& frm, const std::string& path);

}  // namespace korvane
