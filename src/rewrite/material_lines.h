#pragma once
// Brings the stored LOD 0 lines in line with the texture map name and the
// ColorKey on the main window.

namespace korvane {

class frmKorvane;

void UpdateTextureMapLOD0(frmKorvane& frm);
void UpdateColorKeyLOD0(frmKorvane& frm);

}  // namespace korvane
