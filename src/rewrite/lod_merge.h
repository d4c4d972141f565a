#pragma once
// Prepares the stored lines for a file with two levels of detail.

namespace korvane {

class frmKorvane;

// Value 2 of chkAddLOD1 updates the AutoLOD lines; any other value extends
// the first NumberOfLOD line into the two-LOD block.
void UpdateLODInformation(frmKorvane& frm);
// Every "LOD 0" in lstDataLOD1 becomes "LOD 1".
void UpdateLOD1(frmKorvane& frm);

}  // namespace korvane
