#pragma once

namespace korvane {

class frmKorvane;

// Refuses incomplete input, asks for the target, rewrites the stored lines and writes them.
void btnSaveAs_Click(frmKorvane& frm);

}  // namespace korvane
