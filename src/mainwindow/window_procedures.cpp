#include "mainwindow/window_procedures.h"

#include "mainwindow/main_window.h"
#include "objectfile/file_transfer.h"
#include "objectfile/source_snapshot.h"

namespace korvane {

void ReadFileLOD0(frmKorvane& frm, SourceSnapshot&& source) {
  ReadFileLOD0(frm.platform(), frm.lstDataLOD0.Store(), std::move(source));
}

void ReadFileLOD1(frmKorvane& frm, SourceSnapshot&& source) {
  ReadFileLOD1(frm.platform(), frm.lstDataLOD1.Store(), std::move(source));
}

void SaveFileLOD0(frmKorvane& frm, const std::string& path) {
  SaveFileLOD0(frm.platform(), frm.lstDataLOD0.Store(), path);
}

void SaveFileCombined(frmKorvane& frm, const std::string& path) {
  SaveFileCombined(frm.platform(), frm.lstDataLOD0.Store(), frm.lstDataLOD1.Store(), path);
}

}  // namespace korvane
