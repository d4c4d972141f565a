#pragma once
// Bringing the LOD 0 source, the LOD 1 source and the texture map name into
// the main window, and deciding which controls are open to the author.

#include <string>

namespace korvane {

class frmKorvane;

void btnBrowseLOD0_Click(frmKorvane& frm);
void btnBrowseLOD1_Click(frmKorvane& frm);
void btnBrowseTextureMap_Click(frmKorvane& frm);
void chkAddLOD1_Click(frmKorvane& frm);
void ReadTextureMap(frmKorvane& frm, const std::string& path);
void ReadNumberOfLOD(frmKorvane& frm, const std::string& path);

}  // namespace korvane
