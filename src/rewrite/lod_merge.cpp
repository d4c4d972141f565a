// Placeholder until implemented.
#include "rewrite/lod_merge.h"

#include "mainwindow/main_window.h"
namespace korvane {
void UpdateLODInformation(frmKorvane&) {}
void UpdateLOD1(frmKorvane&) {}
}  // namespace korvane
