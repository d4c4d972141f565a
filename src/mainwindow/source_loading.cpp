// Placeholder until implemented.
#include "mainwindow/source_loading.h"

#include "mainwindow/main_window.h"
namespace korvane {
void btnBrowseLOD0_Click(frmKorvane&) {}
void btnBrowseLOD1_Click(frmKorvane&) {}
void btnBrowseTextureMap_Click(frmKorvane&) {}
void chkAddLOD1_Click(frmKorvane&) {}
void ReadTextureMap(frmKorvane&, const std::string&) {}
void ReadNumberOfLOD(frmKorvane&, const std::string&) {}
}  // namespace korvane
